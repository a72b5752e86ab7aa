#pragma once

#include <cstddef>

#include "manager/upgrade/Steps.h"

namespace XMLConfig::detail {

/// An item that a step carries to another place; a receipt tells it as one thing instead of two.
struct ItemMove {
    const wchar_t* fromSection;
    const wchar_t* fromKey;
    const wchar_t* toSection;
    const wchar_t* toKey;
};

struct UpgradeStep {
    double below;  ///< applied to documents below this version, to which it leads
    const wchar_t* summary;
    void (*apply)(ConfigInfo& document);
    const ItemMove* moves = nullptr;
    std::size_t moveCount = 0;
};

inline constexpr ItemMove movesTo5[] = {{L"Geometry", L"Warp_Memory_Location", L"Geometry", L"Memory_Location"},
                                        {L"Geometry", L"Warp_Memory_Name", L"Geometry", L"Memory_Location_Name"}};
inline constexpr ItemMove movesTo9[] = {{L"Screen", L"Unit", L"System", L"Length_Unit"},
                                        {L"Screen", L"AngleUnit", L"System", L"AngleUnit"}};

/// Every step from the first release on. There is none for the versions from 7.0 to below 8.0 of their own.
inline constexpr UpgradeStep upgradeChain[] = {
    {2.0, L"spherical angles become channel extents", &toVersion2},
    {2.005, L"projector device snippets; obsolete items go", &toVersion2005},
    {3.0, L"camera connection items", &toVersion3},
    {4.0, L"image resolution, binarisation and fit order", &toVersion4},
    {5.0, L"warp memory and input resolution", &toVersion5, movesTo5, 2},
    {6.0, L"calibration items of projectors and cameras go; marker location method", &toVersion6},
    {8.0, L"fit solver and overlap unit", &toVersion8},
    {9.0, L"camera device snippets, units, geometry defaults from projectors", &toVersion9, movesTo9, 2},
};

constexpr bool ascends(const UpgradeStep* steps, std::size_t count) {
    for (std::size_t i = 1; i < count; ++i) {
        if (!(steps[i - 1].below < steps[i].below)) return false;
    }
    return true;
}
static_assert(ascends(upgradeChain, sizeof(upgradeChain) / sizeof(upgradeChain[0])), "steps must ascend");

}  // namespace XMLConfig::detail
