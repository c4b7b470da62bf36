#include "hosts/x11/qt/X11Switch.h"

#include "hosts/x11/qt/X11FocusRing.h"

namespace haloric {

namespace {

constexpr double kWidth = 36; // points
constexpr double kHeight = 20;
constexpr double kKnobInset = 2;
constexpr double kDisabledOpacity = 0.45;

} // namespace

QSize X11Switch::sizeHint() const
{
    return {static_cast<int>(kWidth + 2 * X11FocusRing::kMargin),
            static_cast<int>(kHeight + 2 * X11FocusRing::kMargin)};
}

void X11Switch::paintEvent(QPaintEvent*)
{
    const X11FormColors colors(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF track(width() - X11FocusRing::kMargin - kWidth, (height() - kHeight) / 2, kWidth, kHeight);
    if (X11FocusRing::isWanted(*this))
        X11FocusRing::paint(painter, track, kHeight / 2, colors);
    if (!isEnabled())
        painter.setOpacity(kDisabledOpacity);

    painter.setPen(isChecked() ? QPen(Qt::NoPen) : QPen(colors.trackBorder, 1));
    painter.setBrush(isChecked() ? colors.accent : colors.track);
    const double half = isChecked() ? 0 : 0.5;
    painter.drawRoundedRect(track.adjusted(half, half, -half, -half), kHeight / 2, kHeight / 2);

    const double size = kHeight - 2 * kKnobInset;
    const double left = isChecked() ? track.right() - kKnobInset - size : track.left() + kKnobInset;
    painter.setPen(QPen(colors.knobBorder, 0.8));
    painter.setBrush(colors.knob);
    painter.drawEllipse(QRectF(left, track.top() + kKnobInset, size, size));
}

} // namespace haloric
