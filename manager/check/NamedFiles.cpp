#include "manager/check/NamedFiles.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <system_error>
#include <unordered_map>

#include "platform/FileNames.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Utf8.h"

namespace XMLConfig::detail {
namespace {

constexpr const wchar_t* screenKeys[] = {L"VRML", L"MeasuredVRML", L"PCD", L"Marked_Surface_File"};
constexpr const wchar_t* projectorKeys[] = {L"Red_Green_Alignment_Image", L"Projection_Model_File",
                                            L"Projection_Model_Script", L"Projection_Layout_File"};

/// No system takes a longer one.
constexpr std::size_t longestName = 32767;

/// Finds names that differ in case only, and reads each folder once.
class Spelling {
public:
    /// The name as its parts are spelt on the disk; "" where a part is missing.
    std::wstring find(const std::wstring& folder, const std::wstring& name) {
        std::wstring found;
        std::wstring above = folder;
        for (std::size_t begin = 0, end = 0; end != std::wstring::npos; begin = end + 1) {
            end = name.find(L'/', begin);
            const std::wstring entry = entryLike(above, name.substr(begin, end - begin));
            if (entry.empty()) return {};
            found += (begin == 0 ? L"" : L"/") + entry;
            if (begin == 0) above = joinPath(folder, entry);
            else above += L"/" + entry;
        }
        return found;
    }

private:
    using Entries = std::map<std::wstring, std::wstring>;  // by name in lower case

    std::wstring entryLike(const std::wstring& folder, const std::wstring& name) {
        if (name == L"." || name == L"..") return name;
        const auto [entries, isNew] = m_folders.emplace(folder, Entries());
        if (isNew) entries->second = entriesOf(folder);
        const auto found = entries->second.find(lowerAscii(name));
        return found == entries->second.end() ? L"" : found->second;
    }

    static Entries entriesOf(const std::wstring& folder) {
        Entries entries;
        std::error_code fault;
        const std::filesystem::path path = pathForStreams(folder.empty() ? L"." : folder);
        for (std::filesystem::directory_iterator entry(path, fault), end; !fault && entry != end; entry.increment(fault)) {
            const std::wstring name = wideFromUtf8(entry->path().filename().u8string());
            entries.emplace(lowerAscii(name), name);
        }
        return entries;
    }

    std::map<std::wstring, Entries> m_folders;
};

class Search {
public:
    explicit Search(const Findings& findings) : m_folder(folderOf(findings.options.file)) {}

    void lookFor(const CheckedSection& section, const wchar_t* key) {
        const CheckedItem* const item = section.find(key);
        if (item == nullptr || item->text.empty()) return;
        const auto [known, isNew] = m_known.try_emplace(item->text);
        if (isNew) known->second = lookedFor(item->text);
        m_files.push_back(known->second);
        m_files.back().place = placeOf(section, *item);
    }
    std::vector<NamedFile> take() { return std::move(m_files); }

private:
    NamedFile lookedFor(const std::wstring& text) {
        NamedFile file{{}, text, false, {}};
        std::replace(file.name.begin(), file.name.end(), L'\\', L'/');
        file.isThere = fileExists(joinPath(m_folder, file.name));
        const bool isPossible = file.name.size() <= longestName && !isAbsolute(file.name);
        if (!file.isThere && isPossible) file.otherCase = m_spelling.find(m_folder, file.name);
        return file;
    }

    std::wstring m_folder;
    Spelling m_spelling;
    std::unordered_map<std::wstring, NamedFile> m_known;  // without a place; many projectors name one file
    std::vector<NamedFile> m_files;
};

}  // namespace

std::vector<NamedFile> namedFiles(const Findings& findings) {
    Search search(findings);
    for (const wchar_t* const key : screenKeys) search.lookFor(findings.read.section(L"Screen"), key);
    for (const CheckedSection* projector : findings.read.projectors())
        for (const wchar_t* const key : projectorKeys) search.lookFor(*projector, key);
    return search.take();
}

}  // namespace XMLConfig::detail
