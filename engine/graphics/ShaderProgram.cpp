#include "graphics/ShaderProgram.h"

#include "core/String.h"
#include "graphics/Shader.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <cstdio>

namespace vorlik {

namespace {
constexpr uint32_t kSourceReserve = 8096; // characters; longer sources grow the buffer
constexpr size_t kReadChunk = 4095;       // bytes per fread, one more for the terminator

static_assert(sizeof(vec2) == 2 * sizeof(float) && sizeof(vec3) == 3 * sizeof(float) &&
                  sizeof(vec4) == 4 * sizeof(float),
              "vectors go to GL as packed floats");
static_assert(sizeof(mat2) == 6 * sizeof(float) && sizeof(mat4) == 16 * sizeof(float),
              "matrices go to GL as packed floats");

bool fileExists(const String& path)
{
    FILE* file = std::fopen(path.data, "r");
    if (file == nullptr) return false;
    std::fclose(file);
    return true;
}

// Replaces source with the whole text of the file at path.
void readFile(const String& path, String& source)
{
    source = "";
    FILE* file = std::fopen(path.data, "r");
    // Gone since the existence test: the stage compiles from an empty source and fails.
    if (file == nullptr) return;
    char chunk[kReadChunk + 1];
    size_t got;
    while ((got = std::fread(chunk, 1, kReadChunk, file)) > 0) {
        chunk[got] = '\0';
        source += chunk;
    }
    std::fclose(file);
}
} // namespace

Shader* ShaderProgram::default_vs = nullptr;
Shader* ShaderProgram::default_fs = nullptr;

const char* const ShaderProgram::kDefaultVertexSource =
    "void main() { gl_TexCoord[0] = gl_MultiTexCoord0; gl_FrontColor = gl_Color; "
    "gl_BackColor = gl_Color; gl_Position = ftransform(); }";
const char* const ShaderProgram::kDefaultFragmentSource = "void main() { gl_FragColor = gl_Color; }";

ShaderProgram::ShaderProgram()
    : id(0), vertex(nullptr), fragment(nullptr), geometry(nullptr)
{
    if (default_vs == nullptr) default_vs = new Shader(Shader::kVertex, kDefaultVertexSource, 0);
    if (default_fs == nullptr) default_fs = new Shader(Shader::kFragment, kDefaultFragmentSource, 0);
    id = glCreateProgram();
}

ShaderProgram::~ShaderProgram()
{
    Shader* stages[] = {vertex, fragment, geometry};
    for (Shader* stage : stages) {
        if (stage != nullptr) glDetachShader(id, stage->id);
    }
    glDeleteProgram(id);
    if (ownsStages) {
        for (Shader* stage : stages) delete stage;
    }
}

ShaderProgram* ShaderProgram::load(const char* directory, const char* name)
{
    const String base = String(directory) + "/" + name;
    const String vertexPath = base + ".vert";
    const String geometryPath = base + ".geom";
    const String fragmentPath = base + ".frag";
    const bool hasVertex = fileExists(vertexPath);
    const bool hasGeometry = fileExists(geometryPath);
    const bool hasFragment = fileExists(fragmentPath);

    String source;
    source.reserve(kSourceReserve);
    Shader* vertexStage = nullptr;
    Shader* geometryStage = nullptr;
    Shader* fragmentStage = nullptr;
    if (hasVertex) {
        readFile(vertexPath, source);
        vertexStage = new Shader(Shader::kVertex, source.data, source.length);
    }
    if (hasGeometry) {
        readFile(geometryPath, source);
        geometryStage = new Shader(Shader::kGeometry, source.data, source.length);
    }
    if (hasFragment) {
        readFile(fragmentPath, source);
        fragmentStage = new Shader(Shader::kFragment, source.data, source.length);
    }

    ShaderProgram* program = new ShaderProgram();
    program->ownsStages = true;
    program->attach(vertexStage);
    program->attach(geometryStage);
    program->attach(fragmentStage);
    program->link();
    return program;
}

void ShaderProgram::attach(Shader* stage)
{
    if (stage == nullptr) return;
    switch (stage->type) {
    case Shader::kVertex: vertex = stage; break;
    case Shader::kFragment: fragment = stage; break;
    case Shader::kGeometry: geometry = stage; break;
    default: break;
    }
    glAttachShader(id, stage->id);
}

void ShaderProgram::link()
{
    if (vertex == nullptr) glAttachShader(id, default_vs->id);
    if (fragment == nullptr) glAttachShader(id, default_fs->id);
    glLinkProgram(id);
}

void ShaderProgram::bind() { glUseProgram(id); }

void ShaderProgram::unbind() { glUseProgram(0); }

int32_t ShaderProgram::uniform(const char* name) const { return glGetUniformLocation(id, name); }

int32_t ShaderProgram::attribute(const char* name) const { return glGetAttribLocation(id, name); }

void ShaderProgram::setUniform(const char* name, int32_t value) { glUniform1i(uniform(name), value); }

void ShaderProgram::setUniform(const char* name, float value) { glUniform1f(uniform(name), value); }

void ShaderProgram::setUniform(const char* name, const vec2& value) { setUniform(name, &value, 1); }

void ShaderProgram::setUniform(const char* name, const vec3& value) { setUniform(name, &value, 1); }

void ShaderProgram::setUniform(const char* name, const vec4& value) { setUniform(name, &value, 1); }

void ShaderProgram::setUniform(const char* name, const mat2& value) { setUniform(name, &value, 1); }

void ShaderProgram::setUniform(const char* name, const mat4& value) { setUniform(name, &value, 1); }

void ShaderProgram::setUniform(const char* name, const int32_t* values, int32_t count)
{
    glUniform1iv(uniform(name), count, values);
}

void ShaderProgram::setUniform(const char* name, const float* values, int32_t count)
{
    glUniform1fv(uniform(name), count, values);
}

void ShaderProgram::setUniform(const char* name, const vec2* values, int32_t count)
{
    glUniform2fv(uniform(name), count, &values->x);
}

void ShaderProgram::setUniform(const char* name, const vec3* values, int32_t count)
{
    glUniform3fv(uniform(name), count, &values->x);
}

void ShaderProgram::setUniform(const char* name, const vec4* values, int32_t count)
{
    glUniform4fv(uniform(name), count, &values->x);
}

void ShaderProgram::setUniform(const char* name, const mat2* values, int32_t count)
{
    glUniformMatrix3x2fv(uniform(name), count, GL_FALSE, values->data());
}

void ShaderProgram::setUniform(const char* name, const mat4* values, int32_t count)
{
    glUniformMatrix4fv(uniform(name), count, GL_FALSE, values->data());
}

} // namespace vorlik
