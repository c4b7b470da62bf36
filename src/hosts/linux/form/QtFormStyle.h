// How the form looks: its colours, and a style that draws buttons, combo boxes and scroll bars flat and rounded. Qt's
// Fusion style draws everything else. Main thread.
#pragma once

#include <QColor>
#include <QPalette>
#include <QProxyStyle>

namespace haloric {

// The colours of the form, derived from the user's palette, light or dark.
struct QtFormColors {
    explicit QtFormColors(const QPalette& palette);

    QColor window;
    QColor card;        // on the window
    QColor button;      // at rest
    QColor line;        // around cards and between rows
    QColor text;        // on window and card
    QColor mutedText;   // of footers
    QColor track;       // of switches and sliders that are off
    QColor trackBorder; // around the track
    QColor accent;      // of switches and sliders that are on
    QColor knob;
    QColor knobBorder;
};

class QtFormStyle final : public QProxyStyle {
public:
    // Created on first use; Qt's application object owns it.
    static QtFormStyle& shared();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;

private:
    QtFormStyle();
};

} // namespace haloric
