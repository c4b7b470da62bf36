// Owners of sd-bus objects.
#pragma once

#include <memory>

#include <systemd/sd-bus.h>

namespace haloric {

struct BusMessageRelease {
    void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
using BusMessage = std::unique_ptr<sd_bus_message, BusMessageRelease>;

// A pending call, a match or an exported object; its destruction ends it.
struct BusSlotRelease {
    void operator()(sd_bus_slot* slot) const { sd_bus_slot_unref(slot); }
};
using BusSlot = std::unique_ptr<sd_bus_slot, BusSlotRelease>;

} // namespace haloric
