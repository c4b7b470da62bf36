// Highlight views with any settings that a file can hold, the same ones in every run.
#pragma once

#include "overlay/HighlightView.h"

#include <initializer_list>
#include <random>

namespace haloric {

class RandomHighlightViews {
public:
    HighlightView make()
    {
        HighlightView view;
        view.settings.borderEnabled = coin();
        view.settings.glowEnabled = coin();
        view.settings.tintEnabled = coin();
        view.settings.pulseEnabled = coin();
        view.settings.cornerRadius = pick({-50, 0, 0.3, 5, 11, 20, 90, 1e6, 1e308});
        view.settings.borderWidth = pick({-4, 0, 0.4, 1, 3, 12, 70, 130, 1e308});
        view.settings.glowRadius = pick({-9, 0, 0.5, 4, 18, 60, 700});
        view.tintHeight = pick({-1, 0, 0.5, 28, 60, 5000});
        view.windowRect = {pick({2, 32, 40.3, 100}), pick({2, 32, 40.7, 100}), pick({0.4, 1, 7, 30, 120, 333.3}),
                           pick({0.4, 1, 7, 30, 120, 222.2})};
        view.pulseProgress = pick({0, 0.001, 0.1, 0.5, 0.9, 0.999});
        return view;
    }

    // Most points lie around an edge, where mistakes would be.
    Point point(const Rect& window)
    {
        std::uniform_real_distribution<double> near(-80, 80);
        return {(coin() ? window.minX() : window.maxX()) + near(m_random) * pick({0.05, 0.4, 1}),
                (coin() ? window.minY() : window.maxY()) + near(m_random) * pick({0.05, 0.4, 1})};
    }

    double pick(std::initializer_list<double> values)
    {
        return values.begin()[std::uniform_int_distribution<std::size_t>(0, values.size() - 1)(m_random)];
    }

private:
    bool coin() { return std::bernoulli_distribution(0.6)(m_random); }

    std::mt19937 m_random{20240607};
};

} // namespace haloric
