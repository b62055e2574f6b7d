#include "scene/Fader.h"

#include "math/scalar.h"
#include "platform/Vorlik.h"
#include "scene/Shaders.h"

#include <GL/gl.h>

using vorlik::Vorlik;

Fader* g_fader = nullptr;

void Fader::start(float from, float to, uint32_t ms)
{
    fromAlpha = from;
    toAlpha = to;
    startTime = Vorlik::currentTime;
    endTime = startTime + (ms == 0 ? kDefaultDuration : ms);
}

void Fader::fadeOut(uint32_t ms) { start(0.0f, 1.0f, ms); }

void Fader::fadeIn(uint32_t ms) { start(1.0f, 0.0f, ms); }

bool Fader::isDone() const { return endTime < Vorlik::currentTime; }

bool Fader::updateAlpha()
{
    const uint32_t now = Vorlik::currentTime;
    // A finished fade-out keeps its full cover without recomputing; a finished fade-in none.
    if (!(now > endTime && alpha == toAlpha)) {
        const float t = static_cast<float>(now - startTime) / static_cast<float>(endTime - startTime);
        alpha = vorlik::clamp(vorlik::lerp(t, fromAlpha, toAlpha), 0.0f, 1.0f);
    }
    return alpha > 0.0f;
}

void Fader::draw()
{
    if (!updateAlpha()) return;

    Shaders::useColor();
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glColor4f(red, green, blue, alpha);
    glBegin(GL_QUADS);
    glVertex2f(-1.0f, -1.0f);
    glVertex2f(1.0f, -1.0f);
    glVertex2f(1.0f, 1.0f);
    glVertex2f(-1.0f, 1.0f);
    glEnd();
}
