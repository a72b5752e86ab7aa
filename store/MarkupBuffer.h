#pragma once

#include <string_view>

#include "store/ByteBuffer.h"
#include "store/PlainText.h"

namespace XMLConfig::detail {

/// The bytes of an XML text that is being written: characters become UTF-8, and where the parser would read something else,
/// references.
class MarkupBuffer : public ByteBuffer {
public:
    explicit MarkupBuffer(bool isXml11) : m_isXml11(isXml11) {}

    /// As it stands: names, comments and what else knows no references.
    void appendText(std::u16string_view text) {
        if (!text.empty() && !appendPlain(text)) appendOther(text);
    }
    /// With references.
    void appendEscaped(std::u16string_view text, bool isAttribute) {
        if (!appendPlain(text)) escapeOther(text, isAttribute);
    }
    void appendBetween(std::string_view begin, std::u16string_view text, std::string_view end) {
        append(begin);
        appendText(text);
        append(end);
    }

private:
    /// False, and nothing done, where the text is not plain.
    bool appendPlain(std::u16string_view text) {
        if (!copyPlain(text, room(text.size()))) return false;
        added(text.size());
        return true;
    }
    void appendOther(std::u16string_view text);
    void escapeOther(std::u16string_view text, bool isAttribute);
    [[nodiscard]] bool needsNumber(char16_t character, bool isAttribute) const;
    void appendReference(char16_t character);

    bool m_isXml11;
};

}  // namespace XMLConfig::detail
