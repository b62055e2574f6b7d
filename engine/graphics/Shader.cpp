#include "graphics/Shader.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <cstring>

namespace vorlik {

uint32_t Shader::glType(uint8_t stage)
{
    switch (stage) {
    case kVertex: return GL_VERTEX_SHADER;
    case kFragment: return GL_FRAGMENT_SHADER;
    case kGeometry: return GL_GEOMETRY_SHADER;
    default: return 0;
    }
}

Shader::Shader(uint8_t stage, const char* source, uint32_t length)
    : id(0), type(stage)
{
    const uint32_t glStage = glType(stage);
    if (glStage == 0) return;
    id = glCreateShader(glStage);
    if (source == nullptr) source = "";
    const GLint sourceLength = static_cast<GLint>(length != 0 ? length : std::strlen(source));
    glShaderSource(id, 1, &source, &sourceLength);
    glCompileShader(id);
}

Shader::~Shader()
{
    if (id != 0) glDeleteShader(id);
}

} // namespace vorlik
