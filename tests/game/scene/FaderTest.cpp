#include "scene/Fader.h"

#include "DisplayTest.h"
#include "PixelProbe.h"
#include "graphics/ShaderProgram.h"
#include "platform/Vorlik.h"
#include "scene/Shaders.h"

#include <GL/gl.h>
#include <cmath>
#include <string>

using vorlik::Vorlik;

namespace {

// The fader's arithmetic against a clock the test sets by hand.
class FaderClock : public ::testing::Test {
protected:
    void SetUp() override { savedTime = Vorlik::currentTime; }
    void TearDown() override { Vorlik::currentTime = savedTime; }

    static void at(uint32_t ms) { Vorlik::currentTime = ms; }

    Fader fader;
    uint32_t savedTime = 0;
};

// The fader drawn over a window cleared to a known colour, with the game's untextured
// fixed-function program from the source tree.
class FaderDraw : public CleanWindowTest {
protected:
    static constexpr int kBackground[3] = {0, 0, 255};
    // The four corners and the centre of the window.
    static constexpr int kProbes[5][2] = {{0, 0}, {kWidth - 1, 0}, {0, kHeight - 1}, {kWidth - 1, kHeight - 1},
                                          {kWidth / 2, kHeight / 2}};

    void SetUp() override
    {
        CleanWindowTest::SetUp();
        if (IsSkipped()) return;
        static vorlik::ShaderProgram* untextured = vorlik::ShaderProgram::load(
            (std::string(KELVANE_SOURCE_DIR) + "/shaders").c_str(), "color_fixed");
        savedProgram = Shaders::color_shader_fixed;
        Shaders::color_shader_fixed = untextured;
        savedTime = Vorlik::currentTime;
        glClearColor(kBackground[0] / 255.0f, kBackground[1] / 255.0f, kBackground[2] / 255.0f, 1.0f);
        glClear(GL_COLOR_BUFFER_BIT);
        fader.red = 1.0f;
        fader.green = 1.0f;
        fader.blue = 1.0f;
        fader.opacity = 1.0f;
    }

    void TearDown() override
    {
        if (IsSkipped()) return;
        Vorlik::currentTime = savedTime;
        Shaders::color_shader_fixed = savedProgram;
        vorlik::ShaderProgram::unbind();
        glDisable(GL_BLEND);
    }

    static pixelprobe::Rgba centre() { return pixelprobe::readPixel(kWidth / 2, kHeight / 2, kHeight); }
    static bool showsBackground(const pixelprobe::Rgba& p)
    {
        return pixelprobe::near(p, kBackground[0], kBackground[1], kBackground[2], 0);
    }

    Fader fader;
    vorlik::ShaderProgram* savedProgram = nullptr;
    uint32_t savedTime = 0;
};

} // namespace

TEST_F(FaderClock, NewFaderIsFinishedTransparentAndBlack)
{
    EXPECT_EQ(fader.startTime, 0u);
    EXPECT_EQ(fader.endTime, 0u);
    EXPECT_EQ(fader.fromAlpha, 1.0f);
    EXPECT_EQ(fader.toAlpha, 0.0f);
    EXPECT_EQ(fader.alpha, 0.0f);
    EXPECT_EQ(fader.red, 0.0f);
    EXPECT_EQ(fader.green, 0.0f);
    EXPECT_EQ(fader.blue, 0.0f);
    EXPECT_EQ(fader.opacity, 0.0f);
}

TEST_F(FaderClock, NewFaderIsDoneAndHasNothingToDraw)
{
    at(1);
    EXPECT_TRUE(fader.isDone());
    EXPECT_FALSE(fader.updateAlpha());
    EXPECT_EQ(fader.alpha, 0.0f);
}

