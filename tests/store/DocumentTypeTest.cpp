#include "tests/store/BadFileSupport.h"

#ifdef __linux__
#include <fcntl.h>
#include <sys/inotify.h>
#endif

namespace storetests {

TEST(DocumentType, IsRefused) {
    for (const char* type :
         {"<!DOCTYPE ConfigInfo>", "<!DOCTYPE ConfigInfo []>", "<!DOCTYPE ConfigInfo [<!ELEMENT ConfigInfo ANY>]>",
          "<!DOCTYPE ConfigInfo [<!ENTITY a \"b\">]>", "<!DOCTYPE ConfigInfo SYSTEM \"none.dtd\">",
          "<!DOCTYPE ConfigInfo PUBLIC \"-//x\" \"http://127.0.0.1:1/x.dtd\">",
          "<?xml version=\"1.0\"?>\n<!-- c -->\n<!DOCTYPE x [<!ATTLIST ConfigInfo a CDATA \"b\">]>"})
        expectMalformed(std::string(type) + "<ConfigInfo><S><A>1</A></S></ConfigInfo>", type);
}

TEST(DocumentType, OfABillionLaughsIsRefusedAtOnce) {
    std::string type = "<!DOCTYPE ConfigInfo [<!ENTITY l0 \"lol\">";
    for (int i = 1; i < 30; ++i) {
        type += "<!ENTITY l" + std::to_string(i) + " \"";
        for (int k = 0; k < 10; ++k) type += "&l" + std::to_string(i - 1) + ";";
        type += "\">";
    }
    expectMalformed(type + "]><ConfigInfo><S><A>&l29;</A></S></ConfigInfo>", "entities");
    std::string parameters = "<!DOCTYPE ConfigInfo [<!ENTITY % a \"<!ENTITY b 'c'>\"> %a;]>";
    expectMalformed(parameters + "<ConfigInfo>&b;</ConfigInfo>", "parameter entities");
}

#ifdef __linux__

TEST(DocumentType, NeverOpensAnotherFile) {
    const TemporaryFolder folder;
    const TemporaryFolder other;
    other.write(L"secret.txt", "secret");
    other.write(L"outer.dtd", "<!ENTITY e \"from outside\">");
    const std::string secret = (other.path() / "secret.txt").string();
    const std::string outer = (other.path() / "outer.dtd").string();
    const int watch = inotify_init1(IN_NONBLOCK);
    ASSERT_GE(watch, 0);
    ASSERT_GE(inotify_add_watch(watch, other.path().c_str(), IN_OPEN | IN_ACCESS), 0);
    for (const std::string& text :
         {"<!DOCTYPE ConfigInfo [<!ENTITY e SYSTEM \"" + secret + "\">]><ConfigInfo><S><A>&e;</A></S></ConfigInfo>",
          "<!DOCTYPE ConfigInfo [<!ENTITY e SYSTEM \"file://" + secret + "\">]><ConfigInfo>&e;</ConfigInfo>",
          "<!DOCTYPE ConfigInfo SYSTEM \"" + outer + "\"><ConfigInfo><S><A>&e;</A></S></ConfigInfo>",
          "<!DOCTYPE ConfigInfo [<!ENTITY % e SYSTEM \"" + outer + "\"> %e;]><ConfigInfo>&e;</ConfigInfo>"}) {
        const auto message = loadMessage(folder.write(L"a.skorrax", text));
        EXPECT_STARTS_WITH(message, L"Error parseDataFile: Error during parsing: ");
        EXPECT_FALSE(contains(message, L"from outside"));
        ConfigInfo document;
        const std::wstring wide(text.begin(), text.end());
        (void)messageOf([&] { document.setStringItemAsDOMElement(L"S", L"A", wide, L""); });
    }
    const std::string schema =
        "<ConfigInfo xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
        "xsi:noNamespaceSchemaLocation=\"" +
        outer + "\"><S><A>1</A></S></ConfigInfo>";
    EXPECT_EQ(get(*load(schema), L"S", L"A"), L"1");
    char event[4096];
    EXPECT_LT(read(watch, event, sizeof event), 0) << "a file beside the document was opened";
    EXPECT_GE(open(secret.c_str(), O_RDONLY | O_CLOEXEC), 0);
    EXPECT_GT(read(watch, event, sizeof event), 0) << "the watch does not work";
    close(watch);
}

#endif

}  // namespace storetests
