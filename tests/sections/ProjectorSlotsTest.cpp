#include <gtest/gtest.h>

#include "sections/ProjectorConfig.h"
#include "tests/support/VirtualSlots.h"

#if defined(TESTS_KNOW_VIRTUAL_SLOTS)

#define SLOT(member) NAMED_SLOT(ProjectorConfig, member)

TEST(ProjectorConfig, VirtualMembersStandInTheirOrder) {
    const std::vector<NamedSlot> slots = {
        SLOT(initialize),
        SLOT(getName),
        SLOT(setName),
        SLOT(getDeviceSnippet),
        SLOT(setDeviceSnippet),
        SLOT(getDeviceSnippetOriginal),
        SLOT(getResolutionX),
        SLOT(setResolutionX),
        SLOT(getResolutionY),
        SLOT(setResolutionY),
        SLOT(getImageResolutionX),
        SLOT(setImageResolutionX),
        SLOT(unsetImageResolutionX),
        SLOT(getImageResolutionY),
        SLOT(setImageResolutionY),
        SLOT(unsetImageResolutionY),
        SLOT(getInputImageScalingMode),
        SLOT(setInputImageScalingMode),
        SLOT(unsetInputImageScalingMode),
        SLOT(getPortraitMode),
        SLOT(setPortraitMode),
        SLOT(unsetPortraitMode),
        SLOT(getBoxSize),
        SLOT(setBoxSize),
        SLOT(unsetBoxSize),
        SLOT(getBoxSpacing),
        SLOT(setBoxSpacing),
        SLOT(unsetBoxSpacing),
        SLOT(getGamma),
        SLOT(setGamma),
        SLOT(getLampPower),
        SLOT(setLampPower),
        SLOT(getColourUser),
        SLOT(setColourUser),
        SLOT(getLampMode),
        SLOT(setLampMode),
        SLOT(getBlendPercentTop),
        SLOT(setBlendPercentTop),
        SLOT(getBlendPercentBottom),
        SLOT(setBlendPercentBottom),
        SLOT(getBlendPercentRight),
        SLOT(setBlendPercentRight),
        SLOT(getBlendPercentLeft),
        SLOT(setBlendPercentLeft),
        SLOT(getChannelExtentHeadingYaw),
        SLOT(setChannelExtentHeadingYaw),
        SLOT(getChannelExtentHeadingPitch),
        SLOT(setChannelExtentHeadingPitch),
        SLOT(getChannelExtentHeadingRoll),
        SLOT(setChannelExtentHeadingRoll),
        SLOT(getChannelExtentVFOVTop),
        SLOT(setChannelExtentVFOVTop),
        SLOT(getChannelExtentVFOVBottom),
        SLOT(setChannelExtentVFOVBottom),
        SLOT(getChannelExtentHFOVLeft),
        SLOT(getChannelExtentHFOVRight),
        SLOT(setChannelExtentHFOVRight),
        SLOT(getChannelExtentsAsViewport),
        SLOT(setChannelExtentsFromViewport),
        SLOT(getDesignedFrustum),
        SLOT(setDesignedFrustum),
        SLOT(getDesignedLumens),
        SLOT(setDesignedLumens),
        SLOT(getScreenAreaLeft),
        SLOT(setScreenAreaLeft),
        SLOT(getScreenAreaRight),
        SLOT(setScreenAreaRight),
        SLOT(getScreenAreaTop),
        SLOT(setScreenAreaTop),
        SLOT(getScreenAreaBottom),
        SLOT(setScreenAreaBottom),
        SLOT(getBlackLevel),
        SLOT(setBlackLevel),
        SLOT(getPondOfMirrors),
        SLOT(setPondOfMirrors),
        SLOT(getBlackLevelBoostFactor),
        SLOT(setBlackLevelBoostFactor),
        SLOT(getBlackLevelTint),
        SLOT(setBlackLevelTint),
        SLOT(getMotoBlendInitCommand),
        SLOT(getMotoBlendOpenCommand),
        SLOT(getMotoBlendCloseCommand),
        SLOT(setMotoBlendInitCommand),
        SLOT(setMotoBlendOpenCommand),
        SLOT(setMotoBlendCloseCommand),
        SLOT(getFitOrder),
        SLOT(setFitOrder),
        SLOT(getEyePoint),
        SLOT(setEyePoint),
        SLOT(getProjectionModelFilename),
        SLOT(setProjectionModelFilename),
        SLOT(getProjectionModelScript),
        SLOT(setProjectionModelScript),
        SLOT(getProjectionLayoutFilename),
        SLOT(setProjectionLayoutFilename),
        SLOT(getSolverType),
        SLOT(getInitialYPR),
        SLOT(getInitialXYZ),
        SLOT(getInitialF),
        SLOT(getInitialAspectRatio),
        SLOT(getInitialOffset),
        SLOT(getAutoInitIntrinsics),
        SLOT(getAutoInitExtrinsics),
        SLOT(getRedGreenAlignmentImageName),
        SLOT(setRedGreenAlignmentImageName),
        SLOT(getPellinorWarpLatency),
        SLOT(setPellinorWarpLatency),
    };
    EXPECT_EQ(misplacedSlots(2, slots), "");
    EXPECT_EQ(slotCount<ProjectorConfig>(), 2 + static_cast<int>(slots.size()));
}

TEST(ProjectorConfig, SomeMembersAreDeliberatelyNotVirtual) {
    EXPECT_EQ(slotOf(&ProjectorConfig::setChannelExtentHFOVLeft), -1);
    EXPECT_EQ(slotOf(&ProjectorConfig::getOldUID), -1);
    EXPECT_EQ(slotOf(&ProjectorConfig::getAssociatedCameraId1), -1);
    EXPECT_EQ(slotOf(&ProjectorConfig::setAssociatedCameraId1), -1);
    EXPECT_EQ(slotOf(&ProjectorConfig::getAssociatedCameraId2), -1);
    EXPECT_EQ(slotOf(&ProjectorConfig::setAssociatedCameraId2), -1);
}

#endif
