#include "store/Document.h"
#include "store/DocumentWriter.h"
#include "tests/store/StoreSupport.h"
#include "tests/support/LogCapture.h"

namespace fs = std::filesystem;

namespace storetests {

// The writer copies several characters at once, so that each length and each place in a text is another case.
TEST(SavedText, OfAnyLengthHasItsSpecialCharactersAtAnyPlace) {
    const std::pair<wchar_t, std::string> specials[] = {
        {L'&', "&amp;"}, {L'<', "&lt;"}, {L'\x7F', "\x7F"}, {L'\xE4', "\xC3\xA4"}, {L'\x2026', "\xE2\x80\xA6"}};
    for (const auto& [special, written] : specials) {
        const Document document = smallDocument();
        std::vector<std::string> lines;
        for (std::size_t length = 1; length < 40; ++length) {
            for (std::size_t place = 0; place < length; ++place) {
                const std::wstring value = std::wstring(place, L'x') + special + std::wstring(length - place - 1, L'y');
                const std::string number = std::to_string(lines.size());
                document->setStringItem(L"S", L"V" + std::to_wstring(lines.size()), value, L"1", L"", L"");
                lines.push_back("<V" + number + ">" + std::string(place, 'x') + written +
                                std::string(length - place - 1, 'y') + "</V" + number + ">\n");
            }
        }
        const std::string saved = savedText(*document);
        for (const std::string& line : lines) ASSERT_TRUE(contains(saved, line)) << line;
    }
}

TEST(SavedText, HasNamesOfAnyLengthInItsTags) {
    const Document document = smallDocument();
    for (std::size_t length = 1; length < 120; ++length)
        document->setStringItem(L"S", std::wstring(length, L'n'), L"v", L"1", L"", L"");
    const std::string saved = savedText(*document);
    for (std::size_t length = 1; length < 120; ++length) {
        const std::string name(length, 'n');
        EXPECT_CONTAINS(saved, "\n    <" + name + ">v</" + name + ">\n");
    }
}

TEST(SavedText, IsIndentedByTwoBlanksALevelHoweverDeep) {
    std::string text = "<V>x</V>";
    std::string begins;
    std::string ends;
    for (std::size_t level = 1; level < 100; ++level) {
        const std::string blanks(2 * level, ' ');
        text = "<L>" + text + "</L>";
        begins += blanks + "<L>\n";
        ends.insert(0, blanks + "</L>\n");
    }
    const std::string value = std::string(200, ' ') + "<V>x</V>\n";
    EXPECT_EQ(savedText(*load("<ConfigInfo>" + text + "</ConfigInfo>")), savedRoot(begins + value + ends));
}

TEST(Save, ClearsTheDirtyFlag) {
    const TemporaryFolder folder;
    ConfigInfo document;
    document.setDirty(true);
    EXPECT_TRUE(document.save(folder.file(L"a.skorrax")));
    EXPECT_FALSE(document.isDirty());
    EXPECT_EQ(folder.entries(), 1u);
}

TEST(Save, DoesNothingForAnEmptyPath) {
    ConfigInfo document;
    for (const bool dirty : {false, true}) {
        document.setDirty(dirty);
        EXPECT_FALSE(document.save(L""));
        EXPECT_EQ(document.isDirty(), dirty);
    }
}

TEST(Save, WritesWhatIsLoadedBack) {
    const TemporaryFolder folder;
    const auto path = folder.file(L"a.skorrax");
    ConfigInfo document;
    set(document, L"Projector", L"Designed|Name", L"\u00fc & <\u65e5\u672c> \U0001F3A5", L"1");
    EXPECT_TRUE(document.save(path));
    EXPECT_EQ(get(ConfigInfo(path), L"Projector", L"Designed|Name", L"1"), L"\u00fc & <\u65e5\u672c> \U0001F3A5");
}

TEST(Save, ReplacesALongerFile) {
    const TemporaryFolder folder;
    const auto path = folder.write(L"a.skorrax", std::string(100000, 'x'));
    ConfigInfo document;
    EXPECT_TRUE(document.save(path));
    EXPECT_EQ(folder.read(L"a.skorrax"), savedText(document));
    EXPECT_EQ(folder.entries(), 1u);
}

TEST(Save, HandsOnALargeDocumentInPieces) {
    ConfigInfo document;
    for (int id = 1; id <= 300; ++id) {
        const std::wstring text(1000, static_cast<wchar_t>(L'a' + id % 26));
        set(document, L"Projector", L"Designed|Name", text, std::to_wstring(id));
    }
    std::vector<std::string> pieces;
    XMLConfig::detail::writeDocument(XMLConfig::detail::Document::of(document).tree(),
                                     [&pieces](std::string_view piece) { pieces.emplace_back(piece); });
    ASSERT_GT(pieces.size(), 3u);
    std::string all;
    for (const std::string& piece : pieces) {
        EXPECT_LT(piece.size(), 70000u);
        all += piece;
    }
    const TemporaryFolder folder;
    document.save(folder.file(L"a.skorrax"));
    EXPECT_EQ(folder.read(L"a.skorrax"), all);
    const ConfigInfo loaded(folder.file(L"a.skorrax"));
    for (int id = 1; id <= 300; ++id) {
        EXPECT_EQ(get(loaded, L"Projector", L"Designed|Name", std::to_wstring(id)),
                  get(document, L"Projector", L"Designed|Name", std::to_wstring(id)));
    }
}

TEST(Save, CanBeRepeated) {
    const TemporaryFolder folder;
    ConfigInfo document;
    EXPECT_TRUE(document.save(folder.file(L"a.skorrax")));
    EXPECT_TRUE(document.save(folder.file(L"a.skorrax")));
    EXPECT_TRUE(document.save(folder.file(L"b.skorrax")));
    EXPECT_EQ(folder.read(L"a.skorrax"), folder.read(L"b.skorrax"));
}

TEST(Save, WritesTwoSpacesALevelAndNoBlankLine) {
    const Document document =
        load("<ConfigInfo>\n\n<Version>1</Version>\r\n\t<S   ID='1'><A><B>x</B></A>\n\n\n</S></ConfigInfo>");
    EXPECT_EQ(savedText(*document),
              savedRoot("  <Version>1</Version>\n  <S ID=\"1\">\n    <A>\n      <B>x</B>\n    </A>\n  </S>\n"));
}

TEST(Save, FailsAsAnExceptionAndStaysDirty) {
    const TemporaryFolder folder;
    ConfigInfo document;
    set(document, L"S", L"A", L"1");
    const auto message = messageOf([&] { document.save(folder.file(L"no such folder/a.skorrax")); });
    EXPECT_STARTS_WITH(message, L"Error save(): An error occurred trying to save DOM tree to file. Msg is:");
    EXPECT_GT(message.size(),
              std::wstring(L"Error save(): An error occurred trying to save DOM tree to file. Msg is:").size());
    EXPECT_TRUE(document.isDirty());
    EXPECT_EQ(folder.entries(), 0u);
}

TEST(Save, LogsItsFailureAsAWarning) {
    const TemporaryFolder folder;
    const LogCapture log;
    ConfigInfo document;
    const auto message = messageOf([&] { document.save(folder.file(L"none/a.skorrax")); });
    EXPECT_TRUE(document.save(folder.file(L"good.skorrax")));
    EXPECT_FALSE(document.save(L""));
    ASSERT_EQ(log.lines().size(), 1u);
    EXPECT_EQ(log.lines()[0], (LogLine{"Ulvano.XMLConfig.ConfigInfo", "WARN", XMLConfig::detail::toUtf8(message)}));
}

#ifndef _WIN32

TEST(Save, KeepsTheTargetsPermissions) {
    const TemporaryFolder folder;
    const auto path = folder.write(L"a.skorrax", "old");
    fs::permissions(pathOf(path), fs::perms(0640));
    ConfigInfo document;
    EXPECT_TRUE(document.save(path));
    EXPECT_EQ(fs::status(pathOf(path)).permissions(), fs::perms(0640));
}

TEST(Save, FollowsASymbolicLink) {
    const TemporaryFolder folder;
    folder.write(L"real.skorrax", "old");
    fs::create_symlink("real.skorrax", folder.path() / "link.skorrax");
    ConfigInfo document;
    EXPECT_TRUE(document.save(folder.file(L"link.skorrax")));
    EXPECT_TRUE(fs::is_symlink(folder.path() / "link.skorrax"));
    EXPECT_EQ(folder.read(L"real.skorrax"), savedText(document));
    EXPECT_EQ(folder.entries(), 2u);
}

TEST(Save, MakesTheTargetOfADanglingLink) {
    const TemporaryFolder folder;
    fs::create_symlink("real.skorrax", folder.path() / "link.skorrax");
    ConfigInfo document;
    EXPECT_TRUE(document.save(folder.file(L"link.skorrax")));
    EXPECT_TRUE(fs::is_symlink(folder.path() / "link.skorrax"));
    EXPECT_EQ(folder.read(L"real.skorrax"), savedText(document));
}

TEST(Save, WritesToADevice) {
    ConfigInfo document;
    document.setDirty(true);
    EXPECT_TRUE(document.save(L"/dev/null"));
    EXPECT_FALSE(document.isDirty());
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

#endif

}  // namespace storetests
