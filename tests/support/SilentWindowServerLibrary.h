// A window server that knows one window and whose entries, unlike those of the usual fake, note nothing: notes
// allocate.
#pragma once

#include "platform/WindowServerLibrary.h"
#include "windowserver/WindowServerEntries.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace haloric {

class SilentWindowServerLibrary final : public WindowServerLibrary {
public:
    static inline WindowServerEntries::CRect bounds{100, 100, 400, 300};

    std::unique_ptr<OpenedLibrary> open(const char*, int) override { return std::make_unique<Opened>(); }
    void release(void*) override {}

private:
    class Opened final : public OpenedLibrary {
    public:
        void* find(const char* symbol) const override
        {
            const std::string_view name(symbol);
            if (name == "SLSMainConnectionID")
                return reinterpret_cast<void*>(+[]() -> std::int32_t { return 1; });
            if (name == "SLSGetWindowBounds")
                return reinterpret_cast<void*>(&getBounds);
            return nullptr;
        }
    };

    static std::int32_t getBounds(std::int32_t, std::uint32_t, WindowServerEntries::CRect* out)
    {
        *out = bounds;
        return 0;
    }
};

} // namespace haloric
