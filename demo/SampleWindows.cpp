#include "demo/SampleWindows.h"

#include "demo/DemoSteps.h"

#include <fstream>

namespace haloric {
namespace {

constexpr int kIconSize = 64;

std::string titleOf(SampleApplication application)
{
    switch (application) {
    case SampleApplication::notes:
        return "Notes";
    case SampleApplication::gallery:
        return "Gallery";
    case SampleApplication::terminal:
        break;
    }
    return "Terminal";
}

ScreenImage paintInside(SampleApplication application, int width, int height, int scale)
{
    switch (application) {
    case SampleApplication::notes:
        return paintNotes(width, height, scale);
    case SampleApplication::gallery:
        return paintGallery(width, height, scale);
    case SampleApplication::terminal:
        break;
    }
    return paintTerminal(width, height, scale);
}

} // namespace

std::string classOf(SampleApplication application) { return "Sample" + titleOf(application); }

std::unique_ptr<TestClient> openSample(X11Session& session, SampleApplication application, const ScreenRect& content,
                                       int scale)
{
    auto client = session.makeClient(
        {.title = titleOf(application),
         .className = classOf(application),
         .content = {content.x * scale, content.y * scale, content.width * scale, content.height * scale},
         .application = TestClient::Application::ownOne});
    require(client->show(), "the window " + titleOf(application) + " does not appear");
    client->setPicture(paintInside(application, content.width, content.height, scale));
    return client;
}

void installSamples(const std::filesystem::path& data)
{
    for (const auto application : {SampleApplication::notes, SampleApplication::gallery, SampleApplication::terminal}) {
        const auto icon = data / "icons" / (classOf(application) + ".png");
        require(paintIcon(application, kIconSize).savePng(icon), "cannot write " + icon.string());
        const auto entry = data / "applications" / (classOf(application) + ".desktop");
        std::filesystem::create_directories(entry.parent_path());
        std::ofstream(entry) << "[Desktop Entry]\nType=Application\nName=" << titleOf(application)
                             << "\nExec=true\nIcon=" << icon.string() << "\nStartupWMClass=" << classOf(application)
                             << '\n';
    }
}

} // namespace haloric
