#include "manager/Selector.h"

#include <algorithm>
#include <functional>
#include <iterator>

#include "manager/DeviceAddresses.h"
#include "manager/SettingSearch.h"
#include "platform/Words.h"
#include "store/ConfigInfo.h"
#include "store/ElementView.h"

namespace XMLConfig {
namespace {

using Devices = std::vector<ElementView>;

/// Whether the ID holds `ending` after a ":" or "***", as its last part.
bool isEndingOf(const std::wstring& ending, const std::wstring& id) {
    return !ending.empty() &&
           (detail::endsWith(id, L":" + ending) || detail::endsWith(id, detail::deviceIDSeparator + ending));
}

/// The number in "#3", counted from 1; 0 for every other text.
std::size_t positionOf(const std::wstring& text) {
    constexpr std::size_t longest = 9;
    if (text.size() < 2 || text.size() > longest || text[0] != L'#') return 0;
    std::size_t number = 0;
    for (const wchar_t digit : text.substr(1)) {
        if (digit < L'0' || digit > L'9') return 0;
        number = 10 * number + static_cast<std::size_t>(digit - L'0');
    }
    return number;
}

/// The devices that fit, in document order.
Devices fitting(const Devices& devices, const std::function<bool(const ElementView&)>& fits) {
    Devices found;
    std::copy_if(devices.begin(), devices.end(), std::back_inserter(found), fits);
    return found;
}

class Selecting {
public:
    Selecting(const ConfigInfo& document, const Address& address) : m_document(document), m_address(address) {}

    Selection run() const {
        const std::wstring& wanted = m_address.sectionID;
        if (!isDeviceSection(m_address.section)) return {{m_address}, {}};
        if (!wanted.empty() && m_document.doesSectionExist(m_address.section, wanted)) return {{m_address}, {}};
        const Devices devices = reached();
        if (wanted == L"*") return all(devices);
        if (wanted.empty()) return only(devices);
        const Devices numbered = fitting(devices, [](const ElementView& device) { return !device.id().empty(); });
        if (const std::size_t position = positionOf(wanted); position > 0 && position <= numbered.size())
            return only({numbered[position - 1]});
        const Devices named =
            fitting(devices, [&](const ElementView& device) { return device.child(L"Name").text() == wanted; });
        if (!named.empty()) return only(named);
        return only(fitting(devices, [&](const ElementView& device) { return isEndingOf(wanted, device.id()); }));
    }

private:
    /// The devices that an address can lead to.
    Devices reached() const {
        return fitting(sectionElements(m_document, m_address.section), [&](const ElementView& device) {
            return findElement(m_document, {m_address.section, device.id(), L"", L"", L""}) == device;
        });
    }

    Selection all(const Devices& devices) const {
        Selection selection;
        for (const ElementView& device : devices) selection.places.push_back(placeIn(device));
        return selection;
    }

    Selection only(const Devices& devices) const {
        if (devices.size() <= 1) return all(devices);
        Selection selection;
        for (const ElementView& device : devices) selection.candidates.push_back(device.id());
        return selection;
    }

    Address placeIn(const ElementView& device) const {
        Address place = m_address;
        place.sectionID = device.id();
        return place;
    }

    const ConfigInfo& m_document;
    const Address& m_address;
};

}  // namespace

Selection select(const ConfigInfo& document, const Address& address) { return Selecting(document, address).run(); }

}  // namespace XMLConfig
