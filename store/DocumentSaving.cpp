#include "store/DocumentSaving.h"

#include <utility>

#include "platform/CreateFile.h"
#include "platform/Files.h"
#include "store/ConfigInfo.h"
#include "store/ContentHash.h"
#include "store/CorvaneException.h"
#include "store/Document.h"
#include "store/DocumentWriter.h"
#include "store/FileChange.h"

namespace XMLConfig {

bool hasFileChanged(const ConfigInfo& document) { return detail::Document::of(document).file.hasChanged(); }

}  // namespace XMLConfig

namespace XMLConfig::detail {

namespace {

template <typename Write>
auto reportingFailedSave(const Write& write) {
    try {
        return write();
    } catch (const FileError& error) {
        throw CorvaneException(L"Error save(): An error occurred trying to save DOM tree to file. Msg is:" +
                               error.message());
    }
}

}  // namespace

void saveDocument(Document& document, const std::wstring& path) {
    FileState file = FileState::before(path);
    ContentHash hash;
    const auto write = [&](const ByteSink& sink) {
        hash = {};  // the text may be asked for again
        writeDocument(document.tree(), [&](std::string_view bytes) {
            hash.add(bytes);
            sink(bytes);
        });
    };
    reportingFailedSave([&] { replaceFile(path, write); });
    file.wasWritten(hash.value());
    document.file = std::move(file);
}

void saveCopy(ConfigInfo& document, const std::wstring& path) {
    FileState file = Document::of(document).file;
    const bool dirty = document.isDirty();
    document.save(path);
    // Where the copy replaced the document's own file, the save has already noted what that file holds now.
    if (!file.isOf(path)) Document::of(document).file = std::move(file);
    document.setDirty(dirty);
}

bool saveAsNewFile(const ConfigInfo& document, const std::wstring& path, const std::wstring& rightsOf) {
    const auto write = [&](const ByteSink& sink) { writeDocument(Document::of(document).tree(), sink); };
    return reportingFailedSave([&] { return createFile(path, write, rightsOf); });
}

}  // namespace XMLConfig::detail
