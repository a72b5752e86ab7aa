#pragma once

#include <memory>
#include <string>
#include <xercesc/sax/InputSource.hpp>

#include "store/ContentHash.h"
#include "store/XmlLibrary.h"

namespace XMLConfig::detail {

/// A file of UTF-8, given to the parser as the characters that it works with: the library takes a twelfth of a load to make
/// them itself. For one parse.
class CharacterSource : public xercesc::InputSource {
public:
    /// Reads the start of the file. Throws FileError.
    explicit CharacterSource(const std::wstring& path);
    ~CharacterSource() override;
    CharacterSource(const CharacterSource&) = delete;
    CharacterSource& operator=(const CharacterSource&) = delete;

    /// Whether the library would take the file for UTF-8, by how it starts. Else it must not be parsed from here.
    [[nodiscard]] bool isUtf8() const;
    /// The stream throws FileError, and ParseFailure without a place for bytes that are no UTF-8.
    xercesc::BinInputStream* makeStream() const override;

    // Of what was read.
    [[nodiscard]] XMLFilePos size() const;
    [[nodiscard]] const ContentHash& content() const;

private:
    class Input;
    class Stream;
    std::unique_ptr<Input> m_input;
};

}  // namespace XMLConfig::detail
