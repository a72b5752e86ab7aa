#pragma once

#include <map>
#include <memory>
#include <string>

#include "platform/Export.h"
#include "store/ValueTypes.h"

class ConfigInfo;

namespace XMLConfig::detail {
class SettingTable;
template <typename T>
class Descriptor;
template <typename T>
struct ValueTrait;
}  // namespace XMLConfig::detail

/// The base of every section accessor: one section of one document, by name and ID.
///
/// An accessor keeps no values, but for a camera's calibration points: every read goes to the document and gives a default
/// for a missing item without creating it, every write goes through at once. Errors of the document reach the caller
/// unchanged. The order of the virtual members is part of the interface.
class XMLCONFIG_API BaseConfig {
public:
    /// Whether a path is given or wanted as an absolute one or as one relative to the configuration file.
    enum FilePathMode : int { FilePathAbsolute = 0, FilePathRelative = 1 };

    /// A value read from the document. It is taken out by name, so that nothing converts by mistake.
    template <typename T>
    struct Explicit {
        T value;
    };

    // Axes of an imported model, as files hold them: ScreenConfig::getScreenImportAxisForward.

    static const std::wstring AXIS_POS_X;  ///< "X"
    static const std::wstring AXIS_POS_Y;  ///< "Y"
    static const std::wstring AXIS_POS_Z;  ///< "Z"
    static const std::wstring AXIS_NEG_X;  ///< "-X"
    static const std::wstring AXIS_NEG_Y;  ///< "-Y"
    static const std::wstring AXIS_NEG_Z;  ///< "-Z"

    // Shapes of the screen, as files hold them: ScreenConfig::getShape.

    static const std::wstring SHAPE_CYLINDER;  ///< "Cylinder"
    static const std::wstring SHAPE_FLAT;      ///< "Flat"
    static const std::wstring SHAPE_RULED;     ///< "Ruled"
    static const std::wstring SHAPE_SPHERE;    ///< "Sphere"
    static const std::wstring SHAPE_TEST;      ///< "Test"
    static const std::wstring SHAPE_TOROID;    ///< "Toroid"
    static const std::wstring SHAPE_VRML;      ///< "VRML", the mesh of a model file

    // How the target is described, as files hold it: TargetLocatorConfig::getDataType.

    static const std::wstring TARGET_DATA_3D;                    ///< "3D"
    static const std::wstring TARGET_DATA_CUSTOM_PLANAR;         ///< "Custom Planar"
    static const std::wstring TARGET_DATA_PLANAR_ADVANCED;       ///< "Planar-advanced"
    static const std::wstring TARGET_DATA_PLANAR_BASIC;          ///< "Planar-basic"
    static const std::wstring TARGET_DATA_PROJECTOR_CENTRIC;     ///< "Projector Centric"
    static const std::wstring TARGET_DATA_PROJECTOR_POSE;        ///< "Projector Pose", the older name of the one before
    static const std::wstring TARGET_DATA_SPHERICAL;             ///< "Spherical"
    static const std::wstring TARGET_DATA_SPHERICAL_COLLIMATED;  ///< "Collimated"

    // How an image is fitted to a projector: ProjectorConfig::getInputImageScalingMode.

    static const int INPUT_IMAGE_SCALING_MODE_FULLSIZE;   ///< 0
    static const int INPUT_IMAGE_SCALING_MODE_NOSCALING;  ///< 1

    // Kinds of output. No setting of this library holds them; applications use them.

    static const int OUTPUT_DEFAULT;  ///< 0
    static const int OUTPUT_MPAC;     ///< 2

    // Names of units, as files hold them. All but those of percent and pixels are in UnitConversionTable too.

    static const std::wstring& UNIT_METERS();         ///< "Meters"
    static const std::wstring& UNIT_CENTIMETERS();    ///< "Centimeters"
    static const std::wstring& UNIT_MILLIMETERS();    ///< "Millimeters"
    static const std::wstring& UNIT_FEET();           ///< "Feet"
    static const std::wstring& UNIT_INCHES();         ///< "Inches"
    static const std::wstring& UNIT_CUSTOM();         ///< "Custom"
    static const std::wstring& UNIT_DEFAULT();        ///< "Meters"
    static const std::wstring& UNIT_PERCENT();        ///< "Percent"
    static const std::wstring& UNIT_PIXELS();         ///< "Pixels"
    static const std::wstring& ANGLE_UNIT_RADIANS();  ///< "Radians"
    static const std::wstring& ANGLE_UNIT_DEGREES();  ///< "Degrees"
    static const std::wstring& ANGLE_UNIT_DEFAULT();  ///< "Degrees"

