#include "windowserver/WindowServerEntries.h"

#include "platform/WindowServerLibrary.h"

namespace haloric {
namespace {

template <class Function>
void findInto(Function& entry, const OpenedLibrary& library, const char* symbol)
{
    entry = reinterpret_cast<Function>(library.find(symbol));
}

} // namespace

WindowServerEntries WindowServerEntries::find(const OpenedLibrary& library)
{
    WindowServerEntries entries;
    findInto(entries.mainConnection, library, "SLSMainConnectionID");
    findInto(entries.getBounds, library, "SLSGetWindowBounds");
    findInto(entries.registerProc, library, "SLSRegisterNotifyProc");
    findInto(entries.removeProc, library, "SLSRemoveNotifyProc");
    findInto(entries.request, library, "SLSRequestNotificationsForWindows");
    findInto(entries.create, library, "SLSTransactionCreate");
    findInto(entries.move, library, "SLSTransactionMoveWindowWithGroup");
    findInto(entries.commit, library, "SLSTransactionCommit");
    return entries;
}

} // namespace haloric
