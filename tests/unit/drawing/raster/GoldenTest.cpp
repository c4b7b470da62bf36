// What the views draw against pictures that were looked at and kept.
#include "support/GoldenPictures.h"
#include "support/RasterScenes.h"

namespace haloric {
namespace {

class Golden : public testing::TestWithParam<RasterScene> {};

TEST_P(Golden, looks_as_it_was_kept)
{
    Picture picture = GetParam().whole();
    GoldenPictures::compare(GetParam().name, picture);
}

INSTANTIATE_TEST_SUITE_P(Scenes, Golden, testing::ValuesIn(RasterScenes::all()), [](const auto& scene) {
    std::string name = scene.param.name;
    for (char& character : name)
        character = std::isalnum(static_cast<unsigned char>(character)) ? character : '_';
    return name;
});

} // namespace
} // namespace haloric
