#include "manager/layout/Grid.h"

#include <algorithm>
#include <cmath>

namespace XMLConfig::detail {
namespace {

constexpr int blockSize = 16;

int stepsOf(const Range& range, double step) {
    constexpr double rounding = 1e-6;
    return std::max(1, static_cast<int>(std::ceil((range.to - range.from) / step - rounding)));
}

double placeIn(const Range& range, double step, int steps) {
    return range.from + (range.to - range.from) * step / static_cast<double>(steps);
}

/// The planes that bound a channel in space: a point is inside where no value is negative.
class Bounds {
public:
    explicit Bounds(const Channel& channel) : m_normals(planesOf(channel)) {
        for (std::size_t i = 0; i < m_normals.size(); ++i) m_offsets[i] = dot(m_normals[i], channel.eyePoint);
    }
    /// The smallest of the distances from the planes, counted inwards.
    [[nodiscard]] double depthOf(const Vector& point, double enough) const {
        double depth = dot(m_normals[0], point) - m_offsets[0];
        for (std::size_t i = 1; i < m_normals.size() && depth >= enough; ++i)
            depth = std::min(depth, dot(m_normals[i], point) - m_offsets[i]);
        return depth;
    }

private:
    Planes m_normals;
    std::array<double, 5> m_offsets{};
};

}  // namespace

Grid::Grid(const Surface& surface)
    : m_surface(surface),
      m_columns(stepsOf(surface.around(), 0.5 * degree)),
      m_rows(stepsOf(surface.heights(), surface.heightStep())) {
    makePoints();
    makeBlocks();
    m_counts.resize(m_points.size());
}

double Grid::around(int column) const { return placeIn(m_surface.around(), column, m_columns); }
double Grid::height(int row) const { return placeIn(m_surface.heights(), row, m_rows); }
double Grid::phi(int row) const { return m_surface.phiOf(height(row)); }

void Grid::makePoints() {
    const Range& heights = m_surface.heights();
    const double whole = m_surface.areaBetween(heights.from, heights.to) * m_columns;
    m_points.reserve(static_cast<std::size_t>(m_columns) * static_cast<std::size_t>(m_rows));
    for (int row = 0; row < m_rows; ++row) {
        const double middle = placeIn(heights, row + 0.5, m_rows);
        m_shares.push_back(m_surface.areaBetween(height(row), height(row + 1)) / whole);
        for (int column = 0; column < m_columns; ++column)
            m_points.push_back(m_surface.pointAt(placeIn(m_surface.around(), column + 0.5, m_columns), middle));
    }
}

void Grid::makeBlocks() {
    for (int row = 0; row < m_rows; row += blockSize)
        for (int column = 0; column < m_columns; column += blockSize) m_blocks.push_back(blockAt(column, row));
}

Grid::Block Grid::blockAt(int column, int row) const {
    Block block{column, row, std::min(column + blockSize, m_columns), std::min(row + blockSize, m_rows), {}, 0.0};
    block.centre = m_points[index((block.column + block.endColumn) / 2, (block.row + block.endRow) / 2)];
    for (int y = block.row; y < block.endRow; ++y)
        for (int x = block.column; x < block.endColumn; ++x)
            block.radius = std::max(block.radius, lengthOf(minus(m_points[index(x, y)], block.centre)));
    return block;
}

void Grid::count(int column, int row) {
    constexpr std::uint8_t more = 3;
    std::uint8_t& counted = m_counts[index(column, row)];
    if (counted < more) ++counted;
}

void Grid::add(const Channel& channel) {
    const Bounds bounds(channel);
    for (const Block& block : m_blocks) {
        const double depth = bounds.depthOf(block.centre, -block.radius);
        if (depth < -block.radius) continue;
        const bool isInside = depth > block.radius;
        for (int row = block.row; row < block.endRow; ++row)
            for (int column = block.column; column < block.endColumn; ++column)
                if (isInside || bounds.depthOf(m_points[index(column, row)], 0.0) >= 0.0) count(column, row);
    }
}

}  // namespace XMLConfig::detail
