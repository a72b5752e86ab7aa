#include <algorithm>
#include <map>
#include <unordered_map>
#include <unordered_set>

#include "manager/DeviceAddresses.h"
#include "manager/check/Findings.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "sections/SystemTexts.h"
#include "store/Tokens.h"

/// Rules on network addresses and ports.
namespace XMLConfig::detail {
namespace {

/// Something that is reached by an address or a port.
struct Station {
    Place place;
    std::wstring title;
    std::wstring address;  ///< of the network; "" for a serial port
    std::wstring port;     ///< of the address, or the serial one
    std::wstring id;       ///< of the device at that address or port; "" where there is one only
    bool isProjector = false;
    bool isBlackBox = false;
};

/// Stations at one address or port that do not get in each other's way.
struct Sharers {
    const Station* first = nullptr;
    std::unordered_map<std::wstring_view, const Station*> projectors;  // by what each has of its own there
};

bool isType(const ElementView& connection, const std::wstring& type) {
    return lowerAscii(connection.attribute(L"type").value_or(L"")) == type;
}

/// Whether its ones come before its zeros: there are 33 such masks.
bool isNetworkMask(std::uint32_t mask) { return (~mask & (~mask + 1U)) == 0; }

/// Nothing where the application would read a default one.
std::optional<BlackBoxInfo> blackBoxOf(const std::wstring& text) {
    if (blackBoxPieces(text).size() < 5) return std::nullopt;
    return blackBoxFromText(text);
}

bool isSerial(const BlackBoxInfo& box) { return equalIgnoringCase(box.getProtocol(), L"serial"); }

bool areOne(const BlackBoxInfo& one, const BlackBoxInfo& other) {
    return isSerial(one) == isSerial(other) && equalIgnoringCase(one.getCommAddress(), other.getCommAddress()) &&
           (isSerial(one) || one.getCommPort() == other.getCommPort());
}

constexpr const wchar_t* camerasBox = L"Black_Box_Cameras_Comm";
constexpr const wchar_t* lightsBox = L"Black_Box_LED_Lights_Comm";

class NetworkCheck {
public:
    explicit NetworkCheck(Findings& findings) : m_findings(findings) {}

    void run() {
        for (const CheckedSection* projector : m_findings.read.projectors()) readProjector(*projector);
        for (const CheckedSection* camera : m_findings.read.cameras()) readCamera(*camera);
        readACTUnits();
        readColorimeter();
        for (const wchar_t* const key : {camerasBox, lightsBox}) readBlackBox(key);
        checkSharedPowerPort();
        checkAddresses();
        checkPorts();
        checkNetworks();
    }

private:
    void add(const wchar_t* rule, Severity severity, const Place& place, const std::wstring& message) {
        m_findings.add(rule, severity, place, message);
    }

    // What there is.

    void readProjector(const CheckedSection& projector) {
        const ElementView snippet = projector.snippet();
        if (!snippet) return;  // has a rule of its own
        const ElementView connection = snippet.child(L"connection");
        const Place place = placeOf(projector, L"DeviceSnippet");
        if (!connection) return add(L"XC707", Severity::Warning, place, L"has no connection yet");
        if (isType(connection, L"virtual")) return add(L"XC708", Severity::Warning, place, L"is a virtual device");
        Station station{place, projector.title(), {}, childText(connection, L"port"), childText(snippet, L"id"), true};
        const bool isSerial = isType(connection, L"serial");
        if (!isSerial) station.address = childText(connection, L"address");
        if (!isSerial && station.address.empty()) return add(L"XC707", Severity::Warning, place, L"has no address");
        if (station.port.empty()) return add(L"XC707", Severity::Warning, place, L"has no port");
        (isSerial ? m_serial : m_network).push_back(station);
    }

    void readCamera(const CheckedSection& camera) {
        const ElementView snippet = camera.snippet();
        if (!snippet) return;
        const Place place = placeOf(camera, L"DeviceSnippet");
        if (snippet.attribute(L"type") == L"VC") add(L"XC708", Severity::Warning, place, L"is a virtual device");
        const std::wstring address = childText(snippet, L"ipAddress");
        if (!address.empty()) m_network.push_back({place, camera.title(), address, L"", L"", false});
        else if (lowerAscii(childText(snippet, L"dhcp")) == L"false")
            add(L"XC705", Severity::Error, place, L"has no DHCP and no address");
        readNetwork(snippet, place, address);
    }

    void readNetwork(const ElementView& snippet, const Place& place, const std::wstring& address) {
        const auto own = ipv4Of(address);
        const auto mask = ipv4Of(childText(snippet, L"subnetMask"));
        if (!own || !mask || !isNetworkMask(*mask)) return;
        m_networks[*mask].insert(*own & *mask);
        const std::wstring gatewayText = childText(snippet, L"defaultGateway");
        const auto gateway = ipv4Of(gatewayText);
        if (gateway && *gateway != 0 && (*gateway & *mask) != (*own & *mask))
            add(L"XC705", Severity::Warning, place, L"the gateway " + gatewayText + L" is outside its network");
    }

    void readACTUnits() {
        const std::wstring beginning = L"ACT_Address_";
        const CheckedSection& system = m_findings.read.section(L"System");
        for (const CheckedItem& item : system.items) {
            if (item.setting == nullptr || item.hiddenBy || item.text.empty()) continue;
            if (item.key.compare(0, beginning.size(), beginning) != 0) continue;
            m_network.push_back(
                {placeOf(system, item), L"ACT unit " + item.key.substr(beginning.size()), item.text, L"", L"", false});
        }
    }

