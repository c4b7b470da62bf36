// What is broken, missing or scripted on the simulated desktop. Nothing by default; scenarios set it.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace haloric {

struct SimFaults {
    // The window server's private library.
    bool libraryMissing = false;
    std::set<std::string, std::less<>> missingEntries;         // by symbol
    std::map<std::string, std::int64_t, std::less<>> failCall; // by symbol: the call that fails, counted from now (1)
    bool transactionsLie = false;                              // transactions report success and move nothing

    // Accessibility.
    std::int64_t timeoutAfterCalls = 0;                      // the n-th call from now times out; 0: none does
    std::set<std::string, std::less<>> refusedNotifications; // names that observers cannot subscribe to

    // The public window list: so many of the next reads give nothing.
    std::int64_t missingWindowLists = 0;

    bool eventTapRefused = false;
    bool savesFail = false;
    bool launchesFail = false;
    bool loginItemsFail = false;
    bool videoLinksFail = false;

    // Counts a call down; true when it is the one that fails.
    bool failsNow(std::string_view symbol)
    {
        const auto found = failCall.find(symbol);
        if (found == failCall.end() || --found->second > 0)
            return false;
        failCall.erase(found);
        return true;
    }
};

} // namespace haloric
