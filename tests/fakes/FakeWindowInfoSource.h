// A window list that a test sets, with a note of every question.
#pragma once

#include "platform/WindowInfoSource.h"

#include <utility>
#include <vector>

namespace haloric {

class FakeWindowInfoSource final : public WindowInfoSource {
public:
    struct Call {
        WindowListOptions options;
        WindowNumber relativeTo = WindowNumber::none;
        friend bool operator==(const Call&, const Call&) = default;
    };

    std::optional<std::vector<WindowInfo>> windows = std::vector<WindowInfo>{}; // front to back; absent: no list
    std::vector<Call> calls;

    // An ordinary, opaque window.
    static WindowInfo ordinary(WindowNumber number, ProcessID owner, const Rect& bounds)
    {
        WindowInfo info;
        info.layer = std::int64_t{0};
        info.ownerPID = std::int64_t{static_cast<std::int32_t>(owner)};
        info.alpha = 1.0;
        info.number = std::int64_t{static_cast<std::uint32_t>(number)};
        info.bounds = bounds;
        return info;
    }

    // A query for one window returns only that window, or an empty list.
    std::optional<std::vector<WindowInfo>> copyWindowInfo(WindowListOptions options, WindowNumber relativeTo) override
    {
        calls.push_back({options, relativeTo});
        if (!windows || !has(options, WindowListOptions::includingWindow))
            return windows;
        std::vector<WindowInfo> chosen;
        for (const WindowInfo& info : *windows)
            if (info.number == WindowInfoValue(std::int64_t{static_cast<std::uint32_t>(relativeTo)}))
                chosen.push_back(info);
        return chosen;
    }

private:
    static bool has(WindowListOptions options, WindowListOptions bit)
    {
        return (static_cast<std::uint32_t>(options) & static_cast<std::uint32_t>(bit)) != 0;
    }
};

} // namespace haloric
