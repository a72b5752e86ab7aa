#include "manager/Catalogue.h"

#include <iterator>

#include "sections/ApprovedSlotsItems.h"
#include "sections/CameraItems.h"
#include "sections/ColorItems.h"
#include "sections/GeometryItems.h"
#include "sections/MediaServerItems.h"
#include "sections/ProjectorItems.h"
#include "sections/ReprojectionAccuracyItems.h"
#include "sections/ScreenItems.h"
#include "sections/SiteAnalyticsItems.h"
#include "sections/SystemItems.h"
#include "sections/TargetLocatorItems.h"

namespace XMLConfig {

namespace {

// The projection map has no settings of its own: its callers name the keys.
const detail::SettingTable* const tables[] = {&detail::colorItems,
                                              &detail::geometryItems,
                                              &detail::screenItems,
                                              &detail::systemItems,
                                              &detail::targetLocatorItems,
                                              &detail::approvedSlotsItems,
                                              &detail::siteAnalyticsItems,
                                              &detail::mediaServerItems,
                                              &detail::projectorItems,
                                              &detail::cameraItems,
                                              &detail::reprojectionAccuracyItems};

std::vector<Setting> everySetting() {
    std::vector<Setting> settings;
    for (const detail::SettingTable* const table : tables) {
        std::vector<Setting> more = detail::settingsOf(*table);
        settings.insert(settings.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
    }
    return settings;
}

}  // namespace

const std::vector<Setting>& catalogue() {
    static const std::vector<Setting> settings = everySetting();
    return settings;
}

}  // namespace XMLConfig
