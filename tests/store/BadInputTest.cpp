#include "tests/store/StoreSupport.h"
#include "tests/support/CurrentFile.h"

namespace storetests {

namespace {

std::wstring nestedElement(int levels) {
    std::wstring text;
    for (int i = 0; i < levels; ++i) text += L"<a>";
    for (int i = 0; i < levels; ++i) text += L"</a>";
    return text;
}

/// One of each range that XML 1.0 leaves out, at its ends; the lone surrogates as they stand in wide text.
std::vector<wchar_t> forbidden() {
    std::vector<wchar_t> all{0x0, 0x1, 0x8, 0xb, 0xc, 0xe, 0x1f, 0xd800, 0xdbff, 0xdc00, 0xdfff, 0xfffe, 0xffff};
    if (sizeof(wchar_t) == 4) all.push_back(static_cast<wchar_t>(0x110000));
    return all;
}

}  // namespace

TEST(IllegalName, IsRefusedByASetter) {
    for (const wchar_t* key : {L"", L"a b", L"1a", L"-a", L"<", L"a&b", L"\u00d7", L"a/b", L"a\n"}) {
        const Document document = smallDocument();
        const auto message = messageOf([&] { set(*document, L"S", key, L"v", L"1"); });
        EXPECT_STARTS_WITH(message, L"Error setItem: ") << key;
        EXPECT_FALSE(document->isDirty()) << key;
        EXPECT_EQ(reloaded(*document)->getVersion(), XMLConfig::detail::latestFileVersion) << key;
    }
    for (const wchar_t* section : {L"a b", L"", L"1", L"a|b"}) {
        const Document document = smallDocument();
        const Untouched before(*document);
        EXPECT_STARTS_WITH(messageOf([&] { set(*document, section, L"A", L"v", L"1"); }), L"Error setItem: ") << section;
        EXPECT_TRUE(before.unchanged()) << section;
    }
}

TEST(IllegalName, LeavesAPartlyMadePath) {
    const Document document = smallDocument();
    EXPECT_STARTS_WITH(messageOf([&] { set(*document, L"N", L"a|b||c", L"v", L"2", L"T", L"t"); }), L"Error setItem: ");
    EXPECT_FALSE(document->isDirty());
    EXPECT_TRUE(document->doesSubSectionExist(L"N", L"T", L"2", L"t"));
    EXPECT_EQ(get(*document, L"N", L"a|b", L"2", L"T", L"t"), L"");
    EXPECT_CONTAINS(savedText(*document),
                    "  <N ID=\"2\">\n    <T ID=\"t\">\n      <a>\n        <b/>\n      </a>\n    </T>\n  </N>\n");
}

TEST(IllegalName, OfASubSectionIsRefused) {
    const Document document = smallDocument();
    EXPECT_STARTS_WITH(messageOf([&] { set(*document, L"S", L"A", L"v", L"1", L"a b", L""); }), L"Error setItem: ");
    EXPECT_FALSE(document->isDirty());
}

TEST(IllegalName, IsOnlyNotFoundByLookUps) {
    const Document document = smallDocument();
    for (const wchar_t* name : {L"", L"a b", L"|", L"<", L"1"}) {
        EXPECT_EQ(get(*document, name, L"A"), L"(default)");
        EXPECT_EQ(get(*document, L"S", name), L"(default)");
        EXPECT_EQ(document->getSectionCount(name), 0);
        EXPECT_FALSE(document->removeSection(name, L""));
        EXPECT_FALSE(document->moveSection(1, name, L""));
        EXPECT_FALSE(document->renameSection(name, L"1", L"2"));
    }
    EXPECT_FALSE(document->isDirty());
}

TEST(IllegalName, OfANullCharacterIsNoOtherName) {
    using namespace std::string_literals;
    const Document document = load("<ConfigInfo><S ID=\"1\"><G><A>1</A></G></S></ConfigInfo>");
    EXPECT_EQ(get(*document, L"S", L"G|A", L"1"), L"1");
    for (const std::wstring& key : {L"G|A\0"s, L"G|A\0A"s, L"G|\0"s, L"G|"s, L"G|AA"s})
        EXPECT_EQ(get(*document, L"S", key, L"1"), L"(default)") << key.size();
}

TEST(IllegalCharacter, InAValueIsRefused) {
    for (const wchar_t character : forbidden()) {
        for (const wchar_t* key : {L"A", L"New", L"Deep|New"}) {
            const Document document = smallDocument();
            const Untouched before(*document);
            const std::wstring value = std::wstring(36, L'v') + character + L"w";
            const auto message = messageOf([&] { set(*document, L"S", key, value, L"1"); });
            EXPECT_STARTS_WITH(message, L"Error setItem: ");
            EXPECT_CONTAINS(message, std::wstring(L"S"));
            EXPECT_CONTAINS(message, std::wstring(key));
            EXPECT_CONTAINS(message, std::wstring(L"37"));
            EXPECT_TRUE(before.unchanged()) << static_cast<unsigned long>(character);
        }
    }
}

TEST(IllegalCharacter, IsNamedInFull) {
    const Document document = smallDocument();
    const std::wstring bad = std::wstring(L"ab") + L'\x1';
    const auto refused = [&](const std::wstring& section, const std::wstring& key, const std::wstring& id,
                             const std::wstring& subSection, const std::wstring& subID, const std::wstring& value) {
        return messageOf([&] { set(*document, section, key, value, id, subSection, subID); });
    };
    const std::wstring held = L" holds the character U+0001 (number 3), which XML cannot hold";
    EXPECT_EQ(refused(L"S", L"A", L"1", L"", L"", bad), L"Error setItem: section \"S\" [1], key \"A\": the value" + held);
    EXPECT_EQ(refused(L"S", L"A", L"", L"T", L"t", bad),
              L"Error setItem: section \"S\", subsection \"T\" [t], key \"A\": the value" + held);
    EXPECT_EQ(refused(bad, L"A", L"1", L"", L"", L"v"),
              L"Error setItem: section \"" + bad + L"\" [1], key \"A\": the section's name" + held);
    EXPECT_EQ(refused(L"S", bad, L"1", L"", L"", L"v"),
              L"Error setItem: section \"S\" [1], key \"" + bad + L"\": the key" + held);
    EXPECT_EQ(refused(L"S", L"A", bad, L"", L"", L"v"),
              L"Error setItem: section \"S\" [" + bad + L"], key \"A\": the section's ID" + held);
    EXPECT_EQ(refused(L"S", L"A", L"1", bad, L"", L"v"),
              L"Error setItem: section \"S\" [1], subsection \"" + bad + L"\", key \"A\": the subsection's name" + held);
    EXPECT_EQ(refused(L"S", L"A", L"1", L"T", bad, L"v"),
              L"Error setItem: section \"S\" [1], subsection \"T\" [" + bad + L"], key \"A\": the subsection's ID" + held);
    EXPECT_EQ(messageOf([&] { document->renameSection(L"S", L"1", bad); }),
              L"Error renameSection: section \"S\": the new ID" + held);
    EXPECT_EQ(messageOf([&] { set(*document, L"S", L"A", std::wstring(1, L'\xffff'), L"1"); }),
              L"Error setItem: section \"S\" [1], key \"A\": the value holds the character U+FFFF (number 1), which XML "
              L"cannot hold");
}

TEST(DepthOfADocument, IsNamedInFullWhereItIsRefused) {
    ConfigInfo document;
    EXPECT_EQ(messageOf([&] { document.setStringItemAsDOMElement(L"S", L"A", nestedElement(998), L""); }),
              L"Error setItem: section \"S\", key \"A\": elements may be nested 1000 levels deep at most");
}

TEST(IllegalCharacter, CountsASurrogatePairAsOne) {
    ConfigInfo document;
    const std::wstring value = std::wstring(L"\U0001F3A5\U0001F3A5") + L'\x1';
    const auto message = messageOf([&] { set(document, L"Section", L"Key", value); });
    EXPECT_STARTS_WITH(message, L"Error setItem: ");
    EXPECT_CONTAINS(message, std::wstring(L"Section"));
    EXPECT_CONTAINS(message, std::wstring(L"Key"));
    EXPECT_CONTAINS(message, std::wstring(L"3"));
    EXPECT_FALSE(document.doesSectionExist(L"Section", L""));
}

TEST(LegalCharacters, AtEveryBoundaryAreKept) {
    for (const wchar_t* text : {L"\t", L"\n", L"\r", L" ", L"\x7f", L"\ud7ff", L"\ue000", L"\ufffd", L"\U00010000",
                                L"\U0010ffff", L"\U0001fffe"}) {
        const std::wstring value = std::wstring(L"a") + text + L"b";
        ConfigInfo document;
        set(document, L"S", L"A", value, value);
        EXPECT_EQ(get(*reloaded(document), L"S", L"A", value), value);
    }
}

TEST(IllegalCharacter, InAnIdIsRefused) {
    for (const wchar_t character : forbidden()) {
        const Document document = smallDocument();
        const Untouched before(*document);
        const std::wstring id = std::wstring(L"1") + character;
        EXPECT_STARTS_WITH(messageOf([&] { set(*document, L"S", L"A", L"v", id); }), L"Error setItem: ");
        EXPECT_STARTS_WITH(messageOf([&] { set(*document, L"S", L"A", L"v", L"1", L"T", id); }), L"Error setItem: ");
        EXPECT_STARTS_WITH(messageOf([&] { set(*document, L"N", L"A", L"v", L"2", L"T", id); }), L"Error setItem: ");
        EXPECT_STARTS_WITH(messageOf([&] { document->renameSection(L"S", L"1", id); }), L"Error renameSection: ");
        EXPECT_STARTS_WITH(messageOf([&] { document->setStringItemAsDOMElement(L"S", L"A", L"<a/>", id); }),
                           L"Error setItem: ");
        EXPECT_FALSE(document->doesSectionExist(L"S", id));
        EXPECT_FALSE(document->removeSection(L"S", id));
        EXPECT_TRUE(before.unchanged()) << static_cast<unsigned long>(character);
    }
}

TEST(IllegalCharacter, InANameIsRefused) {
    for (const wchar_t character : forbidden()) {
        for (const char* head : {"<?xml version=\"1.0\"?>", "<?xml version=\"1.1\"?>"}) {
            const Document document = load(head + std::string("<ConfigInfo><S ID=\"1\"><A>old</A></S></ConfigInfo>"));
            const Untouched before(*document);
            const std::wstring name = std::wstring(L"A") + character + L"B";
            EXPECT_STARTS_WITH(messageOf([&] { set(*document, name, L"A", L"v", L"1"); }), L"Error setItem: ");
            EXPECT_STARTS_WITH(messageOf([&] { set(*document, L"S", name, L"v", L"1"); }), L"Error setItem: ");
            EXPECT_STARTS_WITH(messageOf([&] { set(*document, L"S", L"A|" + name, L"v", L"1"); }), L"Error setItem: ");
            EXPECT_STARTS_WITH(messageOf([&] { set(*document, L"S", L"A", L"v", L"1", name); }), L"Error setItem: ");
            EXPECT_TRUE(before.unchanged()) << static_cast<unsigned long>(character);
        }
    }
}

TEST(IllegalCharacter, IsRefusedWhereItsSubstituteIsStored) {
    ConfigInfo document;
    set(document, L"S", L"A", L"\ufffd");
    EXPECT_STARTS_WITH(messageOf([&] { set(document, L"S", L"A", std::wstring(1, wchar_t(0xd800))); }), L"Error setItem: ");
}

TEST(IllegalCharacter, InAFragmentIsRefused) {
    for (const wchar_t character : forbidden()) {
        for (const wchar_t* key : {L"F", L"New|Deep"}) {
            const Document document = smallDocument();
            const Untouched before(*document);
            const std::wstring value = std::wstring(L"<d>") + character + L"</d>";
            EXPECT_STARTS_WITH(messageOf([&] { document->setStringItemAsDOMElement(L"S", key, value, L"1"); }),
                               L"Error setItem: ");
            EXPECT_TRUE(before.unchanged()) << static_cast<unsigned long>(character);
        }
    }
}

TEST(BadFragment, IsRefusedWithItsPlace) {
    for (const wchar_t* value :
         {L"text", L" ", L"<a>", L"<a></b>", L"<a/><b/>", L"<a/>t", L"&amp;", L"<!-- c -->", L"<a>&x;</a>", L"<a b=1/>",
          L"<a>\n</b>", L"<!DOCTYPE a><a/>", L"<!DOCTYPE a [<!ENTITY e \"f\">]><a>&e;</a>",
          L"<!DOCTYPE a SYSTEM \"/etc/passwd\"><a/>", L"<?xml version=\"1.0\"?>"}) {
        for (const auto& [section, key] : {std::pair{L"S", L"F"}, std::pair{L"S", L"New|Deep"}, std::pair{L"New", L"F"}}) {
            const Document document = smallDocument();
            const Untouched before(*document);
            const auto message =
                messageOf([&, s = section, k = key] { document->setStringItemAsDOMElement(s, k, value, L"1"); });
            EXPECT_TRUE(namesPlace(message, L"Error setItem:  XML message is: "))
                << std::string(message.begin(), message.end()) << "\n"
                << value;
            EXPECT_TRUE(before.unchanged()) << value;
        }
    }
}

TEST(BadFragment, KeepsTheDirtyFlagOfADirtyDocument) {
    ConfigInfo document;
    document.setDirty(true);
    (void)messageOf([&] { document.setStringItemAsDOMElement(L"S", L"A", L"<a>", L""); });
    EXPECT_TRUE(document.isDirty());
}

/// Whatever a setter accepts, the written document can be read again.
template <typename Set>
void expectReadableOrRefused(Set&& change) {
    ConfigInfo document;
    const Untouched before(document);
    try {
        change(document);
    } catch (const CorvaneException& exception) {
        EXPECT_STARTS_WITH(exception.getMessage(), L"Error setItem: ");
        EXPECT_FALSE(document.isDirty());
        EXPECT_EQ(reloaded(document)->getVersion(), XMLConfig::detail::latestFileVersion);
        return;
    }
    EXPECT_EQ(savedText(*reloaded(document)), savedText(document));
}

TEST(NamesOfADocument, AreReadableOrRefused) {
    for (const wchar_t* name : {L"p:a", L":a", L"a:", L"a:b:c", L":", L"xml:a", L"xmlns:a", L"xmlns", L"xml", L"\u00fc",
                                L"a\u00b7", L"_", L"\U00010000", L"\u0218x", L"\u20ac", L"a\u3000"}) {
        SCOPED_TRACE(::testing::PrintToString(std::wstring(name)));
        expectReadableOrRefused([name](ConfigInfo& d) { set(d, L"S", name, L"v"); });
        expectReadableOrRefused([name](ConfigInfo& d) { set(d, name, L"A", L"v"); });
        expectReadableOrRefused([name](ConfigInfo& d) { set(d, L"S", L"A", L"v", L"1", name, L"2"); });
        const Document declared = load("<ConfigInfo xmlns:p=\"urn:p\"><p:S/></ConfigInfo>");
        for (const std::wstring& key : {std::wstring(name), L"p:" + std::wstring(name)}) {
            try {
                set(*declared, L"p:S", key, L"v");
            } catch (const CorvaneException& exception) {
                EXPECT_STARTS_WITH(exception.getMessage(), L"Error setItem: ");
            }
            EXPECT_EQ(savedText(*reloaded(*declared)), savedText(*declared));
        }
    }
}

TEST(FragmentOfXml11, IsReadableOrRefused) {
    for (const wchar_t* text : {L"<?xml version=\"1.1\"?><a>&#1;</a>", L"<?xml version=\"1.1\"?><a b=\"&#x1f;\"/>",
                                L"<?xml version=\"1.1\"?><\u0218\u2c00/>", L"<?xml version=\"1.1\"?><a>&#x85;&#x2028;</a>",
                                L"<?xml version=\"1.1\"?><a>1</a>", L"<?xml version=\"1.0\"?><a>&#xfffd;&#x10000;</a>"})
        expectReadableOrRefused([text](ConfigInfo& d) { d.setStringItemAsDOMElement(L"S", L"A", text, L""); });
}

TEST(FragmentsOfADocument, MayDeclareTheirOwnPrefixes) {
    for (const wchar_t* text :
         {L"<p:a xmlns:p=\"urn:p\" p:k=\"1\"><p:b/></p:a>", L"<a xmlns=\"urn:a\"><b xmlns=\"\"/></a>"}) {
        ConfigInfo document;
        document.setStringItemAsDOMElement(L"S", L"A", text, L"");
        EXPECT_EQ(savedText(*reloaded(document)), savedText(document));
        ConfigInfo other;
        other.setStringItemAsDOMElement(L"S", L"A", fragment(document, L"S", L"A"), L"");
        EXPECT_EQ(savedText(other), savedText(document));
    }
}

TEST(DepthOfADocument, IsLimitedForFragments) {
    for (const int levels : {900, 997, 998, 999, 1000, 1001, 3000})
        expectReadableOrRefused(
            [levels](ConfigInfo& d) { d.setStringItemAsDOMElement(L"S", L"A", nestedElement(levels), L""); });
    ConfigInfo document;
    document.setStringItemAsDOMElement(L"S", L"A", nestedElement(997), L"");
    EXPECT_EQ(savedText(*reloaded(document)), savedText(document));
}

TEST(DepthOfADocument, IsLimitedForKeys) {
    for (const int parts : {900, 998, 999, 1500}) {
        std::wstring key = L"a";
        for (int i = 1; i < parts; ++i) key += L"|a";
        expectReadableOrRefused([&key](ConfigInfo& d) { set(d, L"S", key, L"v"); });
        expectReadableOrRefused([&key](ConfigInfo& d) { set(d, L"S", key, L"v", L"", L"T", L"t"); });
    }
}

}  // namespace storetests
