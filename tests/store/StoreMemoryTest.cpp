#include <cstdio>

#include "tests/store/StoreSupport.h"

// A sanitizer holds freed memory back, so that the process's size tells nothing.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define XMLCONFIG_TESTS_SIZE_TELLS_NOTHING
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define XMLCONFIG_TESTS_SIZE_TELLS_NOTHING
#endif
#endif

#if defined(__linux__) && !defined(XMLCONFIG_TESTS_SIZE_TELLS_NOTHING)

namespace storetests {

namespace {

long residentPages() {
    std::FILE* const file = std::fopen("/proc/self/statm", "r");
    long all = 0, resident = 0;
    if (!file || std::fscanf(file, "%ld %ld", &all, &resident) != 2) resident = -1;
    if (file) std::fclose(file);
    return resident;
}

}  // namespace

TEST(StoreMemory, DoesNotGrowWithAMillionReads) {
    ConfigInfo document;
    set(document, L"S", L"A|B", std::wstring(200, L'x'), L"1", L"", L"");
    set(document, L"S", L"C", L"12.5", L"1");
    document.setStringItemAsDOMElement(L"S", L"F", L"<d><e>1</e></d>", L"1");
    const auto reads = [&document](int count) {
        for (int i = 0; i < count; ++i) {
            (void)get(document, L"S", L"A|B", L"1");
            (void)get(document, L"S", L"A", L"1");
            (void)document.getDoubleItem(L"S", L"C", 0, L"1");
            (void)document.getIntegerItem(L"S", L"C", 0, L"1");
        }
    };
    reads(1000);
    const long before = residentPages();
    ASSERT_GT(before, 0);
    reads(250000);
    EXPECT_LT(residentPages() - before, 512) << "pages";
}

TEST(StoreMemory, DoesNotGrowWithEqualWritesAndFragments) {
    ConfigInfo document;
    const auto work = [&document](int count) {
        for (int i = 0; i < count; ++i) {
            set(document, L"S", L"A", std::wstring(200, L'x'), L"1");
            (void)fragment(document, L"S", L"F", L"1");
            (void)document.getVersion();
        }
    };
    document.setStringItemAsDOMElement(L"S", L"F", L"<d><e>1</e></d>", L"1");
    work(1000);
    const long before = residentPages();
    work(50000);
    EXPECT_LT(residentPages() - before, 512) << "pages";
}

TEST(StoreMemory, DoesNotGrowWithReadsBetweenWrites) {
    ConfigInfo document;
    const auto work = [&document](int count) {
        for (int i = 0; i < count; ++i) {
            set(document, L"S", L"A", std::wstring(static_cast<std::size_t>(i % 100 + 1), L'x'), L"1");
            EXPECT_EQ(get(document, L"S", L"A", L"1").size(), static_cast<std::size_t>(i % 100 + 1));
        }
    };
    work(1000);
    const long before = residentPages();
    work(200000);
    EXPECT_LT(residentPages() - before, 512) << "pages";
}

// Each element that is made leaves 64 bytes with the XML library, a text of an item would leave four times that.
TEST(StoreMemory, KeepsNoTextsOfItemsThatAreReadAndRemoved) {
    ConfigInfo document;
    set(document, L"S", L"Other", L"kept", L"1");
    const auto work = [&document](int count) {
        for (int i = 0; i < count; ++i) {
            set(document, L"S", L"A", std::wstring(100, L'x'), L"1");
            EXPECT_EQ(get(document, L"S", L"A", L"1").size(), 100u);
            EXPECT_TRUE(document.removeItem(L"S", L"A", L"1"));
        }
    };
    work(1000);
    const long before = residentPages();
    work(100000);
    EXPECT_LT(residentPages() - before, 2500) << "pages";
}

TEST(StoreMemory, DoesNotGrowWithElementsThatAreRefused) {
    ConfigInfo document;
    const std::string open = "<device><a x=\"1\">" + std::string(200, 'x') + "</a>";
    const std::wstring value(open.begin(), open.end());
    const auto work = [&](int count) {
        for (int i = 0; i < count; ++i)
            EXPECT_THROW(document.setStringItemAsDOMElement(L"S", L"A", value, L"1"), CorvaneException);
    };
    work(200);
    const long before = residentPages();
    work(5000);
    EXPECT_LT(residentPages() - before, 512) << "pages";
}

TEST(StoreMemory, DoesNotGrowWithTheNamesInFilesThatAreLoaded) {
    const TemporaryFolder folder;
    int names = 0;
    const auto work = [&](int count) {
        for (int i = 0; i < count; ++i) {
            std::string text = "<ConfigInfo>";
            for (int j = 0; j < 200; ++j) text += "<K" + std::to_string(++names) + "/>";
            (void)ConfigInfo(folder.write(L"a.skorrax", text + "</ConfigInfo>"));
        }
    };
    work(20);
    const long before = residentPages();
    work(500);
    EXPECT_LT(residentPages() - before, 512) << "pages";
}

TEST(StoreMemory, DoesNotGrowWithTheNamesInElementsThatAreStored) {
    ConfigInfo document;
    int names = 0;
    const auto work = [&](int count) {
        for (int i = 0; i < count; ++i) {
            std::wstring text = L"<device>";
            for (int j = 0; j < 200; ++j) text += L"<K" + std::to_wstring(++names) + L"/>";
            document.setStringItemAsDOMElement(L"S", L"A", text + L"</device>", L"1");
        }
    };
    work(100);
    const long before = residentPages();
    work(1000);
    EXPECT_LT(residentPages() - before, 2048) << "pages";
}

TEST(StoreMemory, GrowsWithTheItemsAndNotWithTheSectionsTimesTheKeys) {
    std::string text = "<ConfigInfo>";
    int key = 0;
    for (int i = 0; i < 2000; ++i) {
        text += "<P ID=\"" + std::to_string(i) + "\">";
        for (int j = 0; j < 20; ++j, ++key)
            text += "<K" + std::to_string(key) + ">" + std::to_string(key) + "</K" + std::to_string(key) + ">";
        text += "</P>";
    }
    const Document document = load(text + "</ConfigInfo>");
    const long before = residentPages();
    for (int i = 0; i < 2000; ++i) {
        const auto ofSection = L"K" + std::to_wstring(20 * i + 19);
        EXPECT_EQ(document->getIntegerItem(L"P", ofSection, -1, std::to_wstring(i)), 20 * i + 19);
        EXPECT_EQ(document->getIntegerItem(L"P", ofSection, -1, std::to_wstring((i + 1) % 2000)), -1);
    }
    EXPECT_LT(residentPages() - before, 8192) << "pages";
}

TEST(StoreMemory, IsGivenBackWithTheDocument) {
    const auto live = [] {
        ConfigInfo document;
        for (int i = 0; i < 200; ++i) set(document, L"S", L"A", std::wstring(5000, L'x'), std::to_wstring(i));
    };
    for (int i = 0; i < 5; ++i) live();
    const long before = residentPages();
    for (int i = 0; i < 50; ++i) live();
    EXPECT_LT(residentPages() - before, 2048) << "pages";
}

}  // namespace storetests

#endif
