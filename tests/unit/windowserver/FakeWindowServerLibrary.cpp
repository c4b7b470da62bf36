#include "FakeWindowServerLibrary.h"

#include <array>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace haloric {
namespace {

using Entries = WindowServerEntries;

constexpr std::int32_t kFailure = 1000;

FakeWindowServerLibrary* live = nullptr;
int transactionObject = 0;

// Notes a call of a C function; its error code.
template <class... Values>
std::int32_t note(const char* symbol, const Values&... values)
{
    std::ostringstream text;
    std::string_view separator;
    text << symbol << '(';
    ((text << std::exchange(separator, ", ") << values), ...);
    text << ')';
    live->calls.push_back(text.str());
    return live->failingSymbols.contains(symbol) ? kFailure : 0;
}

const char* nameOf(const void* transaction) { return transaction == &transactionObject ? "tx" : "unknown"; }

std::int32_t mainConnection()
{
    note("SLSMainConnectionID");
    return 77;
}

std::int32_t getBounds(std::int32_t connection, std::uint32_t window, Entries::CRect* bounds)
{
    const bool isZeroed = bounds->x == 0 && bounds->y == 0 && bounds->width == 0 && bounds->height == 0;
    const std::int32_t result = note("SLSGetWindowBounds", connection, window, isZeroed ? "zeroed" : "dirty");
    *bounds = {10, 20.5, 400, 300};
    return result;
}

std::int32_t registerProc(Entries::NotifyProc procedure, std::uint32_t event, void* context)
{
    live->procedure = procedure;
    return note("SLSRegisterNotifyProc", procedure ? "proc" : "null", event, context ? "context" : "null");
}

std::int32_t removeProc(Entries::NotifyProc procedure, std::uint32_t event, void* context)
{
    return note("SLSRemoveNotifyProc", procedure && procedure == live->procedure ? "proc" : "other", event,
                context ? "context" : "null");
}

std::int32_t request(std::int32_t connection, const std::uint32_t* windows, std::int32_t count)
{
    return note("SLSRequestNotificationsForWindows", connection, windows ? std::to_string(*windows) : "null", count);
}

void* create(std::int32_t connection)
{
    return note("SLSTransactionCreate", connection) == 0 ? &transactionObject : nullptr;
}

std::int32_t move(void* transaction, std::uint32_t window, Entries::CPoint origin)
{
    return note("SLSTransactionMoveWindowWithGroup", nameOf(transaction), window, origin.x, origin.y);
}

std::int32_t commit(void* transaction, std::int32_t zero)
{
    return note("SLSTransactionCommit", nameOf(transaction), zero);
}

class Opened final : public OpenedLibrary {
public:
    Opened() = default;
    ~Opened() override { live->calls.emplace_back("close()"); }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;

    void* find(const char* symbol) const override
    {
        live->calls.push_back("find(" + std::string(symbol) + ")");
        const std::array<std::pair<std::string_view, void*>, 8> functions{{
            {"SLSMainConnectionID", reinterpret_cast<void*>(&mainConnection)},
            {"SLSGetWindowBounds", reinterpret_cast<void*>(&getBounds)},
            {"SLSRegisterNotifyProc", reinterpret_cast<void*>(&registerProc)},
            {"SLSRemoveNotifyProc", reinterpret_cast<void*>(&removeProc)},
            {"SLSRequestNotificationsForWindows", reinterpret_cast<void*>(&request)},
            {"SLSTransactionCreate", reinterpret_cast<void*>(&create)},
            {"SLSTransactionMoveWindowWithGroup", reinterpret_cast<void*>(&move)},
            {"SLSTransactionCommit", reinterpret_cast<void*>(&commit)},
        }};
        for (const auto& [name, function] : functions)
            if (name == symbol && !live->missingSymbols.contains(name))
                return function;
        return nullptr;
    }
};

} // namespace

FakeWindowServerLibrary::FakeWindowServerLibrary()
{
    if (live)
        throw std::logic_error("a second window server library was made");
    live = this;
}

FakeWindowServerLibrary::~FakeWindowServerLibrary() { live = nullptr; }

std::unique_ptr<OpenedLibrary> FakeWindowServerLibrary::open(const char* path, int mode)
{
    calls.push_back("open(" + std::string(path) + ", " + std::to_string(mode) + ")");
    return canBeOpened ? std::make_unique<Opened>() : nullptr;
}

void FakeWindowServerLibrary::release(void* transaction)
{
    calls.push_back(std::string("release(") + nameOf(transaction) + ")");
}

} // namespace haloric
