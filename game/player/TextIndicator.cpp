#include "player/TextIndicator.h"

#include "platform/Vorlik.h"
#include "play/ActorLists.h"
#include "play/GameSession.h"
#include "scene/Text.h"

using vorlik::Vorlik;

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
