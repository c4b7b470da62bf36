// Tells the input monitors which windows Qt shows for this program: those that forms, menus and the tray have. Main
// thread.
#pragma once

#include "hosts/x11/input/X11OwnWindows.h"

#include <QObject>

namespace haloric {

class X11QtWindowWatcher final : public QObject {
public:
    // Qt must have been set up, and no window made. `ownWindows` outlives every one of them.
    explicit X11QtWindowWatcher(X11OwnWindows& ownWindows);

private:
    bool eventFilter(QObject* object, QEvent* event) override;

    X11OwnWindows& m_ownWindows;
};

} // namespace haloric