TEST_F(FaderClock, FadeOutRunsFromZeroToOneStartingNow)
{
    at(2000);
    fader.fadeOut(400);
    EXPECT_EQ(fader.fromAlpha, 0.0f);
    EXPECT_EQ(fader.toAlpha, 1.0f);
    EXPECT_EQ(fader.startTime, 2000u);
    EXPECT_EQ(fader.endTime, 2400u);
}

TEST_F(FaderClock, FadeInRunsFromOneToZeroStartingNow)
{
    at(2000);
    fader.fadeIn(500);
    EXPECT_EQ(fader.fromAlpha, 1.0f);
    EXPECT_EQ(fader.toAlpha, 0.0f);
    EXPECT_EQ(fader.startTime, 2000u);
    EXPECT_EQ(fader.endTime, 2500u);
}

TEST_F(FaderClock, FadeOutOfZeroLasts1000Ms)
{
    at(300);
    fader.fadeOut(0);
    EXPECT_EQ(fader.endTime, 1300u);
    fader.fadeIn(0);
    EXPECT_EQ(fader.endTime, 1300u);
}

TEST_F(FaderClock, AlphaFollowsTheClockLinearly)
{
    at(1000);
    fader.fadeOut(1000);
    at(1250);
    EXPECT_TRUE(fader.updateAlpha());
    EXPECT_FLOAT_EQ(fader.alpha, 0.25f);
    at(1500);
    fader.updateAlpha();
    EXPECT_FLOAT_EQ(fader.alpha, 0.5f);
}

TEST_F(FaderClock, FirstMillisecondOfAFadeOutHasNothingToDraw)
{
    at(1000);
    fader.fadeOut(1000);
    EXPECT_FALSE(fader.updateAlpha());
    EXPECT_EQ(fader.alpha, 0.0f);
    EXPECT_FALSE(fader.isDone());
}

TEST_F(FaderClock, AtTheEndTimeTheFadeIsNotDoneAndReachesItsTarget)
{
    at(1000);
    fader.fadeOut(100);
    fader.alpha = 0.3f;
    at(1100);
    EXPECT_FALSE(fader.isDone());
    EXPECT_TRUE(fader.updateAlpha());
    EXPECT_EQ(fader.alpha, 1.0f); // t = 1
    at(1101);
    EXPECT_TRUE(fader.isDone());
}

TEST_F(FaderClock, FinishedFadeOutKeepsFullCoverWithoutRecomputing)
{
    at(1000);
    fader.fadeOut(1000);
    at(2000);
    fader.updateAlpha();
    at(5000);
    // Recomputing would now give fromAlpha, 0: the stored alpha is kept instead.
    fader.startTime = 5000;
    for (int call = 0; call < 3; ++call) {
        EXPECT_TRUE(fader.updateAlpha()) << call;
        EXPECT_EQ(fader.alpha, 1.0f) << call;
    }
}

TEST_F(FaderClock, FinishedFadeInHasNothingToDraw)
{
    at(1000);
    fader.fadeIn(500);
    at(1501);
    EXPECT_TRUE(fader.isDone());
    EXPECT_FALSE(fader.updateAlpha());
    EXPECT_EQ(fader.alpha, 0.0f);
}

TEST_F(FaderClock, FaderPassedOverAtItsEndStillComputesItsTarget)
{
    // alpha is computed only when drawn: a fader not drawn during its fade reaches toAlpha on
    // the first draw after the end, clamped.
    at(1000);
    fader.fadeOut(1000);
    at(9000);
    EXPECT_TRUE(fader.updateAlpha());
    EXPECT_EQ(fader.alpha, 1.0f);
}

TEST_F(FaderClock, NewFadeRestartsFromItsOwnStartValue)
{
    at(1000);
    fader.fadeOut(1000);
    at(1500);
    fader.updateAlpha();
    ASSERT_FLOAT_EQ(fader.alpha, 0.5f);
    fader.fadeIn(500);
    fader.updateAlpha();
    EXPECT_EQ(fader.alpha, 1.0f);
}

