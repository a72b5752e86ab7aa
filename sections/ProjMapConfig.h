#pragma once

#include <string>
#include <vector>

#include "base/BaseConfig.h"
#include "platform/Export.h"

/// The section "ProjMap": settings of the export to projection-mapping tools, under keys that the callers choose (a key
/// may be a path, its parts joined by "|"). The library itself reads none of them, so that no table lists them; what a key
/// means, and its unit, is its callers' affair. The order of the virtual members is part of the interface.
class XMLCONFIG_API ProjMapConfig : public BaseConfig {
public:
    /// Borrows the document (null: a private one). Writes nothing.
    ProjMapConfig(ConfigInfo* configInfo, const std::wstring& sectionID);
    ~ProjMapConfig() override;
    /// Writes nothing.
    void initialize() override;

    // These put what the item holds into `value`, which is left as it was when the item is missing.

    void get(const std::wstring& key, bool& value) const;   ///< also left as it was when the text is no truth value
    void get(const std::wstring& key, int& value) const;    ///< 0 when the text begins with no number
    void get(const std::wstring& key, float& value) const;  ///< 0 when the text begins with no number
    /// Also left as it was when the text does not hold three numbers.
    void get(const std::wstring& key, Point_3Dim<double>& value) const;
    /// The list is replaced, by an empty one when the item is empty. A piece that is no number reads 0.
    void get(const std::wstring& key, std::vector<float>& value) const;

    // These store the value, as text.

    void set(const std::wstring& key, bool value);                       ///< "true" or "false"
    void set(const std::wstring& key, int value);                        ///< a whole number
    void set(const std::wstring& key, float value);                      ///< with sixteen significant digits
    void set(const std::wstring& key, const Point_3Dim<double>& value);  ///< each coordinate with sixteen significant digits
    void set(const std::wstring& key, const std::vector<float>& value);  ///< each number with six significant digits

    // These store `newValue` and return true, unless the item already reads so; an item that get() would pass over reads
    // `defaultValue`. A NaN on either side never counts as equal.

    bool change(const std::wstring& key, bool newValue, bool defaultValue);    ///< true when it stored a truth value
    bool change(const std::wstring& key, int newValue, int defaultValue);      ///< true when it stored a whole number
    bool change(const std::wstring& key, float newValue, float defaultValue);  ///< true when it stored a number
    /// True when it stored a point.
    bool change(const std::wstring& key, const Point_3Dim<double>& newValue, const Point_3Dim<double>& defaultValue);
    /// True when it stored a list: numbers are compared as float, one by one.
    bool change(const std::wstring& key, const std::vector<float>& newValue, const std::vector<float>& defaultValue);
};