    /// `configInfo` is borrowed and must live as long as the accessor is used; null gives the accessor a new private
    /// document. Writes nothing.
    BaseConfig(ConfigInfo* configInfo, const std::wstring& sectionName, const std::wstring& sectionID);
    BaseConfig(const BaseConfig&) = delete;
    BaseConfig& operator=(const BaseConfig&) = delete;
    virtual ~BaseConfig();
    /// Writes the values of a new section; each accessor says which. What the section holds besides stays.
    virtual void initialize() = 0;

    const std::wstring& getSectionName() const;  ///< the tag of the section: "Projector"
    const std::wstring& getSectionID() const;    ///< its "ID" attribute; "" for a section that occurs once
    /// The document's file version, 9.0 for the present one. Throws CorvaneException when the document states none.
    double getFileVersion() const;
    /// Removes the section from the document; false when it has none. The accessor stays usable: its getters give defaults,
    /// and its setters make the section anew.
    /// Remove a camera or projector by the manager that has given it out. The manager is not told of what is done here: it
    /// would go on giving this accessor out for a section that there is no more.
    bool removeSection() const;
    /// Swaps the section with its nearest neighbour of the same name, earlier (-1) or later (+1) in the document; false, and
    /// nothing moves, where there is none and for any other number.
    bool moveSection(int position) const;
    /// Gives the section a new ID, notes the old one in it as "OldSectionID", and goes on under the new ID. The note is
    /// written also when the document had no section to rename, and makes one. Where anything is thrown, nothing has
    /// changed. Rename a camera or projector by the manager that has given it out. The manager is not told of what is done
    /// here: it would go on giving this accessor out for the old ID and make a second one for the new ID.
    void renameSection(const std::wstring& newSectionID);

    // Conversions between units by name. Every unit is unknown to them before the first accessor is made. They throw nothing
    // of their own. UnitConversionTable::convertValue refuses unknown units and knows more of them.

    /// `value`, an angle in degrees or radians (ANGLE_UNIT_...), in the other unit or the same. Other units give 0.0.
    static double convertAngle(const std::wstring& fromUnit, const std::wstring& toUnit, double value);
    /// `value`, a length, by way of meters: value / (fromUnits in a meter) * (toUnits in a meter). Meters, centimeters,
    /// millimeters, feet and inches are known. Another `fromUnit` divides by zero, another `toUnit` multiplies by it.
    static double convertMeasurement(const std::wstring& fromUnit, const std::wstring& toUnit, double value);

protected:
    /// "OldSectionID", the key under which renameSection() notes the old ID.
    static std::wstring oldSectionIDTagName();
    /// Fills the table that the conversions use, once. Every constructor calls it; the conversions themselves do not.
    static void setupConversionMap();

    // An item of this section by its key. A missing item reads as the default and is not made.

    Explicit<int> get(const std::wstring& key, int defaultValue) const;
    Explicit<double> get(const std::wstring& key, double defaultValue) const;
    Explicit<bool> get(const std::wstring& key, bool defaultValue) const;
    Explicit<Point_2Dim<int>> get(const std::wstring& key, const Point_2Dim<int>& defaultValue) const;
    Explicit<Point_3Dim<double>> get(const std::wstring& key, const Point_3Dim<double>& defaultValue) const;
    Explicit<std::wstring> get(const std::wstring& key, const std::wstring& defaultValue) const;
    Explicit<std::wstring> get(const std::wstring& key, const wchar_t* defaultValue) const;

    void set(const std::wstring& key, int value);
    void set(const std::wstring& key, double value);
    void set(const std::wstring& key, bool value);
    void set(const std::wstring& key, const Point_2Dim<int>& value);
    void set(const std::wstring& key, const Point_3Dim<double>& value);
    void set(const std::wstring& key, const std::wstring& value);
    void set(const std::wstring& key, const wchar_t* value) = delete;  // would be taken for a bool

    /// The value of a setting that the section's table describes, or the table's default. base/SettingTable.h, which is not
    /// installed, defines this and the next two for every type that a setting can have.
    template <typename T>
    Explicit<typename XMLConfig::detail::ValueTrait<T>::Given> read(const XMLConfig::detail::Descriptor<T>& item) const;
    /// Stores a setting's value. `Value` must be exactly the type of the setting.
    template <typename T, typename Value>
    void write(const XMLConfig::detail::Descriptor<T>& item, const Value& value);
    /// Writes what a new section holds, in the table's order: all of it, or nothing where memory runs out.
    void writeInitialValues(const XMLConfig::detail::SettingTable& table);

    ConfigInfo* m_configInfo;  ///< the document that every operation uses; never null

private:
    static std::map<std::wstring, double> m_conversionMap;
    static bool m_conversionMapSetup;

    std::unique_ptr<ConfigInfo> m_ownedConfigInfo;
    std::wstring m_sectionName;
    std::wstring m_sectionID;
};
