// Compares the application's icon with the reviewed pictures.
#include "drawing/icon/IconPicture.h"
#include "support/GoldenPictures.h"

namespace haloric {
namespace {

class IconPictures : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Sizes, IconPictures, testing::Values(16, 22, 24, 32, 48, 64, 128, 256));

TEST_P(IconPictures, the_icon_equals_the_kept_picture)
{
    Picture icon = IconPicture::draw(GetParam());
    GoldenPictures::compare("app-icon-" + std::to_string(GetParam()), icon);
}

constexpr int kUnevenness = 4; // of 255; masks are sampled from left to right

std::uint32_t alphaAt(const Picture& picture, int x, int y) { return picture.at(x, y) >> 24; }

TEST(IconPicture, it_fills_every_size_and_has_transparent_corners)
{
    for (const int size : {1, 2, 3, 7, 16, 31, 100, 512, 1024}) {
        const Picture icon = IconPicture::draw(size);
        ASSERT_EQ(icon.width, size);
        ASSERT_EQ(icon.height, size);
        if (size < 16)
            continue; // too small for the shape
        EXPECT_EQ(alphaAt(icon, size / 2, size / 2), 255U) << size;
        EXPECT_EQ(alphaAt(icon, 0, 0), 0U) << size;
        EXPECT_EQ(alphaAt(icon, size - 1, size - 1), 0U) << size;
    }
}

TEST(IconPicture, it_is_symmetric_in_the_sizes_without_dots)
{
    for (const int size : {16, 22, 24, 32, 48, 64}) {
        const Picture icon = IconPicture::draw(size);
        for (int y = 0; y < size; ++y)
            for (int x = 0; x < size / 2; ++x) {
                const std::uint32_t left = icon.at(x, y);
                const std::uint32_t right = icon.at(size - 1 - x, y);
                for (int shift = 0; shift < 32; shift += 8)
                    ASSERT_NEAR(left >> shift & 0xffU, right >> shift & 0xffU, kUnevenness)
                        << size << ": " << x << ", " << y;
            }
    }
}

} // namespace
} // namespace haloric
