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
/// An accessor keeps no values; every read goes to the document and gives the caller's default for a missing item
/// without creating it, every write goes through at once. Errors of the document reach the caller unchanged.
/// The order of the virtual members is part of the interface.
class XMLCONFIG_API BaseConfig {
public:
    /// Whether a path is given or wanted as an absolute one or as one relative to the configuration file.
    enum FilePathMode : int { FilePathAbsolute = 0, FilePathRelative = 1 };

    /// A value read from the document, without implicit conversions.
    template <typename T>
    struct Explicit {
        T value;
    };

    static const std::wstring AXIS_POS_X;
    static const std::wstring AXIS_POS_Y;
    static const std::wstring AXIS_POS_Z;
    static const std::wstring AXIS_NEG_X;
    static const std::wstring AXIS_NEG_Y;
    static const std::wstring AXIS_NEG_Z;
    static const std::wstring SHAPE_CYLINDER;
    static const std::wstring SHAPE_FLAT;
    static const std::wstring SHAPE_RULED;
    static const std::wstring SHAPE_SPHERE;
    static const std::wstring SHAPE_TEST;
    static const std::wstring SHAPE_TOROID;
    static const std::wstring SHAPE_VRML;
    static const std::wstring TARGET_DATA_3D;
    static const std::wstring TARGET_DATA_CUSTOM_PLANAR;
    static const std::wstring TARGET_DATA_PLANAR_ADVANCED;
    static const std::wstring TARGET_DATA_PLANAR_BASIC;
    static const std::wstring TARGET_DATA_PROJECTOR_CENTRIC;
    static const std::wstring TARGET_DATA_PROJECTOR_POSE;
    static const std::wstring TARGET_DATA_SPHERICAL;
    static const std::wstring TARGET_DATA_SPHERICAL_COLLIMATED;  ///< stored as "Collimated"
    static const int INPUT_IMAGE_SCALING_MODE_FULLSIZE;
    static const int INPUT_IMAGE_SCALING_MODE_NOSCALING;
    static const int OUTPUT_DEFAULT;
    static const int OUTPUT_MPAC;

    // Unit names, as the unit table spells them.
    static const std::wstring& UNIT_METERS();
    static const std::wstring& UNIT_CENTIMETERS();
    static const std::wstring& UNIT_MILLIMETERS();
    static const std::wstring& UNIT_FEET();
    static const std::wstring& UNIT_INCHES();
    static const std::wstring& UNIT_CUSTOM();
    static const std::wstring& UNIT_DEFAULT();
    static const std::wstring& UNIT_PERCENT();
    static const std::wstring& UNIT_PIXELS();
    static const std::wstring& ANGLE_UNIT_RADIANS();
    static const std::wstring& ANGLE_UNIT_DEGREES();
    static const std::wstring& ANGLE_UNIT_DEFAULT();

    /// `configInfo` is borrowed; null gives the accessor a new private document. Writes nothing.
    BaseConfig(ConfigInfo* configInfo, const std::wstring& sectionName, const std::wstring& sectionID);
    BaseConfig(const BaseConfig&) = delete;
    BaseConfig& operator=(const BaseConfig&) = delete;
    virtual ~BaseConfig();
    /// Writes the values of a new section.
    virtual void initialize() = 0;

    const std::wstring& getSectionName() const;
    const std::wstring& getSectionID() const;
    /// The document's version. Throws when it has none.
    double getFileVersion() const;
    /// Removes the section from the document; false when it has none. The accessor stays usable.
    /// Cameras and projectors that a manager has given out are removed by the manager, which is not told of what is done
    /// here: it would go on giving this accessor out for a section that there is no more.
    bool removeSection() const;
    /// Swaps the section with its neighbour of the same name, earlier (-1) or later (+1); false when nothing moved.
    bool moveSection(int position) const;
    /// Gives the section a new ID, notes the old one in it as "OldSectionID", and goes on under the new ID; the note is
    /// written also when the document had no section to rename.
    /// Cameras and projectors that a manager has given out are renamed by the manager, which is not told of what is done
    /// here: it would go on giving this accessor out for the old ID and make a second one for the new ID.
    void renameSection(const std::wstring& newSectionID);

    /// value * factor. An unknown pair of units gives 0.0.
    static double convertAngle(const std::wstring& fromUnit, const std::wstring& toUnit, double value);
    /// Converts by way of meters. An unknown `fromUnit` divides by zero, an unknown `toUnit` multiplies by it.
    static double convertMeasurement(const std::wstring& fromUnit, const std::wstring& toUnit, double value);

protected:
    static std::wstring oldSectionIDTagName();
    /// Fills the conversion map, once. Every constructor calls it; the conversions themselves do not.
    static void setupConversionMap();

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

    /// A described setting of this section; base/SettingTable.h defines these for every type a descriptor can have.
    template <typename T>
    Explicit<typename XMLConfig::detail::ValueTrait<T>::Given> read(const XMLConfig::detail::Descriptor<T>& item) const;
    /// `Value` must be exactly the descriptor's type.
    template <typename T, typename Value>
    void write(const XMLConfig::detail::Descriptor<T>& item, const Value& value);
    /// Writes what a new section holds, in the table's order.
    void writeInitialValues(const XMLConfig::detail::SettingTable& table);

    ConfigInfo* m_configInfo;  ///< the document every operation uses

private:
    static std::map<std::wstring, double> m_conversionMap;
    static bool m_conversionMapSetup;

    std::unique_ptr<ConfigInfo> m_ownedConfigInfo;
    std::wstring m_sectionName;
    std::wstring m_sectionID;
};
