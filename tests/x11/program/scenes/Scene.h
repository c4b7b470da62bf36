// A desktop with the program on it, and the questions that the scenes ask of its pixels. Each scene runs on every
// pairing of window manager and compositor for which it is instantiated.
#pragma once

#include "testing/x11/HaloricProcess.h"
#include "testing/x11/X11Session.h"

#include <memory>
#include <ostream>
#include <string>

namespace haloric {

struct Pairing {
    const char* name;
    WindowManager windowManager;
    Compositor compositor;

    bool isComposited() const
    {
        return compositor == Compositor::picom || windowManager == WindowManager::xfwm4Compositing;
    }
};

void PrintTo(const Pairing& pairing, std::ostream* out);

inline constexpr Pairing kOpenboxPicom{"openbox_picom", WindowManager::openbox, Compositor::picom};
inline constexpr Pairing kXfwm4{"xfwm4_compositing", WindowManager::xfwm4Compositing, Compositor::none};
inline constexpr Pairing kOpenbox{"openbox_without_compositor", WindowManager::openbox, Compositor::none};
inline std::string nameOf(const testing::TestParamInfo<Pairing>& info) { return info.param.name; }

// What the default settings draw.
inline constexpr Pixel kAccent = 0x0A85FF;
inline constexpr int kBorderWidth = 3;
inline constexpr int kCornerRadius = 11;
inline constexpr int kGlowRadius = 18;

// Blending on the server rounds in its own ways.
inline constexpr int kTolerance = 3;

// The defaults without the pulse, so that pictures come to rest at once.
inline constexpr const char* kStill = R"({"pulseEnabled": false})";

class Scene : public testing::TestWithParam<Pairing> {
protected:
    // Opens a window, each of an application of its own, and gives it the focus. Returns once it is on the screen.
    std::unique_ptr<TestClient> openFocused(TestClient::Options options = {});

    // Starts the program and waits until `client` has its border.
    void startAround(TestClient& client, const std::string& settings = kStill);

    // Waits until the border lies on the middle of each edge of the client's visible frame.
    [[nodiscard]] bool waitForBorder(TestClient& client);

    // Drags the window by the middle of its title bar. Returns once it is there; the button is still down.
    [[nodiscard]] bool dragByTitleBar(TestClient& client, int right, int down);

    // Waits until the screen looks as in `picture`, pixel by pixel.
    [[nodiscard]] bool waitForPicture(const ScreenImage& picture);

    // A part of the screen once the program has nothing more to draw: three equal pictures, each after another answer
    // of the server.
    ScreenImage settled(const ScreenRect& area);

    // What the program wrote so far, for the message of a failure.
    std::string log() { return haloric ? haloric->process().standardError() : std::string(); }

    X11Session session{GetParam().windowManager, GetParam().compositor};
    std::unique_ptr<HaloricProcess> haloric;
};

// The running test, fit for the name of a file.
std::string nameOfTest();

ScreenRect grown(const ScreenRect& rect, int by);
bool hasBorder(const ScreenImage& image, const ScreenRect& frame, Pixel color = kAccent);

// How many pixels of `area` differ between two pictures.
int differences(const ScreenImage& a, const ScreenImage& b, const ScreenRect& area);

} // namespace haloric
