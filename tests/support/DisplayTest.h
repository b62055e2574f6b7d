// Test fixture for code that needs a real window and GL context (run under Xvfb).
// Opens a 1280 x 720 windowed context once per test process and skips the test when no X
// display is available, so the logic suites still run anywhere.
#pragma once

#include "platform/Vorlik.h"

#include <gtest/gtest.h>
#include <cstdlib>

class DisplayTest : public ::testing::Test {
protected:
    static constexpr int kWidth = 1280;
    static constexpr int kHeight = 720;

    void SetUp() override
    {
        if (std::getenv("DISPLAY") == nullptr) GTEST_SKIP() << "no X display";
        if (vorlik::Vorlik::events == nullptr) vorlik::Vorlik::init(kWidth, kHeight, "test", false, false);
    }
};
