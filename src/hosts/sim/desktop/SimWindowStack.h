// All windows of the simulated window server, front to back: higher layers first, and within a layer in the order in
// which windows were raised. Pointers and references to a window stay valid until it is removed.
#pragma once

#include "hosts/sim/desktop/SimWindow.h"

#include <memory>
#include <string_view>
#include <vector>

namespace haloric {

class SimWindowStack {
public:
    // Numbers the window and puts it in front of its layer.
    SimWindow& add(SimWindow window);
    void remove(WindowNumber number);

    SimWindow* find(WindowNumber number);
    const SimWindow* find(WindowNumber number) const;
    SimWindow* named(std::string_view name);

    // To the front of its layer.
    void raise(WindowNumber number);
    void setLayer(WindowNumber number, int layer);

    const std::vector<std::unique_ptr<SimWindow>>& frontToBack() const { return m_windows; }

private:
    using Windows = std::vector<std::unique_ptr<SimWindow>>;

    Windows::iterator position(WindowNumber number);
    void insert(std::unique_ptr<SimWindow> window);

    Windows m_windows;
    std::uint32_t m_lastNumber = 0;
};

} // namespace haloric
