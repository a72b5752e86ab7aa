#include <algorithm>
#include <set>

#include "manager/DeviceAddresses.h"
#include "manager/check/Findings.h"
#include "platform/Numbers.h"
#include "store/Tokens.h"

/// Rules on devices: what names them, and how many there are.
namespace XMLConfig::detail {
namespace {

using Devices = std::vector<const CheckedSection*>;

Devices allDevices(const Findings& findings) {
    Devices devices = findings.read.projectors();
    devices.insert(devices.end(), findings.read.cameras().begin(), findings.read.cameras().end());
    return devices;
}

// Device snippets.

void checkSnippet(Findings& findings, const CheckedSection& device) {
    const auto place = [&] { return placeOf(device, L"DeviceSnippet"); };
    const ElementView snippet = device.snippet();
    if (!snippet) {
        findings.add(L"XC202", Severity::Warning, place(), device.title() + L" has no device snippet");
        return;
    }
    const std::wstring uid = snippet.attribute(L"UID").value_or(L"");
    if (uid != device.id)
        findings.add(L"XC201", Severity::Error, place(),
                     L"UID " + quoted(uid) + L" in the device snippet is not the section's ID");
    const std::wstring type = snippet.attribute(L"type").value_or(L"");
    const std::optional<DeviceID> parts = deviceIDOf(uid);
    if (parts && type != parts->type && type != L"VC")
        findings.add(L"XC203", Severity::Warning, place(), L"the type " + quoted(type) + L" is not that of the UID");
}

void checkMAC(Findings& findings, const CheckedSection& device) {
    const std::optional<DeviceID> parts = deviceIDOf(device.id);
    if (!parts) return;
    const std::wstring& inID = parts->address;
    const std::wstring inSnippet = childText(device.snippet(), L"macAddress");
    if (!isMAC(inID))
        findings.add(L"XC204", Severity::Warning, placeOf(device), quoted(inID) + L" in the ID is no MAC address");
    else if (!inSnippet.empty() && plainMAC(inSnippet) != plainMAC(inID))
        findings.add(L"XC204", Severity::Warning, placeOf(device, L"DeviceSnippet"),
                     inSnippet + L" is not the MAC address in the ID");
}

std::wstring macOf(const CheckedSection& device) {
    const std::wstring inSnippet = childText(device.snippet(), L"macAddress");
    const std::wstring inID = deviceIDOf(device.id).value_or(DeviceID{}).address;
    return isMAC(inSnippet) ? inSnippet : isMAC(inID) ? inID : L"";
}

void checkSameMAC(Findings& findings) {
    std::map<std::wstring, const CheckedSection*> owners;
    for (const CheckedSection* device : allDevices(findings)) {
        const std::wstring mac = macOf(*device);
        if (mac.empty()) continue;
        const auto [owner, isNew] = owners.emplace(plainMAC(mac), device);
        if (isNew) continue;
        findings
            .add(L"XC205", Severity::Error, placeOf(*device),
                 mac + L" is that of " + owner->second->title() + L" and " + device->title())
            .places = {otherPlace(placeOf(*owner->second))};
    }
}

void checkSameName(Findings& findings, const Devices& devices) {
    std::unordered_map<std::wstring_view, const CheckedSection*> owners;
    for (const CheckedSection* device : devices) {
        const std::wstring& name = device->stored(L"Name");
        if (name.empty()) continue;
        const auto [owner, isNew] = owners.emplace(name, device);
        if (isNew) continue;
        findings
            .add(L"XC206", Severity::Warning, placeOf(*device, L"Name"),
                 quoted(name) + L" is also the name of " + owner->second->address())
            .places.push_back(otherPlace(placeOf(*owner->second, L"Name"), name));
    }
}

void checkOldID(Findings& findings, const CheckedSection& device, const CheckedSection* holder) {
    if (holder == nullptr || holder == &device) return;
    findings.add(L"XC213", Severity::Warning, placeOf(device, L"OldSectionID"), quoted(holder->id) + L" is there as well")
        .places = {otherPlace(placeOf(*holder))};
}

// Counts.

/// The number of the highest ACT unit that is described from `count` up; -1 where none is.
int highestUnitFrom(const CheckedSection& system, int count) {
    int highest = -1;
    for (const wchar_t* const beginning : {L"ACT_Address_", L"ACT_Relay_Associations_"})
        for (const CheckedItem& item : system.items) {
            const std::wstring prefix = beginning;
            if (item.setting == nullptr || item.key.compare(0, prefix.size(), prefix) != 0) continue;
            const int unit = leadingInteger(item.key.substr(prefix.size()));
            if (unit >= count) highest = std::max(highest, unit);
        }
    return highest;
}

void checkACTUnits(Findings& findings) {
    const CheckedSection& system = findings.read.section(L"System");
    const int count = findings.read.integer(L"System", L"ACT_Count");
    const Place place = placeOf(findings, L"System", L"ACT_Count");
    const std::wstring is = L"is " + std::to_wstring(count) + L", but unit ";
    for (int unit = 0; unit < count; ++unit) {
        if (!system.stored(L"ACT_Address_" + std::to_wstring(unit)).empty()) continue;
        findings.add(L"XC215", Severity::Warning, place, is + std::to_wstring(unit) + L" has no address");
        break;
    }
    const int highest = highestUnitFrom(system, std::max(count, 0));
    if (highest < 0) return;
    Finding& finding = findings.add(L"XC215", Severity::Warning, place, is + std::to_wstring(highest) + L" is described");
    finding.mend = mendBy(MendSafety::Asked, setCommand(place, std::to_wstring(static_cast<long long>(highest) + 1)));
}

void checkSlot(Findings& findings) {
    const int current = findings.read.integer(L"ProjectorApprovedSlots", L"CurrentSlotID");
    if (current == -1) return;
    std::vector<std::wstring> slots;
    for (const CheckedItem& item : findings.read.section(L"ProjectorApprovedSlots").items) {
        if (!item.element.isNamed(L"Slot") || item.element.id().empty()) continue;
        slots.push_back(item.element.id());
        if (leadingInteger(slots.back()) == current) return;
    }
    findings.add(L"XC216", Severity::Note, placeOf(findings, L"ProjectorApprovedSlots", L"CurrentSlotID"),
                 L"slot " + std::to_wstring(current) + L" is none of the approved slots" +
                     (slots.empty() ? L", for there are none" : L" (" + joined(slots) + L")"));
}

std::wstring thereAre(std::size_t count) {
    return L"there " + std::wstring(count == 1 ? L"is " : L"are ") + counted(count, L"projector");
}

void checkCount(Findings& findings) {
    const std::size_t actual = findings.read.projectors().size();
    if (actual == 0 && !findings.read.section(L"Geometry").holds(L"Projector_Count")) return;
    const int count = findings.read.integer(L"Geometry", L"Projector_Count");
    if (count >= 0 && static_cast<std::size_t>(count) == actual) return;
    const Place place = placeOf(findings, L"Geometry", L"Projector_Count");
    findings.add(L"XC217", Severity::Warning, place, L"reads " + std::to_wstring(count) + L", but " + thereAre(actual))
        .mend = mendBy(MendSafety::Asked, setCommand(place, std::to_wstring(actual)));
}

void checkLayoutRoom(Findings& findings) {
    const std::size_t actual = findings.read.projectors().size();
    const CheckedSection& geometry = findings.read.section(L"Geometry");
    const bool isStored = geometry.holds(L"Projector_Layout_Width") || geometry.holds(L"Projector_Layout_Height");
    if (actual == 0 && !isStored) return;
    const double width = findings.read.integer(L"Geometry", L"Projector_Layout_Width");
    const double height = findings.read.integer(L"Geometry", L"Projector_Layout_Height");
    const double stack = std::max(1, findings.read.integer(L"Geometry", L"UserStackHeightOverride"));
    const double room = width * height * stack;
    if (room == static_cast<double>(actual)) return;
    const std::wstring stacked = stack > 1.0 ? L", " + shortNumber(stack) + L" high," : L"";
    findings.add(L"XC218", Severity::Warning, placeOf(findings, L"Geometry", L"Projector_Layout_Width"),
                 L"the layout of " + shortNumber(width) + L" x " + shortNumber(height) + stacked + L" has room for " +
                     shortNumber(room) + L", but " + thereAre(actual));
}

}  // namespace

void checkIdentity(Findings& findings) {
    for (const CheckedSection* device : allDevices(findings)) {
        checkSnippet(findings, *device);
        checkMAC(findings, *device);
    }
    checkSameMAC(findings);
    checkSameName(findings, findings.read.projectors());
    checkSameName(findings, findings.read.cameras());
    for (const CheckedSection* projector : findings.read.projectors())
        checkOldID(findings, *projector, findings.read.projector(projector->stored(L"OldSectionID")));
    for (const CheckedSection* camera : findings.read.cameras())
        checkOldID(findings, *camera, findings.read.camera(camera->stored(L"OldSectionID")));
    checkCameraReferences(findings);
    checkACTUnits(findings);
    checkSlot(findings);
    checkCount(findings);
    checkLayoutRoom(findings);
}

}  // namespace XMLConfig::detail
