#include "hosts/sim/program/SimOptions.h"

#include <charconv>
#include <string_view>

namespace haloric {

namespace {

bool parseNumber(std::string_view text, std::uint64_t& number)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

} // namespace

const char* SimOptions::helpText()
{
    return "usage: haloric-sim SCENARIO.json [--frames DIR]\n"
           "       haloric-sim --seed N [--steps M] [--episode K] [--shortened FILE]\n"
           "\n"
           "Runs Haloric on a simulated desktop, in virtual time.\n"
           "\n"
           "  SCENARIO.json     play a scenario and print the journal\n"
           "  --frames DIR      write a picture of the desktop after each step into this folder\n"
           "  --seed N          play random scenarios with checkers at work\n"
           "  --steps M         how many random steps (10000)\n"
           "  --episode K       only this one of the seed's episodes\n"
           "  --shortened FILE  where to write the short form of a random scenario that fails\n"
           "                    (shortened.json)\n"
           "  --sabotage transactions-lie\n"
           "                    break the simulated window server, to see the checkers find it\n"
           "  --schema          print the JSON schema of scenario files\n"
           "  --version         print the version\n"
           "  --help            print this text\n"
           "\n"
           "Exit code: 0 when all went well, 1 when an expectation or a checker failed or the scenario is\n"
           "wrong, 2 for a wrong command line.\n";
}

std::optional<SimOptions> SimOptions::parse(std::span<const char* const> arguments, std::string& problem)
{
    SimOptions options;
    options.shortened = "shortened.json";
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        const auto value = [&]() -> std::string_view { return i + 1 < arguments.size() ? arguments[++i] : ""; };
        bool valid = true;
        if (argument == "--help" || argument == "-h") {
            options.action = Action::help;
            return options;
        }
        if (argument == "--version" || argument == "--schema") {
            options.action = argument == "--version" ? Action::version : Action::schema;
            return options;
        }
        if (argument == "--frames") {
            options.frames = value();
            valid = !options.frames.empty();
        } else if (argument == "--shortened") {
            options.shortened = value();
            valid = !options.shortened.empty();
        } else if (argument == "--seed") {
            options.action = Action::random;
            valid = parseNumber(value(), options.random.seed);
        } else if (argument == "--steps") {
            valid = parseNumber(value(), options.random.steps);
        } else if (argument == "--episode") {
            valid = parseNumber(value(), options.random.episode.emplace());
        } else if (argument == "--sabotage") {
            options.random.sabotage = SimRandomSteps::Sabotage::transactionsLie;
            valid = value() == "transactions-lie";
        } else if (argument.starts_with("-") || !options.scenario.empty()) {
            problem = "unknown argument: " + std::string(argument);
            return std::nullopt;
        } else {
            options.scenario = argument;
        }
        if (!valid) {
            problem = "bad value for " + std::string(argument);
            return std::nullopt;
        }
    }
    if (options.action == Action::random && options.scenario.empty())
        return options;
    if (options.action != Action::random && !options.scenario.empty()) {
        options.action = Action::replay;
        return options;
    }
    problem = "give a scenario file, or --seed";
    return std::nullopt;
}

} // namespace haloric
