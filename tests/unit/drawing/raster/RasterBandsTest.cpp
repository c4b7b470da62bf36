// A host keeps a view as narrow strips and redraws parts of them. The pixels must not depend on it.
#include "support/PictureDifference.h"
#include "support/RasterScenes.h"

#include <random>

namespace haloric {
namespace {

class RasterBands : public testing::TestWithParam<RasterScene> {};

void paste(Picture& whole, Picture part, const PixelRect& area)
{
    for (int y = 0; y < area.height; ++y)
        copyPixels(whole.buffer().row(area.y + y) + area.x, part.buffer().row(y), static_cast<std::size_t>(area.width));
}

Picture inParts(const RasterScene& scene, std::span<const PixelRect> parts, RasterWays ways)
{
    RasterResources resources;
    Picture picture(scene.pixels().width, scene.pixels().height);
    for (const PixelRect& part : parts)
        paste(picture, scene.part(resources, part, ways), part);
    return picture;
}

// Cuts at corners, at edges and elsewhere.
std::vector<PixelRect> partsOf(const PixelRect& all)
{
    std::vector<PixelRect> parts;
    const std::vector<int> columns{0, 1, all.width / 4, all.width / 4 + 7, all.width / 2, all.width - 41, all.width};
    const std::vector<int> rows{0, all.height / 3, all.height / 3 + 1, all.height / 2, all.height - 44, all.height};
    for (std::size_t i = 0; i + 1 < columns.size(); ++i)
        for (std::size_t j = 0; j + 1 < rows.size(); ++j)
            parts.push_back({columns[i], rows[j], columns[i + 1] - columns[i], rows[j + 1] - rows[j]});
    return parts;
}

TEST_P(RasterBands, parts_have_the_pixels_of_the_whole)
{
    const RasterScene& scene = GetParam();
    for (const RasterWays ways : {RasterWays::fast, RasterWays::generalOnly}) {
        const Picture whole = scene.whole(ways);
        const auto difference = PictureDifference::of(whole, inParts(scene, partsOf(scene.pixels()), ways));
        // Cairo's larger curves depend slightly on the rendered area.
        const int allowed = ways == RasterWays::generalOnly && scene.scale > 2 ? 1 : 0;
        EXPECT_LE(difference.largest, allowed) << (ways == RasterWays::fast ? "fast" : "general") << ", by up to "
                                               << difference.largest << " at " << difference.x << ", " << difference.y;
    }
}

TEST_P(RasterBands, damage_is_redrawn_as_it_was)
{
    const RasterScene& scene = GetParam();
    const Picture whole = scene.whole();
    Picture picture = whole;
    std::mt19937 random(5);
    const auto upTo = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit + 1)); };
    RasterResources resources;
    for (int round = 0; round < 10; ++round) {
        std::vector<PixelRect> damage; // overlapping, and past the edges
        for (int i = 0; i < 5; ++i)
            damage.push_back({upTo(picture.width) - 10, upTo(picture.height) - 10, upTo(60), upTo(60)});
        for (const PixelRect& rect : damage) { // the previous pixels must not remain visible
            const PixelRect seen = intersection(rect, scene.pixels());
            for (int y = seen.y; y < seen.maxY(); ++y)
                fillPixels(picture.buffer().row(y) + seen.x, static_cast<std::size_t>(seen.width), 0xffabcdef);
        }
        scene.redraw(picture, resources, damage);
        ASSERT_EQ(PictureDifference::of(whole, picture).pixels, 0);
    }
}

TEST_P(RasterBands, drawing_over_nothing_is_the_same_as_drawing_on_nothing)
{
    const RasterScene& scene = GetParam();
    Picture picture(scene.pixels().width, scene.pixels().height);
    RasterResources resources;
    RasterCanvas canvas(resources, picture.buffer(), {scene.scale, scene.view, 0, 0}, RasterContents::kept);
    scene.draw(canvas, scene.bounds());
    EXPECT_EQ(PictureDifference::of(scene.whole(), picture).pixels, 0);
}

INSTANTIATE_TEST_SUITE_P(Scenes, RasterBands, testing::ValuesIn(RasterScenes::all()));
INSTANTIATE_TEST_SUITE_P(OtherScales, RasterBands, testing::ValuesIn(RasterScenes::otherScales()));

} // namespace
} // namespace haloric
