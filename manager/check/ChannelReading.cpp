#include <algorithm>

#include "manager/check/Channels.h"
#include "manager/layout/Parts.h"

/// The channels as they have been read for all rules, so that no accessor looks everything up once more.
namespace XMLConfig::detail {
namespace {

/// Whether accessors may read the section otherwise than the rules do: where elements stand for a value, or have an ID.
bool isUnusual(const CheckedItem& item) {
    const bool isElement = item.setting != nullptr && item.setting->type == SettingType::Element;
    return item.sharedKey.holdsIDs || (item.holdsElements && item.kind == CheckedItem::Kind::Value && !isElement);
}

Channel channelOf(const CheckedDocument& read, const CheckedSection& projector) {
    const auto number = [&](const wchar_t* key) { return read.number(projector, key); };
    const auto flag = [&](const wchar_t* key) { return static_cast<std::uint8_t>(read.integer(projector, key)); };
    Channel channel;
    channel.id = projector.id;
    channel.name = read.text(projector, L"Name");
    channel.yaw = number(L"Channel_Extents|Heading|Yaw");
    channel.pitch = number(L"Channel_Extents|Heading|Pitch");
    channel.roll = number(L"Channel_Extents|Heading|Roll");
    channel.edges = {number(L"Channel_Extents|HFOV|Left"), number(L"Channel_Extents|HFOV|Right"),
                     number(L"Channel_Extents|VFOV|Top"), number(L"Channel_Extents|VFOV|Bottom")};
    channel.eyePoint = read.point(projector, L"Channel_Extents|Eye_Point");
    channel.blends = {number(L"Blend_Left"), number(L"Blend_Right"), number(L"Blend_Top"), number(L"Blend_Bottom")};
    channel.screenArea = {number(L"Screen_Area_Left"), number(L"Screen_Area_Right"), number(L"Screen_Area_Top"),
                          number(L"Screen_Area_Bottom")};
    channel.ponds.Left = flag(L"Pond_Of_Mirrors|Left");
    channel.ponds.Right = flag(L"Pond_Of_Mirrors|Right");
    channel.ponds.Top = flag(L"Pond_Of_Mirrors|Top");
    channel.ponds.Bottom = flag(L"Pond_Of_Mirrors|Bottom");
    for (const wchar_t* const key : {L"Associated_Camera_Id_1", L"Associated_Camera_Id_2"})
        if (const std::wstring& camera = read.text(projector, key); !camera.empty()) channel.cameras.push_back(camera);
    completeChannel(channel);
    return channel;
}

}  // namespace

Layout layoutOf(const Findings& findings) {
    Layout layout;
    layout.channels.reserve(findings.read.projectors().size());
    for (const CheckedSection* projector : findings.read.projectors()) {
        const bool isReadAlike = std::none_of(projector->items.begin(), projector->items.end(), isUnusual);
        layout.channels.push_back(isReadAlike ? channelOf(findings.read, *projector)
                                              : readChannel(findings.document, projector->id));
    }
    layout.screen = readScreen(findings.document);
    readWanted(layout, findings.document);
    reckon(layout);
    return layout;
}

}  // namespace XMLConfig::detail
