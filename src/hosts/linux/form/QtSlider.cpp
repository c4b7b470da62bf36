#include "hosts/linux/form/QtSlider.h"

#include "hosts/linux/form/QtFocusRing.h"

#include <algorithm>

#include <QMouseEvent>
#include <QStyle>
#include <QWheelEvent>

namespace haloric {

namespace {

constexpr int kWidth = 170; // points
constexpr int kHeight = 24;
constexpr double kKnob = 16;
constexpr double kTrack = 4;
constexpr double kEnd = kKnob / 2 + QtFocusRing::kMargin; // from the widget's side to the knob's last place

} // namespace

QtSlider::QtSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize QtSlider::sizeHint() const { return {kWidth, kHeight}; }

int QtSlider::positionAt(double x) const
{
    const double place = isRightToLeft() ? width() - x : x;
    return QStyle::sliderValueFromPosition(minimum(), maximum(), qRound(place - kEnd), qRound(width() - 2 * kEnd));
}

void QtSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    setSliderDown(true);
    setSliderPosition(positionAt(event->position().x()));
}

void QtSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (isSliderDown())
        setSliderPosition(positionAt(event->position().x()));
}

void QtSlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        setSliderDown(false);
}

void QtSlider::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QSlider::wheelEvent(event);
    else
        event->ignore();
}

void QtSlider::paintEvent(QPaintEvent*)
{
    const QtFormColors colors(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double length = width() - 2 * kEnd;
    const int steps = std::max(1, maximum() - minimum());
    const double part = double(sliderPosition() - minimum()) / steps;
    const double knob = kEnd + length * (isRightToLeft() ? 1 - part : part);
    const double middle = height() / 2.0;
    const QRectF track(kEnd, middle - kTrack / 2, length, kTrack);

    painter.setPen(Qt::NoPen);
    painter.setBrush(colors.track);
    painter.drawRoundedRect(track, kTrack / 2, kTrack / 2);
    painter.setBrush(colors.accent);
    QRectF filled = track;
    if (isRightToLeft())
        filled.setLeft(knob);
    else
        filled.setRight(knob);
    painter.drawRoundedRect(filled, kTrack / 2, kTrack / 2);

    const QRectF circle(knob - kKnob / 2, middle - kKnob / 2, kKnob, kKnob);
    if (QtFocusRing::isWanted(*this))
        QtFocusRing::paint(painter, circle, kKnob / 2, colors);
    painter.setPen(QPen(colors.knobBorder, 1));
    painter.setBrush(colors.knob);
    painter.drawEllipse(circle.adjusted(0.5, 0.5, -0.5, -0.5));
}

} // namespace haloric
