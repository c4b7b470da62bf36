// The fixture of the scenes: a private desktop with the program, and waits for its pixels. Each scene runs on every
// pairing of window manager and compositor for which it is instantiated. Coordinates are root coordinates.
#pragma once

#include "testing/x11/HaloricProcess.h"
#include "testing/x11/Pairing.h"

#include <memory>
#include <string>

namespace haloric {

inline constexpr Pairing kOpenboxPicom{"openbox_picom", WindowManager::openbox, Compositor::picom};
inline constexpr Pairing kXfwm4{"xfwm4_compositing", WindowManager::xfwm4Compositing, Compositor::none};
inline constexpr Pairing kOpenbox{"openbox_without_compositor", WindowManager::openbox, Compositor::none};

// The default settings; lengths in pixels at scale 1.
inline constexpr Pixel kAccent = 0x0A85FF;
inline constexpr int kBorderWidth = 3;
inline constexpr int kCornerRadius = 11;
inline constexpr int kGlowRadius = 18;

// Per channel: compositors round blended colours differently.
inline constexpr int kTolerance = 3;

// The defaults without the pulse, whose animation would change the pictures.
inline constexpr const char* kStill = R"({"pulseEnabled": false})";

class Scene : public testing::TestWithParam<Pairing> {
protected:
    // Opens a window of a separate application and focuses it. Returns once it is painted.
    std::unique_ptr<TestClient> openFocused(TestClient::Options options = {});

    // Starts the program and waits until `client` has its border.
    void startAround(TestClient& client, const std::string& settings = kStill);

    // Waits until the middle of each edge of the client's visible frame has the border's colour.
    [[nodiscard]] bool waitForBorder(TestClient& client);

    // Waits until the pixel has that colour, or another one, within kTolerance.
    [[nodiscard]] bool waitForPixel(int x, int y, Pixel color);
    [[nodiscard]] bool waitForOtherPixel(int x, int y, Pixel color);

    // Waits until the screen equals `picture` in its area.
    [[nodiscard]] bool waitForPicture(const ScreenImage& picture);

    // The area once it has stopped changing: after four equal pictures, each from a new reply of the X server.
    ScreenImage settled(const ScreenRect& area);

    // The program's standard error so far, for failure messages.
    std::string log() { return haloric ? haloric->process().standardError() : std::string(); }

    X11Session session{GetParam().windowManager, GetParam().compositor};
    std::unique_ptr<HaloricProcess> haloric;
};

// The name of the running test, usable as a file name.
std::string nameOfTest();

// Whether the middle of each edge of `frame` has that colour.
bool hasBorder(const ScreenImage& image, const ScreenRect& frame, Pixel color = kAccent);

// The number of pixels in `area` that differ between two pictures.
int differences(const ScreenImage& a, const ScreenImage& b, const ScreenRect& area);

} // namespace haloric
