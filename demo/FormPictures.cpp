#include "demo/FormPictures.h"

#include "demo/DemoSteps.h"

#include <algorithm>

namespace haloric {
namespace {

// Points.
constexpr int kLeastGap = 14; // between two sections; within one, gaps are smaller
constexpr int kScrollBarWidth = 10;
constexpr int kSideMargin = 6; // of the form, cut off
constexpr int kMargin = 10;    // above and below a section
constexpr std::uint8_t kWheelDown = 5;

ScreenImage cut(const ScreenImage& image, const ScreenRect& area)
{
    std::vector<Pixel> pixels;
    for (int y = area.y; y < area.bottom(); ++y)
        for (int x = area.x; x < area.right(); ++x)
            pixels.push_back(image.at(x, y));
    return {{0, 0, area.width, area.height}, std::move(pixels)};
}

// The highlight covers the outermost pixels of the form, so `left` lies further inside.
bool isEmptyRow(const ScreenImage& image, int left, int right, int y)
{
    const Pixel background = image.at(left, image.area().y);
    for (int x = left; x < right; ++x)
        if (image.at(x, y) != background)
            return false;
    return true;
}

} // namespace

std::vector<ScreenImage> wholeSections(const ScreenImage& form, int scale)
{
    const ScreenRect& all = form.area();
    const int left = all.x + kSideMargin * scale;
    const int right = all.right() - (kScrollBarWidth + kSideMargin) * scale;
    std::vector<ScreenImage> sections;
    int gap = 0;
    int start = -1; // of a possible section, set after a gap; -1: none
    for (int y = all.y; y < all.bottom(); ++y) {
        if (!isEmptyRow(form, left, right, y)) {
            if (gap >= kLeastGap * scale)
                start = y;
            gap = 0;
        } else if (++gap == kLeastGap * scale && start >= 0) {
            const int top = start - kMargin * scale;
            const int bottom = y - gap + 1 + kMargin * scale;
            sections.push_back(cut(form, {left, top, right - left, bottom - top}));
            start = -1;
        }
    }
    return sections;
}

std::vector<ScreenImage> sectionsOf(X11Session& session, const ScreenRect& place, int scale)
{
    std::vector<ScreenImage> found;
    session.input().moveTo(place.x + kSideMargin * scale / 2, place.y + place.height / 2);
    ScreenImage last;
    for (ScreenImage now = settledScreen(session, place); now != last; now = settledScreen(session, place)) {
        for (const ScreenImage& section : wholeSections(now, scale))
            if (std::ranges::find(found, section) == found.end())
                found.push_back(section);
        last = now;
        session.input().press(kWheelDown);
        session.input().release(kWheelDown);
    }
    return found;
}

} // namespace haloric
