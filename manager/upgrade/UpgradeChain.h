#pragma once

#include <cstddef>
#include <iterator>

#include "store/BuildIdentity.h"

/// The conversions between historical layouts, oldest first.
namespace XMLConfig::detail {

class StepDocument;

// Each is named by the version it leads to and stands in the file of its name. It writes and removes in a fixed order.
// The declaration is a line of its own because the compiler checks the chain, which it can only with declared functions;
// the linker names a step without its source, and a test a source without its row.
void toVersion2(StepDocument& document);
void toVersion2005(StepDocument& document);
void toVersion3(StepDocument& document);
void toVersion4(StepDocument& document);
void toVersion5(StepDocument& document);
void toVersion6(StepDocument& document);
void toVersion8(StepDocument& document);
void toVersion9(StepDocument& document);

/// An item that a step carries to another place; a receipt lists it as one change instead of two.
struct ItemMove {
    const wchar_t* fromSection;
    const wchar_t* fromKey;
    const wchar_t* toSection;
    const wchar_t* toKey;
};

/// The moves of one step: an array that lives as long as the program.
class ItemMoves {
public:
    constexpr ItemMoves() = default;
    template <std::size_t N>
    constexpr ItemMoves(const ItemMove (&moves)[N])  // NOLINT(google-explicit-constructor): a row names its array
        : m_begin(moves), m_end(moves + N) {}
    [[nodiscard]] constexpr const ItemMove* begin() const { return m_begin; }
    [[nodiscard]] constexpr const ItemMove* end() const { return m_end; }

private:
    const ItemMove* m_begin = nullptr;
    const ItemMove* m_end = nullptr;
};

struct UpgradeStep {
    double below;  ///< applied to documents below this version, to which it leads
    const wchar_t* summary;
    void (*apply)(StepDocument& document);
    ItemMoves moves = {};
};

inline constexpr ItemMove movesTo5[] = {{L"Geometry", L"Warp_Memory_Location", L"Geometry", L"Memory_Location"},
                                        {L"Geometry", L"Warp_Memory_Name", L"Geometry", L"Memory_Location_Name"}};
inline constexpr ItemMove movesTo9[] = {{L"Screen", L"Unit", L"System", L"Length_Unit"},
                                        {L"Screen", L"AngleUnit", L"System", L"AngleUnit"}};

/// Every step from the first release on. No step leads to 7.0: that release changed no layout.
inline constexpr UpgradeStep upgradeChain[] = {
    {2.0, L"spherical angles become channel extents", &toVersion2},
    {2.005, L"projector device snippets; obsolete items go", &toVersion2005},
    {3.0, L"camera connection items", &toVersion3},
    {4.0, L"image resolution, binarisation and fit order", &toVersion4},
    {5.0, L"warp memory and input resolution", &toVersion5, movesTo5},
    {6.0, L"calibration items of projectors and cameras go; marker location method", &toVersion6},
    {8.0, L"fit solver and overlap unit", &toVersion8},
    {9.0, L"camera device snippets, units, geometry defaults from projectors", &toVersion9, movesTo9},
};

template <std::size_t N>
constexpr bool ascends(const UpgradeStep (&steps)[N]) {
    for (std::size_t i = 1; i < N; ++i) {
        if (!(steps[i - 1].below < steps[i].below)) return false;
    }
    return true;
}
static_assert(ascends(upgradeChain), "steps must ascend");
static_assert(std::rbegin(upgradeChain)->below == latestFileVersion, "the last step must lead to the version of new files");

}  // namespace XMLConfig::detail
