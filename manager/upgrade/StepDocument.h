#pragma once

#include <deque>
#include <string>
#include <vector>

class ConfigInfo;

/// A document while steps convert it.
namespace XMLConfig::detail {

struct StepDevices;

/// A projector or camera, and the items that steps gave it and the tree does not hold yet. Many of these are taken away by a
/// later step, and never become nodes.
struct StepDevice {
    struct Item {
        std::wstring key;
        std::wstring text;
    };
    StepDevices* kind;
    std::wstring id;
    bool isGone = false;
    std::vector<Item> waiting = {};  ///< in the order in which they follow what the device holds
};

/// All devices of one tag, in document order.
struct StepDevices {
    std::wstring name;
    bool isListed = false;
    bool mayWait = false;  ///< whether each device is known by its ID: the document takes several of one ID for the first
    std::deque<StepDevice> list = {};  // sections of steps point into it
};

class StepDocument {
public:
    /// The document is borrowed.
    explicit StepDocument(ConfigInfo& document) : m_document(document) {}
    StepDocument(const StepDocument&) = delete;
    StepDocument& operator=(const StepDocument&) = delete;

    [[nodiscard]] ConfigInfo& stored() const { return m_document; }
    /// The devices of that tag. To be listed anew each time where they may not wait.
    StepDevices& projectors() { return listed(m_projectors); }
    StepDevices& cameras() { return listed(m_cameras); }

    /// Writes what waits, of which the observer was told. To be called after the last step.
    void write();
    void write(StepDevice& device) const;
    /// To be called before a device gets another ID.
    void prepareRenaming(StepDevice& device, const std::wstring& newID) const;

    // What waits for the tree; the observer is told at once.
    /// Null where no item of the key waits.
    static const StepDevice::Item* waiting(const StepDevice& device, const std::wstring& key);
    /// False where the document must be given the item at once; what must come before it is written then.
    bool put(StepDevice& device, const std::wstring& key, const std::wstring& text) const;
    /// False where no item of the key waits.
    bool drop(StepDevice& device, const std::wstring& key) const;

private:
    StepDevices& listed(StepDevices& devices) const;

    ConfigInfo& m_document;
    StepDevices m_projectors{L"Projector"};
    StepDevices m_cameras{L"Camera"};
};

}  // namespace XMLConfig::detail
