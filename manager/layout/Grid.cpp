#include "manager/layout/Grid.h"

#include <algorithm>
#include <cmath>

namespace XMLConfig::detail {
namespace {

constexpr int blockSize = 32;
constexpr int partSize = 8;

int stepsOf(const Interval& range, double step) {
    constexpr double rounding = 1e-6;
    return std::max(1, static_cast<int>(std::ceil((range.to - range.from) / step - rounding)));
}

double placeIn(const Interval& range, double step, int steps) {
    return range.from + (range.to - range.from) * step / static_cast<double>(steps);
}

}  // namespace

/// The planes that bound a channel in space: a point is inside where no value is negative. What is right of the left edge
/// and left of the right one is before the eye as well.
class Grid::Bounds {
public:
    explicit Bounds(const Channel& channel) {
        const Planes planes = planesOf(channel);
        for (std::size_t i = 0; i < m_normals.size(); ++i) {
            m_normals[i] = planes[i + 1];
            m_offsets[i] = dot(m_normals[i], channel.eyePoint);
        }
    }
    /// The smallest of the distances from the planes, counted inwards, where it is not below `enough`.
    [[nodiscard]] double depthOf(const Vector& point, double enough) const {
        double depth = dot(m_normals[0], point) - m_offsets[0];
        for (std::size_t i = 1; i < m_normals.size() && depth >= enough; ++i)
            depth = std::min(depth, dot(m_normals[i], point) - m_offsets[i]);
        return depth;
    }

private:
    std::array<Vector, 4> m_normals;
    std::array<double, 4> m_offsets{};
};

Grid::Grid(const Surface& surface)
    : m_surface(surface),
      m_columns(stepsOf(surface.around(), 0.5 * degree)),
      m_rows(stepsOf(surface.heights(), surface.heightStep())) {
    makePoints();
    makeBlocks();
    m_counts.resize(static_cast<std::size_t>(m_columns) * static_cast<std::size_t>(m_rows));
}

double Grid::around(int column) const { return placeIn(m_surface.around(), column, m_columns); }
double Grid::height(int row) const { return placeIn(m_surface.heights(), row, m_rows); }
double Grid::phi(int row) const { return m_surface.phiOf(height(row)); }

void Grid::makePoints() {
    const Interval& heights = m_surface.heights();
    const double whole = m_surface.areaBetween(heights.from, heights.to) * m_columns;
    for (int column = 0; column < m_columns; ++column)
        m_directions.push_back(Surface::directionAt(placeIn(m_surface.around(), column + 0.5, m_columns)));
    for (int row = 0; row < m_rows; ++row) {
        m_shares.push_back(m_surface.areaBetween(height(row), height(row + 1)) / whole);
        m_levels.push_back(m_surface.levelAt(placeIn(heights, row + 0.5, m_rows)));
    }
}

void Grid::makeBlocks() {
    for (int row = 0; row < m_rows; row += blockSize)
        for (int column = 0; column < m_columns; column += blockSize) {
            Block block = blockAt(column, row, blockSize, m_columns, m_rows);
            block.firstPart = m_parts.size();
            for (int y = block.row; y < block.endRow; y += partSize)
                for (int x = block.column; x < block.endColumn; x += partSize)
                    m_parts.push_back(blockAt(x, y, partSize, block.endColumn, block.endRow));
            block.endPart = m_parts.size();
            m_blocks.push_back(block);
        }
}

Grid::Block Grid::blockAt(int column, int row, int size, int endColumn, int endRow) const {
    Block block{column, row, std::min(column + size, endColumn), std::min(row + size, endRow), {}, 0.0, 0, 0};
    block.centre = pointAt((block.column + block.endColumn) / 2, (block.row + block.endRow) / 2);
    for (const int y : {block.row, block.endRow - 1})
        for (const int x : {block.column, block.endColumn - 1})
            block.radius = std::max(block.radius, lengthOf(minus(pointAt(x, y), block.centre)));
    return block;
}

void Grid::count(std::size_t place) {
    constexpr std::uint8_t more = 3;
    if (m_counts[place] < more) ++m_counts[place];
}

void Grid::countAll(const Block& block) {
    for (int row = block.row; row < block.endRow; ++row)
        for (int column = block.column; column < block.endColumn; ++column) count(index(column, row));
}

void Grid::addPart(const Block& part, const Bounds& bounds) {
    const double depth = bounds.depthOf(part.centre, -part.radius);
    if (depth < -part.radius) return;
    if (depth > part.radius) return countAll(part);
    for (int row = part.row; row < part.endRow; ++row)
        for (int column = part.column; column < part.endColumn; ++column)
            if (bounds.depthOf(pointAt(column, row), 0.0) >= 0.0) count(index(column, row));
}

void Grid::add(const Channel& channel) {
    const Bounds bounds(channel);
    for (const Block& block : m_blocks) {
        const double depth = bounds.depthOf(block.centre, -block.radius);
        if (depth < -block.radius) continue;
        if (depth > block.radius) countAll(block);
        else
            for (std::size_t i = block.firstPart; i < block.endPart; ++i) addPart(m_parts[i], bounds);
    }
}

}  // namespace XMLConfig::detail
