#pragma once

#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "platform/Export.h"

namespace XMLConfig {

/// What a setting's stored text stands for.
enum class SettingType {
    Bool,
    Int,
    Double,
    IntPoint2,
    Point2,
    Point3,
    Text,
    Element,        ///< child elements instead of a text
    Frustum,        ///< its parts are items of their own
    PondOfMirrors,  ///< its parts are items of their own
    Path,
    CameraIDs,
    OverlapPoint,
    BlackBox,
    IntegerPairs,
    FourIntegers,
    MarkerPlaces,
    PointList,
    Matrix,
    AxisTable
};

/// The type's name for people: "bool", "2-D point", "list of camera IDs", ...
XMLCONFIG_API const wchar_t* nameOf(SettingType type);

/// Whether the texts of the type are one number or several. Lists and tables of a special form do not count.
XMLCONFIG_API bool isNumbers(SettingType type);
/// Whether a stored text is a value of the type and nothing more. The form of texts, XML elements, records and special text
/// forms is not checked here: for these types every text will do.
XMLCONFIG_API bool isOfType(const std::wstring& text, SettingType type);

/// The unit in which a setting is stored.
enum class Unit {
    None,  ///< a pure number, or no number at all
    Meters,
    Radians,
    Degrees,
    Percent,
    Fraction,  ///< of one
    Pixels,
    SquarePixels,
    Milliseconds,
    EpochSeconds,  ///< seconds since 1970-01-01 UTC
    Lumens
};

/// The unit's name for people: "radians", "pixels", ...; empty for None.
XMLCONFIG_API const wchar_t* nameOf(Unit unit);

/// What a device's setting belongs to, and so whether it makes sense for another device.
enum class SettingClass {
    Rest,      ///< how the device works; another one may have the same
    Identity,  ///< which device it is
    Channel,   ///< which part of the picture it shows
    Place      ///< where it stands and what stands around it
};

/// The class's name: "rest", "identity", "channel" or "place".
XMLCONFIG_API const wchar_t* nameOf(SettingClass settingClass);

/// A number that stands for something, and what it stands for.
struct NamedNumber {
    int number;
    std::wstring name;
};

/// A word of older releases, and the one that the application puts in its place when it reads it.
struct OlderWord {
    std::wstring text;
    std::wstring countsAs;
};

/// The numbers that make sense.
struct Range {
    double low = -std::numeric_limits<double>::infinity();
    double high = std::numeric_limits<double>::infinity();
    bool withoutLow = false;  ///< whether `low` itself is outside
    /// Whether this library's authors judged so: the application might take more, so that what lies outside is worth a
    /// warning and no refusal.
    bool ownJudgement = false;
};

/// Whether the number lies in the range; NaN lies in none.
XMLCONFIG_API bool contains(const Range& range, double number);
/// The range for people: "0 to 100", "1 and more", "above 0 to 1", "above 0".
XMLCONFIG_API std::wstring textOf(const Range& range);

/// When a setting counts: only while another setting reads one of some texts, or only while it reads none of them.
struct EffectCondition {
    std::wstring section;             ///< of the other setting; empty for the same section (the same device)
    std::wstring key;                 ///< of the other setting
    std::vector<std::wstring> texts;  ///< canonical stored forms
    bool whileOneOf = true;  ///< whether the setting counts while the other one reads one of `texts`, else otherwise
};

/// One setting as the catalogue lists it: where it is stored, what it holds and what it starts with.
struct Setting {
    std::wstring section;                     ///< the tag of its section
    std::wstring key;                         ///< parts joined by "|"; "%d" or "%s" stands for a number or an identifier
    SettingType type = SettingType::Text;     ///< what it holds
    std::wstring defaultText;                 ///< stored form of what a missing item reads as
    std::wstring defaultMeaning;              ///< what that is, for people, where the text alone does not tell; or empty
    std::optional<std::wstring> initialText;  ///< stored form of what a new section holds; nothing where it is not written
    Unit unit = Unit::None;                   ///< of the number, or of each number, that is stored
    std::wstring inheritsFrom;  ///< the section whose item of the same key serves when this one is missing; or empty
    bool readOnly = false;      ///< whether the accessor only reads it
    std::wstring meaning;       ///< one line for people
    SettingClass settingClass = SettingClass::Rest;
    std::vector<std::wstring> words;             ///< the texts that it may hold, case counts; empty where any will do
    std::vector<NamedNumber> numbers;            ///< the numbers that it may hold; empty where any will do
    std::optional<std::wstring> othersCountAs;   ///< what a text or number outside `words` or `numbers` is taken for
    std::optional<OlderWord> olderWord;          ///< nothing where there is none
    std::optional<Range> range;                  ///< of the number, or of each number, that is stored
    std::optional<EffectCondition> countsWhile;  ///< nothing where it always counts
    bool writtenByRuns = false;                  ///< whether a run of the application writes it: a count, a time
};

/// What the setting may hold, for people: "Flat, Sphere", "0 linear, 1 polynomial; any other counts as 2", "1 and more",
/// "1 to 4 is usual" for a range by our own judgement; empty where everything of its type will do.
XMLCONFIG_API std::wstring valuesText(const Setting& setting);
/// When the setting counts, for people: "System/RunType is CinemaRun", "Screen/Shape is not Sphere or Cylinder"; empty where
/// it always does.
XMLCONFIG_API std::wstring conditionText(const Setting& setting);

}  // namespace XMLConfig
