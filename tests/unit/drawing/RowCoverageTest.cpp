#include "drawing/RowCoverage.h"

#include <cmath>
#include <random>

namespace haloric {
namespace {

constexpr int kUnit = DeviceShape::kUnit;

bool isInside(const DeviceShape& shape, double x, double y)
{
    const double px = x * kUnit;
    const double py = y * kUnit;
    if (px < shape.x0 || px >= shape.x1 || py < shape.y0 || py >= shape.y1)
        return false;
    const double dx = std::max({shape.x0 + shape.radius - px, px - (shape.x1 - shape.radius), 0.0});
    const double dy = std::max({shape.y0 + shape.radius - py, py - (shape.y1 - shape.radius), 0.0});
    return dx * dx + dy * dy <= static_cast<double>(shape.radius) * shape.radius;
}

double sampled(const DeviceShape& shape, int column, int row)
{
    constexpr int samples = 64;
    int inside = 0;
    for (int i = 0; i < samples; ++i)
        for (int j = 0; j < samples; ++j)
            inside += isInside(shape, column + (i + 0.5) / samples, row + (j + 0.5) / samples) ? 1 : 0;
    return static_cast<double>(inside) / (samples * samples);
}

std::vector<DeviceShape> shapes()
{
    std::vector<DeviceShape> all{
        {512, 768, 2560, 3072, 0},  {600, 700, 2600, 3000, 500}, {512, 512, 2560, 2560, 1024}, // a circle
        {300, 300, 420, 400, 50},                                                              // within one pixel
        {300, 300, 700, 2000, 200}, {-700, -900, 900, 800, 300}, {0, 0, 256, 256, 128},
    };
    std::mt19937 random(1);
    const auto upTo = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit + 1)); };
    for (int i = 0; i < 60; ++i) {
        DeviceShape shape{upTo(2000), upTo(2000), 0, 0, 0};
        shape.x1 = shape.x0 + 1 + upTo(i % 2 == 0 ? 600 : 3000);
        shape.y1 = shape.y0 + 1 + upTo(i % 3 == 0 ? 600 : 3000);
        shape.radius = upTo(std::min(shape.width(), shape.height()) / 2);
        all.push_back(shape);
    }
    return all;
}

TEST(RowCoverage, is_the_area_that_sampling_finds)
{
    for (const DeviceShape& shape : shapes())
        for (int row = -5; row < 24; ++row) {
            const RowCoverage coverage(shape, row);
            for (int column = -5; column < 24; ++column)
                ASSERT_NEAR(static_cast<double>(coverage.at(column)), sampled(shape, column, row), 0.02)
                    << "column " << column << " row " << row << " shape " << shape.x0 << ' ' << shape.y0 << ' '
                    << shape.x1 << ' ' << shape.y1 << " radius " << shape.radius;
        }
}

TEST(RowCoverage, the_runs_between_the_edges_hold_what_each_pixel_has)
{
    for (const DeviceShape& shape : shapes())
        for (int row = -5; row < 24; ++row) {
            const RowCoverage coverage(shape, row);
            ASSERT_LE(coverage.begin(), coverage.fullBegin());
            ASSERT_LE(coverage.fullBegin(), coverage.fullEnd());
            ASSERT_LE(coverage.fullEnd(), coverage.end());
            for (int column = -5; column < 24; ++column) {
                if (column < coverage.begin() || column >= coverage.end()) {
                    ASSERT_NEAR(coverage.at(column), 0, 1e-6F);
                } else if (column >= coverage.fullBegin() && column < coverage.fullEnd()) {
                    ASSERT_NEAR(coverage.at(column), coverage.inner(), 1e-6F);
                }
            }
        }
}

TEST(RowCoverage, rows_between_the_corners_are_equal)
{
    const DeviceShape shape{600, 700, 5000, 6000, 500};
    const RowCoverage first(shape, RowCoverage::uniformBegin(shape));
    ASSERT_LT(RowCoverage::uniformBegin(shape) + 3, RowCoverage::uniformEnd(shape));
    for (int row = RowCoverage::uniformBegin(shape); row < RowCoverage::uniformEnd(shape); ++row)
        for (int column = 0; column < 22; ++column)
            ASSERT_EQ(RowCoverage(shape, row).at(column), first.at(column));
}

TEST(RowCoverage, areas_add_up_to_that_of_the_shape)
{
    const DeviceShape shape{333, 777, 333 + 20 * kUnit, 777 + 18 * kUnit, 7 * kUnit};
    double area = 0;
    for (int row = 0; row < 30; ++row)
        for (int column = 0; column < 30; ++column)
            area += static_cast<double>(RowCoverage(shape, row).at(column));
    EXPECT_NEAR(area, 20 * 18 - (4 - std::acos(-1.0)) * 7 * 7, 1e-4);
}

TEST(RowCoverage, an_empty_shape_covers_nothing)
{
    EXPECT_EQ(RowCoverage(DeviceShape{}, 0).at(0), 0);
    EXPECT_EQ(RowCoverage(DeviceShape{}, 0).begin(), RowCoverage(DeviceShape{}, 0).end());
}

} // namespace
} // namespace haloric
