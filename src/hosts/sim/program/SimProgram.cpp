#include "hosts/sim/program/SimProgram.h"

#include "hosts/sim/scenario/SimReplay.h"
#include "hosts/sim/scenario/random/SimShrinker.h"
#include "hosts/sim/scenario/session/SimFailure.h"
#ifdef HALORIC_SIM_HAS_PICTURES
#include "hosts/sim/program/SimPictures.h"
#endif

#include <chrono>
#include <fstream>
#include <iostream>

namespace haloric {

namespace {

std::string contentsOf(const std::string& path)
{
    constexpr std::size_t kLongest = std::size_t{16} << 20; // bytes; a device may have no end
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw SimScenarioError(path + ": cannot be read");
    std::string contents(kLongest + 1, '\0');
    file.read(contents.data(), static_cast<std::streamsize>(contents.size()));
    contents.resize(static_cast<std::size_t>(file.gcount()));
    if (contents.size() > kLongest)
        throw SimScenarioError(path + ": longer than 16 MiB");
    return contents;
}

} // namespace

int SimProgram::run()
{
    try {
        switch (m_options.action) {
        case SimOptions::Action::help:
            std::cout << SimOptions::helpText();
            return kSuccess;
        case SimOptions::Action::version:
            std::cout << "haloric-sim " HALORIC_VERSION "\n";
            return kSuccess;
        case SimOptions::Action::schema:
            return printSchema();
        case SimOptions::Action::replay:
            return replay();
        case SimOptions::Action::random:
            return playRandomly();
        }
    } catch (const SimScenarioError& error) {
        std::cerr << "haloric-sim: " << error.what() << '\n';
    }
    return kFailure;
}

int SimProgram::printSchema()
{
    std::cout << SimScenario::schemaText();
    return kSuccess;
}

int SimProgram::replay()
{
    const SimScenario scenario = SimScenario::parse(contentsOf(m_options.scenario), m_options.scenario);
    SimReplay replay(scenario);
#ifdef HALORIC_SIM_HAS_PICTURES
    SimPictures pictures(m_options.frames);
    if (!m_options.frames.empty())
        replay.onStep = [&](SimPlayer& player, std::size_t step) { pictures.take(player, step); };
#else
    if (!m_options.frames.empty())
        throw SimScenarioError("pictures are not part of this build");
#endif
    std::size_t printed = 0;
    const auto printJournal = [&] {
        const auto& entries = replay.player().desktop().journal.entries();
        for (; printed < entries.size(); ++printed)
            std::cout << SimJournal::line(entries[printed]) << '\n';
    };
    try {
        const auto failure = replay.play();
        printJournal();
        if (!failure)
            return kSuccess;
        std::cerr << "haloric-sim: " << *failure << '\n';
        return kFailure;
    } catch (const SimScenarioError&) {
        printJournal();
        throw;
    }
}

int SimProgram::playRandomly()
{
    const auto begin = std::chrono::steady_clock::now();
    const SimRandomRun::Result result = SimRandomRun(m_options.random).run();
    const Seconds taken = std::chrono::steady_clock::now() - begin;
    if (!result.failure) {
        std::cout << result.steps << " steps of seed " << m_options.random.seed << " in " << taken.count() << " s, "
                  << static_cast<std::uint64_t>(static_cast<double>(result.steps) / taken.count())
                  << " a second, digest " << std::hex << result.digest << std::dec << '\n';
        return kSuccess;
    }
    std::cerr << "haloric-sim: seed " << m_options.random.seed << ", episode " << result.failure->episode << ", step "
              << result.failure->scenario.steps.size() << ": " << result.failure->message << '\n'
              << "play it again: " << result.failure->command << '\n';
    const SimScenario shorter = SimShrinker(&SimShrinker::failsWhenPlayed).shrink(result.failure->scenario);
    std::ofstream(m_options.shortened) << shorter.toJson().dump(2) << '\n';
    std::cerr << "shortened to " << shorter.steps.size() << " steps: haloric-sim " << m_options.shortened << '\n';
    return kFailure;
}

} // namespace haloric
