#include "fuzz/FuzzFile.h"
#include "store/CorvaneException.h"
#include "tests/store/ReferenceStore.h"

namespace {

using storetests::ReferenceStore;

const std::vector<std::wstring> sections{L"Alpha", L"Beta", L"alpha"};
const std::vector<std::wstring> ids{L"", L"1", L"2", L"x y"};
const std::vector<std::wstring> subSections{L"Slot", L"Mode", L"k1"};
const std::vector<std::wstring> keys{L"k1", L"k2", L"k1|a", L"k2|a|b", L"Slot", L"Slot|v", L"Mode|k1"};

/// The same operations on a document and on its reference.
class Sequence {
public:
    explicit Sequence(Input& input) : m_input(input) {
        m_document = std::make_unique<ConfigInfo>(fuzzFile(savedText(*m_document)));
        m_reference.take(XMLConfig::tests::outline(*m_document));
        m_reference.layOut();
    }

    void run() {
        while (!m_input.isOver()) {
            step();
            require(m_document->isDirty() == m_reference.dirty, "the dirty flag is the reference's");
        }
        compareAll();
    }

private:
    using Address = ReferenceStore::Address;

    Address section() { return {m_input.anyOf(sections), m_input.anyOf(ids), L"", L""}; }
    Address subSection() {
        return {m_input.anyOf(sections), m_input.anyOf(ids), m_input.anyOf(subSections), m_input.anyOf(ids)};
    }
    Address home() { return m_input.byte() % 2 == 0 ? subSection() : section(); }

    void step() {
        switch (m_input.byte() % 12) {
            case 0:
            case 1:
            case 2:
                return setText();
            case 3:
            case 4:
                return getText();
            case 5:
                return setElement();
            case 6:
                return removeItem();
            case 7:
                return removeSections();
            case 8:
                return rename();
            case 9:
                return move();
            case 10:
                return count();
            default:
                return reload();
        }
    }
    void getText() {
        const Address at = home();
        const std::wstring& key = m_input.anyOf(keys);
        require(m_document->getStringItem(at.section, key, L"-", at.id, at.subSection, at.subID) ==
                    m_reference.get(at, key, L"-"),
                "a value is the reference's");
    }
    void setText() {
        const Address at = home();
        const std::wstring& key = m_input.anyOf(keys);
        // A value of nothing but layout is where the reference is simpler than the store.
        const std::wstring value = m_input.byte() % 4 == 0 ? L"" : L"v" + m_input.text();
        try {
            m_document->setStringItem(at.section, key, value, at.id, at.subSection, at.subID);
        } catch (const CorvaneException&) {
            return;  // a value that XML cannot hold changes nothing
        }
        m_reference.set(at, key, value);
    }
    void setElement() {
        const Address at = section();
        const std::wstring& key = m_input.anyOf(keys);
        const std::wstring text = m_input.byte() % 2 == 0 ? L"f" : L"g";
        m_document->setStringItemAsDOMElement(at.section, key, L"<a>" + text + L"</a>", at.id);
        m_reference.setElement(at, key, L"a", text);
    }
    void removeItem() {
        const Address at = section();
        const std::wstring key = m_input.byte() % 2 == 0 ? L"k1" : L"Slot";
        require(m_document->removeItem(at.section, key, at.id) == m_reference.removeItem(at, key), "the removal of an item");
    }
    void removeSections() {
        const Address at = home();
        if (at.subSection.empty())
            return require(m_document->removeSection(at.section, at.id) == m_reference.removeSection(at),
                           "the removal of a section");
        require(m_document->removeSubSection(at.section, at.subSection, at.id, at.subID) == m_reference.removeSubSection(at),
                "the removal of a subsection");
    }
    void rename() {
        const std::wstring &name = m_input.anyOf(sections), &from = m_input.anyOf(ids), &to = m_input.anyOf(ids);
        require(m_document->renameSection(name, from, to) == m_reference.rename(name, from, to), "the new name");
    }
    void move() {
        const std::wstring &name = m_input.anyOf(sections), &id = m_input.anyOf(ids);
        const int direction = m_input.byte() % 4 - 1;
        require(m_document->moveSection(direction, name, id) == m_reference.move(direction, name, id), "the move");
    }
    void count() {
        const std::wstring &name = m_input.anyOf(sections), &sub = m_input.anyOf(subSections);
        require(m_document->getSectionCount(name) == m_reference.count(name), "the number of sections");
        require(m_document->getSectionIDs(name) == m_reference.ids(name), "the identifiers of sections");
        require(m_document->getSubSectionCount(name, sub) == m_reference.subCount(name, sub), "the number of subsections");
        require(m_document->getSubSectionIDs(name, sub) == m_reference.subIds(name, sub), "the identifiers of subsections");
    }
    void reload() {
        m_document = std::make_unique<ConfigInfo>(fuzzFile(savedText(*m_document)));
        m_reference.layOut();
        m_reference.dirty = false;
    }
    void compareAll() {
        require(
            storetests::described(XMLConfig::tests::outline(*m_document)) == storetests::described(m_reference.outline()),
            "the document is the reference's");
    }

    Input& m_input;
    std::unique_ptr<ConfigInfo> m_document = std::make_unique<ConfigInfo>();
    ReferenceStore m_reference;
};

}  // namespace

// Operations on a document, each compared with the addressing rules as plain walks.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    Input input(bytes, size);
    Sequence(input).run();
    return 0;
}
