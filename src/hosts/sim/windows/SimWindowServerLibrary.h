// The window server's private library on the simulated desktop: eight entries as C functions, over the desktop of the
// one instance that lives. Notifications reach the registered procedures as events of their own, between those of
// the main loop, as if another thread had sent them.
#pragma once

#include "foundation/WeakAnchor.h"
#include "hosts/sim/desktop/SimDesktop.h"
#include "platform/WindowServerLibrary.h"

#include <cstdint>
#include <set>
#include <string_view>
#include <vector>

namespace haloric {

class SimWindowServerLibrary final : public WindowServerLibrary {
public:
    using Procedure = void (*)(std::uint32_t event, const void* data, std::int64_t length, void* context);

    explicit SimWindowServerLibrary(SimDesktop& desktop);
    ~SimWindowServerLibrary() override;
    SimWindowServerLibrary(const SimWindowServerLibrary&) = delete;
    SimWindowServerLibrary& operator=(const SimWindowServerLibrary&) = delete;

    std::unique_ptr<OpenedLibrary> open(const char* path, int mode) override;
    void release(void* transaction) override;

    // Calls the registered procedures of an event right away with whatever data is given.
    void notify(std::uint32_t event, const void* data, std::int64_t length);

    // Work that the procedures have posted to the main loop since the watched windows were last chosen, and that has
    // not run yet.
    std::size_t outstandingDeliveries() const { return m_outstandingDeliveries; }

    std::size_t registrationCount() const { return m_registrations.size(); }
    std::size_t openTransactions() const { return m_transactions; }
    const std::set<WindowNumber>& watchedWindows() const { return m_watched; }

private:
    class Opened;
    struct Entries; // the C functions
    struct Registration {
        Procedure procedure;
        std::uint32_t event;
        void* context;
        friend bool operator==(const Registration&, const Registration&) = default;
    };

    bool fails(std::string_view symbol);

    static SimWindowServerLibrary* s_live;

    SimDesktop& m_desktop;
    std::vector<Registration> m_registrations;
    std::set<WindowNumber> m_watched;
    std::size_t m_transactions = 0;
    std::size_t m_outstandingDeliveries = 0;
    std::uint64_t m_choices = 0; // of watched windows
    Subscription m_subscription;
    WeakAnchor<SimWindowServerLibrary> m_anchor{*this};
};

} // namespace haloric
