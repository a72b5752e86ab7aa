#include "tests/support/VirtualSlots.h"

#include <gtest/gtest.h>

#if defined(TESTS_KNOW_VIRTUAL_SLOTS)
namespace {

struct Sample {
    virtual ~Sample() = default;
    virtual void first() = 0;
    void plain() {}
    virtual int second(int) const { return 0; }
    virtual int second() { return 1; }
};
struct Later : Sample {
    void first() override {}
    virtual void third() {}
};

}  // namespace

TEST(VirtualSlots, MembersAreFoundAtTheirPlaces) {
    EXPECT_EQ(slotOf(&Sample::first), 2);
    EXPECT_EQ(slotOf(static_cast<int (Sample::*)(int) const>(&Sample::second)), 3);
    EXPECT_EQ(slotOf(static_cast<int (Sample::*)()>(&Sample::second)), 4);
    EXPECT_EQ(slotOf(&Sample::plain), -1);
    EXPECT_EQ(slotOf(&Later::third), 5);
}

TEST(VirtualSlots, CountIsWhereTheNextWouldStand) {
    EXPECT_EQ(slotCount<Sample>(), 5);
    EXPECT_EQ(slotCount<Later>(), 6);
}

TEST(VirtualSlots, MisplacedMembersAreNamed) {
    EXPECT_EQ(misplacedSlots(2, {NAMED_SLOT(Sample, first)}), "");
    EXPECT_EQ(misplacedSlots(3, {NAMED_SLOT(Sample, first)}), "first is at 2, not 3; ");
}
#endif