TEST_F(FaderClock, FadeWhoseStartAndEndCoincideIsNotSpeciallyHandled)
{
    fader.fromAlpha = 0.0f;
    fader.toAlpha = 1.0f;
    fader.startTime = 7000;
    fader.endTime = 7000;
    at(7000);
    // t = 0 / 0: alpha is not a number, which is not above 0, so nothing is drawn.
    EXPECT_FALSE(fader.isDone());
    EXPECT_FALSE(fader.updateAlpha());
    EXPECT_TRUE(std::isnan(fader.alpha));
    // A millisecond later t = 1 / 0 is infinite and clamps to full cover.
    at(7001);
    EXPECT_TRUE(fader.isDone());
    EXPECT_TRUE(fader.updateAlpha());
    EXPECT_EQ(fader.alpha, 1.0f);
}

TEST_F(FaderDraw, NewFaderDrawsNothing)
{
    Vorlik::currentTime = 1;
    fader.draw();
    EXPECT_TRUE(showsBackground(centre())) << centre();
}

TEST_F(FaderDraw, HalfwayFadeBlendsHalfTheColourOverTheScene)
{
    Vorlik::currentTime = 1000;
    fader.fadeOut(1000);
    Vorlik::currentTime = 1500;
    fader.draw();
    EXPECT_TRUE(pixelprobe::near(centre(), 128, 128, 255)) << centre();
}

TEST_F(FaderDraw, FinishedFadeOutCoversTheWholeWindowOnEveryDraw)
{
    fader.red = 1.0f;
    fader.green = 0.0f;
    fader.blue = 0.0f;
    Vorlik::currentTime = 1000;
    fader.fadeOut(1000);
    Vorlik::currentTime = 2500;
    for (int call = 0; call < 2; ++call) {
        pixelprobe::resetWindow(kWidth, kHeight);
        fader.draw();
        for (const auto& xy : kProbes) {
            const pixelprobe::Rgba p = pixelprobe::readPixel(xy[0], xy[1], kHeight);
            EXPECT_TRUE(pixelprobe::near(p, 255, 0, 0, 0)) << "call " << call << " at " << xy[0] << ", " << xy[1] << ": " << p;
        }
    }
}

TEST_F(FaderDraw, FinishedFadeInDrawsNothing)
{
    Vorlik::currentTime = 1000;
    fader.fadeIn(500);
    Vorlik::currentTime = 1501;
    fader.draw();
    EXPECT_TRUE(showsBackground(centre())) << centre();
}

TEST_F(FaderDraw, OpacityFieldDoesNotChangeTheDrawing)
{
    fader.opacity = 0.0f;
    Vorlik::currentTime = 1000;
    fader.fadeOut(1000);
    Vorlik::currentTime = 3000;
    fader.draw();
    EXPECT_TRUE(pixelprobe::near(centre(), 255, 255, 255, 0)) << centre();
}

TEST_F(FaderDraw, DrawIgnoresTheCallersMatricesAndLeavesThemIdentity)
{
    // The window's pixel projection would put the unit quad in one corner pixel.
    Vorlik::currentTime = 1000;
    fader.fadeOut(1000);
    Vorlik::currentTime = 2001;
    glMatrixMode(GL_MODELVIEW);
    glTranslatef(300.0f, 200.0f, 0.0f);
    fader.draw();
    EXPECT_TRUE(pixelprobe::near(centre(), 255, 255, 255, 0)) << centre();
    GLfloat projection[16], modelView[16];
    glGetFloatv(GL_PROJECTION_MATRIX, projection);
    glGetFloatv(GL_MODELVIEW_MATRIX, modelView);
    for (int i = 0; i < 16; ++i) {
        const float identity = i % 5 == 0 ? 1.0f : 0.0f;
        EXPECT_EQ(projection[i], identity) << i;
        EXPECT_EQ(modelView[i], identity) << i;
    }
}
