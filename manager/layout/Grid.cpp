#include "manager/layout/Grid.h"

#include <algorithm>
#include <cmath>

namespace XMLConfig::detail {
namespace {

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
    /// Takes away the planes that a block lies inside of as a whole. False where it lies outside of one as a whole.
    [[nodiscard]] bool narrow(Crossed& crossed, const Block& block) const {
        std::size_t count = 0;
        for (std::size_t i = 0; i < crossed.count; ++i) {
            const std::size_t plane = crossed.planes[i];
            const double depth = dot(m_normals[plane], block.centre) - m_offsets[plane];
            if (depth < -block.radius) return false;
            if (!(depth > block.radius)) crossed.planes[count++] = plane;
        }
        crossed.count = count;
        return true;
    }
    /// Whether a point is inside of those planes.
    [[nodiscard]] bool holds(const Crossed& crossed, const Vector& point) const {
        for (std::size_t i = 0; i < crossed.count; ++i) {
            const std::size_t plane = crossed.planes[i];
            if (dot(m_normals[plane], point) - m_offsets[plane] < 0.0) return false;
        }
        return true;
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

double Grid::height(int row) const { return placeIn(m_surface.heights(), row, m_rows); }

void Grid::makePoints() {
    const Interval& heights = m_surface.heights();
    const double whole = m_surface.areaBetween(heights.from, heights.to) * m_columns;
    for (int column = 0; column <= m_columns; ++column) m_around.push_back(placeIn(m_surface.around(), column, m_columns));
    for (int row = 0; row <= m_rows; ++row) m_phi.push_back(m_surface.phiOf(height(row)));
    for (int column = 0; column < m_columns; ++column)
        m_directions.push_back(Surface::directionAt(placeIn(m_surface.around(), column + 0.5, m_columns)));
    for (int row = 0; row < m_rows; ++row) {
        m_shares.push_back(m_surface.areaBetween(height(row), height(row + 1)) / whole);
        m_levels.push_back(m_surface.levelAt(placeIn(heights, row + 0.5, m_rows)));
    }
}

void Grid::makeBlocks() {
    Block whole;
    whole.endColumn = m_columns;
    whole.endRow = m_rows;
    addParts(0, whole);
    for (std::size_t size = 1; size < blockSizes.size(); ++size)
        for (Block& block : m_blocks[size - 1]) {
            block.firstPart = m_blocks[size].size();
            addParts(size, block);
            block.endPart = m_blocks[size].size();
        }
}

void Grid::addParts(std::size_t size, const Block& around) {
    const int step = blockSizes[size];
    for (int row = around.row; row < around.endRow; row += step)
        for (int column = around.column; column < around.endColumn; column += step)
            m_blocks[size].push_back(blockAt(column, row, step, around.endColumn, around.endRow));
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

void Grid::addBlock(std::size_t size, const Block& block, const Bounds& bounds, Crossed crossed) {
    if (!bounds.narrow(crossed, block)) return;
    if (crossed.count == 0) return countAll(block);
    if (size + 1 == blockSizes.size()) return addPoints(block, bounds, crossed);
    for (std::size_t i = block.firstPart; i < block.endPart; ++i) addBlock(size + 1, m_blocks[size + 1][i], bounds, crossed);
}

void Grid::addPoints(const Block& block, const Bounds& bounds, const Crossed& crossed) {
    for (int row = block.row; row < block.endRow; ++row)
        for (int column = block.column; column < block.endColumn; ++column)
            if (bounds.holds(crossed, pointAt(column, row))) count(index(column, row));
}

void Grid::add(const Channel& channel) {
    const Bounds bounds(channel);
    for (const Block& block : m_blocks[0]) addBlock(0, block, bounds, Crossed());
}

}  // namespace XMLConfig::detail
