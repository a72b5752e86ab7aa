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
/// Every failure is a CorvaneException that begins "Error <operation>: " (of the vector setters "Error: ConfigInfo::"), but
/// for a shortage of memory, which is std::bad_alloc everywhere and leaves the document as it was. A value or identifier
/// that XML 1.0 cannot hold is refused before anything is changed. A document is used by one thread at a time; different
/// documents may be used by different threads.
class XMLCONFIG_API ConfigInfo {
public:
    /// A new document at the latest version, not dirty.
    ConfigInfo();
    /// Loads a file. Throws "Error parseDataFile: ..." when it cannot be opened for update (missing, read-only, a
    /// folder), is malformed (with line and column), holds a document type, or is beyond the limits that docs/file-format.md
    /// names, such as 1,000 levels of nested elements.
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
    bool isDirty() const;  ///< whether the document has changed since it was loaded, made or saved last
    void setDirty(bool dirty);

    // Text items.

    /// The item's text with that of everything inside it; "" for an item without text, the default for a missing one.
    std::wstring getStringItem(const std::wstring& sectionName, const std::wstring& key, const std::wstring& defaultValue,
                               const std::wstring& sectionID, const std::wstring& subSectionName,
                               const std::wstring& subSectionID) const;
    /// Replaces all that the item holds by the text. Throws for identifiers that are no XML names.
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
    /// Whether the document has a section with that tag and ID.
    bool doesSectionExist(const std::wstring& sectionName, const std::wstring& sectionID) const;
    /// Whether one of the sections with that tag and ID has such a subsection.
    bool doesSubSectionExist(const std::wstring& sectionName, const std::wstring& subSectionName,
                             const std::wstring& sectionID, const std::wstring& subSectionID) const;
    /// Whether the first such section has the item, also when it is empty.
    bool doesItemExist(const std::wstring& sectionName, const std::wstring& key, const std::wstring& sectionID) const;
    /// True when the item was there and is gone. Throws for a key of several parts that exists: only a direct child of
    /// the section can be removed.
    bool removeItem(const std::wstring& sectionName, const std::wstring& key, const std::wstring& sectionID);

    // Typed items. Each form is written without regard to the locale.

    /// "true", "t", "1", "yes", "y" and "false", "f", "0", "no", "n" in any case; every other text gives the default,
    /// as a missing item does.
    bool getBoolItem(const std::wstring& sectionName, const std::wstring& key, bool defaultValue,
                     const std::wstring& sectionID) const;
    void setBoolItem(const std::wstring& sectionName, const std::wstring& key, bool value, const std::wstring& sectionID);
    /// The number that the text begins with, or the nearest one of 32 bits; 0 for text that begins with none, the default
    /// for a missing item.
    int getIntegerItem(const std::wstring& sectionName, const std::wstring& key, int defaultValue,
                       const std::wstring& sectionID) const;
    void setIntegerItem(const std::wstring& sectionName, const std::wstring& key, int value, const std::wstring& sectionID);
    /// The number that the text begins with; 0.0 for text that begins with none, the default for a missing item.
    double getDoubleItem(const std::wstring& sectionName, const std::wstring& key, double defaultValue,
                         const std::wstring& sectionID) const;
    /// Stores sixteen significant digits, "%.15e".
    void setDoubleItem(const std::wstring& sectionName, const std::wstring& key, double value,
                       const std::wstring& sectionID);
    /// Two numbers separated by blanks, commas, line feeds or tabs; a missing item and another count give the default.
    Point_2Dim<int> getPoint2IItem(const std::wstring& sectionName, const std::wstring& key,
                                   const Point_2Dim<int>& defaultValue, const std::wstring& sectionID) const;
    void setPoint2IItem(const std::wstring& sectionName, const std::wstring& key, const Point_2Dim<int>& value,
                        const std::wstring& sectionID);
    /// Two numbers, as getPoint2IItem reads them.
    Point_2Dim<double> getPoint2DItem(const std::wstring& sectionName, const std::wstring& key,
                                      const Point_2Dim<double>& defaultValue, const std::wstring& sectionID) const;
    void setPoint2DItem(const std::wstring& sectionName, const std::wstring& key, const Point_2Dim<double>& value,
                        const std::wstring& sectionID);
    /// Three numbers, separated as getPoint2IItem says; a missing item and another count give the default.
    Point_3Dim<double> getPoint3DItem(const std::wstring& sectionName, const std::wstring& key,
                                      const Point_3Dim<double>& defaultValue, const std::wstring& sectionID) const;
    void setPoint3DItem(const std::wstring& sectionName, const std::wstring& key, const Point_3Dim<double>& value,
                        const std::wstring& sectionID);
    /// Eight items below the key, one for each field; a missing one gives the default's field. Lengths, angles and pixels as
    /// Viewport has them.
    Frustum getFrustum(const std::wstring& sectionName, const std::wstring& key, const Frustum& defaultValue,
                       const std::wstring& sectionID) const;
    void setFrustum(const std::wstring& sectionName, const std::wstring& key, Frustum value, const std::wstring& sectionID);
    /// Four items below the key, one for each edge, of which the low 8 bits are read; the fields of missing items stay as
    /// the caller set them.
    void getPondOfMirrors(const std::wstring& sectionName, const std::wstring& key, BlackLevelBlending::PondOfMirrors& value,
                          const std::wstring& sectionID) const;
    void setPondOfMirrors(const std::wstring& sectionName, const std::wstring& key,
                          const BlackLevelBlending::PondOfMirrors& value, const std::wstring& sectionID);

