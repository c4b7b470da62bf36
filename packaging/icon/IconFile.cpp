#include "icon/IconFile.h"

#include "drawing/icon/IconPicture.h"
#include "drawing/raster/Png.h"

#include <cstdint>
#include <map>

namespace haloric {
namespace {

constexpr std::string_view kFileType = "icns";
constexpr std::size_t kTypeLength = 4;
constexpr std::size_t kHeaderLength = 8; // type and length, for the file as for each member

// Big-endian; the length includes the header.
std::string header(std::string_view type, std::size_t bodyLength)
{
    const auto length = static_cast<std::uint32_t>(bodyLength + kHeaderLength);
    std::string bytes(type);
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<char>(length >> shift & 0xffU));
    return bytes;
}

std::size_t lengthAt(std::string_view file, std::size_t offset)
{
    std::size_t length = 0;
    for (std::size_t i = 0; i < 4; ++i)
        length = length << 8 | static_cast<unsigned char>(file[offset + kTypeLength + i]);
    return length;
}

} // namespace

const std::vector<IconFile::Member>& IconFile::members()
{
    // Without 16 and 32 points at one pixel a point: macOS shows a PNG of the types icp4 and icp5 as noise in bundles.
    // It scales those with two pixels a point down instead.
    static const std::vector<Member> members = {
        {"ic11", 32},                 // 16 points, at 2 pixels a point
        {"ic12", 64},                 // 32 points
        {"ic07", 128}, {"ic13", 256}, // 128 points, at 1 and 2 pixels a point
        {"ic08", 256}, {"ic14", 512}, // 256 points
        {"ic09", 512}, {"ic10", 1024} // 512 points
    };
    return members;
}

std::string IconFile::bytes()
{
    std::map<int, std::string> pictures;
    std::string body;
    for (const Member& member : members()) {
        std::string& picture = pictures[member.pixels];
        if (picture.empty())
            picture = Png::encode(IconPicture::draw(member.pixels).buffer());
        body += header(member.type, picture.size()) + picture;
    }
    return header(kFileType, body.size()) + body;
}

std::string_view IconFile::find(std::string_view file, std::string_view type)
{
    if (!file.starts_with(kFileType) || file.size() < kHeaderLength || lengthAt(file, 0) != file.size())
        return {};
    std::size_t offset = kHeaderLength;
    while (offset + kHeaderLength <= file.size()) {
        const std::size_t length = lengthAt(file, offset);
        if (length < kHeaderLength || length > file.size() - offset)
            return {};
        if (file.substr(offset, kTypeLength) == type)
            return file.substr(offset + kHeaderLength, length - kHeaderLength);
        offset += length;
    }
    return {};
}

} // namespace haloric
