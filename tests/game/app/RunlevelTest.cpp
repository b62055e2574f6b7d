// The runlevel's value before main runs.
#include "app/Runlevel.h"

#include <gtest/gtest.h>

namespace {
// Read while the program's statics are still being built, before any test or start-up code.
const int kRunlevelBeforeMain = runlevel;
}

TEST(Runlevel, StartsAtOneBeforeMain) { EXPECT_EQ(kRunlevelBeforeMain, 1); }

TEST(Runlevel, ModeNumbers)
{
    EXPECT_EQ(RUNLEVEL_LEAVE, 0);
    EXPECT_EQ(RUNLEVEL_MENU, 1);
    EXPECT_EQ(RUNLEVEL_GAME, 2);
    EXPECT_EQ(RUNLEVEL_TITLE, 3);
    EXPECT_EQ(RUNLEVEL_ENTERING, 4);
    EXPECT_EQ(RUNLEVEL_QUITTING, -1);
}
