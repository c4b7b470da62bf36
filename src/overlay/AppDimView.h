// Dims the windows of the selected applications on one screen, and leaves clear what lies in front of them. Main
// thread. The owner sets the fields and marks the window for display.
#pragma once

#include "platform/ContentView.h"
#include "settings/Settings.h"

#include <vector>

namespace haloric {

class AppDimView final : public ContentView {
public:
    struct Window {
        Rect rect; // view space
        bool dim = false;
        friend bool operator==(const Window&, const Window&) = default;
    };

    bool isOpaque() const override { return false; }
    bool isFlipped() const override { return false; }
    void draw(Canvas& canvas, const Rect& bounds) override;
    std::vector<Rect> paintedArea(const Rect& bounds) const override;

    Settings settings;
    std::vector<Window> windows; // back to front: each paints over, or clears, what came before

private:
    bool isShown() const;
};

} // namespace haloric
