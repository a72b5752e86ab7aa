#include <algorithm>
#include <set>

#include "manager/check/Findings.h"
#include "platform/Numbers.h"
#include "store/Tokens.h"

/// Rules on what names cameras: projectors, the order of the cameras, points that two cameras see.
namespace XMLConfig::detail {
namespace {

constexpr const wchar_t* firstCamera = L"Associated_Camera_Id_1";
constexpr const wchar_t* secondCamera = L"Associated_Camera_Id_2";

/// `text(id)` gives the whole value of the setting with `id` in the place of the unknown camera.
template <typename Text>
void addNoSuchCamera(Findings& findings, const Place& place, const std::wstring& id, const Text& text) {
    const CheckedSection* const camera = findings.read.cameraThatWas(id);
    const std::wstring was = camera == nullptr ? L"" : L"; " + quoted(camera->id) + L" was " + id + L" before";
    Finding& finding = findings.add(L"XC208", Severity::Error, place, L"there is no camera " + quoted(id) + was);
    if (camera == nullptr) return;
    finding.places = {otherPlace(placeOf(*camera))};
    finding.mend = mendBy(MendSafety::Safe, setCommand(place, text(camera->id)));
}

void checkCamerasOf(Findings& findings, const CheckedSection& projector) {
    for (const wchar_t* const key : {firstCamera, secondCamera}) {
        const std::wstring& id = projector.stored(key);
        if (id.empty() || findings.read.camera(id) != nullptr) continue;
        addNoSuchCamera(findings, placeOf(projector, key), id, [](const std::wstring& better) { return better; });
    }
    const std::wstring& first = projector.stored(firstCamera);
    const std::wstring& second = projector.stored(secondCamera);
    if (second.empty() || (!first.empty() && first != second)) return;
    const Place place = placeOf(projector, secondCamera);
    Finding& finding = findings.add(L"XC210", Severity::Warning, place,
                                    first.empty() ? L"a second camera without a first" : L"is the first camera again");
    if (projector.holdsTwice(secondCamera)) return;
    finding.mend.safety = MendSafety::Safe;
    if (first.empty()) finding.mend.commands = {setCommand(placeOf(projector, firstCamera), second)};
    finding.mend.commands.push_back(unsetCommand(place));
}

std::vector<std::wstring> cameraOrder(const Findings& findings) {
    return tokensOf(findings.read.text(L"Color", L"CameraOrder"));
}

std::wstring orderWith(std::vector<std::wstring> order, const std::wstring& old, const std::wstring& better) {
    std::replace(order.begin(), order.end(), old, better);
    return joined(order, L",");
}

void checkOrder(Findings& findings) {
    const std::vector<std::wstring> order = cameraOrder(findings);
    if (order.empty()) return;
    const Place place = placeOf(findings, L"Color", L"CameraOrder");
    std::set<std::wstring> met;
    std::vector<std::wstring> complete;
    std::vector<std::wstring> faults;
    for (const std::wstring& id : order) {
        const CheckedSection* const camera = findings.read.camera(id);
        const bool isNew = met.insert(id).second;
        if (isNew) complete.push_back(id);
        if (camera == nullptr && isNew)
            addNoSuchCamera(findings, place, id, [&](const std::wstring& better) { return orderWith(order, id, better); });
        if (camera != nullptr && !isNew) faults.push_back(L"repeats " + camera->title());
    }
    for (const CheckedSection* camera : findings.read.cameras()) {
        if (met.count(camera->id) != 0) continue;
        complete.push_back(camera->id);
        faults.push_back(L"leaves out " + camera->title());
    }
    for (const std::wstring& fault : faults)
        findings.add(L"XC209", Severity::Warning, place, fault).mend =
            mendBy(MendSafety::Asked, setCommand(place, joined(complete, L",")));
}

bool hasCamera(const CheckedSection& projector) {
    return !projector.stored(firstCamera).empty() || !projector.stored(secondCamera).empty();
}

void checkWithoutCamera(Findings& findings) {
    const auto& projectors = findings.read.projectors();
    if (!findings.read.flag(L"System", L"Is_Camera_Used")) return;
    const auto isObserved = [](const CheckedSection* projector) { return !projector->stored(firstCamera).empty(); };
    if (std::none_of(projectors.begin(), projectors.end(), isObserved)) return;
    for (const CheckedSection* projector : projectors)
        if (!hasCamera(*projector))
            findings.add(L"XC211", Severity::Warning, placeOf(*projector), L"has no camera, other projectors have");
}

void checkIdleCameras(Findings& findings) {
    std::set<std::wstring> named;
    for (const std::wstring& id : cameraOrder(findings)) named.insert(id);
    for (const CheckedSection* projector : findings.read.projectors())
        for (const wchar_t* const key : {firstCamera, secondCamera}) named.insert(projector->stored(key));
    named.erase(L"");
    if (named.empty()) return;
    for (const CheckedSection* camera : findings.read.cameras())
        if (named.count(camera->id) == 0)
            findings.add(L"XC212", Severity::Note, placeOf(*camera),
                         L"no projector and no camera order names " + camera->title());
}

bool isPairOfCameras(const Findings& findings, const std::wstring& pair) {
    for (std::size_t at = pair.find(L'_'); at != std::wstring::npos; at = pair.find(L'_', at + 1))
        if (findings.read.camera(pair.substr(0, at)) != nullptr && findings.read.camera(pair.substr(at + 1)) != nullptr)
            return true;
    return false;
}

void checkOverlapPoints(Findings& findings) {
    const std::wstring beginning = L"CameraOverlapPoint_";
    const CheckedSection& color = findings.read.section(L"Color");
    for (const CheckedItem& item : color.items) {
        if (item.key.compare(0, beginning.size(), beginning) != 0 || item.hiddenBy) continue;
        if (isPairOfCameras(findings, item.key.substr(beginning.size()))) continue;
        const Place place = placeOf(color, item);
        findings.add(L"XC219", Severity::Note, place, L"names no two cameras").mend =
            mendBy(MendSafety::Asked, unsetCommand(place));
    }
}

}  // namespace

void checkCameraReferences(Findings& findings) {
    for (const CheckedSection* projector : findings.read.projectors()) checkCamerasOf(findings, *projector);
    checkOrder(findings);
    checkWithoutCamera(findings);
    checkIdleCameras(findings);
    checkOverlapPoints(findings);
}

}  // namespace XMLConfig::detail
