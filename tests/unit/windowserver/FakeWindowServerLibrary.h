// A library whose eight C functions act on the one live fake, and that notes every call. Main thread.
//
// Calls read like "SLSRegisterNotifyProc(proc, 806, null)".
#pragma once

#include "platform/WindowServerLibrary.h"
#include "windowserver/WindowServerEntries.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace haloric {

class FakeWindowServerLibrary final : public WindowServerLibrary {
public:
    FakeWindowServerLibrary();
    ~FakeWindowServerLibrary() override;
    FakeWindowServerLibrary(const FakeWindowServerLibrary&) = delete;
    FakeWindowServerLibrary& operator=(const FakeWindowServerLibrary&) = delete;

    bool canBeOpened = true;
    std::set<std::string, std::less<>> missingSymbols;
    std::set<std::string, std::less<>> failingSymbols; // return an error code, or a null transaction

    std::vector<std::string> calls; // all of them, in order
    std::vector<std::string> takeCalls() { return std::exchange(calls, {}); }

    // The procedure that was registered last, also after its removal.
    WindowServerEntries::NotifyProc procedure = nullptr;

    // WindowServerLibrary
    std::unique_ptr<OpenedLibrary> open(const char* path, int mode) override;
    void release(void* transaction) override;
};

} // namespace haloric
