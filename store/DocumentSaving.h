#pragma once

#include <string>

class ConfigInfo;

/// The saves of a document: what ConfigInfo's own does, and those beside it.
namespace XMLConfig::detail {

class Document;

/// Writes the document to a file, all or nothing, and keeps in mind what that file holds now. Throws CorvaneException
/// with the message of a failed save.
void saveDocument(Document& document, const std::wstring& path);

/// Writes the document to another file, as ConfigInfo::save does, but the document goes on to belong to the file that it
/// came from, and its dirty flag stays as it was.
void saveCopy(ConfigInfo& document, const std::wstring& path);

/// Writes the document to a file that must not exist yet, all or nothing; the document stays as it is. False when something
/// of that name exists. Nobody but this user may do more with it than with the file `rightsOf`. Throws CorvaneException with
/// the message of a failed save.
bool saveAsNewFile(const ConfigInfo& document, const std::wstring& path, const std::wstring& rightsOf);

}  // namespace XMLConfig::detail
