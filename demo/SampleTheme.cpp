#include "demo/SampleTheme.h"

#include <cstdlib>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>

namespace haloric {
namespace {

constexpr int kSign = 24; // pixels, width and height of a button's icon
constexpr const char* kThemeName = "Sample";

void writeFile(const std::filesystem::path& path, const std::string& text)
{
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path) << text;
}

// A bitmap in the XBM format: one bit per pixel, the first in the lowest bit. Readers ignore the rest of the line after
// the brace.
std::string bitmap(const std::function<bool(int x, int y)>& isSet)
{
    std::ostringstream text;
    text << "#define sign_width " << kSign << "\n#define sign_height " << kSign
         << "\nstatic unsigned char sign_bits[] = {\n";
    for (int index = 0; index < kSign * kSign / 8; ++index) {
        unsigned bits = 0;
        for (int bit = 0; bit < 8; ++bit) {
            const int pixel = index * 8 + bit;
            bits |= isSet(pixel % kSign, pixel / kSign) ? 1U << bit : 0U;
        }
        text << (index ? ", " : "") << "0x" << std::hex << bits;
    }
    text << "};\n";
    return text.str();
}

bool isInCross(int x, int y)
{
    const bool isNear = x >= 5 && y >= 5 && x < kSign - 5 && y < kSign - 5;
    return isNear && (std::abs(x - y) <= 1 || std::abs(x + y - kSign + 1) <= 1);
}

bool isInBar(int x, int y) { return x >= 5 && x < kSign - 5 && y >= kSign / 2 - 1 && y < kSign / 2 + 1; }

bool isInFrame(int x, int y)
{
    const bool isInside = x >= 5 && y >= 5 && x < kSign - 5 && y < kSign - 5;
    const bool isDeep = x >= 7 && y >= 7 && x < kSign - 7 && y < kSign - 7;
    return isInside && !isDeep;
}

std::string themeOf(Tone tone)
{
    const bool isLight = tone == Tone::light;
    const char* active = isLight ? "#e9ebef" : "#34383f";
    const char* inactive = isLight ? "#f3f4f6" : "#2b2e34";
    const char* text = isLight ? "#2e3440" : "#e6e8ec";
    const char* mutedText = isLight ? "#9aa0ab" : "#8b919b";
    const char* disabled = isLight ? "#c3c8d0" : "#5b606a";
    std::ostringstream theme;
    theme << "border.width: 0\npadding.width: 14\npadding.height: 8\nwindow.handle.width: 0\n"
          << "window.client.padding.width: 0\nwindow.client.padding.height: 0\n"
          << "window.label.text.justify: center\n*.font: shadow=n\n";
    for (const bool isActive : {true, false}) {
        const std::string state = isActive ? "window.active." : "window.inactive.";
        theme << state << "title.bg: flat solid\n"
              << state << "title.bg.color: " << (isActive ? active : inactive) << '\n'
              << state << "label.bg: parentrelative\n"
              << state << "label.text.color: " << (isActive ? text : mutedText) << '\n'
              << state << "title.separator.color: " << (isActive ? active : inactive) << '\n'
              << state << "button.*.bg: parentrelative\n"
              << state << "button.*.image.color: " << (isActive ? text : mutedText) << '\n'
              << state << "button.*.disabled.image.color: " << disabled << '\n';
    }
    return theme.str();
}

} // namespace

void writeWindowTheme(Tone tone, const std::filesystem::path& data, const std::filesystem::path& configuration)
{
    const auto theme = data / "themes" / kThemeName / "openbox-3";
    writeFile(theme / "themerc", themeOf(tone));
    writeFile(theme / "close.xbm", bitmap(isInCross));
    writeFile(theme / "iconify.xbm", bitmap(isInBar));
    writeFile(theme / "max.xbm", bitmap(isInFrame));
    std::ostringstream fonts;
    for (const char* place : {"ActiveWindow", "InactiveWindow"})
        fonts << "<font place=\"" << place
              << "\"><name>sans</name><size>10</size><weight>bold</weight><slant>normal</slant></font>";
    writeFile(configuration / "openbox" / "rc.xml",
              std::string("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                          "<openbox_config xmlns=\"http://openbox.org/3.4/rc\"><theme><name>") +
                  kThemeName + "</name><titleLayout>LIMC</titleLayout>" + fonts.str() +
                  "</theme><focus><focusNew>yes</focusNew></focus></openbox_config>\n");
}

void writeCompositorConfiguration(const std::filesystem::path& file)
{
    writeFile(file, R"(backend = "xrender";
vsync = false;
fading = false;
corner-radius = 22;
rounded-corners-exclude = [ "class_g = 'Haloric'", "window_type = 'dock'", "override_redirect = 1" ];
shadow = true;
shadow-radius = 30;
shadow-offset-x = -30;
shadow-offset-y = -22;
shadow-opacity = 0.35;
shadow-exclude = [ "class_g = 'Haloric'", "window_type = 'dock'" ];
)");
}

void writePanelColors(const std::filesystem::path& home)
{
    writeFile(home / ".gtkrc-2.0",
              "style \"panel\" { bg[NORMAL] = \"#e6e9ee\" }\nclass \"GtkWidget\" style \"panel\"\n");
}

void writeDarkColors(const std::filesystem::path& configuration)
{
    std::string text = "[General]\nfont=DejaVu Sans,9,-1,5,50,0,0,0,0,0\n\n";
    for (const char* part : {"Window", "View", "Button", "Tooltip"})
        text += std::string("[Colors:") + part +
                "]\nBackgroundNormal=43,46,52\nBackgroundAlternate=49,53,59\nForegroundNormal=230,232,236\n"
                "ForegroundInactive=150,156,166\nForegroundLink=80,160,255\nForegroundVisited=160,140,220\n\n";
    text += "[Colors:Selection]\nBackgroundNormal=10,133,255\nForegroundNormal=255,255,255\n";
    writeFile(configuration / "kdeglobals", text);
}

} // namespace haloric
