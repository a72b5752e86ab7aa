#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/Export.h"
#include "store/Address.h"

class ConfigInfo;

/// What differs between two configurations, told by what the settings mean instead of by the lines of the files.
namespace XMLConfig {

/// How a comparison is made.
struct DiffOptions {
    /// By how much numbers may differ and count as equal, in the stored unit. Without it doubles are equal within 1e-12 of
    /// their size, and those that are stored with six decimals within 5e-7.
    std::optional<double> tolerance;
};

/// A device that both documents hold, under different IDs.
struct RenamedDevice {
    std::wstring section;  ///< the tag of its section
    std::wstring name;     ///< as the new document has it
    std::wstring oldID;
    std::wstring newID;
    std::wstring by;  ///< what tells that it is one device: "OldSectionID", "MAC address", "serial number", "name", "place"
};

/// A device of one document only.
struct LoneDevice {
    std::wstring section;
    std::wstring id;
    std::wstring name;
    std::size_t settings = 0;  ///< how many texts it holds
};

/// A setting that is not the same in both documents.
struct SettingDifference {
    /// As addressText writes it, followed by "@name" for an attribute in a device snippet. Devices have the ID that the new
    /// document knows them by; what is gone has that of the old one.
    std::wstring address;
    Address place;                    ///< the same as parts; in a device snippet that of the whole snippet
    std::wstring device;              ///< the device's name; empty for settings of other sections
    std::optional<std::wstring> old;  ///< the stored text; nothing where the old document has none
    std::optional<std::wstring> now;  ///< the stored text; nothing where the new document has none
    std::wstring why;        ///< of a difference without effect: "inherited" or "default", what the missing text reads as
    bool inSnippet = false;  ///< whether it is a part of a device snippet
};

/// Sections of one tag that both documents hold in different orders.
struct OrderDifference {
    std::wstring section;
    std::vector<std::wstring> old;  ///< names, or IDs of devices without a name
    std::vector<std::wstring> now;
};

/// How two documents differ. Devices come first, in the order of the new document, then other sections in its order, then
/// what only the old document holds.
struct Difference {
    std::vector<RenamedDevice> renamed;
    std::vector<LoneDevice> added;
    std::vector<LoneDevice> removed;
    std::vector<SettingDifference> changed;       ///< what the application reads otherwise now
    std::vector<SettingDifference> sameInEffect;  ///< one document stores what the other one inherits or has by default
    std::vector<SettingDifference> sameInValue;   ///< another text of the same value
    std::vector<SettingDifference> runs;          ///< counts and times that runs of the application write
    std::vector<OrderDifference> order;
    /// How many comments are new, gone or changed, directly in the root or at any depth in its sections. Those of a device
    /// that was added or removed are not counted, nor those of a section that repeats another one's tag and ID.
    std::size_t comments = 0;

    /// Whether nothing is told that could change what the application does: texts of one value, of one effect, runs and
    /// comments may differ.
    [[nodiscard]] bool isNothing() const {
        return renamed.empty() && added.empty() && removed.empty() && changed.empty() && order.empty();
    }
};

/// Compares two documents of the same file version; of different versions, the older one is to be upgraded before, else
/// the settings that moved are told as removed and added. Devices are matched within their tag by ID, by the old ID that one
/// of them remembers, by MAC address, by serial number, by name (unless it is the one that a new device gets), and
/// projectors by connection or by the same channel; each only among those still unmatched, and only where it is unique on
/// both sides. References to a camera follow its renaming. The order of settings and of the fixed sections counts for
/// nothing, and comments are only counted. Neither document changes. Takes time in proportion to what both hold.
XMLCONFIG_API Difference diff(const ConfigInfo& oldDocument, const ConfigInfo& newDocument, const DiffOptions& options = {});

}  // namespace XMLConfig
