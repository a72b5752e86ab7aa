#include "sections/ReprojectionAccuracy.h"

#include "platform/DiagnosticsFolder.h"
#include "sections/ReprojectionAccuracyItems.h"
#include "store/ConfigInfoFactory.h"

static constexpr auto& items = XMLConfig::detail::reprojectionAccuracyItems;
using XMLConfig::detail::Descriptor;
using Trait = XMLConfig::detail::ValueTrait<double>;

namespace {

constexpr const wchar_t* cameraSection = L"Camera";  // of a results document

}  // namespace

ReprojectionAccuracy::ReprojectionAccuracy(ConfigInfo* configInfo, const std::wstring& sectionID)
    : BaseConfig(configInfo, L"AnalyticResults", sectionID), m_results(configInfo) {}

ReprojectionAccuracy::~ReprojectionAccuracy() = default;

void ReprojectionAccuracy::initialize() { writeInitialValues(items); }

ReprojectionAccuracy* ReprojectionAccuracy::loadFromFile(const std::wstring& path) {
    std::unique_ptr<ConfigInfo> document(ConfigInfoFactory::getInstance()->createFromFile(path));
    if (!document) return nullptr;
    auto accuracy = std::make_unique<ReprojectionAccuracy>(document.get(), L"");
    document.release();  // NOLINT(bugprone-unused-return-value): the accessor owns it now
    return accuracy.release();
}

double ReprojectionAccuracy::getMaxError() const { return readGlobal(items.maxError); }
void ReprojectionAccuracy::setMaxError(double value) { writeGlobal(items.maxError, value); }
double ReprojectionAccuracy::getRMSError() const { return readGlobal(items.rmsError); }
void ReprojectionAccuracy::setRMSError(double value) { writeGlobal(items.rmsError, value); }
double ReprojectionAccuracy::getOverlapPercentage() const { return readGlobal(items.overlapPercentage); }
void ReprojectionAccuracy::setOverlapPercentage(double value) { writeGlobal(items.overlapPercentage, value); }

double ReprojectionAccuracy::getMaxError(const std::wstring& cameraID) const { return readCamera(items.maxError, cameraID); }
void ReprojectionAccuracy::setMaxError(const std::wstring& cameraID, double value) {
    writeCamera(items.maxError, cameraID, value);
}
double ReprojectionAccuracy::getRMSError(const std::wstring& cameraID) const { return readCamera(items.rmsError, cameraID); }
void ReprojectionAccuracy::setRMSError(const std::wstring& cameraID, double value) {
    writeCamera(items.rmsError, cameraID, value);
}
double ReprojectionAccuracy::getOverlapPercentage(const std::wstring& cameraID) const {
    return readCamera(items.overlapPercentage, cameraID);
}
void ReprojectionAccuracy::setOverlapPercentage(const std::wstring& cameraID, double value) {
    writeCamera(items.overlapPercentage, cameraID, value);
}

bool ReprojectionAccuracy::saveResults() {
    return m_configInfo->save(UlvanoDiagnostics::getDataSubDirectory() + L"\\" + L"temp" + L".results");
}

double ReprojectionAccuracy::readGlobal(const Descriptor<double>& item) const {
    return Trait::read(*m_configInfo, {items.section, getSectionID(), item.key}, item.fallback);
}

void ReprojectionAccuracy::writeGlobal(const Descriptor<double>& item, double value) {
    Trait::write(*m_configInfo, {items.section, getSectionID(), item.key}, value);
}

double ReprojectionAccuracy::readCamera(const Descriptor<double>& item, const std::wstring& cameraID) const {
    return Trait::read(*m_configInfo, {cameraSection, cameraID, item.key}, item.fallback);
}

void ReprojectionAccuracy::writeCamera(const Descriptor<double>& item, const std::wstring& cameraID, double value) {
    Trait::write(*m_configInfo, {cameraSection, cameraID, item.key}, value);
}
