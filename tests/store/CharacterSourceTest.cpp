#include "store/CharacterSource.h"

#include "store/DocumentParser.h"
#include "store/StrictParser.h"
#include "tests/store/BadFileSupport.h"
#include "tests/store/TreeSupport.h"

using namespace std::string_literals;

// A file of UTF-8 is read as characters, any other and any that is refused as the bytes that it has. Both must give the
// same.

namespace storetests {

namespace {

using XMLConfig::detail::CharacterSource;
using XMLConfig::detail::ContentHash;

struct Parsed {
    std::string tree;
    std::uint64_t content = 0;
    XMLFilePos size = 0;
};

/// Read as characters, whatever it is.
Parsed parsedAsCharacters(const std::string& bytes) {
    const TemporaryFolder folder;
    const CharacterSource source(folder.write(L"a.skorrax", bytes));
    const auto document = XMLConfig::detail::StrictParser().parseDocument(source);
    return {described(*document->getDocumentElement()), source.content().value(), source.size()};
}

std::string parsedAsBytes(const std::string& bytes) {
    const TemporaryFolder folder;
    const auto source = XMLConfig::detail::fileSource(folder.write(L"a.skorrax", bytes));
    return described(*XMLConfig::detail::StrictParser().parseDocument(*source)->getDocumentElement());
}

bool isUtf8(const std::string& bytes) {
    const TemporaryFolder folder;
    return CharacterSource(folder.write(L"a.skorrax", bytes)).isUtf8();
}

}  // namespace

TEST(CharacterSource, GivesTheTreeOfTheBytesWhereverItsStepsEnd) {
    XMLConfig::detail::startXmlLibrary();
    for (const std::string character : {"x", "\xc3\xa4", "\xe2\x82\xac", "\xf0\x9f\x98\x80"}) {
        for (const std::size_t size : {0U, 31U, 16384U, 24576U, 49152U}) {
            for (std::size_t offset = 0; offset < 5; ++offset) {
                const std::string bytes = "<a>" + std::string(size + offset, 'y') + character + character + "\r\n" +
                                          std::string(size, 'z') + character + "</a>";
                const Parsed parsed = parsedAsCharacters(bytes);
                ContentHash content;
                content.add(bytes);
                ASSERT_EQ(parsed.tree, parsedAsBytes(bytes)) << size << "+" << offset << character;
                ASSERT_EQ(parsed.content, content.value());
                ASSERT_EQ(parsed.size, bytes.size());
            }
        }
    }
}

TEST(CharacterSource, RefusesWrongBytesWhereverItsStepsEnd) {
    XMLConfig::detail::startXmlLibrary();
    for (const std::string wrong :
         {"\xff", "\xc3", "\xe2\x82", "\xf0\x9f\x98", "\xed\xa0\x80", "\xc0\x80", "\xf4\x90\x80\x80"}) {
        for (const std::size_t size : {0U, 16377U, 49145U}) {
            for (std::size_t offset = 0; offset < 8; ++offset) {
                const std::string start = "<a>" + std::string(size + offset, 'y') + wrong;
                EXPECT_THROW(parsedAsCharacters(start + "</a>"), XMLConfig::detail::ParseFailure) << start.size();
                EXPECT_THROW(parsedAsCharacters(start), XMLConfig::detail::ParseFailure) << start.size();
                expectMalformed(start + "</a>", "wrong bytes");
            }
        }
    }
}

TEST(CharacterSource, TakesWhatTheLibraryTakesForUtf8) {
    XMLConfig::detail::startXmlLibrary();
    for (const char* const utf8 :
         {"<a/>", "<?xml version='1.0'?><a/>", "<?xml version='1.1' encoding='utf-8'?><a/>",
          "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\" ?><a/>", "<!--encoding--><a/>"})
        EXPECT_TRUE(isUtf8(utf8)) << utf8;
    for (const std::string& other :
         {""s, "<"s, "\xef\xbb\xbf<a/>"s, "<\0a\0/\0>\0"s, "\0<\0a\0/\0>"s, "\xff\xfe<\0"s, "\n<a/>"s,
          "<?xml version='1.0' encoding='ISO-8859-1'?><a/>"s, "<?xml version='1.0' encoding='UTF-16'?><a/>"s,
          "<?xml version='1.0' encoding = 'UTF-8'?><a/>"s, "<?xml version='1.0' encoding='UTF-8"s.substr(0, 30)})
        EXPECT_FALSE(isUtf8(other)) << other;
}

}  // namespace storetests
