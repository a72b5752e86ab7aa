#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "manager/layout/Image.h"
#include "manager/layout/Surface.h"

namespace XMLConfig::detail {

/// A surface as points every half degree, and how many channels show each.
class Grid {
public:
    explicit Grid(const Surface& surface);

    /// Counts the channel at the points it shows. What is surely in or out is decided for many points at once.
    void add(const Channel& channel);

    [[nodiscard]] int columns() const { return m_columns; }
    [[nodiscard]] int rows() const { return m_rows; }
    /// 3 stands for more as well.
    [[nodiscard]] int countAt(int column, int row) const { return m_counts[index(column, row)]; }
    /// The area that a point of the row stands for, as a share of the surface.
    [[nodiscard]] double shareOf(int row) const { return m_shares[static_cast<std::size_t>(row)]; }
    /// Where a column, or a row, begins: it ends where the next one begins.
    [[nodiscard]] double around(int column) const { return m_around[static_cast<std::size_t>(column)]; }
    [[nodiscard]] double phi(int row) const { return m_phi[static_cast<std::size_t>(row)]; }
    [[nodiscard]] const Surface& surface() const { return m_surface; }

private:
    struct Block {  ///< neighbouring points and a ball around them, whose corners are furthest from its centre
        int column = 0;
        int row = 0;
        int endColumn = 0;
        int endRow = 0;
        Vector centre;
        double radius = 0.0;
        std::size_t firstPart = 0;  ///< its parts among the blocks of the next smaller size
        std::size_t endPart = 0;
    };
    static constexpr std::array<int, 3> blockSizes = {64, 16, 4};
    class Bounds;
    struct Crossed {  ///< the planes that bound a channel and may cut a block
        std::array<std::size_t, 4> planes = {0, 1, 2, 3};
        std::size_t count = 4;
    };

    [[nodiscard]] std::size_t index(int column, int row) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(m_columns) + static_cast<std::size_t>(column);
    }
    [[nodiscard]] double height(int row) const;
    [[nodiscard]] Vector pointAt(int column, int row) const {
        const Surface::Level& level = m_levels[static_cast<std::size_t>(row)];
        return plus(level.centre, times(level.radius, m_directions[static_cast<std::size_t>(column)]));
    }
    void makePoints();
    void makeBlocks();
    [[nodiscard]] Block blockAt(int column, int row, int size, int endColumn, int endRow) const;
    void addBlock(std::size_t size, const Block& block, const Bounds& bounds, Crossed crossed);
    void addPoints(const Block& block, const Bounds& bounds, const Crossed& crossed);
    void addParts(std::size_t size, const Block& around);
    void countAll(const Block& block);
    void count(std::size_t place);

    Surface m_surface;
    int m_columns;
    int m_rows;
    std::vector<Vector> m_directions;      ///< of the columns
    std::vector<Surface::Level> m_levels;  ///< of the rows
    std::vector<double> m_shares;
    std::array<std::vector<Block>, blockSizes.size()> m_blocks;  ///< by size; together each time the whole surface
    std::vector<double> m_around;                                ///< where the columns begin, and the last one ends
    std::vector<double> m_phi;                                   ///< the same of the rows
    std::vector<std::uint8_t> m_counts;
};

}  // namespace XMLConfig::detail
