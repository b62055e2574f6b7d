#include "app/MainMenu.h"

#include "base/Resources.h"
#include "math/scalar.h"
#include "platform/Vorlik.h"
#include "scene/DirectScene2D.h"
#include "scene/Fader.h"
#include "scene/Sprite.h"
#include "scene/Text.h"

#include <cmath>

using vorlik::Vorlik;

MainMenu* g_menu = nullptr;

namespace {

constexpr float kLogoY = 0.32f;           // of the window height
constexpr float kCursorSize = 38.0f;      // pixels
constexpr float kCursorColor[4] = {0.25f, 1.0f, 0.25f, 1.0f};
constexpr float kItemX = 400.0f;          // pixels
constexpr float kFirstItemY = 350.0f;     // pixels
constexpr float kItemGap = 40.0f;         // pixels between entries
constexpr uint32_t kFlashDuration = 2000; // ms
constexpr float kDimmedAlpha = 0.35f;
constexpr float kPulsePeriodDivisor = 200.0f; // ms per radian of the unused pulse
constexpr int kDimmedItem = 4;

constexpr float kColorPairs[4][2] = {{0.08f, 0.2f}, {0.05f, 0.5f}, {1.25f, 1.0f}, {1.25f, 1.0f}};

} // namespace

void MenuColors::reset()
{
    for (int i = 0; i < 4; ++i) {
        pairs[i][0] = kColorPairs[i][0];
        pairs[i][1] = kColorPairs[i][1];
    }
    on = true;
}

MainMenu::MainMenu() : logo(new Sprite(nullptr, 0.0f, 0.0f)), cursor(new Sprite(nullptr, 0.0f, 0.0f))
{
    for (Text*& item : items) item = new Text(Resources::font_medium, "");
}

MainMenu::~MainMenu()
{
    for (Text* item : items) delete item;
    delete cursor;
    delete logo;
}

void MainMenu::layout()
{
    logo->position = vorlik::vec3(Vorlik::getWidth() * 0.5f, Vorlik::getHeight() * kLogoY, 0.0f);
    logo->setAnchor(ANCHOR_CENTRE);
    cursor->setSize(kCursorSize, kCursorSize);
    cursor->position.z = 0.0f;
    cursor->setColor(kCursorColor[0], kCursorColor[1], kCursorColor[2], kCursorColor[3]);
    for (int i = 0; i < kItemCount; ++i) {
        items[i]->setAnchor(ANCHOR_CENTRE);
        items[i]->position = vorlik::vec3(kItemX, kFirstItemY + kItemGap * static_cast<float>(i), 0.0f);
    }
    if (g_hud != nullptr) {
        g_hud->add(logo);
        for (Text* item : items) g_hud->add(item);
        g_hud->add(cursor);
    }
    Vorlik::endFrame();
    if (g_fader != nullptr) {
        g_fader->red = g_fader->green = g_fader->blue = g_fader->opacity = 1.0f;
        g_fader->fadeIn(kFlashDuration);
    }
}

void MainMenu::frame()
{
    cursor->position = vorlik::vec3(static_cast<float>(Vorlik::mouseX()), static_cast<float>(Vorlik::mouseY()), 0.0f);
    // The pulse was meant to make the entry breathe, but it only bounds a clamp of 0 to at
    // least 0.35, which always gives 0.35: the entry stays dimmed and still.
    const float pulse = std::sin(static_cast<float>(Vorlik::currentTime) / kPulsePeriodDivisor) * 0.1f + 0.9f;
    items[kDimmedItem]->color[3] = vorlik::clamp(0.0f, kDimmedAlpha, pulse);
}
