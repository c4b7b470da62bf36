// Reports the windows that Qt creates for this program (forms, menus, the tray) to X11OwnWindows. Main thread.
#pragma once

#include "hosts/x11/input/X11OwnWindows.h"

#include <QObject>

namespace haloric {

class X11QtWindowWatcher final : public QObject {
public:
    // Requires QtApplication, before the first window. `ownWindows` outlives all windows.
    explicit X11QtWindowWatcher(X11OwnWindows& ownWindows);

private:
    bool eventFilter(QObject* object, QEvent* event) override;

    X11OwnWindows& m_ownWindows;
};

} // namespace haloric
