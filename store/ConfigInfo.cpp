#include "store/ConfigInfo.h"

#include <utility>

#include "platform/Cancellation.h"
#include "platform/Early.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "store/BuildIdentity.h"
#include "store/CorvaneException.h"
#include "store/Document.h"
#include "store/DocumentSaving.h"
#include "store/Log.h"
#include "store/TextForms.h"
#include "store/Together.h"
#include "store/TreeLinks.h"

namespace detail = XMLConfig::detail;

XMLCONFIG_EARLY const std::shared_ptr<log4cxx::Logger> ConfigInfo::log = detail::logger(L"Ulvano.XMLConfig.ConfigInfo");

namespace {

std::unique_ptr<detail::Document> startedDocument() {
    try {
        return std::make_unique<detail::Document>();
    } catch (...) {
        detail::passShortage();
        throw CorvaneException(L"Error ConfigInfo: Unknown error during initializeXerces ");
    }
}

detail::Section& versionSection(const detail::Document& document, const wchar_t* prefix) {
    auto* const section = document.getSection(detail::versionElement, {});
    // Two blanks after the colon, on purpose: applications know the message.
    if (section == nullptr) throw CorvaneException(prefix + std::wstring(L" No \"version\" node in XML file"));
    return *section;
}

struct Stamp {
    const wchar_t* name;
    std::wstring text;
    bool isSeen;
};

/// Each stamp that is met until both were, and those that are missing where there is a maker to insert them before.
void bringStampsUpToDate(detail::Document& document) {
    Stamp date{detail::buildDateElement, detail::buildDate, false};
    Stamp number{detail::buildNumberElement, detail::buildNumber, false};
    xercesc::DOMElement* maker = nullptr;
    auto* child = detail::firstElementIn(*document.root());
    for (; child != nullptr && !(date.isSeen && number.isSeen); child = detail::elementAfter(*child)) {
        const std::wstring name = detail::fromUtf16(detail::view(child->getNodeName()));
        if (maker == nullptr && name == detail::makerElement) maker = child;
        for (Stamp* const stamp : {&date, &number}) {
            if (name != stamp->name) continue;
            stamp->isSeen = true;
            if (!detail::hasText(*child, stamp->text)) document.setHeader(*child, stamp->text);
        }
    }
    for (const Stamp* const stamp : {&date, &number})
        if (!stamp->isSeen && maker != nullptr) document.insertHeader(stamp->name, stamp->text, *maker);
}

}  // namespace

ConfigInfo::ConfigInfo() : m_document(startedDocument()) { m_document->initializeDOM(); }

ConfigInfo::ConfigInfo(const std::wstring& path) {
    const detail::HeldCancellation held;
    m_document = startedDocument();
    m_document->parseDataFile(path);
}

std::unique_ptr<ConfigInfo> ConfigInfo::fromText(const std::string& bytes, const std::wstring& name) {
    const detail::HeldCancellation held;
    auto document = std::make_unique<ConfigInfo>();
    document->m_document->parseData(bytes, name);
    return document;
}

ConfigInfo::~ConfigInfo() = default;

bool ConfigInfo::save(const std::wstring& path) {
    if (path.empty()) return false;
    const detail::HeldCancellation held;
    if (!m_document->exists()) {
        throw CorvaneException(
            L"Error save(): Document not created, operation sequence is out of order, initialize document before using.");
    }
    if (m_document->file.isOf(path) && m_document->file.hasOtherContent()) {
        detail::logWarn(log, L"save(): " + path +
                                 L" was changed on the disk after this document was loaded or saved; "
                                 L"the save overwrites that change");
    }
    try {
        detail::saveDocument(*m_document, path);
    } catch (const CorvaneException& failure) {
        detail::logWarn(log, failure.getMessage());
        throw;
    }
    m_dirty = false;
    return true;
}

double ConfigInfo::getVersion() const {
    constexpr const wchar_t* prefix = L"Error getVersion: ";
    return detail::reporting(prefix, [&] {
        std::u16string buffer;
        return detail::leadingDouble(detail::textOf(*versionSection(*m_document, prefix).element, buffer));
    });
}

void ConfigInfo::setVersion(double version) {
    constexpr const wchar_t* prefix = L"Error setVersion: ";
    constexpr std::size_t versionLength = 31;
    detail::reporting(prefix, [&] {
        detail::Section& section = versionSection(*m_document, prefix);
        const std::wstring text = detail::versionText(version).substr(0, versionLength);
        const std::wstring before = detail::wideTextOf(*section.element);
        detail::Change change{detail::Change::Kind::VersionChanged, detail::versionElement, {}, {}, before, text};
        m_document->setText({section.element, &section}, text);
        m_dirty = true;
        m_document->report(std::move(change));
    });
}

void ConfigInfo::insertBuildDateAndNumber() {
    if (!m_document->exists()) return;
    detail::together(
        *this, [&] { detail::reporting(L"Error insertBuildDateAndNumber(): ", [&] { bringStampsUpToDate(*m_document); }); });
}

bool ConfigInfo::isDirty() const { return m_dirty; }
void ConfigInfo::setDirty(bool dirty) { m_dirty = dirty; }
