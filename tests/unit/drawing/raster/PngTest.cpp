#include "drawing/raster/Png.h"

#include <filesystem>
#include <fstream>

namespace haloric {
namespace {

std::string pathOf(const std::string& name) { return (std::filesystem::path(testing::TempDir()) / name).string(); }

TEST(Png, a_picture_that_is_written_and_read_has_the_same_pixels)
{
    Picture picture(256, 256); // every alpha with every component below it
    for (std::uint32_t alpha = 0; alpha < 256; ++alpha)
        for (std::uint32_t part = 0; part < 256; ++part) {
            const std::uint32_t component = alpha * part / 255;
            picture.pixels[alpha * 256 + part] =
                alpha << 24 | component << 16 | (alpha - component) << 8 | component / 2;
        }
    const std::string path = pathOf("haloric-png-test.png");
    ASSERT_TRUE(Png::write(picture.buffer(), path));
    EXPECT_EQ(Png::read(path), picture);
    std::filesystem::remove(path);
}

TEST(Png, an_opaque_picture_is_read_as_opaque)
{
    Picture picture(3, 2);
    std::fill(picture.pixels.begin(), picture.pixels.end(), 0xff102030);
    const std::string path = pathOf("haloric-png-opaque-test.png");
    ASSERT_TRUE(Png::write(picture.buffer(), path));
    EXPECT_EQ(Png::read(path), picture);
    std::filesystem::remove(path);
}

TEST(Png, encoding_gives_the_bytes_of_a_file)
{
    Picture picture(3, 2);
    std::fill(picture.pixels.begin(), picture.pixels.end(), 0x80402010);
    const std::string path = pathOf("haloric-png-encode-test.png");
    std::ofstream(path, std::ios::binary) << Png::encode(picture.buffer());
    EXPECT_EQ(Png::read(path), picture);
    std::filesystem::remove(path);
}

TEST(Png, failures_are_reported)
{
    Picture picture(2, 2);
    EXPECT_FALSE(Png::write(picture.buffer(), pathOf("no/such/folder/picture.png")));
    EXPECT_FALSE(Png::read(pathOf("no-such-picture.png")));
    const std::string path = pathOf("haloric-not-a-picture.png");
    std::ofstream(path) << "no picture";
    EXPECT_FALSE(Png::read(path));
    std::filesystem::remove(path);
}

} // namespace
} // namespace haloric
