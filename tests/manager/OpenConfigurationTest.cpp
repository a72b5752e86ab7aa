#include "manager/OpenConfiguration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/AssetManager.h"
#include "sections/CameraConfig.h"
#include "sections/ColorConfig.h"
#include "sections/GeometryConfig.h"
#include "sections/MediaServerConfig.h"
#include "sections/ProjMapConfig.h"
#include "sections/ProjectorApprovedSlotsConfig.h"
#include "sections/ProjectorConfig.h"
#include "sections/ScreenConfig.h"
#include "sections/SiteAnalyticsConfig.h"
#include "sections/SystemConfig.h"
#include "sections/TargetLocatorConfig.h"

using XMLConfig::detail::OpenConfiguration;

namespace {

using Log = std::vector<std::string>;

/// An accessor that notes when it is freed, and whether the document and the asset manager were still there.
template <typename Section>
class Noting : public Section {
public:
    template <typename... Arguments>
    Noting(std::string name, const OpenConfiguration& open, Log& log, Arguments... arguments)
        : Section(open.document.get(), arguments...), m_name(std::move(name)), m_open(open), m_log(log) {}
    ~Noting() override {
        if (m_open.document) m_name += ", before the document";
        if (!m_open.assetManager) m_name += ", after the asset manager";
        m_log.push_back(m_name);
    }

private:
    std::string m_name;
    const OpenConfiguration& m_open;
    Log& m_log;
};

}  // namespace

TEST(OpenConfiguration, FreesItsPartsInTheirOrder) {
    Log log;
    std::weak_ptr<AssetManager> assets;
    {
        OpenConfiguration open(std::make_unique<ConfigInfo>(), L"");
        assets = open.assetManager;
        const std::wstring noID;
        const auto note = [&](auto& member, const char* name, auto... arguments) {
            using Section = std::decay_t<decltype(*member)>;
            member = std::make_unique<Noting<Section>>(name, open, log, arguments..., noID);
        };
        note(open.mediaServer, "media server");
        note(open.projMap, "projection map");
        note(open.siteAnalytics, "site analytics");
        note(open.approvedSlots, "approved slots");
        note(open.targetLocator, "target locator");
        note(open.system, "system", open.assetManager);
        note(open.screen, "screen", open.assetManager);
        note(open.geometry, "geometry");
        note(open.color, "colour");
        for (const wchar_t* id : {L"1", L"2"}) {
            open.projectors.keep(id, std::make_unique<Noting<ProjectorConfig>>("projector", open, log, id));
            open.cameras.keep(id, std::make_unique<Noting<CameraConfig>>("camera", open, log, id));
        }
    }
    EXPECT_THAT(log, testing::ElementsAre("camera", "camera", "colour", "geometry", "screen", "system", "target locator",
                                          "approved slots", "site analytics", "projection map", "media server", "projector",
                                          "projector"));
    EXPECT_TRUE(assets.expired());
}
