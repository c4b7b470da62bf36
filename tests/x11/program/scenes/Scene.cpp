#include "x11/program/scenes/Scene.h"

#include <algorithm>
#include <array>

namespace haloric {

std::string nameOfTest()
{
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string(test->test_suite_name()) + "." + test->name();
    std::replace(name.begin(), name.end(), '/', '-');
    return name;
}

bool hasBorder(const ScreenImage& image, const ScreenRect& frame, Pixel color)
{
    const int middleX = frame.x + frame.width / 2;
    const int middleY = frame.y + frame.height / 2;
    const int half = kBorderWidth / 2;
    const std::array<Pixel, 4> edges{image.at(frame.x + half, middleY), image.at(frame.right() - 1 - half, middleY),
                                     image.at(middleX, frame.y + half), image.at(middleX, frame.bottom() - 1 - half)};
    return std::all_of(edges.begin(), edges.end(),
                       [color](Pixel edge) { return colorDistance(edge, color) <= kTolerance; });
}

int differences(const ScreenImage& a, const ScreenImage& b, const ScreenRect& area)
{
    int count = 0;
    for (int y = area.y; y < area.bottom(); ++y) {
        for (int x = area.x; x < area.right(); ++x)
            count += a.at(x, y) != b.at(x, y) ? 1 : 0;
    }
    return count;
}

std::unique_ptr<TestClient> Scene::openFocused(TestClient::Options options)
{
    options.application = TestClient::Application::ownOne;
    auto client = session.makeClient(options);
    EXPECT_TRUE(client->showFocused()) << "the window " << options.title << " does not get the focus";
    const ScreenRect inside = client->content();
    EXPECT_TRUE(session.observer().waitUntil([&] {
        return session.observer().capture(inside).at(inside.x + inside.width / 2, inside.y + inside.height / 2) ==
               options.color;
    })) << "the window "
        << options.title << " is not painted";
    return client;
}

void Scene::startAround(TestClient& client, const std::string& settings)
{
    haloric = std::make_unique<HaloricProcess>(session, settings);
    // Waits for the window as well: the screen may still show the border of an earlier process.
    ASSERT_TRUE(haloric->waitForHighlight(client.visibleFrame()).has_value()) << log();
    ASSERT_TRUE(waitForBorder(client)) << log();
}

bool Scene::waitForBorder(TestClient& client)
{
    // The window manager may still move the frame, so each turn reads it again.
    const bool isThere = session.observer().waitUntil([&] {
        const ScreenRect frame = client.visibleFrame();
        return hasBorder(session.observer().capture(frame), frame);
    });
    if (!isThere)
        session.keepFailure(nameOfTest() + "-border");
    return isThere;
}

bool Scene::waitForPixel(int x, int y, Pixel color)
{
    return session.waitForPixels(nameOfTest() + "-pixel", {x, y, 1, 1}, [&](const ScreenImage& now) {
        return colorDistance(now.at(x, y), color) <= kTolerance;
    });
}

bool Scene::waitForOtherPixel(int x, int y, Pixel color)
{
    return session.waitForPixels(nameOfTest() + "-pixel", {x, y, 1, 1}, [&](const ScreenImage& now) {
        return colorDistance(now.at(x, y), color) > kTolerance;
    });
}

bool Scene::waitForPicture(const ScreenImage& picture)
{
    return session.waitForPixels(nameOfTest() + "-picture", picture.area(),
                                 [&](const ScreenImage& now) { return now == picture; });
}

ScreenImage Scene::settled(const ScreenRect& area)
{
    constexpr int kEqualPictures = 3;
    ScreenImage last;
    int equal = 0;
    EXPECT_TRUE(session.observer().waitUntil([&] {
        ScreenImage now = session.observer().capture(area);
        equal = now == last ? equal + 1 : 0;
        last = std::move(now);
        return equal >= kEqualPictures;
    }));
    return last;
}

} // namespace haloric
