#pragma once

#include <memory>
#include <string>

#include "store/ConfigInfo.h"
#include "store/Document.h"
#include "store/DocumentWriter.h"
#include "tests/support/TemporaryFolder.h"

/// A document loaded from XML text, and the text that a save of it would write.
class TestDocument {
public:
    explicit TestDocument(const std::string& xml) {
        const TemporaryFolder folder;
        m_document = std::make_unique<ConfigInfo>(folder.write(L"test.skorrax", xml));
    }

    ConfigInfo& operator*() const { return *m_document; }
    ConfigInfo* operator->() const { return m_document.get(); }

    std::string text() const {
        using namespace XMLConfig::detail;
        return gather([this](const ByteSink& sink) { writeDocument(Document::of(*m_document).tree(), sink); });
    }
    /// The item's text, or "(none)".
    std::wstring item(const std::wstring& section, const std::wstring& key, const std::wstring& id = L"") const {
        return m_document->getStringItem(section, key, L"(none)", id, {}, {});
    }

private:
    std::unique_ptr<ConfigInfo> m_document;
};
