#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/Export.h"
#include "store/ValueTypes.h"

namespace log4cxx {
class Logger;
}
namespace XMLConfig::detail {
class ChangeObserver;
class Document;
}  // namespace XMLConfig::detail

/// One configuration: an XML document in memory and whether it holds unsaved changes.
///
/// A value is addressed by a section (a child of the root, by tag and "ID" attribute; an empty ID means the first of
/// that tag), optionally a subsection (the same one level down), and a key: the tags of nested elements joined by "|".
/// Values are text; the typed operations fix their form. Look-ups that find nothing give the caller's default and create
/// nothing; setters create what is missing and mark the document dirty when the stored text changes.
///
/// Every failure is a CorvaneException that begins "Error <operation>: ", but for a shortage of memory, which is
/// std::bad_alloc everywhere and leaves the document as it was. A value or identifier that XML 1.0 cannot hold is refused
/// before anything is changed. A document is used by one thread at a time; different documents may be used by
/// different threads.
class XMLCONFIG_API ConfigInfo {
public:
    /// A new document at the latest version, not dirty.
    ConfigInfo();
    /// Loads a file. Throws "Error parseDataFile: ..." when it cannot be opened for update (missing, read-only, a
    /// folder), is malformed (with line and column), holds a document type, or is nested deeper than 1,000 levels.
    explicit ConfigInfo(const std::wstring& path);
    /// A document from a file's bytes. Throws what the file constructor throws, with `name` in place of the path.
    static std::unique_ptr<ConfigInfo> fromText(const std::string& bytes, const std::wstring& name);
    ~ConfigInfo();
    ConfigInfo(const ConfigInfo&) = delete;
    ConfigInfo& operator=(const ConfigInfo&) = delete;

    /// Writes the document, all or nothing, and clears the dirty flag; returns true. An empty path returns false and
    /// does nothing. Throws "Error save(): ..." when the file cannot be written: it then stands as it was, the dirty flag
    /// too.
    bool save(const std::wstring& path);

    /// The number in "Version". Throws when the document has no such element.
    double getVersion() const;
    /// Stores the version with three decimals and sets dirty, also when it was the same. Throws as getVersion.
    void setVersion(double version);
    /// Brings "BuildDate" and "BuildNumber" up to date, inserting a missing one before "DevelopedBy" where there is
    /// that element. Never changes the dirty flag.
    void insertBuildDateAndNumber();
    bool isDirty() const;
    void setDirty(bool dirty);

    // Text items.

    /// The item's text with that of everything inside it; "" for an item without text.
    std::wstring getStringItem(const std::wstring& sectionName, const std::wstring& key, const std::wstring& defaultValue,
                               const std::wstring& sectionID, const std::wstring& subSectionName,
                               const std::wstring& subSectionID) const;
    void setStringItem(const std::wstring& sectionName, const std::wstring& key, const std::wstring& value,
                       const std::wstring& sectionID, const std::wstring& subSectionName, const std::wstring& subSectionID);
    /// The item's first element as XML text, or its text when it holds nothing else; the default for an item that is
    /// missing or empty.
    std::wstring getStringItemAsDOMElement(const std::wstring& sectionName, const std::wstring& key,
                                           const std::wstring& defaultValue, const std::wstring& sectionID) const;
    /// Stores an XML element as the item's content. An empty value leaves an existing item alone and makes a missing one
    /// empty. Throws for a value that is not one well-formed element, with line and column; nothing is changed then.
    void setStringItemAsDOMElement(const std::wstring& sectionName, const std::wstring& key, const std::wstring& value,
                                   const std::wstring& sectionID);
    bool doesSectionExist(const std::wstring& sectionName, const std::wstring& sectionID) const;
    bool doesSubSectionExist(const std::wstring& sectionName, const std::wstring& subSectionName,
                             const std::wstring& sectionID, const std::wstring& subSectionID) const;
    bool doesItemExist(const std::wstring& sectionName, const std::wstring& key, const std::wstring& sectionID) const;
    /// True when the item was there and is gone. Throws for a key of several parts that exists: only a direct child of
    /// the section can be removed.
    bool removeItem(const std::wstring& sectionName, const std::wstring& key, const std::wstring& sectionID);

    // Typed items. A missing item gives the default; text that begins with no number reads 0.

