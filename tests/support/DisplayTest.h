// Test fixtures for code that needs a real window and GL context (run under Xvfb).
// DisplayTest opens a 1280 x 720 windowed context once per test process and skips the test
// when no X display is available, so the logic suites still run anywhere. CleanWindowTest
// also resets the window before each test: pixel projection, no program, cleared to black.
#pragma once

#include "PixelProbe.h"
#include "platform/Vorlik.h"

#include <gtest/gtest.h>
#include <cstdlib>

class DisplayTest : public ::testing::Test {
protected:
    static constexpr int kWidth = 1280;
    static constexpr int kHeight = 720;

    void SetUp() override
    {
        using vorlik::Vorlik;
        if (std::getenv("DISPLAY") == nullptr) GTEST_SKIP() << "no X display";
        if (Vorlik::events == nullptr)
            Vorlik::init(kWidth, kHeight, "test", Vorlik::kWindowed, Vorlik::kVsyncOff);
    }
};

class CleanWindowTest : public DisplayTest {
protected:
    void SetUp() override
    {
        DisplayTest::SetUp();
        if (IsSkipped()) return;
        pixelprobe::resetWindow(kWidth, kHeight);
    }
};
