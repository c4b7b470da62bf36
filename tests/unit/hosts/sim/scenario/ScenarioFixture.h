// Plays a scenario that a test has as text.
#pragma once

#include "hosts/sim/scenario/SimReplay.h"

#include <memory>
#include <string>

namespace haloric {

// Keeps the scenario that its replay refers to.
struct PlayedScenario {
    std::unique_ptr<SimScenario> scenario;
    std::unique_ptr<SimReplay> replay;
    std::string failure; // empty: none

    SimPlayer& player() { return replay->player(); }
};

// `steps` are the steps without the brackets of their list; `setup` is an object.
inline PlayedScenario playScenario(const std::string& steps, const std::string& setup = "{}")
{
    PlayedScenario played;
    const std::string text = R"({"title": "test", "setup": )" + setup + R"(, "steps": [)" + steps + "]}";
    played.scenario = std::make_unique<SimScenario>(SimScenario::parse(text, "test"));
    played.replay = std::make_unique<SimReplay>(*played.scenario);
    played.failure = played.replay->play().value_or("");
    return played;
}

// An editor with one window, in the middle of the default screen, after everything has settled.
inline const std::string kEditorSteps = R"(
    {"do": "launch", "app": "Editor"},
    {"do": "open", "app": "Editor", "window": "draft", "frame": [200, 150, 700, 500]},
    {"do": "wait", "after": 3})";

} // namespace haloric
