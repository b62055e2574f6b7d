// A flat colour over the whole window whose opacity runs linearly from one value to another
// over a span of the engine clock: screen transitions (title to game, game to exit) through
// g_fader, and the fades that the title screen and the powerups embed. It is not a scene node:
// its owner draws it directly, after the scenes. Set the colour by writing the fields.
#pragma once

#include <cstdint>

class Fader {
public:
    static constexpr uint32_t kDefaultDuration = 1000; // milliseconds, what a duration of 0 means

    uint32_t startTime = 0;  // engine clock (Vorlik::currentTime) when the fade began, ms
    uint32_t endTime = 0;    // when it ends, ms; 0 makes a new fader finished
    float fromAlpha = 1.0f;  // opacity at startTime
    float toAlpha = 0.0f;    // opacity at endTime and after
    float alpha = 0.0f;      // opacity last computed by draw
    float red = 0.0f;        // colour, 0 to 1
    float green = 0.0f;
    float blue = 0.0f;
    float opacity = 0.0f;    // kept with the colour; drawing uses alpha instead

    // Cover the window: opacity 0 to 1 from now over ms milliseconds (0 means 1000).
    void fadeOut(uint32_t ms);
    // Uncover it: opacity 1 to 0, the same way.
    void fadeIn(uint32_t ms);
    // True once the clock has passed endTime; the millisecond of endTime itself still fades.
    bool isDone() const;

    // Brings alpha up to the clock and tells whether there is anything to draw. Once the clock
    // is past endTime and alpha has reached toAlpha it is no longer recomputed.
    bool updateAlpha();
    // Updates alpha and, when it is above 0, blends the colour over the whole window through
    // Shaders::color_shader_fixed. Leaves identity projection and model-view matrices.
    void draw();

private:
    void start(float from, float to, uint32_t ms);
};

// The program's fader for screen transitions; null until start-up creates it.
extern Fader* g_fader;
