#include "player/TextIndicator.h"

#include "base/Resources.h"
#include "platform/Vorlik.h"
#include "play/ActorLists.h"
#include "play/GameSession.h"
#include "scene/DirectScene2D.h"
#include "scene/Scene2D.h"
#include "scene/Text.h"

using vorlik::Vorlik;

namespace {
constexpr float kNoticeHeight = 16.0f; // pixels per character
constexpr float kNoticeScale = 1.5f;     // the HUD's notices, half as large again
constexpr float kWorldNoticeScale = 1.0f;
constexpr float kNoticeY = 0.4f;       // of the window height, from the top
constexpr float kWhite[4] = {1.0f, 1.0f, 1.0f, 1.0f};
} // namespace

uint32_t TextIndicator::lifeTime = 2750;
float TextIndicator::speed = 35.0f;

TextIndicator::TextIndicator(vorlik::Font* font, const char* message, float fontHeight, const float rgba[4],
                             AnchorPreset anchor)
    : text(new Text(font, message)), startTime(Vorlik::currentTime)
{
    text->fontHeight = fontHeight;
    text->setText(message);
    for (int i = 0; i < 4; ++i) text->color[i] = rgba[i];
    text->setAnchor(anchor);
    drawable = text;
}

TextIndicator* TextIndicator::hudNotice(const char* message)
{
    const vorlik::vec2 at(Vorlik::getWidth() * 0.5f, Vorlik::getHeight() * kNoticeY);
    return notice(message, kWhite, kNoticeScale, at, g_hud);
}

TextIndicator* TextIndicator::worldNotice(const char* message, const float rgba[4], const vorlik::vec2& at)
{
    return notice(message, rgba, kWorldNoticeScale, at, g_world);
}

TextIndicator* TextIndicator::notice(const char* message, const float rgba[4], float scale,
                                     const vorlik::vec2& at, Container* scene)
{
    auto* notice = new TextIndicator(Resources::font_medium, message, kNoticeHeight, rgba, ANCHOR_CENTRE);
    notice->scale = scale;
    notice->position = at;
    // The text is in the scene before the indicator's first update; it is placed now so that it
    // is not drawn for a frame at the scene's origin.
    notice->Actor::update();
    if (g_game != nullptr) g_game->actors.push(notice);
    if (scene != nullptr) scene->add(notice->text);
    return notice;
}

TextIndicator::~TextIndicator()
{
    if (g_game != nullptr) removeFromList(g_game->actors, static_cast<Actor*>(this));
    delete text;
}

void TextIndicator::update()
{
    const uint32_t now = Vorlik::currentTime;
    position.y -= speed * Vorlik::sync;
    text->color[3] = 1.0f - static_cast<float>(now - startTime) / static_cast<float>(lifeTime);
    Actor::update();
    if (startTime + lifeTime < now) delete this;
}
