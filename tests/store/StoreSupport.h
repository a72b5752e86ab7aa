#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "store/ConfigInfo.h"
#include "tests/support/CurrentFile.h"
#include "tests/support/SavedText.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Thrown.h"

#ifndef _WIN32
#include <unistd.h>
#endif

/// What the tests of the store share.
namespace storetests {

using Document = std::unique_ptr<ConfigInfo>;

inline const std::string xmlHead = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\" ?>\n";

inline Document load(const std::string& text) {
    const TemporaryFolder folder;
    return std::make_unique<ConfigInfo>(folder.write(L"input.skorrax", text));
}

/// A document that was loaded, with a text and a fragment in section "S" of ID "1".
inline Document smallDocument() { return load(currentFile("<S ID=\"1\"><A>old</A><F><d>1</d></F></S>")); }

/// The document as it is after a save and a load.
inline Document reloaded(ConfigInfo& document) { return load(savedText(document)); }

/// The saved form of a document whose root holds `lines`, each already indented.
inline std::string savedRoot(const std::string& lines) { return xmlHead + "<ConfigInfo>\n" + lines + "</ConfigInfo>\n"; }

inline bool startsWith(const std::wstring& text, const std::wstring& start) {
    return text.compare(0, start.size(), start) == 0;
}
inline bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }
inline bool contains(const std::wstring& text, const std::wstring& part) { return text.find(part) != std::wstring::npos; }
/// Whether `text` is `start` and then "line L, column C: " and a reason.
inline bool namesPlace(const std::wstring& text, const std::wstring& start) {
    std::size_t at = 0;
    const auto literal = [&](const std::wstring& part) {
        const bool isThere = text.compare(at, part.size(), part) == 0;
        at += part.size();
        return isThere && at < text.size();
    };
    const auto number = [&] {
        const std::size_t end = text.find_first_not_of(L"0123456789", at);
        const bool isThere = end != at && end != std::wstring::npos;
        at = end;
        return isThere;
    };
    return literal(start) && literal(L"line ") && number() && literal(L", column ") && number() && literal(L": ");
}
inline std::size_t occurrences(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++count;
    return count;
}
inline bool hasBlankLine(const std::string& text) {
    bool blank = true;
    for (const char character : text) {
        if (character == '\n') {
            if (blank) return true;
            blank = true;
        } else if (character != ' ' && character != '\t' && character != '\r') {
            blank = false;
        }
    }
    return false;
}

#define EXPECT_STARTS_WITH(text, start) \
    EXPECT_PRED2([](const std::wstring& a, const std::wstring& b) { return storetests::startsWith(a, b); }, text, start)
#define EXPECT_CONTAINS(text, part) \
    EXPECT_TRUE(storetests::contains(text, part)) << "in:\n" << (text) << "\nmissing:\n" << (part)

inline std::wstring get(const ConfigInfo& document, const std::wstring& section, const std::wstring& key,
                        const std::wstring& id = L"", const std::wstring& subSection = L"",
                        const std::wstring& subID = L"") {
    return document.getStringItem(section, key, L"(default)", id, subSection, subID);
}
inline void set(ConfigInfo& document, const std::wstring& section, const std::wstring& key, const std::wstring& value,
                const std::wstring& id = L"", const std::wstring& subSection = L"", const std::wstring& subID = L"") {
    document.setStringItem(section, key, value, id, subSection, subID);
}
inline std::wstring fragment(const ConfigInfo& document, const std::wstring& section, const std::wstring& key,
                             const std::wstring& id = L"") {
    return document.getStringItemAsDOMElement(section, key, L"(default)", id);
}

/// A document whose item "A" of section "S" was loaded with that text; line ends and tabs survive as references.
inline Document holding(const std::wstring& text) {
    ConfigInfo document;
    set(document, L"S", L"A", text);
    return reloaded(document);
}

/// Takes the document's saved form and flag when made; unchanged() tells whether both are the same again.
class Untouched {
public:
    explicit Untouched(ConfigInfo& document)
        : m_document(document), m_dirty(document.isDirty()), m_text(savedText(document)) {}
    testing::AssertionResult unchanged() const {
        if (m_document.isDirty() != m_dirty) return testing::AssertionFailure() << "the dirty flag became " << !m_dirty;
        const std::string now = savedText(m_document);
        if (now != m_text) return testing::AssertionFailure() << "was:\n" << m_text << "is:\n" << now;
        return testing::AssertionSuccess();
    }

private:
    ConfigInfo& m_document;
    bool m_dirty;
    std::string m_text;
};

#ifndef _WIN32
/// While it lives, this process acts with the rights of an ordinary user, also when the superuser runs the tests.
class OrdinaryUser {
public:
    OrdinaryUser() : m_wasRoot(geteuid() == 0) {
        if (m_wasRoot) m_active = seteuid(65534) == 0;
    }
    ~OrdinaryUser() {
        if (m_wasRoot && m_active && seteuid(0) != 0) std::abort();
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    bool active() const { return m_active; }

private:
    bool m_wasRoot;
    bool m_active = true;
};
#endif

}  // namespace storetests