    // Small matrices. Each element is an item of its own with the key "<key>_<i>_<j>", where i counts from 0 to
    // dimension1 - 1 and runs fastest, and j from 0 to dimension2 - 1.

    /// Appends the elements to `values`, -1.0 for each that is missing or not one number.
    void getDoubleVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                         std::vector<double>& values, const std::wstring& sectionID) const;
    /// Throws, and writes nothing, when `values` holds fewer than dimension1 * dimension2 elements; surplus ones are
    /// ignored.
    void setDoubleVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                         const std::vector<double>& values, const std::wstring& sectionID);
    /// Appends the elements to `values`, (-1000, -1000) for each that is missing or not two numbers.
    void getPoint2IVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                          std::vector<Point_2Dim<int>>& values, const std::wstring& sectionID) const;
    /// As setDoubleVector. "diamensions" in the message of the exception is spelt so on purpose, as for the next two
    /// setters.
    void setPoint2IVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                          const std::vector<Point_2Dim<int>>& values, const std::wstring& sectionID);
    /// Appends the elements to `values`, (-1000, -1000) for each that is missing or not two numbers.
    void getPoint2DVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                          std::vector<Point_2Dim<double>>& values, const std::wstring& sectionID) const;
    void setPoint2DVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                          const std::vector<Point_2Dim<double>>& values, const std::wstring& sectionID);
    /// Appends the elements to `values`, (-1000, -1000, -1000) for each that is missing or not three numbers.
    void getPoint3DVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                          std::vector<Point_3Dim<double>>& values, const std::wstring& sectionID) const;
    void setPoint3DVector(const std::wstring& sectionName, const std::wstring& key, int dimension1, int dimension2,
                          const std::vector<Point_3Dim<double>>& values, const std::wstring& sectionID);

    // Structure.

    /// Number of sections with that tag, those without "ID" included.
    int getSectionCount(const std::wstring& sectionName) const;
    /// The IDs of the sections with that tag in document order; a section without "ID" is left out, equal IDs are not.
    std::vector<std::wstring> getSectionIDs(const std::wstring& sectionName) const;
    /// Number of subsections with that tag in all sections of that name, whatever their IDs.
    int getSubSectionCount(const std::wstring& sectionName, const std::wstring& subSectionName) const;
    /// The IDs of those subsections, in document order; a subsection without "ID" is left out.
    std::vector<std::wstring> getSubSectionIDs(const std::wstring& sectionName, const std::wstring& subSectionName) const;
    /// Removes the first section with that tag and ID, and the white space after it; false when there is none.
    bool removeSection(const std::wstring& sectionName, const std::wstring& sectionID);
    /// Removes the first such subsection, and the white space after it; false when there is none.
    bool removeSubSection(const std::wstring& sectionName, const std::wstring& subSectionName, const std::wstring& sectionID,
                          const std::wstring& subSectionID);
    /// Changes the ID of the first section with that tag and old ID; false when there is none, and for an empty old ID.
    /// Another section may have the new ID already.
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
