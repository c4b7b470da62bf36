#include "hosts/linux/form/QtSwitch.h"

#include "hosts/linux/form/QtFocusRing.h"

namespace haloric {

namespace {

constexpr double kWidth = 36; // points
constexpr double kHeight = 20;
constexpr double kKnobInset = 2;
constexpr double kDisabledOpacity = 0.45;

} // namespace

QSize QtSwitch::sizeHint() const
{
    return {static_cast<int>(kWidth + 2 * QtFocusRing::kMargin), static_cast<int>(kHeight + 2 * QtFocusRing::kMargin)};
}

void QtSwitch::paintEvent(QPaintEvent*)
{
    const QtFormColors colors(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF track(width() - QtFocusRing::kMargin - kWidth, (height() - kHeight) / 2, kWidth, kHeight);
    if (QtFocusRing::isWanted(*this))
        QtFocusRing::paint(painter, track, kHeight / 2, colors);
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
