#include "macos/support/BalanceListener.h"

#include "foundation/Balance.h"
#include "loop/MainLoop.h"

#import <AppKit/AppKit.h>

#include <set>

extern "C" void* objc_autoreleasePoolPush();
extern "C" void objc_autoreleasePoolPop(void*);

namespace haloric {

void BalanceListener::OnTestStart(const testing::TestInfo&)
{
    m_pool = objc_autoreleasePoolPush();
    m_before = substitute::balance();
}

// Before the listener that prints the result, which comes first in the list and so last at the end.
void BalanceListener::OnTestEnd(const testing::TestInfo&)
{
    [NSApp setMainMenu:nil]; // the application object, which no test ends, keeps the last one
    objc_autoreleasePoolPop(m_pool);
    substitute::turnUntilIdle(); // what was on its way
    const std::string difference = BalanceListener::difference(m_before, substitute::balance());
    if (!difference.empty())
        ADD_FAILURE() << "left over:\n" << difference;
}

std::string BalanceListener::difference(const std::map<std::string, long>& before,
                                        const std::map<std::string, long>& after)
{
    std::set<std::string> kinds;
    for (const auto* counts : {&before, &after})
        for (const auto& [kind, count] : *counts)
            kinds.insert(kind);
    const auto countOf = [](const std::map<std::string, long>& counts, const std::string& kind) {
        const auto found = counts.find(kind);
        return found == counts.end() ? 0 : found->second;
    };
    std::string text;
    for (const std::string& kind : kinds)
        if (const long more = countOf(after, kind) - countOf(before, kind))
            text += "  " + std::to_string(more) + " " + kind + "\n";
    return text;
}

} // namespace haloric
