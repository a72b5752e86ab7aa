#include <functional>
#include <random>

#include "tests/store/ReferenceStore.h"
#include "tests/store/StoreSupport.h"

namespace storetests {

namespace {

const std::vector<std::wstring> sections{L"Alpha", L"Beta", L"Gamma", L"alpha"};
const std::vector<std::wstring> ids{L"", L"", L"1", L"2", L"3", L"x y"};
const std::vector<std::wstring> subSections{L"Slot", L"Mode", L"k1"};
const std::vector<std::wstring> keys{L"k1", L"k2", L"k1|a", L"k1|b", L"k2|a|b", L"Slot", L"Slot|v", L"Mode|k1", L"k3"};
const std::vector<std::wstring> values{L"", L"x", L"1", L" y ", L"\u00fc\u65e5", L"long text of several words", L"<&>"};

/// The same random steps on a document and on its reference; every result and, now and then, the whole are compared.
class Walk {
public:
    Walk(unsigned seed, Document document) : m_random(seed), m_document(std::move(document)) {
        m_document = reloaded(*m_document);
        m_reference.take(XMLConfig::tests::outline(*m_document));
        m_reference.layOut();
    }

    void run(int steps) {
        for (m_step = 0; m_step < steps && !testing::Test::HasFailure(); ++m_step) {
            step();
            EXPECT_EQ(m_document->isDirty(), m_reference.dirty) << "step " << m_step << ": " << m_last;
            if (m_step % 97 == 0) compareAll();
            if (m_step % 1009 == 1008) reload();
            if (m_step % 701 == 700) fillWithWaste();
            if (m_random() % 16 == 0) clean();
        }
        compareAll();
    }

private:
    using Address = ReferenceStore::Address;

    const std::wstring& any(const std::vector<std::wstring>& of) { return of[m_random() % of.size()]; }
    Address section() { return {any(sections), any(ids), L"", L""}; }
    Address subSection() { return {any(sections), any(ids), any(subSections), any(ids)}; }
    Address home() { return m_random() % 3 == 0 ? subSection() : section(); }

    template <typename Result>
    void same(const char* operation, const Result& actual, const Result& expected) {
        m_last = operation;
        EXPECT_EQ(actual, expected) << "step " << m_step << ": " << operation;
    }

    void step() {
        switch (m_random() % 24) {
            case 0:
            case 1:
            case 2:
            case 3:
                return setText();
            case 4:
                return setFragment();
            case 5:
                return removeItem();
            case 6:
                return removeSection();
            case 7:
                return removeSubSection();
            case 8:
                return rename();
            case 9:
                return move();
            case 10:
                return counts();
            case 11:
                return exists();
            default:
                return getText();
        }
    }
    void getText() {
        const Address at = home();
        const auto key = any(keys);
        same("get", get(*m_document, at.section, key, at.id, at.subSection, at.subID),
             m_reference.get(at, key, L"(default)"));
    }
    void setText() {
        const Address at = home();
        const auto key = any(keys), value = any(values);
        m_last = "set";
        set(*m_document, at.section, key, value, at.id, at.subSection, at.subID);
        m_reference.set(at, key, value);
    }
    void setFragment() {
        const Address at = section();
        const auto key = any(keys);
        const std::wstring text = m_random() % 2 ? L"f" : L"g";
        m_last = "fragment";
        m_document->setStringItemAsDOMElement(at.section, key, L"<a>" + text + L"</a>", at.id);
        m_reference.setElement(at, key, L"a", text);
    }
    void removeItem() {
        const Address at = section();
        std::wstring key = any(keys);
        if (key.find(L'|') != std::wstring::npos && m_reference.hasItem(at, key)) key = L"k1";
        same("removeItem", m_document->removeItem(at.section, key, at.id), m_reference.removeItem(at, key));
    }
    void removeSection() {
        const Address at = section();
        same("removeSection", m_document->removeSection(at.section, at.id), m_reference.removeSection(at));
    }
    void removeSubSection() {
        const Address at = subSection();
        same("removeSubSection", m_document->removeSubSection(at.section, at.subSection, at.id, at.subID),
             m_reference.removeSubSection(at));
    }
    void rename() {
        const auto name = any(sections), from = any(ids), to = any(ids);
        same("renameSection", m_document->renameSection(name, from, to), m_reference.rename(name, from, to));
    }
    void move() {
        const auto name = any(sections), id = any(ids);
        const int direction = static_cast<int>(m_random() % 4) - 1;
        same("moveSection", m_document->moveSection(direction, name, id), m_reference.move(direction, name, id));
    }
    void counts() {
        const auto name = any(sections), sub = any(subSections);
        same("getSectionCount", m_document->getSectionCount(name), m_reference.count(name));
        same("getSectionIDs", m_document->getSectionIDs(name), m_reference.ids(name));
        same("getSubSectionCount", m_document->getSubSectionCount(name, sub), m_reference.subCount(name, sub));
        same("getSubSectionIDs", m_document->getSubSectionIDs(name, sub), m_reference.subIds(name, sub));
    }
    void exists() {
        const Address at = subSection();
        const auto key = any(keys);
        same("doesSectionExist", m_document->doesSectionExist(at.section, at.id), m_reference.hasSection(at));
        same("doesSubSectionExist", m_document->doesSubSectionExist(at.section, at.subSection, at.id, at.subID),
             m_reference.hasSubSection(at));
        same("doesItemExist", m_document->doesItemExist(at.section, key, at.id), m_reference.hasItem(at, key));
    }
    void clean() {
        m_document->setDirty(false);
        m_reference.dirty = false;
    }
    void compareAll() {
        EXPECT_EQ(described(XMLConfig::tests::outline(*m_document)), described(m_reference.outline()))
            << "step " << m_step << ", last " << m_last;
    }
    /// Enough of it to have the tree copied.
    void fillWithWaste() {
        for (int i = 0; i < 800; ++i) {
            set(*m_document, L"Waste", L"A", std::wstring(600, L'x'));
            EXPECT_TRUE(m_document->removeSection(L"Waste", L""));
        }
        m_reference.dirty = true;
        compareAll();
    }
    void reload() {
        m_document = reloaded(*m_document);
        m_reference.dirty = false;
        m_reference.layOut();
        compareAll();
    }

