#pragma once

#include <string>
#include <vector>

#include "base/BaseConfig.h"
#include "platform/Export.h"

/// The section "ProjMap": settings of the export to projection-mapping tools, under keys that the callers choose (a key
/// may be a path, its parts joined by "|"). The order of the virtual members is part of the interface.
class XMLCONFIG_API ProjMapConfig : public BaseConfig {
public:
    ProjMapConfig(ConfigInfo* configInfo, const std::wstring& sectionID);
    ~ProjMapConfig() override;
    /// Writes nothing.
    void initialize() override;

    // `value` is left as it was when the item is missing, a truth value or a point also when the text holds none. A list
    // is replaced, by an empty one too.
    void get(const std::wstring& key, bool& value) const;
    void get(const std::wstring& key, int& value) const;
    void get(const std::wstring& key, float& value) const;
    void get(const std::wstring& key, Point_3Dim<double>& value) const;
    void get(const std::wstring& key, std::vector<float>& value) const;

    // Lists keep six significant digits of each number.
    void set(const std::wstring& key, bool value);
    void set(const std::wstring& key, int value);
    void set(const std::wstring& key, float value);
    void set(const std::wstring& key, const Point_3Dim<double>& value);
    void set(const std::wstring& key, const std::vector<float>& value);

    // Write `newValue` and return true, unless the item already reads so; a missing item reads `defaultValue`. A NaN on
    // either side never counts as equal.
    bool change(const std::wstring& key, bool newValue, bool defaultValue);
    bool change(const std::wstring& key, int newValue, int defaultValue);
    bool change(const std::wstring& key, float newValue, float defaultValue);
    bool change(const std::wstring& key, const Point_3Dim<double>& newValue, const Point_3Dim<double>& defaultValue);
    bool change(const std::wstring& key, const std::vector<float>& newValue, const std::vector<float>& defaultValue);
};
