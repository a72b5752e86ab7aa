// The devices of the "System" section: black boxes and ACT units.

#include <algorithm>

#include "sections/SystemConfig.h"
#include "sections/SystemItems.h"
#include "sections/SystemTexts.h"
#include "store/ElementView.h"
#include "store/Together.h"

static constexpr auto& items = XMLConfig::detail::systemItems;
using XMLConfig::detail::blackBoxFromText;
using XMLConfig::detail::blackBoxText;
using XMLConfig::detail::numberedKey;
using XMLConfig::detail::numberOfKey;
using XMLConfig::detail::relayAssociationsFromText;
using XMLConfig::detail::relayAssociationsText;

int SystemConfig::getNumAvailableBlackBoxPowerPorts() const { return read(items.availableBlackBoxPowerPorts).value; }
void SystemConfig::setNumAvailableBlackBoxPowerPorts(int count) { write(items.availableBlackBoxPowerPorts, count); }
BlackBoxInfo SystemConfig::getBlackBoxCamerasComm() const { return getGenericBlackBoxComm(items.blackBoxCamerasComm.key); }
void SystemConfig::setBlackBoxCamerasComm(const BlackBoxInfo& info) {
    setBlackBoxKeepingOtherPorts(items.blackBoxCamerasComm.key, info);
}
BlackBoxInfo SystemConfig::getBlackBoxLEDLightsComm() const {
    return getGenericBlackBoxComm(items.blackBoxLEDLightsComm.key);
}
void SystemConfig::setBlackBoxLEDLightsComm(const BlackBoxInfo& info) {
    setBlackBoxKeepingOtherPorts(items.blackBoxLEDLightsComm.key, info);
}

int SystemConfig::getACTCount() { return read(items.actCount).value; }
std::wstring SystemConfig::getACTBlobDetectionMethod() const { return read(items.actBlobDetectionMethod).value; }
void SystemConfig::setACTBlobDetectionMethod(const std::wstring& method) { write(items.actBlobDetectionMethod, method); }
double SystemConfig::getACTBlobMinArea() const { return read(items.actBlobMinArea).value; }
void SystemConfig::setACTBlobMinArea(double area) { write(items.actBlobMinArea, area); }
double SystemConfig::getACTBlobMaxArea() const { return read(items.actBlobMaxArea).value; }
double SystemConfig::getACTBlobClusteringDistance() const { return read(items.actBlobClusteringDistance).value; }
double SystemConfig::getACTBlobMinSeparationDistance() const { return read(items.actBlobMinSeparationDistance).value; }
int SystemConfig::getACTBlobIntensityJumpThreshold() const { return read(items.actBlobIntensityJumpThreshold).value; }
int SystemConfig::getACTBlobMaxObservations() const { return read(items.actBlobMaxObservations).value; }

// Black boxes.

BlackBoxInfo SystemConfig::getGenericBlackBoxComm(const std::wstring& key) const {
    return blackBoxFromText(get(key, L"").value);
}

void SystemConfig::setGenericBlackBoxComm(const std::wstring& key, const BlackBoxInfo& info) {
    set(key, blackBoxText(info));
}

void SystemConfig::setBlackBoxKeepingOtherPorts(const std::wstring& key, const BlackBoxInfo& info) {
    std::vector<std::int32_t> storedPorts = getGenericBlackBoxComm(key).getOtherPowerPorts();
    BlackBoxInfo stored = info;
    stored.setOtherPowerPorts(storedPorts);
    setGenericBlackBoxComm(key, stored);
}

// ACT units.

void SystemConfig::setACTCount(int count) {
    const int kept = std::max(count, 0);
    const std::set<int> removed = storedACTUnits(kept, getACTCount());
    if (removed.empty()) return write(items.actCount, kept);
    XMLConfig::detail::together(*m_configInfo, [&] {
        removeACTUnits(removed);
        write(items.actCount, kept);
    });
}

void SystemConfig::removeACTUnits(const std::set<int>& units) {
    for (const int unit : units) {
        m_configInfo->removeItem(getSectionName(), numberedKey(items.actAddress.key, unit), getSectionID());
        m_configInfo->removeItem(getSectionName(), numberedKey(items.actRelayAssociations.key, unit), getSectionID());
    }
}

// Visits the items there are, not the numbers there might be: a damaged file may claim two thousand million units.
std::set<int> SystemConfig::storedACTUnits(int first, int end) const {
    std::set<int> units;
    for (const XMLConfig::ElementView& section : XMLConfig::sectionElements(*m_configInfo, getSectionName())) {
        for (const XMLConfig::ElementView& item : section.children())
            for (const wchar_t* pattern : {items.actAddress.key, items.actRelayAssociations.key})
                if (const auto unit = numberOfKey(pattern, item.name()); unit && *unit >= first && *unit < end)
                    units.insert(*unit);
    }
    return units;
}

std::wstring SystemConfig::getACTAddress(int unit) {
    return get(numberedKey(items.actAddress.key, unit), items.actAddress.fallback).value;
}
void SystemConfig::setACTAddress(int unit, const std::wstring& address) {
    set(numberedKey(items.actAddress.key, unit), address);
}

std::vector<ACTRelayAssociation> SystemConfig::getACTRelayAssociations(int unit) {
    return relayAssociationsFromText(
        get(numberedKey(items.actRelayAssociations.key, unit), items.actRelayAssociations.fallback).value);
}
void SystemConfig::setACTRelayAssociations(int unit, const std::vector<ACTRelayAssociation>& associations) {
    set(numberedKey(items.actRelayAssociations.key, unit), relayAssociationsText(associations));
}
