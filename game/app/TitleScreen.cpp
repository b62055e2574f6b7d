#include "app/TitleScreen.h"

#include "base/Resources.h"
#include "platform/Vorlik.h"
#include "scene/DirectScene2D.h"
#include "scene/Text.h"

namespace {

constexpr float kFirstLineY = 25.0f; // pixels from the top of the window
constexpr float kLineGap = 9.0f;     // between one line's bottom and the next line's top

// One line of the notice and the extra space above it, beyond the usual gap.
struct NoticeLine {
    const char* text;
    float extraGap;
};

constexpr NoticeLine kNotice[] = {
    {"Kelvane", 0.0f},
    {"===========", 0.0f},
    {"The joke's on us. Turns out we didn't quite make", 35.0f},
    {"the video shoot deadline. A lot of functionality", 0.0f},
    {"in the game is in a state of near-completion. We", 0.0f},
    {"are working non-stop here at Tessaly to bring", 0.0f},
    {"the game to you in its intended form by Saturday.", 0.0f},
    {"However, for the time being, what we can", 25.0f},
    {"show is a game-only demo for 64 bit Linux.", 0.0f},
    {"A Windows build is in the pipeline. :)", 0.0f},
    {"-- Orvendil --", 35.0f},
    {"We know we're losing...", 35.0f},
    {"But we're losing with our boots on.", 0.0f},
};

// The signature starts at the centre line and stands to the right of the centred lines.
constexpr int kSignatureLine = 10;

} // namespace

TitleScreen::TitleScreen() : texts(kInitialCapacity)
{
    g_hud->clear();
    const float centreX = static_cast<float>(vorlik::Vorlik::getWidth()) * 0.5f;
    const Text* previous = nullptr;
    for (int i = 0; i < static_cast<int>(sizeof kNotice / sizeof kNotice[0]); ++i) {
        Text* line = new Text(Resources::font_medium, kNotice[i].text);
        const float y = previous == nullptr
                            ? kFirstLineY
                            : previous->position.y + kLineGap + previous->size.y + kNotice[i].extraGap;
        line->position = vorlik::vec3(centreX, y, 0.0f);
        line->setAnchor(ANCHOR_TOP);
        if (i == kSignatureLine) line->setAnchor(ANCHOR_TOP_LEFT);
        texts.push(line);
        g_hud->add(line);
        previous = line;
    }
}

TitleScreen::~TitleScreen()
{
    for (uint32_t i = 0; i < texts.count; ++i) delete texts.data[i];
}
