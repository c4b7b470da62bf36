// Hears of what happens to a menu. Main thread.
#pragma once

namespace haloric {

class MenuDelegate {
public:
    virtual ~MenuDelegate() = default;

    // Just before the menu is shown: the last chance to change its items.
    virtual void menuNeedsUpdate() = 0;
};

} // namespace haloric
