// Makes up what might happen next on a simulated desktop, with rare faults. The same seed and the same desktop give
// the same steps.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"
#include "hosts/sim/scenario/SimStep.h"
#include "hosts/sim/scenario/random/SimDice.h"

#include <optional>
#include <string>

namespace haloric {

class SimRandomSteps {
public:
    // Whether faults that nobody could cope with may happen as well, to see the checkers find them.
    enum class Sabotage { none, transactionsLie };

    // Between two looks at the desktop at rest, in steps.
    static constexpr std::size_t kStepsBetweenRests = 40;

    explicit SimRandomSteps(std::uint64_t seed, Sabotage sabotage = Sabotage::none);

    // A desktop to begin with, as in a scenario file.
    SimJson setup();

    SimStep next(const SimDesktop& desktop);

private:
    using Arguments = std::optional<SimJson>; // absent: there is nothing to do this to
    struct Choice;

    static const std::vector<Choice>& choices();
    static std::vector<Choice> everyday();
    static std::vector<Choice> faults();
    double delay();

    Arguments none() { return SimJson::object(); }
    Arguments launch();
    Arguments anyApp();
    Arguments appWith(bool (*matches)(const SimApp&));
    Arguments anyWindow();
    Arguments windowWith(bool (*matches)(const SimWindow&));
    Arguments open();
    Arguments move();
    Arguments resize();
    Arguments drag();
    Arguments sendToSpace();
    Arguments space();
    Arguments plug();
    Arguments unplug();
    Arguments resizeScreen();
    Arguments settings();
    Arguments key();
    Arguments menu();
    Arguments control();
    Arguments failCall();
    Arguments refuseNotifications();
    Arguments notify();

    Rect anyFrame();
    SimJson anySetting();
    void addDimming(SimJson& change);
    Arguments withValue(Arguments arguments, SimJson value);

    SimDice m_dice;
    Sabotage m_sabotage;
    const SimDesktop* m_desktop = nullptr; // during next()
    std::size_t m_steps = 0;
    int m_apps = 0;
    int m_windows = 0;
};

} // namespace haloric
