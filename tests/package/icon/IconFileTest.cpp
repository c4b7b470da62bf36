#include "icon/IconFile.h"

#include "drawing/icon/IconPicture.h"
#include "drawing/raster/Png.h"
#include "support/PictureDifference.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace haloric {
namespace {

constexpr int kTolerance = 1; // difference between versions of Cairo

std::string keptIcon()
{
    std::ostringstream bytes;
    bytes << std::ifstream(HALORIC_ICON, std::ios::binary).rdbuf();
    return bytes.str();
}

std::optional<Picture> decode(std::string_view png)
{
    const std::string path = (std::filesystem::path(testing::TempDir()) / "haloric-icon-test.png").string();
    std::ofstream(path, std::ios::binary) << png;
    auto picture = Png::read(path);
    std::filesystem::remove(path);
    return picture;
}

TEST(IconFile, the_kept_icon_equals_the_drawing)
{
    const std::string file = keptIcon();
    for (const IconFile::Member& member : IconFile::members()) {
        SCOPED_TRACE(member.type);
        const std::optional<Picture> kept = decode(IconFile::find(file, member.type));
        ASSERT_TRUE(kept) << "write it again: haloric-icon " << HALORIC_ICON;
        const Picture drawn = IconPicture::draw(member.pixels);
        ASSERT_EQ(kept->width, member.pixels);
        ASSERT_EQ(kept->height, member.pixels);
        EXPECT_LE(PictureDifference::of(*kept, drawn).largest, kTolerance)
            << "write it again: haloric-icon " << HALORIC_ICON;
    }
}

TEST(IconFile, every_member_of_a_file_can_be_found)
{
    const std::string file = IconFile::bytes();
    for (const IconFile::Member& member : IconFile::members())
        EXPECT_TRUE(IconFile::find(file, member.type).starts_with("\x89PNG")) << member.type;
    EXPECT_TRUE(IconFile::find(file, "none").empty());
}

TEST(IconFile, no_member_has_a_type_that_macos_shows_as_noise)
{
    for (const char* type : {"icp4", "icp5", "icp6"}) {
        EXPECT_TRUE(IconFile::find(keptIcon(), type).empty()) << type;
        EXPECT_TRUE(IconFile::find(IconFile::bytes(), type).empty()) << type;
    }
}

TEST(IconFile, nothing_is_found_in_a_file_that_is_cut_off)
{
    const std::string file = IconFile::bytes();
    for (const std::size_t length : {std::size_t{0}, std::size_t{7}, std::size_t{12}, file.size() - 1})
        EXPECT_TRUE(IconFile::find(file.substr(0, length), "ic11").empty()) << length;
}

} // namespace
} // namespace haloric
