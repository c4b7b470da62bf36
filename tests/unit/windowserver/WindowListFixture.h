// A window list over windows, screens and applications that a test sets.
#pragma once

#include "fakes/FakeScreens.h"
#include "fakes/FakeWindowInfoSource.h"
#include "fakes/FakeWorkspace.h"
#include "windowserver/WindowList.h"

#include <vector>

namespace haloric {

class WindowListFixture : public testing::Test {
protected:
    using Entries = std::vector<WindowList::Entry>;

    static constexpr ProcessID kOwn{100};
    static constexpr ProcessID kEditor{200};
    static constexpr ProcessID kTool{300};
    static constexpr Rect kBounds{10, 20, 300, 200};

    FakeWindowInfoSource source;
    FakeScreens screens{{Screen{{0, 0, 1440, 900}, DisplayID{1}}}};
    FakeWorkspace workspace;
    WindowList list{source, screens, workspace, kOwn};

    WindowListFixture() { workspace.bundleIdentifiers[kEditor] = "org.example.editor"; }

    static WindowInfo window(std::uint32_t number, ProcessID owner = kEditor, const Rect& bounds = kBounds)
    {
        return FakeWindowInfoSource::ordinary(WindowNumber{number}, owner, bounds);
    }

    bool lists(const WindowInfo& info)
    {
        source.windows = {info};
        return !list.onScreen().empty();
    }

    // Whether a window is listed when one of its values is replaced.
    bool listsWith(WindowInfoValue WindowInfo::*member, WindowInfoValue value)
    {
        WindowInfo info = window(1);
        info.*member = value;
        return lists(info);
    }

    std::vector<std::uint32_t> listedNumbers()
    {
        std::vector<std::uint32_t> numbers;
        for (const auto& entry : list.onScreen())
            numbers.push_back(static_cast<std::uint32_t>(entry.id));
        return numbers;
    }
};

} // namespace haloric
