#include "support/GoldenPictures.h"

#include "drawing/raster/Png.h"
#include "support/PictureDifference.h"

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

namespace haloric {

namespace {

namespace fs = std::filesystem;

constexpr int kTolerance = 1;

std::string describe(const std::string& name, Picture& drawn, PictureDifference& difference, const std::string& kept)
{
    const fs::path folder = HALORIC_GOLDEN_FAILURES;
    fs::create_directories(folder);
    const std::string actual = (folder / (name + ".png")).string();
    const std::string amplified = (folder / (name + ".difference.png")).string();
    Png::write(drawn.buffer(), actual);
    if (difference.amplified.width > 0)
        Png::write(difference.amplified.buffer(), amplified);
    return "off by " + std::to_string(difference.largest) + " at " + std::to_string(difference.x) + ", " +
           std::to_string(difference.y) + ", " + std::to_string(difference.pixels) +
           " pixels differ\n  kept:       " + kept + "\n  drawn:      " + actual + "\n  difference: " + amplified;
}

} // namespace

std::string GoldenPictures::scaled(const std::string& name, double scale)
{
    return name + "@" + std::to_string(static_cast<int>(scale)) +
           (scale == std::floor(scale) ? "" : "." + std::to_string(std::lround(scale * 100) % 100));
}

void GoldenPictures::compare(const std::string& name, Picture& picture)
{
    const std::string kept = (fs::path(HALORIC_GOLDEN_FOLDER) / (name + ".png")).string();
    const char* update = std::getenv("HALORIC_UPDATE_GOLDEN");
    if (update && std::string(update) == "1") {
        ASSERT_TRUE(Png::write(picture.buffer(), kept)) << kept;
        GTEST_SKIP() << "written: " << kept;
    }
    const std::optional<Picture> golden = Png::read(kept);
    ASSERT_TRUE(golden) << "cannot read " << kept;
    PictureDifference difference = PictureDifference::of(*golden, picture);
    EXPECT_LE(difference.largest, kTolerance) << describe(name, picture, difference, kept);
}

} // namespace haloric
