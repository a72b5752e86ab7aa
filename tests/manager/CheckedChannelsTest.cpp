#include <gtest/gtest.h>

#include <algorithm>

#include "manager/Check.h"
#include "manager/Layout.h"
#include "store/ConfigInfo.h"
#include "tests/support/CurrentFile.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using XMLConfig::ChannelState;

std::string fileWithExtents(const std::string& extents) {
    return currentFile("<Projector ID='1'><Channel_Extents>" + extents + "</Channel_Extents></Projector>");
}

std::string edges(const std::string& left, const std::string& right) {
    return "<HFOV>" + left + right + "</HFOV><VFOV><Top>0.2</Top><Bottom>-0.2</Bottom></VFOV>";
}

/// The rules of the states that a channel can be in, each found where the channel is in that state.
std::vector<std::wstring> rulesOfState(ChannelState state) {
    if (state == ChannelState::Missing) return {L"XC309"};
    if (state == ChannelState::EdgesSwapped) return {L"XC303"};
    return state == ChannelState::FieldTooWide ? std::vector<std::wstring>{L"XC304"} : std::vector<std::wstring>();
}

std::vector<std::wstring> rulesFoundIn(const ConfigInfo& document) {
    XMLConfig::CheckOptions options;
    options.onlyRules = {L"XC303", L"XC304", L"XC309"};
    std::vector<std::wstring> rules;
    for (const XMLConfig::Finding& finding : XMLConfig::check(document, options)) rules.push_back(finding.rule);
    return rules;
}

class CheckedChannels : public testing::TestWithParam<std::pair<std::string, ChannelState>> {};

TEST_P(CheckedChannels, AreThoseOfTheLayout) {
    const TemporaryFolder folder;
    const ConfigInfo document(folder.write(L"hall.skorrax", fileWithExtents(GetParam().first)));
    const XMLConfig::Layout layout = XMLConfig::layout(document);
    ASSERT_EQ(layout.channels.size(), 1U);
    EXPECT_EQ(layout.channels[0].state, GetParam().second);
    EXPECT_EQ(rulesFoundIn(document), rulesOfState(GetParam().second));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, CheckedChannels,
    testing::Values(std::pair(std::string(), ChannelState::Missing),
                    std::pair(edges("<Left>-0.3</Left>", "<Right>0.3</Right>"), ChannelState::Usable),
                    std::pair(edges("<Left> -0.3 m</Left>", "<Right>0.3, 9</Right>"), ChannelState::Usable),
                    std::pair(edges("<Left>0.3</Left>", "<Right>0,3</Right>"), ChannelState::EdgesSwapped),
                    std::pair(edges("<Left>wide</Left>", "<Right/>"), ChannelState::EdgesSwapped),
                    std::pair(edges("<Left>-0.3</Left>", "<Right>0.3</Right><Right>1.6</Right>"), ChannelState::Usable),
                    std::pair(edges("<Left><b>-0.3</b></Left>", "<Right>-0.1</Right>"), ChannelState::Usable),
                    std::pair(edges("<Left>-0.3</Left>", "<Right ID='3'>1.6</Right>"), ChannelState::FieldTooWide)));

}  // namespace
