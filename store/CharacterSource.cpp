#include "store/CharacterSource.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <xercesc/util/BinInputStream.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "platform/Files.h"
#include "platform/Text.h"
#include "platform/Utf16.h"
#include "store/DocumentParser.h"

namespace XMLConfig::detail {

namespace {

constexpr std::size_t step = 16 * 1024;  // bytes that are read at once
constexpr std::size_t longestCharacter = 4;

/// Whether the declaration names no encoding, or UTF-8 in the usual spelling `encoding="utf-8"` (in either case and quotes).
bool namesUtf8(std::string_view declaration) {
    constexpr std::string_view word = "encoding";
    const std::size_t place = declaration.find(word);
    if (place == std::string_view::npos) return true;
    const std::wstring value = fromUtf8(declaration.substr(place + word.size(), 8));
    return equalIgnoringCase(value, L"=\"utf-8\"") || equalIgnoringCase(value, L"='utf-8'");
}

}  // namespace

/// The bytes that were read and not given yet.
class CharacterSource::Input {
public:
    explicit Input(const std::wstring& path) : m_file(path) { readMore(); }

    [[nodiscard]] std::string_view bytes() const { return {m_bytes.data(), m_count}; }
    /// False at the end of the file.
    bool readMore() {
        const std::size_t count = m_file.read(m_bytes.data() + m_count, m_bytes.size() - m_count);
        content.add({m_bytes.data() + m_count, count});
        size += count;
        m_count += count;
        return count > 0;
    }
    void drop(std::size_t count) {
        m_count -= count;
        std::memmove(m_bytes.data(), m_bytes.data() + count, m_count);
    }

    XMLFilePos size = 0;
    ContentHash content;

private:
    FileReader m_file;
    std::array<char, step> m_bytes;
    std::size_t m_count = 0;
};

class CharacterSource::Stream : public xercesc::BinInputStream {
public:
    explicit Stream(Input& input) : m_input(input) {}
    XMLFilePos curPos() const override { return m_position; }
    XMLSize_t readBytes(XMLByte* const buffer, const XMLSize_t size) override {
        const std::size_t room = size / sizeof(char16_t);
        if (m_input.bytes().empty() && !m_input.readMore()) return 0;
        Conversion made = convertUtf8(m_input.bytes().substr(0, room), buffer);
        if (made.bytesRead == 0) {  // a character may be cut where what was read ends
            if (m_input.bytes().size() >= longestCharacter || !m_input.readMore()) throw ParseFailure(0, 0, {});
            made = convertUtf8(m_input.bytes().substr(0, room), buffer);
            if (made.bytesRead == 0) throw ParseFailure(0, 0, {});
        }
        m_input.drop(made.bytesRead);
        m_position += made.unitsWritten * sizeof(char16_t);
        return made.unitsWritten * sizeof(char16_t);
    }
    const XMLCh* getContentType() const override { return nullptr; }

private:
    Input& m_input;
    XMLFilePos m_position = 0;
};

CharacterSource::CharacterSource(const std::wstring& path) : m_input(std::make_unique<Input>(path)) {
    setEncoding(xercesc::XMLUni::fgXMLChEncodingString);  // whatever the text names
}

CharacterSource::~CharacterSource() = default;

bool CharacterSource::isUtf8() const {
    const std::string_view start = m_input->bytes();
    if (start.substr(0, 5) == "<?xml") return namesUtf8(start.substr(0, start.find("?>")));
    return start.size() > 1 && start[0] == '<' && start[1] != '\0';
}

xercesc::BinInputStream* CharacterSource::makeStream() const { return new Stream(*m_input); }

XMLFilePos CharacterSource::size() const { return m_input->size; }
const ContentHash& CharacterSource::content() const { return m_input->content; }

}  // namespace XMLConfig::detail
