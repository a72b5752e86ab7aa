#include "manager/upgrade/StepDocument.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "platform/Text.h"
#include "store/ChangeObserver.h"
#include "store/ConfigInfo.h"

namespace XMLConfig::detail {

namespace {

using Kind = Change::Kind;

void reportChange(ConfigInfo& document, const StepDevice& device, Kind kind, const std::wstring& key,
                  const std::wstring& before, const std::wstring& after) {
    ChangeObserver* const observer = setChangeObserver(document, nullptr);
    setChangeObserver(document, observer);
    if (observer != nullptr) observer->changed({kind, device.kind->name, device.id, key, before, after});
}

/// Nobody is told of what happens meanwhile.
class Silence {
public:
    explicit Silence(ConfigInfo& document) : m_document(document), m_observer(setChangeObserver(document, nullptr)) {}
    ~Silence() { setChangeObserver(m_document, m_observer); }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

private:
    ConfigInfo& m_document;
    ChangeObserver* m_observer;
};

/// The document refuses a text that XML cannot hold, and must do so at once, not where waiting texts are written.
bool isLegal(const std::wstring& text) { return !firstCharacterXmlCannotHold(text); }

/// Whether the document finds each of the sections by its ID.
bool areDistinct(const std::vector<std::wstring>& ids) {
    std::unordered_set<std::wstring> met{L""};  // which stands for the first section
    return std::all_of(ids.begin(), ids.end(), [&](const std::wstring& id) { return met.insert(id).second && isLegal(id); });
}

template <typename Items>
auto placeOf(Items& items, const std::wstring& key) {
    return std::find_if(items.begin(), items.end(), [&](const StepDevice::Item& item) { return item.key == key; });
}

}  // namespace

StepDevices& StepDocument::listed(StepDevices& devices) const {
    if (devices.mayWait) return devices;
    std::vector<std::wstring> ids = m_document.getSectionIDs(devices.name);
    devices.mayWait = !devices.isListed && areDistinct(ids);
    devices.isListed = true;
    for (StepDevice& old : devices.list) old.isGone = true;
    for (std::wstring& id : ids) devices.list.push_back({&devices, std::move(id)});
    return devices;
}

void StepDocument::write() {
    for (StepDevices* const devices : {&m_projectors, &m_cameras})
        for (StepDevice& device : devices->list) write(device);
}

void StepDocument::write(StepDevice& device) const {
    if (device.waiting.empty()) return;
    const Silence silence(m_document);
    for (const StepDevice::Item& item : device.waiting)
        m_document.setStringItem(device.kind->name, item.key, item.text, device.id, {}, {});
    device.waiting.clear();
}

// Where two devices come to have one ID, the document takes the first for both from now on.
void StepDocument::prepareRenaming(StepDevice& device, const std::wstring& newID) const {
    StepDevices& devices = *device.kind;
    const bool isAlone = newID == device.id || !m_document.doesSectionExist(devices.name, newID);
    if (!devices.mayWait || (isAlone && !newID.empty())) return;
    for (StepDevice& each : devices.list) write(each);
    devices.mayWait = false;
}

const StepDevice::Item* StepDocument::waiting(const StepDevice& device, const std::wstring& key) {
    const auto place = placeOf(device.waiting, key);
    return place == device.waiting.end() ? nullptr : &*place;
}

bool StepDocument::put(StepDevice& device, const std::wstring& key, const std::wstring& text) const {
    if (!device.kind->mayWait) return false;
    if (key.find(L'|') != std::wstring::npos || !isLegal(text)) {
        write(device);
        return false;
    }
    const auto place = placeOf(device.waiting, key);
    if (place != device.waiting.end()) {
        if (place->text != text)
            reportChange(m_document, device, Kind::ItemChanged, key, std::exchange(place->text, text), text);
        return true;
    }
    if (m_document.doesItemExist(device.kind->name, key, device.id)) return false;
    device.waiting.push_back({key, text});
    reportChange(m_document, device, Kind::ItemAdded, key, {}, text);
    return true;
}

bool StepDocument::drop(StepDevice& device, const std::wstring& key) const {
    const auto place = placeOf(device.waiting, key);
    if (place == device.waiting.end()) return false;
    const std::wstring text = std::move(place->text);
    device.waiting.erase(place);
    reportChange(m_document, device, Kind::ItemRemoved, key, text, {});
    return true;
}

}  // namespace XMLConfig::detail
