// The eight entries of FakeWindowServerLibrary, as functions that act on the live one.
#pragma once

#include "support/FakeWindowServerLibrary.h"

namespace haloric {

struct FakeWindowServerEntryFunctions {
    using NotifyProc = WindowServerEntries::NotifyProc;

    static std::int32_t mainConnection();
    static std::int32_t getBounds(std::int32_t connection, std::uint32_t window, WindowServerEntries::CRect* out);
    static std::int32_t registerProc(NotifyProc procedure, std::uint32_t event, void* context);
    static std::int32_t removeProc(NotifyProc procedure, std::uint32_t event, void* context);
    static std::int32_t request(std::int32_t connection, const std::uint32_t* windows, std::int32_t count);
    static void* create(std::int32_t connection);
    static std::int32_t move(void* transaction, std::uint32_t window, WindowServerEntries::CPoint origin);
    static std::int32_t commit(void* transaction, std::int32_t zero);

    // Null for a name that is none of the eight.
    static void* address(std::string_view symbol);
};

} // namespace haloric
