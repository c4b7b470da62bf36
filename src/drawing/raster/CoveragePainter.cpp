#include "drawing/raster/CoveragePainter.h"

#include "drawing/RowCoverage.h"

#include <algorithm>

namespace haloric {

namespace {

template <typename Visit>
void forEachShape(std::span<const CoverageFactor> factors, Visit visit)
{
    for (const CoverageFactor& factor : factors) {
        if (factor.outer)
            visit(*factor.outer);
        if (factor.inner)
            visit(*factor.inner);
    }
}

// The first row after `row` that may differ from it, or `row` itself if the next one may.
int uniformRowsEnd(std::span<const CoverageFactor> factors, int row, int limit)
{
    int end = limit;
    forEachShape(factors, [&](const DeviceShape& shape) {
        const int top = pixelFloor(shape.y0);
        const int bottom = pixelCeil(shape.y1);
        if (row < top)
            end = std::min(end, top);
        else if (row < bottom && !shape.empty()) {
            const bool between = row >= RowCoverage::uniformBegin(shape) && row < RowCoverage::uniformEnd(shape);
            end = std::min(end, between ? RowCoverage::uniformEnd(shape) : row);
        }
    });
    return end;
}

// The factors' shapes in one row.
struct RowFactor {
    std::optional<RowCoverage> outer;
    std::optional<RowCoverage> inner;
};

bool variesAt(const RowCoverage& row, int column)
{
    return (column >= row.begin() && column < row.fullBegin()) || (column >= row.fullEnd() && column < row.end());
}

float coverageAt(const RowCoverage& row, int column)
{
    if (column < row.begin() || column >= row.end())
        return 0;
    return column >= row.fullBegin() && column < row.fullEnd() ? row.inner() : row.at(column);
}

float coverageAt(const RowFactor& factor, int column)
{
    float coverage = factor.outer ? coverageAt(*factor.outer, column) : 1;
    if (factor.inner)
        coverage -= coverageAt(*factor.inner, column);
    return std::max(coverage, 0.0F);
}

} // namespace

void CoveragePainter::setTarget(const PixelBuffer& buffer, int originX, int originY)
{
    m_buffer = buffer;
    m_originX = originX;
    m_originY = originY;
}

void CoveragePainter::prepareRow(const PixelRect& area, int row, std::span<const CoverageFactor> factors,
                                 const Color& color, PaintMode mode)
{
    RowFactor rows[kMaxFactors];
    const std::size_t count = std::min(factors.size(), kMaxFactors);
    m_edges.assign({area.x, area.maxX()});
    const auto addEdges = [&](const RowCoverage& coverage) {
        for (const int edge : {coverage.begin(), coverage.fullBegin(), coverage.fullEnd(), coverage.end()})
            if (edge > area.x && edge < area.maxX())
                m_edges.push_back(edge);
    };
    for (std::size_t i = 0; i < count; ++i) {
        if (factors[i].outer)
            addEdges(rows[i].outer.emplace(*factors[i].outer, row));
        if (factors[i].inner)
            addEdges(rows[i].inner.emplace(*factors[i].inner, row));
    }
    std::sort(m_edges.begin(), m_edges.end());

    m_runs.clear();
    m_sources.clear();
    m_keeps.clear();
    const auto coverageOfAll = [&](int column) {
        double coverage = 1;
        for (std::size_t i = 0; i < count && coverage > 0; ++i)
            coverage *= static_cast<double>(coverageAt(rows[i], column));
        return coverage;
    };
    for (std::size_t i = 0; i + 1 < m_edges.size(); ++i) {
        const int begin = m_edges[i];
        const int end = m_edges[i + 1];
        const bool varies = begin < end && std::any_of(rows, rows + count, [&](const RowFactor& factor) {
                                return (factor.outer && variesAt(*factor.outer, begin)) ||
                                       (factor.inner && variesAt(*factor.inner, begin));
                            });
        if (varies)
            for (int column = begin; column < end; ++column)
                addPixel(column, blendOf(color, coverageOfAll(column), mode));
        else if (const double coverage = coverageOfAll(begin); begin < end && coverage > 0)
            addRun(begin, end, blendOf(color, coverage, mode));
    }
}

void CoveragePainter::addRun(int begin, int end, Blend blend)
{
    // A short run costs less as part of the pixels beside it than as a run of its own.
    constexpr int kShort = 16;
    if (end - begin > kShort) {
        m_runs.push_back({begin, end, blend, Run::kUniform, blend.writes()});
        return;
    }
    for (int column = begin; column < end; ++column)
        addPixel(column, blend);
}

void CoveragePainter::addPixel(int column, Blend blend)
{
    if (m_runs.empty() || m_runs.back().end != column || m_runs.back().first == Run::kUniform)
        m_runs.push_back({column, column, {}, static_cast<int>(m_sources.size()), true});
    ++m_runs.back().end;
    m_runs.back().writes &= blend.writes();
    m_sources.push_back(blend.source);
    m_keeps.push_back(inEachByte(blend.keep));
}

void CoveragePainter::applyRow(int row) const
{
    for (const Run& run : m_runs) {
        const auto count = static_cast<std::size_t>(run.end - run.begin);
        std::uint32_t* first = pixel(run.begin, row);
        if (run.first == Run::kUniform)
            blendPixels(first, count, run.blend);
        else if (run.writes)
            copyPixels(first, m_sources.data() + run.first, count);
        else
            blendPixels(first, count, m_sources.data() + run.first, m_keeps.data() + run.first);
    }
}

void CoveragePainter::paint(const PixelRect& area, std::span<const CoverageFactor> factors, const Color& color,
                            PaintMode mode)
{
    for (int row = area.y; row < area.maxY();) {
        const int end = uniformRowsEnd(factors, row, area.maxY());
        prepareRow(area, row, factors, color, mode);
        do
            applyRow(row++);
        while (row < end);
    }
}

} // namespace haloric
