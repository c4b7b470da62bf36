// Compares what the views draw with the golden pictures.
#include "support/GoldenPictures.h"
#include "support/RasterScenes.h"

namespace haloric {
namespace {

class Golden : public testing::TestWithParam<RasterScene> {};

TEST_P(Golden, looks_like_its_golden_picture)
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
