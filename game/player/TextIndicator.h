// A short message that rises and fades out over 2.75 seconds, then deletes itself: the lives
// notice and the wave announcements on the HUD, the powerup messages in the world. Whoever
// makes one places it, adds its text to a scene (g_hud or g_world) and appends it to the
// session's actors; from then on it runs and ends on its own.
#pragma once

#include "math/vec2.h"
#include "play/Actor.h"
#include "scene/Drawable.h"

#include <cstdint>

class Container;
class Text;

namespace vorlik {
class Font;
}

class TextIndicator : public Actor {
public:
    static uint32_t lifeTime; // ms from birth to the update that deletes it; 2750
    static float speed;       // world units (pixels on the HUD) per second, upward; 35

    Text* text;         // what it shows, owned; also its drawable
    uint32_t startTime; // ms, when it was made

    // A message in font with characters fontHeight pixels high, in the given colour (red,
    // green, blue, alpha), anchored as given, born now. The anchor is applied after the text
    // and its height are set, so that it is measured from the final size.
    TextIndicator(vorlik::Font* font, const char* message, float fontHeight, const float rgba[4],
                  AnchorPreset anchor);
    // The session's notices ("Wave 3 incoming", "2 lives left"): white, 16 pixels high, half as
    // large again, centred at two fifths of the window's height on g_hud, born now and
    // appended to g_game's actors.
    static TextIndicator* hudNotice(const char* message);
    // A message that floats in the world (a powerup's effect, a wreck's score): 16 pixels
    // high, in the given colour, centred on at, at the actor's own scale of 1, in g_world,
    // born now and appended to g_game's actors.
    static TextIndicator* worldNotice(const char* message, const float rgba[4], const vorlik::vec2& at);

    // Leaves the session's actors and deletes the text, which leaves its scene.
    ~TextIndicator() override;

    // Rises, fades linearly from alpha 1 to 0 over its life, wraps and moves its text; deletes
    // itself on the first update after its life is over.
    void update() override;

private:
    // A centred 16-pixel message at the given actor scale and place, shown in scene (if there
    // is one) and appended to g_game's actors (if there is a session).
    static TextIndicator* notice(const char* message, const float rgba[4], float scale,
                                 const vorlik::vec2& at, Container* scene);
};
