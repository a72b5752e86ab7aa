#include <atomic>
#include <thread>

#include "store/ConfigInfoFactory.h"
#include "store/ElementView.h"
#include "tests/store/StoreSupport.h"
#include "tests/support/CurrentFile.h"

namespace storetests {

namespace {

/// Runs `work(number of the thread)` in several threads at once and counts those that end without a failure.
template <typename Work>
int runInThreads(int count, Work work) {
    std::atomic<int> good{0};
    std::vector<std::thread> threads;
    for (int number = 0; number < count; ++number)
        threads.emplace_back([&good, work, number] {
            try {
                if (work(number)) ++good;
            } catch (const std::exception&) {
            }
        });
    for (auto& thread : threads) thread.join();
    return good;
}

bool roundTrip(const std::wstring& path, const std::wstring& value) {
    ConfigInfo document;
    set(document, L"S", L"A|B", value, value, L"T", L"t");
    document.setDoubleItem(L"S", L"D", 1.5, value);
    document.setStringItemAsDOMElement(L"S", L"F", L"<d><e>1</e></d>", value);
    if (!document.save(path)) return false;
    const ConfigInfo again(path);
    return get(again, L"S", L"A|B", value, L"T", L"t") == value && again.getDoubleItem(L"S", L"D", 0, value) == 1.5 &&
           get(again, L"S", L"F|d|e", value) == L"1" && again.getVersion() == XMLConfig::detail::latestFileVersion;
}

}  // namespace

TEST(Threads, MakeUseSaveAndDestroyDocumentsAtOnce) {
    const TemporaryFolder folder;
    const int good = runInThreads(6, [&folder](int number) {
        for (int i = 0; i < 40; ++i)
            if (!roundTrip(folder.file(std::to_wstring(number) + L".skorrax"), std::to_wstring(number * 1000 + i)))
                return false;
        return true;
    });
    EXPECT_EQ(good, 6);
    EXPECT_EQ(folder.entries(), 6u);
}

TEST(Threads, ShareTheFactory) {
    const TemporaryFolder folder;
    const auto path = folder.write(L"a.skorrax", currentFile("<S><A>1</A></S>"));
    ConfigInfoFactory* const factory = ConfigInfoFactory::getInstance();
    const int good = runInThreads(4, [&](int) {
        for (int i = 0; i < 50; ++i) {
            const Document loaded(factory->createFromFile(path));
            const Document made(factory->createNew());
            made->insertBuildDateAndNumber();
            if (get(*loaded, L"S", L"A") != L"1" || XMLConfig::rootElement(*made).child(L"DevelopedBy").next()) return false;
        }
        return true;
    });
    EXPECT_EQ(good, 4);
}

TEST(Threads, FailAtOnce) {
    const TemporaryFolder folder;
    const auto bad = folder.write(L"bad.skorrax", "<ConfigInfo><A>");
    const int good = runInThreads(4, [&](int) {
        for (int i = 0; i < 50; ++i) {
            try {
                const ConfigInfo document(bad);
                return false;
            } catch (const CorvaneException& exception) {
                if (!startsWith(exception.getMessage(), L"Error parseDataFile: Error during parsing: ")) return false;
            }
            ConfigInfo document;
            try {
                document.save(folder.file(L"none/a.skorrax"));
                return false;
            } catch (const CorvaneException&) {
            }
        }
        return true;
    });
    EXPECT_EQ(good, 4);
}

TEST(Threads, MayPassADocumentOn) {
    auto document = std::make_unique<ConfigInfo>();
    for (int i = 0; i < 10; ++i) {
        std::thread([&document, i] { set(*document, L"S", L"A" + std::to_wstring(i), L"v"); }).join();
    }
    EXPECT_EQ(get(*document, L"S", L"A9"), L"v");
    std::thread([&document] { document.reset(); }).join();
    EXPECT_EQ(ConfigInfo().getVersion(), XMLConfig::detail::latestFileVersion);
}

}  // namespace storetests
