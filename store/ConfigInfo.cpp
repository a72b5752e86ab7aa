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

using XMLConfig::detail::Change;
using XMLConfig::detail::Document;
using XMLConfig::detail::reporting;
using XMLConfig::detail::together;

XMLCONFIG_EARLY const std::shared_ptr<log4cxx::Logger> ConfigInfo::log =
    XMLConfig::detail::logger(L"Ulvano.XMLConfig.ConfigInfo");

namespace {

std::unique_ptr<Document> startedDocument() {
    try {
        return std::make_unique<Document>();
    } catch (...) {
        XMLConfig::detail::passShortage();
        throw CorvaneException(L"Error ConfigInfo: Unknown error during initializeXerces ");
    }
}

XMLConfig::detail::Section& versionSection(const Document& document, const wchar_t* prefix) {
    auto* const section = document.getSection(XMLConfig::detail::versionElement, {});
    // Two blanks after the colon, on purpose: applications know the message.
    if (section == nullptr) throw CorvaneException(prefix + std::wstring(L" No \"version\" node in XML file"));
    return *section;
}

}  // namespace

ConfigInfo::ConfigInfo() : m_document(startedDocument()) { m_document->initializeDOM(); }

ConfigInfo::ConfigInfo(const std::wstring& path) {
    const XMLConfig::detail::HeldCancellation held;
    m_document = startedDocument();
    m_document->parseDataFile(path);
}

std::unique_ptr<ConfigInfo> ConfigInfo::fromText(const std::string& bytes, const std::wstring& name) {
    const XMLConfig::detail::HeldCancellation held;
    auto document = std::make_unique<ConfigInfo>();
    document->m_document->parseData(bytes, name);
    return document;
}

ConfigInfo::~ConfigInfo() = default;

bool ConfigInfo::save(const std::wstring& path) {
    if (path.empty()) return false;
    const XMLConfig::detail::HeldCancellation held;
    if (!m_document->exists()) {
        throw CorvaneException(
            L"Error save(): Document not created, operation sequence is out of order, initialize document before using.");
    }
    if (m_document->file.isOf(path) && m_document->file.hasOtherContent()) {
        XMLConfig::detail::logWarn(log, L"save(): " + path +
                                            L" was changed on the disk after this document was loaded or saved; "
                                            L"the save overwrites that change");
    }
    try {
        XMLConfig::detail::saveDocument(*m_document, path);
    } catch (const CorvaneException& failure) {
        XMLConfig::detail::logWarn(log, failure.getMessage());
        throw;
    }
    m_dirty = false;
    return true;
}

double ConfigInfo::getVersion() const {
    constexpr const wchar_t* prefix = L"Error getVersion: ";
    return reporting(prefix, [&] {
        std::u16string buffer;
        return XMLConfig::detail::leadingDouble(
            XMLConfig::detail::textOf(*versionSection(*m_document, prefix).element, buffer));
    });
}

void ConfigInfo::setVersion(double version) {
    constexpr const wchar_t* prefix = L"Error setVersion: ";
    constexpr std::size_t versionLength = 31;
    reporting(prefix, [&] {
        XMLConfig::detail::Section& section = versionSection(*m_document, prefix);
        const std::wstring text = XMLConfig::detail::versionText(version).substr(0, versionLength);
        const std::wstring before = XMLConfig::detail::wideTextOf(*section.element);
        Change change{Change::Kind::VersionChanged, XMLConfig::detail::versionElement, {}, {}, before, text};
        m_document->setText({section.element, &section}, text);
        m_dirty = true;
        m_document->report(std::move(change));
    });
}

void ConfigInfo::insertBuildDateAndNumber() {
    if (!m_document->exists()) return;
    const auto bringUpToDate = [&] {
        struct Stamp {
            const wchar_t* name;
            std::wstring text;
            bool isSeen;
        };
        Stamp stamps[] = {{XMLConfig::detail::buildDateElement, XMLConfig::detail::buildDate, false},
                          {XMLConfig::detail::buildNumberElement, XMLConfig::detail::buildNumber, false}};
        xercesc::DOMElement* maker = nullptr;
        for (auto* child = m_document->root()->getFirstElementChild();
             child != nullptr && !(stamps[0].isSeen && stamps[1].isSeen); child = child->getNextElementSibling()) {
            const std::wstring name = XMLConfig::detail::fromUtf16(XMLConfig::detail::view(child->getNodeName()));
            if (maker == nullptr && name == XMLConfig::detail::makerElement) maker = child;
            for (Stamp& stamp : stamps) {
                if (name != stamp.name) continue;
                stamp.isSeen = true;
                if (!XMLConfig::detail::hasText(*child, stamp.text)) m_document->setHeader(*child, stamp.text);
            }
        }
        for (const Stamp& stamp : stamps)
            if (!stamp.isSeen && maker != nullptr) m_document->insertHeader(stamp.name, stamp.text, *maker);
    };
    together(*this, [&] { reporting(L"Error insertBuildDateAndNumber(): ", bringUpToDate); });
}

bool ConfigInfo::isDirty() const { return m_dirty; }
void ConfigInfo::setDirty(bool dirty) { m_dirty = dirty; }