    /// "true", "t", "1", "yes", "y" and "false", "f", "0", "no", "n" in any case; every other text gives the default.
    bool getBoolItem(const std::wstring& sectionName, const std::wstring& key, bool defaultValue,
                     const std::wstring& sectionID) const;
    void setBoolItem(const std::wstring& sectionName, const std::wstring& key, bool value, const std::wstring& sectionID);
    /// Saturates at the limits of 32 bits.
    int getIntegerItem(const std::wstring& sectionName, const std::wstring& key, int defaultValue,
                       const std::wstring& sectionID) const;
    void setIntegerItem(const std::wstring& sectionName, const std::wstring& key, int value, const std::wstring& sectionID);
    double getDoubleItem(const std::wstring& sectionName, const std::wstring& key, double defaultValue,
                         const std::wstring& sectionID) const;
    /// Sixteen significant digits, "%.15e".
    void setDoubleItem(const std::wstring& sectionName, const std::wstring& key, double value,
                       const std::wstring& sectionID);
    /// Points are numbers separated by blanks, commas, line feeds or tabs; a wrong count gives the default.
    Point_2Dim<int> getPoint2IItem(const std::wstring& sectionName, const std::wstring& key,
                                   const Point_2Dim<int>& defaultValue, const std::wstring& sectionID) const;
    void setPoint2IItem(const std::wstring& sectionName, const std::wstring& key, const Point_2Dim<int>& value,
                        const std::wstring& sectionID);
    Point_2Dim<double> getPoint2DItem(const std::wstring& sectionName, const std::wstring& key,
                                      const Point_2Dim<double>& defaultValue, const std::wstring& sectionID) const;
    void setPoint2DItem(const std::wstring& sectionName, const std::wstring& key, const Point_2Dim<double>& value,
                        const std::wstring& sectionID);
    Point_3Dim<double> getPoint3DItem(const std::wstring& sectionName, const std::wstring& key,
                                      const Point_3Dim<double>& defaultValue, const std::wstring& sectionID) const;
    void setPoint3DItem(const std::wstring& sectionName, const std::wstring& key, const Point_3Dim<double>& value,
                        const std::wstring& sectionID);
    /// Eight items below the key; each missing one gives the default's field.
    Frustum getFrustum(const std::wstring& sectionName, const std::wstring& key, const Frustum& defaultValue,
                       const std::wstring& sectionID) const;
    void setFrustum(const std::wstring& sectionName, const std::wstring& key, Frustum value, const std::wstring& sectionID);
    /// Four items below the key, each cut to 8 bits; fields of missing items stay as the caller set them.
    void getPondOfMirrors(const std::wstring& sectionName, const std::wstring& key, BlackLevelBlending::PondOfMirrors& value,
                          const std::wstring& sectionID) const;
    void setPondOfMirrors(const std::wstring& sectionName, const std::wstring& key,
                          const BlackLevelBlending::PondOfMirrors& value, const std::wstring& sectionID);

    // Small matrices: one item an element, key "<key>_<i>_<j>", i below dimension1 running fastest, j below dimension2.
    // Getters append to `values`, -1.0 or points of -1000 standing for what cannot be read. Setters throw, and write
    // nothing, when `values` holds fewer than dimension1 * dimension2 elements; surplus elements are ignored.

    void getDoubleVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                         std::vector<double>& values, const std::wstring& sectionID) const;
    void setDoubleVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                         const std::vector<double>& values, const std::wstring& sectionID);
    void getPoint2IVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                          std::vector<Point_2Dim<int>>& values, const std::wstring& sectionID) const;
    void setPoint2IVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                          const std::vector<Point_2Dim<int>>& values, const std::wstring& sectionID);
    void getPoint2DVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                          std::vector<Point_2Dim<double>>& values, const std::wstring& sectionID) const;
    void setPoint2DVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                          const std::vector<Point_2Dim<double>>& values, const std::wstring& sectionID);
    void getPoint3DVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                          std::vector<Point_3Dim<double>>& values, const std::wstring& sectionID) const;
    void setPoint3DVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                          const std::vector<Point_3Dim<double>>& values, const std::wstring& sectionID);

    // Structure. Lists are in document order; elements without "ID" are counted but not listed.

    int getSectionCount(const std::wstring& sectionName) const;
    std::vector<std::wstring> getSectionIDs(const std::wstring& sectionName) const;
    /// Over all sections of that name, whatever their IDs.
    int getSubSectionCount(const std::wstring& sectionName, const std::wstring& subSectionName) const;
    std::vector<std::wstring> getSubSectionIDs(const std::wstring& sectionName, const std::wstring& subSectionName) const;
    /// Removes the first match; false when there is none.
    bool removeSection(const std::wstring& sectionName, const std::wstring& sectionID);
    bool removeSubSection(const std::wstring& sectionName, const std::wstring& subSectionName, const std::wstring& sectionID,
                          const std::wstring& subSectionID);
    /// Changes the ID of the first match; false for an empty old ID or no match. The new ID may exist already.
    bool renameSection(const std::wstring& sectionName, const std::wstring& oldID, const std::wstring& newID);
    /// Swaps the section with its nearest neighbour of the same name, earlier (-1) or later (+1); false when there is
    /// none or for any other direction.
    bool moveSection(int direction, const std::wstring& sectionName, const std::wstring& sectionID);

    // Tokens.

    /// Cuts from `text` its first token and the run of delimiters after it, and returns the token (empty when `text`
    /// begins with a delimiter).
    static std::wstring stringTok(std::wstring& text, const std::wstring& delimiters);
    /// Replaces `tokens` by the non-empty tokens of `text`; returns their number.
    static int createTokenVector(std::vector<std::wstring>& tokens, std::wstring text, const std::wstring& delimiters);

protected:
    /// `type` "DOMElement" stores an XML fragment, any other type text. Nothing of the type reaches the file.
    void setItem(const std::wstring& sectionName, const std::wstring& key, const std::wstring& value,
                 const std::wstring& sectionID, const std::wstring& type, const std::wstring& subSectionName,
                 const std::wstring& subSectionID);

private:
    friend class XMLConfig::detail::Document;

    static const std::shared_ptr<log4cxx::Logger> log;

    std::unique_ptr<XMLConfig::detail::Document> m_document;
    bool m_dirty = false;
};
