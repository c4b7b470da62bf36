// How buttons, combo boxes and scroll bars of the form look: flat and rounded, in the colours of the form. Everything
// else is as Qt's own style draws it. Main thread.
#pragma once

#include <QProxyStyle>

namespace haloric {

class QtFormStyle final : public QProxyStyle {
public:
    // Made when it is first asked for; Qt's application object owns it.
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
