// What the views draw against pictures that were looked at and kept.
//
// A component may be off by 1 of 255: drawing is the same on every machine but for how it rounds the last bit of a sum
// (a compiler may fuse a multiplication with an addition), and that moves a value only where it lies between two.
// With HALORIC_UPDATE_GOLDEN=1 in the environment the pictures are written anew instead; look at them before you
// commit.
#include "drawing/raster/Png.h"
#include "support/PictureDifference.h"
#include "support/RasterScenes.h"

#include <cstdlib>
#include <filesystem>

namespace haloric {
namespace {

namespace fs = std::filesystem;

constexpr int kTolerance = 1;

class Golden : public testing::TestWithParam<RasterScene> {};

TEST_P(Golden, looks_as_it_was_kept)
{
    const RasterScene& scene = GetParam();
    const std::string kept = (fs::path(HALORIC_GOLDEN_FOLDER) / (scene.name + ".png")).string();
    Picture picture = scene.whole();
    const char* update = std::getenv("HALORIC_UPDATE_GOLDEN");
    if (update && std::string(update) == "1") {
        ASSERT_TRUE(Png::write(picture.buffer(), kept)) << kept;
        GTEST_SKIP() << "written: " << kept;
    }
    const std::optional<Picture> golden = Png::read(kept);
    ASSERT_TRUE(golden) << "cannot read " << kept;
    PictureDifference difference = PictureDifference::of(*golden, picture);
    if (difference.largest <= kTolerance)
        return;
    const fs::path folder = HALORIC_GOLDEN_FAILURES;
    fs::create_directories(folder);
    const std::string actual = (folder / (scene.name + ".png")).string();
    const std::string amplified = (folder / (scene.name + ".difference.png")).string();
    Png::write(picture.buffer(), actual);
    if (difference.amplified.width > 0)
        Png::write(difference.amplified.buffer(), amplified);
    FAIL() << "off by " << difference.largest << " at " << difference.x << ", " << difference.y << ", "
           << difference.pixels << " pixels differ\n  kept:       " << kept << "\n  drawn:      " << actual
           << "\n  difference: " << amplified;
}

INSTANTIATE_TEST_SUITE_P(Scenes, Golden, testing::ValuesIn(RasterScenes::all()), [](const auto& scene) {
    std::string name = scene.param.name;
    for (char& character : name)
        character = std::isalnum(static_cast<unsigned char>(character)) ? character : '_';
    return name;
});

} // namespace
} // namespace haloric
