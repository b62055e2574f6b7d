#include "scene/Shaders.h"

#include "graphics/ShaderProgram.h"

#include <GL/gl.h>
#include <GL/glext.h>

namespace Shaders {

vorlik::ShaderProgram* color_shader_fixed = nullptr;
vorlik::ShaderProgram* texture_shader_fixed = nullptr;
vorlik::ShaderProgram* color_shader = nullptr;
vorlik::ShaderProgram* texture_shader = nullptr;
vorlik::ShaderProgram* color_extract_shader = nullptr;
vorlik::ShaderProgram* hblur_shader = nullptr;
vorlik::ShaderProgram* vblur_shader = nullptr;

namespace {
struct ProgramSlot {
    const char* name;
    vorlik::ShaderProgram** global;
};

constexpr int kSamplerUnit = 0;

// Loading order.
const ProgramSlot kPrograms[] = {
    {"color_fixed", &color_shader_fixed},
    {"texture_fixed", &texture_shader_fixed},
    {"color", &color_shader},
    {"texture", &texture_shader},
    {"color_extract", &color_extract_shader},
    {"hblur", &hblur_shader},
    {"vblur", &vblur_shader},
};
} // namespace

void setupShaders()
{
    static bool loaded = false;
    if (loaded) return;
    loaded = true;
    for (const ProgramSlot& slot : kPrograms) *slot.global = vorlik::ShaderProgram::load(kDirectory, slot.name);
}

void useTextured()
{
    if (texture_shader_fixed == nullptr) {
        glUseProgram(0);
        return;
    }
    texture_shader_fixed->bind();
    texture_shader_fixed->setUniform("texture", kSamplerUnit);
}

void useColor()
{
    if (color_shader_fixed == nullptr) {
        glUseProgram(0);
        return;
    }
    color_shader_fixed->bind();
}

} // namespace Shaders
