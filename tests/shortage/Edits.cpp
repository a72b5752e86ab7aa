#include "tests/shortage/Edits.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "store/Comments.h"
#include "store/CorvaneException.h"
#include "tests/shortage/Allocations.h"

namespace edits {
namespace {

const std::wstring element = L"<device kind=\"a\"><x>1</x><y z=\"2\">text</y><!--c--></device>";
const std::wstring otherElement = L"<device kind=\"b\"><x>2</x></device>";

void set(ConfigInfo& d, const wchar_t* key, const std::wstring& value, const wchar_t* id = L"1",
         const wchar_t* subSection = L"", const wchar_t* subID = L"") {
    d.setStringItem(L"S", key, value, id, subSection, subID);
}
void setElement(ConfigInfo& d, const wchar_t* key, const std::wstring& value) {
    d.setStringItemAsDOMElement(L"S", key, value, L"1");
}
void expect(bool isSo) {
    if (!isSo) throw std::logic_error("an edit did nothing");
}
template <typename Action>
void expectRefusal(const Action& action) {
    try {
        action();
    } catch (const CorvaneException&) {
        return;
    }
    throw std::logic_error("what is wrong was stored");
}
std::wstring repeated(int count) { return std::wstring(static_cast<std::size_t>(count), L'x'); }

const std::vector<Edit> list = {
    {"EqualText", [](ConfigInfo& d, int) { set(d, L"A", L"same"); }},
    {"ChangingText", [](ConfigInfo& d, int i) { set(d, L"A", std::to_wstring(i)); }},
    {"TextOfChangingLength", [](ConfigInfo& d, int i) { set(d, L"A", repeated(i % 200 + 1)); }},
    {"TextAndNone", [](ConfigInfo& d, int i) { set(d, L"A", i % 2 == 0 ? L"" : L"text"); }},
    {"TextReadAndChanged",
     [](ConfigInfo& d, int i) {
         set(d, L"A", std::to_wstring(i));
         (void)d.getStringItem(L"S", L"A", L"", L"1", L"", L"");
     }},
    {"NestedText", [](ConfigInfo& d, int i) { set(d, L"G|a|b", std::to_wstring(i)); }},
    {"TextInASubsection", [](ConfigInfo& d, int i) { set(d, L"v", std::to_wstring(i), L"1", L"Slot", L"3"); }},
    {"Number", [](ConfigInfo& d, int i) { d.setDoubleItem(L"S", L"A", i * 0.1, L"1"); }},
    {"Integer", [](ConfigInfo& d, int i) { d.setIntegerItem(L"S", L"A", i, L"1"); }},
    {"Flag", [](ConfigInfo& d, int i) { d.setBoolItem(L"S", L"A", i % 2 == 0, L"1"); }},
    {"Point",
     [](ConfigInfo& d, int i) {
         d.setPoint3DItem(L"S", L"A", {i * 1.0, 2, 3}, L"1");
     }},
    {"Frustum",
     [](ConfigInfo& d, int i) {
         d.setFrustum(L"S", L"F", {{i * 1.0, 2, 3}, {}, 1, 2, 3, 4, 5, 6}, L"1");
     }},
    {"Vector",
     [](ConfigInfo& d, int i) {
         d.setDoubleVector(L"S", L"V", 2, 2, {i * 1.0, 2, 3, 4}, L"1");
     }},
    {"EqualElement", [](ConfigInfo& d, int) { setElement(d, L"E", element); }},
    {"ChangingElement", [](ConfigInfo& d, int i) { setElement(d, L"E", i % 2 == 0 ? element : otherElement); }},
    {"ElementAndText",
     [](ConfigInfo& d, int) {
         setElement(d, L"E", element);
         set(d, L"E", L"text");
     }},
    {"NestedElement", [](ConfigInfo& d, int i) { setElement(d, L"G|e", i % 2 == 0 ? element : otherElement); }},
    {"RefusedElement",
     [](ConfigInfo& d, int) { expectRefusal([&] { setElement(d, L"E", L"<device a=\"1\"><x>1</x>text"); }); }},
    {"RefusedName", [](ConfigInfo& d, int) { expectRefusal([&] { set(d, L"a b", L"x"); }); }},
    {"ItemAddedAndRemoved",
     [](ConfigInfo& d, int) {
         set(d, L"New", L"text");
         expect(d.removeItem(L"S", L"New", L"1"));
     }},
    {"ItemAddedReadAndRemoved",
     [](ConfigInfo& d, int) {
         set(d, L"New", L"text");
         (void)d.getStringItem(L"S", L"New", L"", L"1", L"", L"");
         expect(d.removeItem(L"S", L"New", L"1"));
     }},
    {"ItemsOfOtherNamesAddedAndRemoved",
     [](ConfigInfo& d, int i) {
         const std::wstring key = L"New" + std::to_wstring(i % 500);
         set(d, key.c_str(), L"text");
         expect(d.removeItem(L"S", key, L"1"));
     }},
    {"GroupAddedAndRemoved",
     [](ConfigInfo& d, int) {
         set(d, L"H|a|b", L"text");
         (void)d.getStringItem(L"S", L"H|a|b", L"", L"1", L"", L"");
         expect(d.removeItem(L"S", L"H", L"1"));
     }},
    {"ElementAddedAndRemoved",
     [](ConfigInfo& d, int) {
         setElement(d, L"New", element);
         expect(d.removeItem(L"S", L"New", L"1"));
     }},
    {"SectionAddedAndRemoved",
     [](ConfigInfo& d, int) {
         set(d, L"A", L"text", L"new");
         expect(d.removeSection(L"S", L"new"));
     }},
    {"SectionsOfOtherIDsAddedAndRemoved",
     [](ConfigInfo& d, int i) {
         const std::wstring id = std::to_wstring(1000 + i);
         set(d, L"A", L"text", id.c_str());
         expect(d.removeSection(L"S", id));
     }},
    {"SectionWithoutIDAddedAndRemoved",
     [](ConfigInfo& d, int) {
         d.setStringItem(L"T", L"A", L"text", L"", L"", L"");
         expect(d.removeSection(L"T", L""));
     }},
    {"SubsectionAddedAndRemoved",
     [](ConfigInfo& d, int) {
         set(d, L"v", L"text", L"1", L"Slot", L"new");
         expect(d.removeSubSection(L"S", L"Slot", L"1", L"new"));
     }},
    {"NamesakesAddedAndRemoved",
     [](ConfigInfo& d, int) {
         for (const wchar_t* id : {L"a", L"b", L"c"}) set(d, L"v", L"text", L"1", L"Twin", id);
         (void)d.doesSubSectionExist(L"S", L"Twin", L"1", L"c");
         for (const wchar_t* id : {L"b", L"c", L"a"}) expect(d.removeSubSection(L"S", L"Twin", L"1", id));
     }},
    {"CommentAddedAndRemoved",
     [](ConfigInfo& d, int i) {
         const std::wstring comment = std::to_wstring(i);
         XMLConfig::addComment(d, {XMLConfig::sectionElements(d, L"S")[0]}, comment);
         expect(XMLConfig::removeComment(d, XMLConfig::sectionElements(d, L"S")[0], comment) == 1);
     }},
    {"Rename",
     [](ConfigInfo& d, int i) { expect(d.renameSection(L"S", i % 2 == 0 ? L"1" : L"9", i % 2 == 0 ? L"9" : L"1")); }},
    {"RenameToLongerAndNone",
     [](ConfigInfo& d, int i) {
         expect(d.renameSection(L"S", L"2", repeated(i % 100 + 10)));
         expect(d.renameSection(L"S", repeated(i % 100 + 10), L"2"));
     }},
    {"Move", [](ConfigInfo& d, int i) { expect(d.moveSection(i % 2 == 0 ? 1 : -1, L"S", L"1")); }},
    {"Version", [](ConfigInfo& d, int i) { d.setVersion(i % 9); }},
    {"BuildStamps",
     [](ConfigInfo& d, int i) {
         if (i % 2 == 0) d.setStringItem(L"BuildDate", L"x", L"y", L"", L"", L"");
         d.insertBuildDateAndNumber();
     }},
};

}  // namespace

const std::vector<Edit>& all() { return list; }

void prepare(ConfigInfo& document) {
    for (const wchar_t* id : {L"1", L"2"}) set(document, L"A", L"text", id);
    set(document, L"v", L"text", L"1", L"Slot", L"3");
}

std::size_t mostBytes(const Edit& edit, ConfigInfo& document, int repetitions) {
    std::size_t most = 0;
    for (int i = 0; i < repetitions; ++i) {
        edit.run(document, i);
        most = std::max(most, allocations::liveBytes() + allocations::liveBytesOfXml());
    }
    return most;
}

}  // namespace edits
