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

/// `camera` had the ID before it was renamed; null where none did.
void addNoSuchCamera(Findings& findings, const Place& place, const std::wstring& id, const CheckedSection* camera,
                     Mend mend) {
    const std::wstring was = camera == nullptr ? L"" : L"; " + quoted(camera->id) + L" was " + id + L" before";
    Finding& finding = findings.add(L"XC208", Severity::Error, place, L"there is no camera " + quoted(id) + was);
    if (camera == nullptr) return;
    finding.places = {otherPlace(placeOf(*camera))};
    finding.mend = std::move(mend);
}

void checkCamerasOf(Findings& findings, const CheckedSection& projector) {
    for (const wchar_t* const key : {firstCamera, secondCamera}) {
        const std::wstring& id = projector.stored(key);
        if (id.empty() || findings.read.camera(id) != nullptr) continue;
        const CheckedSection* const camera = findings.read.cameraThatWas(id);
        const Place place = placeOf(projector, key);
        addNoSuchCamera(findings, place, id, camera,
                        camera == nullptr ? Mend() : mendBy(MendSafety::Safe, setCommand(place, camera->id)));
    }
    const std::wstring& first = projector.stored(firstCamera);
    const std::wstring& second = projector.stored(secondCamera);
    if (second.empty() || (!first.empty() && first != second)) return;
    const Place place = placeOf(projector, secondCamera);
    Finding& finding = findings.add(L"XC210", Severity::Warning, place,
                                    first.empty() ? L"a second camera without a first" : L"is the first camera again");
    const bool isUnknown = first.empty() && findings.read.camera(second) == nullptr;  // to be settled before
    if (isUnknown || projector.holdsTwice(secondCamera)) return;
    finding.mend.safety = MendSafety::Safe;
    if (first.empty()) finding.mend.commands = {setCommand(placeOf(projector, firstCamera), second)};
    finding.mend.commands.push_back(unsetCommand(place));
}

std::vector<std::wstring> cameraOrder(const Findings& findings) {
    return tokensOf(findings.read.text(L"Color", L"CameraOrder"));
}

using IDs = std::vector<std::wstring>;

/// The order with the IDs that renamed cameras have now, each once.
IDs withCurrentIDs(const Findings& findings, const IDs& order) {
    std::set<std::wstring> met(order.begin(), order.end());
    IDs current;
    for (const std::wstring& id : order) {
        const CheckedSection* const camera = findings.read.camera(id) == nullptr ? findings.read.cameraThatWas(id) : nullptr;
        if (camera == nullptr) current.push_back(id);
        else if (met.insert(camera->id).second) current.push_back(camera->id);
    }
    return current;
}

/// Mends all faults of one kind in the order. As it names every camera, only the first ones of very many faults tell it.
class OrderMend {
public:
    OrderMend(const Place& place, MendSafety safety, const IDs& better) {
        const std::wstring text = joined(better, L",");
        const bool isReadSo = tokensOf(text) == better;  // not where an ID holds what separates IDs
        if (isReadSo) m_mend = mendBy(safety, setCommand(place, text));
    }
    Mend tell() {
        constexpr int most = 64;
        return m_told++ < most ? m_mend : Mend();
    }

private:
    Mend m_mend;
    int m_told = 0;
};

void checkUnknownInOrder(Findings& findings, const Place& place, const IDs& order) {
    OrderMend mend(place, MendSafety::Safe, withCurrentIDs(findings, order));
    std::set<std::wstring> met;
    for (const std::wstring& id : order) {
        if (findings.read.camera(id) != nullptr || !met.insert(id).second) continue;
        const CheckedSection* const camera = findings.read.cameraThatWas(id);
        addNoSuchCamera(findings, place, id, camera, camera == nullptr ? Mend() : mend.tell());
    }
}

void checkOrder(Findings& findings) {
    const IDs order = cameraOrder(findings);
    if (order.empty()) return;
    const Place place = placeOf(findings, L"Color", L"CameraOrder");
    checkUnknownInOrder(findings, place, order);
    std::set<std::wstring> met;
    IDs complete;
    std::vector<std::wstring> faults;
    for (const std::wstring& id : order) {
        const CheckedSection* const camera = findings.read.camera(id);
        if (met.insert(id).second) complete.push_back(id);
        else if (camera != nullptr) faults.push_back(L"repeats " + camera->title());
    }
    for (const CheckedSection* camera : findings.read.cameras()) {
        if (met.count(camera->id) != 0) continue;
        complete.push_back(camera->id);
        faults.push_back(L"leaves out " + camera->title());
    }
    OrderMend mend(place, MendSafety::Asked, complete);
    for (const std::wstring& fault : faults) findings.add(L"XC209", Severity::Warning, place, fault).mend = mend.tell();
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
    constexpr std::size_t longest = 1000;  // no two IDs of cameras are longer, and each "_" may be what parts them
    if (pair.size() > longest) return false;
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