    std::mt19937 m_random;
    Document m_document;
    ReferenceStore m_reference;
    int m_step = 0;
    const char* m_last = "";
};

/// A section with many subsections of few IDs, and a group of many keys: both are found by lists of their own.
std::string crowdedInside() {
    std::string text = "<ConfigInfo><Alpha ID=\"1\">";
    for (int i = 0; i < 120; ++i) {
        const char* const attributes[] = {"", " ID=\"1\"", " ID=\"2\"", " ID=\"3\"", " ID=\"x y\""};
        text += std::string("<Slot") + attributes[i % 5] + "><k1>" + std::to_string(i) + "</k1></Slot>";
    }
    text += "<k1>";
    for (int i = 0; i < 60; ++i) text += "<z" + std::to_string(i) + "/>";
    text += "<b>1</b><b>2</b></k1><k1><a>3</a></k1></Alpha><Beta ID=\"2\"><Mode><k1>";
    for (int i = 0; i < 60; ++i) text += "<z" + std::to_string(i) + "/>";
    return text + "<a>4</a></k1></Mode></Beta></ConfigInfo>";
}

/// Sections of so many keys that those that are asked for come after all that have places of their own.
std::string manyKeys() {
    std::string text = "<ConfigInfo>";
    for (const char* section : {"<Alpha>", "<Alpha ID=\"1\">", "<Beta ID=\"2\">", "<Gamma>"}) {
        text += section;
        for (int i = 0; i < 600; ++i) text += "<f" + std::to_string(i) + "/>";
        text += "<k1>1</k1><Slot ID=\"1\"><v>2</v></Slot><k1><a>3</a></k1><Slot ID=\"2\"/></";
        text += std::string(section).substr(1, std::string(section).find_first_of(" >") - 1) + ">";
    }
    return text + "</ConfigInfo>";
}

const char* const crowded =
    "<ConfigInfo>\n  <Version>9.000</Version>\n  <Alpha/>\n  <Alpha ID=\"1\"><k1>a</k1><Slot "
    "ID=\"2\"><k1>b</k1></Slot></Alpha>\n"
    "  <Alpha ID=\"1\"><Slot ID=\"1\"/><Slot ID=\"2\"><k1>c</k1></Slot><Slot><k2>d</k2></Slot></Alpha>\n  <Beta ID=\"\"/>\n"
    "  <Beta/>\n  <Other><Alpha ID=\"3\"/></Other>\n  <Beta ID=\"x y\"><k1><a>e</a><b/></k1><k1><b>f</b></k1></Beta>\n"
    "  <Alpha ID=\"2\"><k2><a/><a><b>g</b></a></k2></Alpha>\n  <Gamma ID=\"3\"><Mode ID=\"\"><k3/></Mode></Gamma>\n"
    "  <Gamma ID=\"3\"><Mode><k3>h</k3></Mode></Gamma>\n  <alpha><k1>i</k1></alpha>\n</ConfigInfo>\n";

class SectionIndexRandom : public testing::TestWithParam<unsigned> {};

}  // namespace

TEST_P(SectionIndexRandom, GivesWhatAWalkInDocumentOrderGivesFromNew) {
    SCOPED_TRACE("seed " + std::to_string(GetParam()));
    Walk(GetParam(), std::make_unique<ConfigInfo>()).run(6000);
}

TEST_P(SectionIndexRandom, GivesWhatAWalkInDocumentOrderGivesFromAFile) {
    SCOPED_TRACE("seed " + std::to_string(GetParam()));
    Walk(GetParam() + 1000, load(crowded)).run(6000);
}

TEST_P(SectionIndexRandom, GivesWhatAWalkInDocumentOrderGivesFromManyOfAName) {
    SCOPED_TRACE("seed " + std::to_string(GetParam()));
    Walk(GetParam() + 2000, load(crowdedInside())).run(3000);
}

TEST_P(SectionIndexRandom, GivesWhatAWalkInDocumentOrderGivesFromManyKeys) {
    SCOPED_TRACE("seed " + std::to_string(GetParam()));
    Walk(GetParam() + 3000, load(manyKeys())).run(2000);
}

INSTANTIATE_TEST_SUITE_P(Seeds, SectionIndexRandom, testing::Values(1u, 2u, 3u, 20190311u));

}  // namespace storetests
