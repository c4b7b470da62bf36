#include "hosts/x11/qt/X11Slider.h"

#include "hosts/x11/qt/X11FocusRing.h"

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
constexpr double kEnd = kKnob / 2 + X11FocusRing::kMargin; // from the widget's side to the knob's last place

} // namespace

X11Slider::X11Slider(QWidget* parent) : QSlider(Qt::Horizontal, parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize X11Slider::sizeHint() const { return {kWidth, kHeight}; }

int X11Slider::positionAt(double x) const
{
    const double place = isRightToLeft() ? width() - x : x;
    return QStyle::sliderValueFromPosition(minimum(), maximum(), qRound(place - kEnd), qRound(width() - 2 * kEnd));
}

void X11Slider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    setSliderDown(true);
    setSliderPosition(positionAt(event->position().x()));
}

void X11Slider::mouseMoveEvent(QMouseEvent* event)
{
    if (isSliderDown())
        setSliderPosition(positionAt(event->position().x()));
}

void X11Slider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        setSliderDown(false);
}

void X11Slider::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QSlider::wheelEvent(event);
    else
        event->ignore();
}

void X11Slider::paintEvent(QPaintEvent*)
{
    const X11FormColors colors(palette());
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
    if (X11FocusRing::isWanted(*this))
        X11FocusRing::paint(painter, circle, kKnob / 2, colors);
    painter.setPen(QPen(colors.knobBorder, 1));
    painter.setBrush(colors.knob);
    painter.drawEllipse(circle.adjusted(0.5, 0.5, -0.5, -0.5));
}

} // namespace haloric
