#include "hosts/linux/form/QtFormStyle.h"

#include <algorithm>

#include <QApplication>
#include <QPainter>
#include <QPointer>
#include <QStyleOption>

namespace haloric {

namespace {

constexpr double kRadius = 6; // points
constexpr int kButtonHeight = 28;
constexpr int kButtonMargin = 10; // beside its text
constexpr int kArrowSpace = 20;
constexpr int kScrollBarWidth = 10;
constexpr double kScrollBarMargin = 2;
constexpr double kDisabledOpacity = 0.5;
constexpr int kMiddle = 128; // of lightness

QColor mixed(const QColor& a, const QColor& b, double partOfB)
{
    const auto mix = [partOfB](int from, int to) { return static_cast<int>(from + (to - from) * partOfB); };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

void drawPanel(const QStyleOption& option, QPainter& painter)
{
    const QtFormColors colors(option.palette);
    const bool isPressed = option.state.testFlag(QStyle::State_Sunken);
    const bool hasKeyboard =
        option.state.testFlag(QStyle::State_HasFocus) && option.state.testFlag(QStyle::State_KeyboardFocusChange);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (!option.state.testFlag(QStyle::State_Enabled))
        painter.setOpacity(kDisabledOpacity);
    const bool isHovered = option.state.testFlag(QStyle::State_MouseOver) && !isPressed;
    painter.setBrush(isPressed ? colors.track : isHovered ? colors.window : colors.button);
    painter.setPen(hasKeyboard ? QPen(colors.accent, 2) : QPen(colors.trackBorder, 1));
    const double half = hasKeyboard ? 1 : 0.5;
    painter.drawRoundedRect(QRectF(option.rect).adjusted(half, half, -half, -half), kRadius, kRadius);
    painter.restore();
}

// A small arrow downwards, near the right end of `rect`.
void drawArrow(const QStyleOption& option, const QRect& rect, QPainter& painter)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (!option.state.testFlag(QStyle::State_Enabled))
        painter.setOpacity(kDisabledOpacity);
    const bool isMirrored = option.direction == Qt::RightToLeft;
    const QPointF middle(isMirrored ? rect.left() + kArrowSpace / 2.0 : rect.right() + 1 - kArrowSpace / 2.0,
                         rect.center().y() + 0.5);
    painter.setPen(QPen(QtFormColors(option.palette).text, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(
        QPolygonF({middle + QPointF(-3.5, -1.5), middle + QPointF(0, 2), middle + QPointF(3.5, -1.5)}));
    painter.restore();
}

void drawScrollBar(const QStyleOption& option, const QRect& knob, QPainter& painter)
{
    const QtFormColors colors(option.palette);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(option.rect, colors.window);
    painter.setPen(Qt::NoPen);
    const bool isActive = option.state.testFlag(QStyle::State_MouseOver);
    painter.setBrush(isActive ? colors.mutedText : colors.trackBorder);
    const QRectF shape =
        QRectF(knob).adjusted(kScrollBarMargin, kScrollBarMargin, -kScrollBarMargin, -kScrollBarMargin);
    const double radius = std::min(shape.width(), shape.height()) / 2;
    painter.drawRoundedRect(shape, radius, radius);
    painter.restore();
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

QtFormStyle::QtFormStyle() : QProxyStyle("Fusion") {}

QtFormStyle& QtFormStyle::shared()
{
    static QPointer<QtFormStyle> style;
    if (!style) {
        style = new QtFormStyle;
        style->setParent(qApp);
    }
    return *style;
}

void QtFormStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const
{
    if (element == PE_PanelButtonCommand)
        drawPanel(*option, *painter);
    else if (element != PE_FrameFocusRect) // the controls show keyboard focus by their outlines
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void QtFormStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const
{
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (element == CE_PushButtonBevel && button) {
        drawPrimitive(PE_PanelButtonCommand, option, painter, widget);
        if (button->features.testFlag(QStyleOptionButton::HasMenu))
            drawArrow(*option, option->rect, *painter);
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void QtFormStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                     const QWidget* widget) const
{
    if (control == CC_ComboBox) {
        drawPanel(*option, *painter);
        drawArrow(*option, option->rect, *painter);
    } else if (control == CC_ScrollBar) {
        drawScrollBar(*option, subControlRect(control, option, SC_ScrollBarSlider, widget), *painter);
    } else {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
}

// The scroll bar has no buttons at its ends, so the groove is the whole bar.
QRect QtFormStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                  const QWidget* widget) const
{
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || !bar || bar->orientation != Qt::Vertical)
        return QProxyStyle::subControlRect(control, option, part, widget);
    const int length = bar->rect.height();
    const int range = bar->maximum - bar->minimum;
    const int knob =
        range > 0 ? std::max(length * bar->pageStep / (range + bar->pageStep), 3 * kScrollBarWidth) : length;
    const int start = sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition, length - knob);
    const QRect all = bar->rect;
    switch (part) {
    case SC_ScrollBarGroove:
        return all;
    case SC_ScrollBarSlider:
        return {all.left(), all.top() + start, all.width(), knob};
    case SC_ScrollBarSubPage:
        return {all.left(), all.top(), all.width(), start};
    case SC_ScrollBarAddPage:
        return {all.left(), all.top() + start + knob, all.width(), length - start - knob};
    default:
        return {};
    }
}

QSize QtFormStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                    const QWidget* widget) const
{
    const QSize fromBase = QProxyStyle::sizeFromContents(type, option, size, widget);
    if (type == CT_PushButton) {
        const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
        const bool hasMenu = button && button->features.testFlag(QStyleOptionButton::HasMenu);
        const int width = option->fontMetrics.size(Qt::TextShowMnemonic, button ? button->text : QString()).width();
        return {width + 2 * kButtonMargin + (hasMenu ? kArrowSpace : 0), std::max(fromBase.height(), kButtonHeight)};
    }
    if (type == CT_ComboBox)
        return {fromBase.width(), std::max(fromBase.height(), kButtonHeight)};
    return fromBase;
}

int QtFormStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    if (metric == PM_ScrollBarExtent)
        return kScrollBarWidth;
    if (metric == PM_MenuButtonIndicator)
        return kArrowSpace - kButtonMargin / 2;
    if (metric == PM_ButtonShiftHorizontal || metric == PM_ButtonShiftVertical)
        return 0;
    return QProxyStyle::pixelMetric(metric, option, widget);
}

} // namespace haloric
