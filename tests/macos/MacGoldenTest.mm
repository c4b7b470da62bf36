// What the views draw through the macOS canvas, compared with the golden pictures.
#include "drawing/raster/RasterCanvas.h"
#include "graphics/Graphics.h"
#include "hosts/macos/base/CFOwned.h"
#include "hosts/macos/overlay/MacCanvas.h"
#include "support/GoldenPictures.h"
#include "support/RasterScenes.h"

#include <gtest/gtest.h>

#include <cctype>

namespace haloric {
namespace {

class MacGolden : public testing::TestWithParam<RasterScene> {};

TEST_P(MacGolden, looks_like_its_golden_picture)
{
    @autoreleasepool {
        const RasterScene& scene = GetParam();
        const PixelRect area = scene.pixels();
        RasterResources resources;
        haloric::Picture picture(area.width, area.height);
        RasterCanvas raster(resources, picture.buffer(), {scene.scale, scene.view, area.x, area.y},
                            RasterContents::transparent);
        {
            const CFOwned<CGContextRef> context(substitute::makeContext(raster));
            MacCanvas canvas(context.get(), CompositingOperation::sourceOver);
            scene.draw(canvas, scene.bounds());
        }
        GoldenPictures::compare(scene.name, picture);
    }
}

INSTANTIATE_TEST_SUITE_P(Scenes, MacGolden, testing::ValuesIn(RasterScenes::all()), [](const auto& scene) {
    std::string name = scene.param.name;
    for (char& character : name)
        character = std::isalnum(static_cast<unsigned char>(character)) ? character : '_';
    return name;
});

} // namespace
} // namespace haloric
