#include "hosts/linux/form/QtFormControls.h"

#include "hosts/linux/form/QtFormStyle.h"

#include <algorithm>

#include <QColorDialog>
#include <QEvent>
#include <QHideEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyle>
#include <QWheelEvent>

namespace haloric {

namespace {

// Lengths in points.
constexpr double kRingWidth = 2;
constexpr double kRingGap = 1;
constexpr double kRingMargin = kRingWidth + kRingGap; // that a control keeps free around itself

constexpr int kSliderWidth = 170;
constexpr int kSliderHeight = 24;
constexpr double kSliderKnob = 16;
constexpr double kSliderTrack = 4;
constexpr double kSliderEnd = kSliderKnob / 2 + kRingMargin; // from the widget's side to the knob's last centre

constexpr double kSwitchWidth = 36;
constexpr double kSwitchHeight = 20;
constexpr double kSwitchKnobInset = 2;
constexpr double kDisabledSwitchOpacity = 0.45;

constexpr double kWellWidth = 44;
constexpr double kWellHeight = 24;
constexpr double kWellRadius = 6;
constexpr double kWellFrame = 3; // between the outline and the colour
constexpr double kDisabledWellOpacity = 0.35;

QSize sizeWithRing(double width, double height)
{
    return {static_cast<int>(width + 2 * kRingMargin), static_cast<int>(height + 2 * kRingMargin)};
}

// Draws the focus ring around `shape`, whose corners have that radius. Only for keyboard focus.
void paintFocusRing(const QWidget& control, QPainter& painter, const QRectF& shape, double radius,
                    const QtFormColors& colors)
{
    if (!control.hasFocus() || !control.window()->testAttribute(Qt::WA_KeyboardFocusChange))
        return;
    const double distance = kRingGap + kRingWidth / 2;
    QColor color = colors.accent;
    color.setAlphaF(0.55f);
    painter.setPen(QPen(color, kRingWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(shape.adjusted(-distance, -distance, distance, distance), radius + distance,
                            radius + distance);
}

QColor qtColor(const Color& color)
{
    const auto component = [](double value) { return static_cast<float>(std::clamp(value, 0.0, 1.0)); };
    return QColor::fromRgbF(component(color.red), component(color.green), component(color.blue));
}

} // namespace

QtSlider::QtSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize QtSlider::sizeHint() const { return {kSliderWidth, kSliderHeight}; }

int QtSlider::positionAt(double x) const
{
    const double place = isRightToLeft() ? width() - x : x;
    return QStyle::sliderValueFromPosition(minimum(), maximum(), qRound(place - kSliderEnd),
                                           qRound(width() - 2 * kSliderEnd));
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
    const double length = width() - 2 * kSliderEnd;
    const int steps = std::max(1, maximum() - minimum());
    const double part = double(sliderPosition() - minimum()) / steps;
    const double knob = kSliderEnd + length * (isRightToLeft() ? 1 - part : part);
    const double middle = height() / 2.0;
    const QRectF track(kSliderEnd, middle - kSliderTrack / 2, length, kSliderTrack);

    painter.setPen(Qt::NoPen);
    painter.setBrush(colors.track);
    painter.drawRoundedRect(track, kSliderTrack / 2, kSliderTrack / 2);
    painter.setBrush(colors.accent);
    QRectF filled = track;
    if (isRightToLeft())
        filled.setLeft(knob);
    else
        filled.setRight(knob);
    painter.drawRoundedRect(filled, kSliderTrack / 2, kSliderTrack / 2);

    const QRectF circle(knob - kSliderKnob / 2, middle - kSliderKnob / 2, kSliderKnob, kSliderKnob);
    paintFocusRing(*this, painter, circle, kSliderKnob / 2, colors);
    painter.setPen(QPen(colors.knobBorder, 1));
    painter.setBrush(colors.knob);
    painter.drawEllipse(circle.adjusted(0.5, 0.5, -0.5, -0.5));
}

QSize QtSwitch::sizeHint() const { return sizeWithRing(kSwitchWidth, kSwitchHeight); }

void QtSwitch::paintEvent(QPaintEvent*)
{
    const QtFormColors colors(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF track(width() - kRingMargin - kSwitchWidth, (height() - kSwitchHeight) / 2, kSwitchWidth,
                       kSwitchHeight);
    paintFocusRing(*this, painter, track, kSwitchHeight / 2, colors);
    if (!isEnabled())
        painter.setOpacity(kDisabledSwitchOpacity);

    painter.setPen(isChecked() ? QPen(Qt::NoPen) : QPen(colors.trackBorder, 1));
    painter.setBrush(isChecked() ? colors.accent : colors.track);
    const double half = isChecked() ? 0 : 0.5;
    painter.drawRoundedRect(track.adjusted(half, half, -half, -half), kSwitchHeight / 2, kSwitchHeight / 2);

    const double size = kSwitchHeight - 2 * kSwitchKnobInset;
    const double left = isChecked() ? track.right() - kSwitchKnobInset - size : track.left() + kSwitchKnobInset;
    painter.setPen(QPen(colors.knobBorder, 0.8));
    painter.setBrush(colors.knob);
    painter.drawEllipse(QRectF(left, track.top() + kSwitchKnobInset, size, size));
}

QtColorWell::QtColorWell(QWidget* parent) : QPushButton(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QPushButton::clicked, this, [this] { openDialog(); });
}

QtColorWell::~QtColorWell() { delete m_dialog; }

QSize QtColorWell::sizeHint() const { return sizeWithRing(kWellWidth, kWellHeight); }

void QtColorWell::setColor(const Color& color)
{
    if (m_color == color)
        return;
    m_color = color;
    setAccessibleDescription(qtColor(color).name());
    update();
    if (m_dialog && m_dialog->currentColor().rgb() != qtColor(color).rgb()) {
        const QSignalBlocker quiet(m_dialog);
        m_dialog->setCurrentColor(qtColor(color));
    }
}

void QtColorWell::setTitle(const QString& title)
{
    m_title = title;
    if (m_dialog)
        m_dialog->setWindowTitle(title);
}

void QtColorWell::changeEvent(QEvent* event)
{
    QPushButton::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled() && m_dialog)
        m_dialog->close();
}

void QtColorWell::hideEvent(QHideEvent* event)
{
    QPushButton::hideEvent(event);
    if (!event->spontaneous() && m_dialog) // it stays while the window is minimised
        m_dialog->close();
}

void QtColorWell::openDialog()
{
    if (!m_dialog) {
        m_dialog = new QColorDialog(window());
        m_dialog->setOption(QColorDialog::NoButtons);
        m_dialog->setWindowTitle(m_title);
        m_dialog->setCurrentColor(qtColor(m_color));
        connect(m_dialog, &QColorDialog::currentColorChanged, this, [this](const QColor& color) {
            const QColor rgb = color.toRgb();
            if (rgb.rgb() != qtColor(m_color).rgb())
                choose({rgb.redF(), rgb.greenF(), rgb.blueF(), 1});
        });
        connect(m_dialog, &QColorDialog::finished, m_dialog, &QObject::deleteLater);
    }
    m_dialog->show();
    m_dialog->raise();
    m_dialog->activateWindow();
}

void QtColorWell::choose(const Color& color)
{
    if (!isEnabled() || color == m_color)
        return;
    setColor(color);
    if (onChosen)
        onChosen(color);
}

void QtColorWell::paintEvent(QPaintEvent*)
{
    const QtFormColors colors(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF well(width() - kRingMargin - kWellWidth, (height() - kWellHeight) / 2, kWellWidth, kWellHeight);
    paintFocusRing(*this, painter, well, kWellRadius, colors);
    if (!isEnabled())
        painter.setOpacity(kDisabledWellOpacity);
    painter.setPen(QPen(colors.trackBorder, 1));
    painter.setBrush(isDown() ? colors.track : colors.window);
    painter.drawRoundedRect(well.adjusted(0.5, 0.5, -0.5, -0.5), kWellRadius, kWellRadius);
    painter.setPen(QPen(QColor(0, 0, 0, 40), 1));
    painter.setBrush(qtColor(m_color));
    painter.drawRoundedRect(well.adjusted(kWellFrame + 0.5, kWellFrame + 0.5, -kWellFrame - 0.5, -kWellFrame - 0.5),
                            kWellRadius - kWellFrame / 2, kWellRadius - kWellFrame / 2);
}

} // namespace haloric
