#include <algorithm>
#include <array>
#include <cmath>

#include "manager/layout/Grid.h"
#include "manager/layout/Parts.h"

namespace XMLConfig::detail {
namespace {

/// Collects the connected points that no channel shows.
class PartFinder {
public:
    explicit PartFinder(const Grid& grid)
        : m_grid(grid), m_seen(static_cast<std::size_t>(grid.columns()) * static_cast<std::size_t>(grid.rows())) {}

    std::vector<UncoveredPart> run() {
        std::vector<UncoveredPart> parts;
        for (int row = 0; row < m_grid.rows(); ++row)
            for (int column = 0; column < m_grid.columns(); ++column)
                if (isNew(column, row)) parts.push_back(partFrom(column, row));
        const auto isLarger = [](const UncoveredPart& a, const UncoveredPart& b) { return a.share > b.share; };
        std::stable_sort(parts.begin(), parts.end(), isLarger);
        return parts;
    }

private:
    struct Cell {
        int column;
        int row;
    };

    [[nodiscard]] std::size_t index(int column, int row) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(m_grid.columns()) + static_cast<std::size_t>(column);
    }
    [[nodiscard]] bool isNew(int column, int row) const {
        return m_grid.countAt(column, row) == 0 && !m_seen[index(column, row)];
    }

    UncoveredPart partFrom(int column, int row) {
        std::vector<Cell> cells;
        std::vector<Cell> waiting;
        take(column, row, waiting);
        while (!waiting.empty()) {
            const Cell cell = waiting.back();
            waiting.pop_back();
            cells.push_back(cell);
            const int last = m_grid.columns() - 1;
            if (cell.column > 0 || m_grid.surface().isClosed())
                take(cell.column > 0 ? cell.column - 1 : last, cell.row, waiting);
            if (cell.column < last || m_grid.surface().isClosed())
                take(cell.column < last ? cell.column + 1 : 0, cell.row, waiting);
            if (cell.row > 0) take(cell.column, cell.row - 1, waiting);
            if (cell.row < m_grid.rows() - 1) take(cell.column, cell.row + 1, waiting);
        }
        return partOf(cells);
    }

    void take(int column, int row, std::vector<Cell>& waiting) {
        if (!isNew(column, row)) return;
        m_seen[index(column, row)] = true;
        waiting.push_back({column, row});
    }

    [[nodiscard]] bool isAtAnEdge(const Cell& cell) const {
        const Surface& surface = m_grid.surface();
        const bool isAtASide = cell.column == 0 || cell.column == m_grid.columns() - 1;
        return (isAtASide && !surface.isClosed()) || (cell.row == 0 && surface.endsBelow()) ||
               (cell.row == m_grid.rows() - 1 && surface.endsAbove());
    }

    [[nodiscard]] UncoveredPart partOf(std::vector<Cell>& cells) const {
        UncoveredPart part;
        part.isHole = true;
        Cell first = cells[0];
        Cell last = cells[0];
        for (const Cell& cell : cells) {
            part.share += m_grid.shareOf(cell.row);
            first = {std::min(first.column, cell.column), std::min(first.row, cell.row)};
            last = {std::max(last.column, cell.column), std::max(last.row, cell.row)};
            part.isHole = part.isHole && !isAtAnEdge(cell);
        }
        part.theta = {m_grid.around(first.column), m_grid.around(last.column + 1)};
        part.phi = {m_grid.phi(first.row), m_grid.phi(last.row + 1)};
        if (part.isHole) part.patches = patchesOf(cells);
        return part;
    }

    [[nodiscard]] std::vector<ScreenPatch> patchesOf(std::vector<Cell>& cells) const {
        std::sort(cells.begin(), cells.end(), [](const Cell& a, const Cell& b) {
            return std::make_pair(a.row, a.column) < std::make_pair(b.row, b.column);
        });
        std::vector<ScreenPatch> patches;
        const Cell* before = nullptr;
        for (const Cell& cell : cells) {
            const double end = m_grid.around(cell.column + 1);
            if (before != nullptr && before->row == cell.row && before->column + 1 == cell.column)
                patches.back().theta.to = end;
            else patches.push_back({{m_grid.around(cell.column), end}, {m_grid.phi(cell.row), m_grid.phi(cell.row + 1)}});
            before = &cell;
        }
        return patches;
    }

    const Grid& m_grid;
    std::vector<bool> m_seen;
};

bool isRowEmpty(const Grid& grid, int row) {
    for (int column = 0; column < grid.columns(); ++column)
        if (grid.countAt(column, row) > 0) return false;
    return true;
}

std::vector<Interval> bandsOf(const Grid& grid) {
    std::vector<Interval> bands;
    bool isOpen = false;
    for (int row = 0; row < grid.rows(); ++row) {
        const bool isEmpty = isRowEmpty(grid, row);
        if (isEmpty && !isOpen) bands.push_back({grid.phi(row), 0.0});
        if (isEmpty) bands.back().to = grid.phi(row + 1);
        isOpen = isEmpty;
    }
    return bands;
}

Coverage coverageOf(const Grid& grid) {
    Coverage coverage;
    double* const shares[] = {&coverage.inNone, &coverage.inOne, &coverage.inTwo, &coverage.inMore};
    for (int row = 0; row < grid.rows(); ++row)
        for (int column = 0; column < grid.columns(); ++column) *shares[grid.countAt(column, row)] += grid.shareOf(row);
    coverage.uncoveredBands = bandsOf(grid);
    coverage.uncovered = PartFinder(grid).run();
    return coverage;
}

/// Estimates the share by points that are spread evenly over the image.
double offScreenOf(const Channel& channel, const Surface& surface) {
    constexpr int points = 16;
    const EdgeValues& edge = channel.tangents;
    const Surface::Rays rays(surface, channel.eyePoint);
    if (const std::optional<bool> allMeetIt = rays.meetItAlike(channel.pitchSpan)) return *allMeetIt ? 0.0 : 1.0;
    std::array<Vector, points> across;
    for (int i = 0; i < points; ++i)
        across[static_cast<std::size_t>(i)] =
            times(edge.left + (edge.right - edge.left) * (i + 0.5) / points, channel.right);
    int off = 0;
    for (int row = 0; row < points; ++row) {
        const Vector upright = times(edge.bottom + (edge.top - edge.bottom) * (row + 0.5) / points, channel.up);
        for (const Vector& beside : across)
            if (!rays.meetIt(plus(channel.sight, plus(beside, upright)))) ++off;
    }
    return static_cast<double>(off) / (points * points);
}

}  // namespace

std::optional<Coverage> findCoverage(std::vector<Channel>& channels, const LayoutScreen& screen) {
    const std::optional<Surface> surface = Surface::of(screen);
    const auto isUsable = [](const Channel& channel) { return channel.state == ChannelState::Usable; };
    if (!surface || std::none_of(channels.begin(), channels.end(), isUsable)) return std::nullopt;
    Grid grid(*surface);
    for (Channel& channel : channels) {
        if (!isUsable(channel)) continue;
        channel.offScreen = offScreenOf(channel, *surface);
        grid.add(channel);
    }
    return coverageOf(grid);
}

}  // namespace XMLConfig::detail