    void readColorimeter() {
        if (m_findings.read.integer(L"Color", L"Colorimeter_Type") == 0) return;
        m_serial.push_back({placeOf(m_findings, L"Color", L"AdvColor_ComPort"), L"the colorimeter", L"",
                            m_findings.read.text(L"Color", L"AdvColor_ComPort"), L"", false});
    }

    // Black boxes.

    void readBlackBox(const wchar_t* key) {
        const std::wstring text = m_findings.read.section(L"System").stored(key);
        const std::size_t parts = blackBoxPieces(text).size();
        if (parts == 0) return;
        const Place place = placeOf(m_findings, L"System", key);
        const std::optional<BlackBoxInfo> box = blackBoxOf(text);
        if (!box) return add(L"XC706", Severity::Error, place, L"holds " + counted(parts, L"part") + L"; it needs five");
        const int available = m_findings.read.integer(L"System", L"Available_BlackBox_Power_Ports");
        if (box->getPowerPort() < 1 || box->getPowerPort() > available)
            add(L"XC706", Severity::Warning, place,
                L"power port " + std::to_wstring(box->getPowerPort()) + L"; there are " + std::to_wstring(available));
        if (box->getEnabled() && isSerial(*box))
            m_serial.push_back({place, L"a black box", L"", box->getCommAddress(), L"", false, true});
    }

    void checkSharedPowerPort() {
        const CheckedSection& system = m_findings.read.section(L"System");
        const std::optional<BlackBoxInfo> cameras = blackBoxOf(system.stored(camerasBox));
        const std::optional<BlackBoxInfo> lights = blackBoxOf(system.stored(lightsBox));
        if (!cameras || !lights || !cameras->getEnabled() || !lights->getEnabled()) return;
        if (areOne(*cameras, *lights) && cameras->getPowerPort() == lights->getPowerPort())
            add(L"XC706", Severity::Error, placeOf(system, lightsBox),
                L"is at power port " + std::to_wstring(lights->getPowerPort()) + L" of the box, as the cameras are");
    }

    // Addresses.

    void checkAddresses() {
        std::unordered_map<std::uint32_t, Sharers> byAddress;
        for (const Station& station : m_network) {
            const std::optional<std::uint32_t> address = ipv4Of(station.address);
            if (!address) add(L"XC703", Severity::Warning, station.place, quoted(station.address) + L" is no IPv4 address");
            else checkSameAddress(byAddress[*address], station);
        }
    }

    /// Projectors may share an address where each has a port of its own.
    void checkSameAddress(Sharers& sharers, const Station& station) {
        const Station* const other = rivalOf(sharers, station, station.port);
        if (other == nullptr) return;
        const bool haveOwnIDs = station.isProjector && other->isProjector && station.id != other->id;
        m_findings
            .add(L"XC701", haveOwnIDs ? Severity::Warning : Severity::Error, station.place,
                 station.address + L" is used by " + other->title + L" and " + station.title)
            .places = {otherPlace(other->place)};
    }

    void checkPorts() {
        std::unordered_map<std::wstring, Sharers> byPort;
        for (const Station& station : m_serial)
            if (!station.port.empty()) checkSamePort(byPort[lowerAscii(station.port)], station);
    }

    /// Projectors on one serial line are told apart by their IDs, and one controller may serve as both black boxes.
    void checkSamePort(Sharers& sharers, const Station& station) {
        const Station* const other = rivalOf(sharers, station, station.id);
        if (other == nullptr) return;
        m_findings
            .add(L"XC702", Severity::Error, station.place,
                 station.port + L" is used by " + other->title + L" and " + station.title)
            .places = {otherPlace(other->place)};
    }

    /// The station that already uses this address or serial line and may not share it; null where none does, or where the
    /// two may share: projectors with different IDs (or ports), or both black boxes.
    static const Station* rivalOf(Sharers& sharers, const Station& station, const std::wstring& own) {
        const Station* const first = sharers.first;
        if (first == nullptr) sharers.first = &station;
        if (station.isProjector && (first == nullptr || first->isProjector)) {
            const auto [owner, isNew] = sharers.projectors.emplace(own, &station);
            return isNew ? nullptr : owner->second;
        }
        const bool areBlackBoxes = first != nullptr && first->isBlackBox && station.isBlackBox;
        return areBlackBoxes ? nullptr : first;
    }

    void checkNetworks() {
        if (m_networks.empty()) return;
        for (const Station& station : m_network) {
            const auto address = ipv4Of(station.address);
            const bool isCamera = !station.isProjector && station.title.compare(0, 4, L"ACT ") != 0;
            if (!address || isCamera || isInNetworks(*address)) continue;
            add(L"XC704", Severity::Note, station.place, station.address + L" is in none of the cameras' networks");
        }
    }

    [[nodiscard]] bool isInNetworks(std::uint32_t address) const {
        const auto isIn = [&](const auto& networks) { return networks.second.count(address & networks.first) != 0; };
        return std::any_of(m_networks.begin(), m_networks.end(), isIn);
    }

    Findings& m_findings;
    std::vector<Station> m_network;
    std::vector<Station> m_serial;
    std::map<std::uint32_t, std::unordered_set<std::uint32_t>> m_networks;  // by their mask, of which there are few
};

}  // namespace

void checkNetwork(Findings& findings) { NetworkCheck(findings).run(); }

}  // namespace XMLConfig::detail
