#include "hosts/linux/qt/QtFormColors.h"

namespace haloric {

namespace {

constexpr int kMiddle = 128; // of lightness

QColor mixed(const QColor& a, const QColor& b, double partOfB)
{
    const auto mix = [partOfB](int from, int to) { return static_cast<int>(from + (to - from) * partOfB); };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

} // namespace

QtFormColors::QtFormColors(const QPalette& palette)
{
    window = palette.color(QPalette::Window);
    text = palette.color(QPalette::WindowText);
    accent = palette.color(QPalette::Highlight);
    const bool isDark = window.lightness() < kMiddle;
    card = mixed(window, Qt::white, isDark ? 0.06 : 0.75);
    button = mixed(window, Qt::white, isDark ? 0.14 : 1);
    line = mixed(window, text, isDark ? 0.16 : 0.14);
    mutedText = mixed(window, text, 0.62);
    track = mixed(window, text, isDark ? 0.28 : 0.2);
    trackBorder = mixed(window, text, isDark ? 0.4 : 0.32);
    knob = isDark ? QColor(235, 235, 238) : QColor(Qt::white);
    knobBorder = QColor(0, 0, 0, isDark ? 90 : 60);
}

} // namespace haloric
