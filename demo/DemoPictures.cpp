#include "demo/DemoPictures.h"

#include "demo/DemoPainter.h"

namespace haloric {
namespace {

using Font = DemoPainter::Font;

struct Scenery {
    Pixel skyTop;
    Pixel skyBottom;
    Pixel sun;
    Pixel far;
    Pixel near;
};

// Two hills and a sun; `turn` (0...1) moves them, so that the pictures differ.
void paintScenery(DemoPainter& painter, const Scenery& colors, double x, double y, double width, double height,
                  double turn)
{
    painter.fillDownward(colors.skyTop, colors.skyBottom, x, y, width, height);
    painter.disc(colors.sun, x + width * (0.2 + 0.6 * turn), y + height * 0.32, height * 0.11);
    const double bottom = y + height;
    painter.hill(colors.far,
                 {{x, bottom - height * 0.30},
                  {x + width * (0.25 + 0.3 * turn), bottom - height * 0.55},
                  {x + width, bottom - height * 0.22}},
                 bottom);
    painter.hill(colors.near,
                 {{x, bottom - height * 0.12},
                  {x + width * (0.8 - 0.5 * turn), bottom - height * 0.34},
                  {x + width, bottom - height * 0.16}},
                 bottom);
}

constexpr Scenery kSceneries[] = {
    {0x9CCBE8, 0xE3F1F5, 0xFFF4C8, 0x7FA98A, 0x4E8062}, {0xF2B880, 0xFBE3C0, 0xFFF3DA, 0xC47B5A, 0x87503F},
    {0x7C9ED9, 0xD5E2F5, 0xFFFFFF, 0x8FA0C4, 0x57688F}, {0xE59AA6, 0xF9DCCB, 0xFFEFD6, 0xA4708F, 0x6A4A6E},
    {0x8FD3C8, 0xEAF7EC, 0xFFF8D2, 0x5FA79A, 0x34766F}, {0x4C5C8A, 0xB7A6C4, 0xF7E7C6, 0x47507A, 0x2C3357},
};

} // namespace

ScreenImage paintDesktop(int width, int height, int scale)
{
    DemoPainter painter(width, height, scale);
    painter.fillDownward(0x7188AB, 0xB9C0CE, 0, 0, width, height);
    const double w = width;
    const double h = height;
    painter.hill(0x8795B0, {{0, h * 0.62}, {w * 0.3, h * 0.48}, {w * 0.62, h * 0.70}, {w, h * 0.52}}, h);
    painter.hill(0x74829F, {{0, h * 0.74}, {w * 0.42, h * 0.86}, {w * 0.75, h * 0.68}, {w, h * 0.76}}, h);
    painter.hill(0x616E8C, {{0, h * 0.93}, {w * 0.22, h * 0.84}, {w * 0.6, h * 0.97}, {w, h * 0.88}}, h);
    return painter.picture();
}

ScreenImage paintNotes(int width, int height, int scale)
{
    constexpr double kSide = 150;
    DemoPainter painter(width, height, scale);
    painter.fill(0xFCFBF8, 0, 0, width, height);
    painter.fill(0xF1EEE7, 0, 0, kSide, height);
    painter.fill(0xE0DBCF, 8, 16, kSide - 16, 28, 6);
    double y = 35;
    for (const char* title : {"Today", "Groceries", "Holiday plans", "Books"}) {
        painter.write(0x57524A, Font::sans, 13, 18, y, title);
        y += 32;
    }
    painter.write(0x2B2A27, Font::bold, 21, kSide + 26, 46, "Today");
    y = 84;
    bool isDone = true;
    for (const char* line :
         {"Call the plumber at nine", "Finish the chapter on tides", "Water the tomatoes", "Tickets for Saturday"}) {
        painter.fill(0xB9B2A4, kSide + 26, y - 12, 15, 15, 4);
        painter.fill(isDone ? 0xB9B2A4 : 0xFCFBF8, kSide + 27, y - 11, 13, 13, 3);
        if (isDone)
            painter.stroke(0xFCFBF8, 1.8, {{kSide + 30, y - 4}, {kSide + 32.7, y - 1.4}, {kSide + 37.2, y - 7.6}});
        painter.write(isDone ? 0x9A9488 : 0x45433E, Font::sans, 14, kSide + 52, y, line);
        isDone = false;
        y += 30;
    }
    return painter.picture();
}

ScreenImage paintGallery(int width, int height, int scale)
{
    constexpr int kColumns = 3;
    constexpr double kGap = 16;
    constexpr double kCaption = 22;
    DemoPainter painter(width, height, scale);
    painter.fill(0xF4F5F7, 0, 0, width, height);
    const double side = (width - (kColumns + 1) * kGap) / kColumns;
    constexpr const char* kCaptions[] = {"Meadow", "Dunes", "Ridge", "Evening", "Lagoon", "Dusk"};
    for (int index = 0; index < 6; ++index) {
        const double x = kGap + index % kColumns * (side + kGap);
        const int row = index / kColumns;
        const double y = kGap + row * (side * 0.68 + kCaption + kGap);
        paintScenery(painter, kSceneries[index], x, y, side, side * 0.68, index * 37 % 100 / 100.0);
        painter.write(0x5B616B, Font::sans, 12, x + 2, y + side * 0.68 + 17, kCaptions[index]);
    }
    return painter.picture();
}

ScreenImage paintTerminal(int width, int height, int scale)
{
    constexpr Pixel kText = 0xC9D1D9;
    constexpr Pixel kPrompt = 0x7FB685;
    constexpr Pixel kFigure = 0xE3B778;
    constexpr double kLeft = 16;
    constexpr double kLine = 22;
    constexpr double kSize = 13;
    DemoPainter painter(width, height, scale);
    painter.fill(0x20252C, 0, 0, width, height);
    double y = 28;
    const auto command = [&](const char* text) {
        painter.write(kPrompt, Font::monospace, kSize, kLeft, y, "~ $");
        painter.write(kText, Font::monospace, kSize, kLeft + 32, y, text);
        y += kLine;
    };
    const auto answer = [&](const char* name, const char* value) {
        painter.write(kText, Font::monospace, kSize, kLeft, y, name);
        painter.write(kFigure, Font::monospace, kSize, kLeft + 96, y, value);
        y += kLine;
    };
    command("make");
    answer("[1/3]", "tide.cpp");
    answer("[2/3]", "moon.cpp");
    answer("[3/3]", "almanac");
    command("./almanac --today");
    answer("High water", "06:12  18:40");
    answer("Low water", "00:03  12:25");
    answer("Moon", "waxing, 71%");
    command("");
    painter.fill(kText, kLeft + 32, y - kLine - 12, 8, 15);
    return painter.picture();
}

ScreenImage paintIcon(SampleApplication application, int size, int scale)
{
    DemoPainter painter(size, size, scale);
    const double unit = size / 16.0;
    switch (application) {
    case SampleApplication::notes:
        painter.fill(0xF3DDA0, 0, 0, size, size);
        for (const double y : {4.5, 8.0, 11.5})
            painter.stroke(0x8A7340, unit * 1.2, {{unit * 4, unit * y}, {unit * 12, unit * y}});
        break;
    case SampleApplication::gallery:
        paintScenery(painter, kSceneries[0], 0, 0, size, size, 0.6);
        break;
    case SampleApplication::terminal:
        painter.fill(0x20252C, 0, 0, size, size);
        painter.stroke(0x7FB685, unit * 1.5,
                       {{unit * 3.5, unit * 4.5}, {unit * 7, unit * 8}, {unit * 3.5, unit * 11.5}});
        painter.stroke(0xC9D1D9, unit * 1.5, {{unit * 8.5, unit * 11.5}, {unit * 12.5, unit * 11.5}});
        break;
    }
    return painter.picture();
}

} // namespace haloric
