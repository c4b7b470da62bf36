// The fixture of the contract tests: a new host for each test, and short ways to query it.
#pragma once

#include "contract/ContractHost.h"
#include "foundation/Task.h"
#include "platform/Accessibility.h"
#include "platform/RunLoop.h"
#include "platform/SerialQueue.h"
#include "platform/ToolkitWindow.h"
#include "platform/WindowInfoSource.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <vector>

namespace haloric {

class HostContract : public testing::TestWithParam<ContractHostFactory> {
protected:
    static constexpr Rect kFrame{160, 120, 400, 300};
    static constexpr Rect kOtherFrame{620, 200, 380, 280};

    std::unique_ptr<ContractHost> host = GetParam().make();

    // Runs a block on the Accessibility queue and waits for it.
    void onQueue(const Task& block)
    {
        std::atomic<bool> done = false;
        m_queue->async([&] {
            block();
            done = true;
        });
        ASSERT_TRUE(host->waitUntil([&] { return done.load(); }));
    }

    AXAttribute attribute(ProcessID pid, std::string_view name)
    {
        AXAttribute result;
        onQueue([&] {
            const AXElement app = host->accessibility().createApplicationElement(pid);
            result = app ? host->accessibility().copyAttribute(app, name) : AXAttribute{};
        });
        return result;
    }

    // An attribute of an application's focused window.
    AXAttribute attributeOfFocusedWindow(ProcessID pid, std::string_view name)
    {
        const AXAttribute window = attribute(pid, "AXFocusedWindow");
        AXAttribute result;
        onQueue([&] {
            const auto* element = std::get_if<AXElement>(&window.value);
            result = element && *element ? host->accessibility().copyAttribute(*element, name) : window;
        });
        return result;
    }

    WindowNumber numberOfFocusedWindow(ProcessID pid)
    {
        const AXAttribute window = attribute(pid, "AXFocusedWindow");
        WindowNumber number = WindowNumber::none;
        onQueue([&] {
            const auto* element = std::get_if<AXElement>(&window.value);
            if (element && *element)
                number = host->accessibility().windowNumber(*element).number;
        });
        return number;
    }

    // The window list as the program reads it for dimming.
    std::vector<WindowInfo> onScreenList()
    {
        constexpr auto kOptions = WindowListOptions::onScreenOnly | WindowListOptions::excludeDesktopElements;
        return host->windowInfoSource()
            .copyWindowInfo(kOptions, WindowNumber::none)
            .value_or(std::vector<WindowInfo>{});
    }

    // The index of a window in that list; the list's length when it is not listed.
    std::size_t placeInList(WindowNumber number)
    {
        const auto list = onScreenList();
        std::size_t place = 0;
        while (place < list.size() && list[place].number != WindowInfoValue(static_cast<std::int64_t>(number)))
            ++place;
        return place;
    }

    bool isListed(WindowNumber number) { return placeInList(number) < onScreenList().size(); }

private:
    std::unique_ptr<SerialQueue> m_queue =
        host->serialQueues().make("com.kestrow.haloric.contract", QualityOfService::userInitiated);
};

inline std::string contractHostName(const testing::TestParamInfo<ContractHostFactory>& info) { return info.param.name; }

} // namespace haloric
