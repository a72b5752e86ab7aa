#include "manager/Catalogue.h"

#include <iterator>

#include "base/Items.h"
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

template <typename Items>
void append(std::vector<Setting>& settings, const wchar_t* section, const Items& items) {
    std::vector<Setting> more = detail::settingsOf(section, items);
    settings.insert(settings.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

// The projection map has no settings of its own: its callers name the keys.
std::vector<Setting> everySetting() {
    std::vector<Setting> settings;
    append(settings, detail::colorItems::sectionName, detail::colorItems::all);
    append(settings, detail::geometryItems::sectionName, detail::geometryItems::all);
    append(settings, detail::screenItems::sectionName, detail::screenItems::all);
    append(settings, detail::systemItems::sectionName, detail::systemItems::all);
    append(settings, detail::targetLocatorItems::sectionName, detail::targetLocatorItems::all);
    append(settings, detail::approvedSlotsItems::sectionName, detail::approvedSlotsItems::all);
    append(settings, detail::siteAnalyticsItems::sectionName, detail::siteAnalyticsItems::all);
    append(settings, detail::mediaServerItems::sectionName, detail::mediaServerItems::all);
    append(settings, detail::projectorItems::sectionName, detail::projectorItems::all);
    append(settings, detail::cameraItems::sectionName, detail::cameraItems::all);
    append(settings, detail::reprojectionAccuracyItems::globalSectionName, detail::reprojectionAccuracyItems::all);
    return settings;
}

}  // namespace

const std::vector<Setting>& catalogue() {
    static const std::vector<Setting> settings = everySetting();
    return settings;
}

}  // namespace XMLConfig
