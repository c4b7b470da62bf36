#include "hosts/sim/scenario/steps/SimPlayer.h"

namespace haloric {

namespace {

void notifySpuriously(SimPlayer& player, const SimJson& arguments)
{
    player.session().windowServerCalls.notify(WindowServerEvent{arguments["event"].get<std::uint32_t>()},
                                              WindowNumber{arguments["number"].get<std::uint32_t>()});
}

} // namespace

const std::vector<SimStepKind>& simFaultSteps()
{
    static const std::vector<SimStepKind> kinds{
        {"failCall",
         "one call of an entry of the window server's private library fails",
         {{"entry",
           SimType::text,
           kRequired,
           "the symbol that can fail",
           {"SLSGetWindowBounds", "SLSRegisterNotifyProc", "SLSRemoveNotifyProc", "SLSRequestNotificationsForWindows",
            "SLSTransactionCreate"}},
          {"call", SimType::integer, kRequired, "which one from now: 1 is the next"}},
         [](SimPlayer& player, const SimJson& a) {
             player.desktop().faults.failCall[a["entry"].get<std::string>()] = a["call"].get<std::int64_t>();
         }},
        {"transactionsLie",
         "transactions report success and move nothing",
         {{"value", SimType::flag, kRequired, "whether they do"}},
         [](SimPlayer& player, const SimJson& a) { player.desktop().faults.transactionsLie = a["value"].get<bool>(); }},
        {"timeOutCall",
         "one Accessibility call times out although the application responds",
         {{"call", SimType::integer, kRequired, "which one from now: 1 is the next"}},
         [](SimPlayer& player, const SimJson& a) {
             player.desktop().faults.timeoutAfterCalls = a["call"].get<std::int64_t>();
         }},
        {"missWindowLists",
         "the next reads of the public window list give nothing",
         {{"count", SimType::integer, kRequired, "how many"}},
         [](SimPlayer& player, const SimJson& a) {
             player.desktop().faults.missingWindowLists = a["count"].get<std::int64_t>();
         }},
        {"refuseNotifications",
         "applications refuse observers these notifications from now on",
         {{"names", SimType::texts, kRequired, "the names; an empty list refuses none"}},
         [](SimPlayer& player, const SimJson& a) {
             const auto names = a["names"].get<std::vector<std::string>>();
             player.desktop().faults.refusedNotifications = {names.begin(), names.end()};
         }},
        {"failSaves",
         "settings cannot be stored",
         {{"value", SimType::flag, kRequired, "whether that is so"}},
         [](SimPlayer& player, const SimJson& a) { player.desktop().faults.savesFail = a["value"].get<bool>(); }},
        {"notify",
         "the window server sends a notification out of turn",
         {{"event", SimType::integer, kRequired, "its number", {}, kSimUnsigned},
          {"number", SimType::integer, kRequired, "the window number in its data", {}, kSimUnsigned}},
         notifySpuriously},
    };
    return kinds;
}

} // namespace haloric
