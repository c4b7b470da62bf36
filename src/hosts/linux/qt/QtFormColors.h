// The colours of the form, made from the user's palette, light or dark. Main thread.
#pragma once

#include <QColor>
#include <QPalette>

namespace haloric {

struct QtFormColors {
    explicit QtFormColors(const QPalette& palette);

    QColor window;
    QColor card;        // on the window
    QColor button;      // at rest
    QColor line;        // around cards and between rows
    QColor text;        // on both
    QColor mutedText;   // of footers
    QColor track;       // of switches and sliders that are off
    QColor trackBorder; // around it
    QColor accent;      // of those that are on
    QColor knob;
    QColor knobBorder;
};

} // namespace haloric
