#include "manager/upgrade/CommonProjectorValues.h"

#include <cstddef>
#include <memory>
#include <vector>

#include "manager/upgrade/MostFrequent.h"
#include "manager/upgrade/StepTools.h"
#include "sections/GeometryConfig.h"
#include "sections/ProjectorConfig.h"

namespace XMLConfig::detail {

namespace {

using Projectors = std::vector<std::unique_ptr<ProjectorConfig>>;

// Found for all settings before any projector loses its own value: a projector without one reads the geometry section.
template <typename Value>
class Vote {
public:
    Vote(const Projectors& projectors, Value (ProjectorConfig::*get)() const) {
        for (const auto& projector : projectors) m_values.push_back((projector.get()->*get)());
        m_common = mostFrequent(m_values);
    }
    [[nodiscard]] const Value& common() const { return m_common; }
    [[nodiscard]] bool isCommon(std::size_t projector) const { return isSame(m_values[projector], m_common); }

private:
    std::vector<Value> m_values;
    Value m_common;
};

void setFixedValues(GeometryConfig& geometry) {
    geometry.setPortraitMode(0);
    geometry.setBoxSize({21, 21});
    geometry.setBoxSpacing(1.5);
    geometry.setImageResolutionX(1400);
    geometry.setImageResolutionY(1050);
    geometry.setInputImageScalingMode(0);
}

}  // namespace

void shareCommonProjectorValues(ConfigInfo& document) {
    GeometryConfig geometry(&document, {});
    Projectors projectors;
    for (const std::wstring& id : projectorsOf(document))
        projectors.push_back(std::make_unique<ProjectorConfig>(&document, id));
    if (projectors.empty()) return setFixedValues(geometry);

    const Vote<int> portraitMode(projectors, &ProjectorConfig::getPortraitMode);
    const Vote<Point_2Dim<int>> boxSize(projectors, &ProjectorConfig::getBoxSize);
    const Vote<double> boxSpacing(projectors, &ProjectorConfig::getBoxSpacing);
    const Vote<int> imageResolutionX(projectors, &ProjectorConfig::getImageResolutionX);
    const Vote<int> imageResolutionY(projectors, &ProjectorConfig::getImageResolutionY);
    const Vote<int> scalingMode(projectors, &ProjectorConfig::getInputImageScalingMode);

    geometry.setPortraitMode(portraitMode.common());
    geometry.setBoxSize(boxSize.common());
    geometry.setBoxSpacing(boxSpacing.common());
    geometry.setImageResolutionX(imageResolutionX.common());
    geometry.setImageResolutionY(imageResolutionY.common());
    geometry.setInputImageScalingMode(scalingMode.common());

    for (std::size_t i = 0; i < projectors.size(); ++i) {
        if (portraitMode.isCommon(i)) projectors[i]->unsetPortraitMode();
        if (boxSize.isCommon(i)) projectors[i]->unsetBoxSize();
        if (boxSpacing.isCommon(i)) projectors[i]->unsetBoxSpacing();
        if (imageResolutionX.isCommon(i)) projectors[i]->unsetImageResolutionX();
        if (imageResolutionY.isCommon(i)) projectors[i]->unsetImageResolutionY();
        if (scalingMode.isCommon(i)) projectors[i]->unsetInputImageScalingMode();
    }
}

}  // namespace XMLConfig::detail
