#include "windowserver/LoadedWindowServerCalls.h"

#include <cstring>
#include <utility>

namespace haloric {

namespace {

template <class Function>
void findInto(Function& entry, const OpenedLibrary& library, WindowServerCalls::Entry name)
{
    entry = reinterpret_cast<Function>(library.find(WindowServerCalls::symbol(name)));
}

// What the library lacks stays null.
WindowServerEntries entriesOf(const OpenedLibrary& library)
{
    using Entry = WindowServerCalls::Entry;
    WindowServerEntries entries;
    findInto(entries.mainConnection, library, Entry::mainConnection);
    findInto(entries.getBounds, library, Entry::getBounds);
    findInto(entries.registerProc, library, Entry::registerProc);
    findInto(entries.removeProc, library, Entry::removeProc);
    findInto(entries.request, library, Entry::request);
    findInto(entries.create, library, Entry::create);
    findInto(entries.move, library, Entry::move);
    findInto(entries.commit, library, Entry::commit);
    return entries;
}

} // namespace

class LoadedWindowServerCalls::Transaction final : public WindowServerTransaction {
public:
    Transaction(LoadedWindowServerCalls& calls, void* object) : m_calls(calls), m_object(object) {}
    ~Transaction() override { m_calls.m_library.release(m_object); }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    // The results of both have no use: the caller verifies where the window is.
    void move(WindowNumber window, Point topLeft) override
    {
        m_calls.m_entries.move(m_object, static_cast<std::uint32_t>(window), {topLeft.x, topLeft.y});
    }
    void commit() override { m_calls.m_entries.commit(m_object, 0); }

private:
    LoadedWindowServerCalls& m_calls;
    void* m_object;
};

Subscription LoadedWindowServerCalls::load(NotificationHandler handler)
{
    m_receiver.emplace(std::move(handler));
    m_framework = m_library.open(kFrameworkPath, WindowServerLibrary::kLazy | WindowServerLibrary::kLocal);
    if (m_framework)
        m_entries = entriesOf(*m_framework);
    return Subscription([this] { unload(); });
}

void LoadedWindowServerCalls::unload()
{
    m_receiver.reset();
    m_entries = {};
    m_framework.reset();
}

bool LoadedWindowServerCalls::has(Entry entry) const
{
    switch (entry) {
    case Entry::mainConnection:
        return m_entries.mainConnection;
    case Entry::getBounds:
        return m_entries.getBounds;
    case Entry::registerProc:
        return m_entries.registerProc;
    case Entry::removeProc:
        return m_entries.removeProc;
    case Entry::request:
        return m_entries.request;
    case Entry::create:
        return m_entries.create;
    case Entry::move:
        return m_entries.move;
    case Entry::commit:
        return m_entries.commit;
    }
    return false;
}

WindowServerCalls::ConnectionID LoadedWindowServerCalls::mainConnection() { return m_entries.mainConnection(); }

std::optional<Rect> LoadedWindowServerCalls::getBounds(ConnectionID connection, WindowNumber window)
{
    WindowServerEntries::CRect rect{};
    if (m_entries.getBounds(connection, static_cast<std::uint32_t>(window), &rect) != 0)
        return std::nullopt;
    return Rect{rect.x, rect.y, rect.width, rect.height};
}

bool LoadedWindowServerCalls::registerProc(WindowServerEvent event)
{
    return m_entries.registerProc(&notificationProcedure, static_cast<std::uint32_t>(event), nullptr) == 0;
}

bool LoadedWindowServerCalls::removeProc(WindowServerEvent event)
{
    return m_entries.removeProc(&notificationProcedure, static_cast<std::uint32_t>(event), nullptr) == 0;
}

bool LoadedWindowServerCalls::request(ConnectionID connection, WindowNumber window)
{
    if (window == WindowNumber::none)
        return m_entries.request(connection, nullptr, 0) == 0;
    const auto number = static_cast<std::uint32_t>(window);
    return m_entries.request(connection, &number, 1) == 0;
}

std::unique_ptr<WindowServerTransaction> LoadedWindowServerCalls::create(ConnectionID connection)
{
    void* const object = m_entries.create(connection);
    return object ? std::make_unique<Transaction>(*this, object) : nullptr;
}

void LoadedWindowServerCalls::notificationProcedure(std::uint32_t event, const void* data, std::int64_t length, void*)
{
    std::uint32_t window = 0;
    if (!data || length < static_cast<std::int64_t>(sizeof window))
        return;
    std::memcpy(&window, data, sizeof window); // the data need not be aligned

    LiveInstance<Receiver>::use(
        [&](Receiver& receiver) { receiver.handler(WindowServerEvent{event}, WindowNumber{window}); });
}

} // namespace haloric
