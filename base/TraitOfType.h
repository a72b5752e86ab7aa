#pragma once

#include <cstddef>
#include <type_traits>

#include "base/ValueTraits.h"

/// From a SettingType, which is known when the program runs, to the trait that knows the type.
namespace XMLConfig::detail {

template <typename... T>
struct TypeList {};

/// Every type of value that a setting can have, in the order of SettingType. A descriptor of a type that is missing here
/// does not compile.
using ValueTypes =
    TypeList<bool, int, double, Point_2Dim<int>, Point_2Dim<double>, Point_3Dim<double>, std::wstring, XmlElement, Frustum,
             BlackLevelBlending::PondOfMirrors, Special<SettingType::Path>, Special<SettingType::CameraIDs>,
             Special<SettingType::OverlapPoint>, Special<SettingType::BlackBox>, Special<SettingType::IntegerPairs>,
             Special<SettingType::FourIntegers>, Special<SettingType::MarkerPlaces>, Special<SettingType::PointList>,
             Special<SettingType::Matrix>, Special<SettingType::AxisTable>>;

template <typename... T>
constexpr bool isOrderOfSettingTypes(TypeList<T...> /*types*/) {
    std::size_t next = 0;
    return ((static_cast<std::size_t>(ValueTrait<T>::type) == next++) && ...);
}
static_assert(isOrderOfSettingTypes(ValueTypes()), "the traits must stand in the order of SettingType");

template <typename T, typename... Listed>
constexpr bool isListed(TypeList<Listed...> /*types*/) {
    return (std::is_same_v<T, Listed> || ...);
}

template <typename Result, typename Use, typename... T>
Result resultOfTrait(SettingType type, const Use& use, TypeList<T...> /*types*/) {
    Result result{};
    (void)((ValueTrait<T>::type == type && (result = use(ValueTrait<T>()), true)) || ...);
    return result;
}

/// What `use` gives for the trait of the type.
template <typename Use>
auto withTrait(SettingType type, const Use& use) {
    return resultOfTrait<decltype(use(ValueTrait<bool>()))>(type, use, ValueTypes());
}

}  // namespace XMLConfig::detail
