// Is notified of a menu's events. Main thread.
#pragma once

namespace haloric {

class MenuDelegate {
public:
    virtual ~MenuDelegate() = default;

    // Just before the menu is shown; may change its items.
    virtual void menuNeedsUpdate() = 0;
};

} // namespace haloric
