// A GLSL program of up to three stages. A missing vertex or fragment stage is filled at link
// time by the shared built-in defaults, which pass texture coordinate 0 and the vertex colour
// through and draw the plain interpolated colour, like untextured fixed-function drawing.
// Compile and link status are never checked: a broken program silently draws nothing.
// Stages attached by the caller stay the caller's: the program only detaches them. The stages
// that load reads for a program are reachable through nothing but that program, so it deletes
// them with itself rather than leak them.
#pragma once

#include "math/mat2.h"
#include "math/mat4.h"
#include "math/vec2.h"
#include "math/vec3.h"
#include "math/vec4.h"

#include <cstdint>
#include <type_traits>

namespace vorlik {

class Shader;

class ShaderProgram {
public:
    uint32_t id;       // GL program object
    Shader* vertex;    // attached vertex stage, null when the default fills in
    Shader* fragment;  // attached fragment stage, null when the default fills in
    Shader* geometry;  // attached geometry stage, or null

    // Shared default stages, created by the first program and never freed.
    static Shader* default_vs;
    static Shader* default_fs;
    static const char* const kDefaultVertexSource;
    static const char* const kDefaultFragmentSource;

    ShaderProgram();
    // Detaches the non-null stages and deletes the program; also deletes the stages if load
    // made them.
    ~ShaderProgram();

    ShaderProgram(const ShaderProgram&) = delete;
    ShaderProgram& operator=(const ShaderProgram&) = delete;

    // Reads directory/name.vert, .geom and .frag, whichever exist, into a linked program that
    // the caller owns. A name with no files gives a program of the two defaults.
    static ShaderProgram* load(const char* directory, const char* name);

    // Remembers the stage in the slot of its type and attaches it; null is ignored, a stage of
    // an unknown type is attached but remembered nowhere.
    void attach(Shader* stage);
    // Attaches the defaults for empty vertex and fragment slots (to GL only) and links.
    void link();
    void bind();
    static void unbind();

    int32_t uniform(const char* name) const;
    int32_t attribute(const char* name) const;

    // Uniform setters: each looks the location up by name on every call, so a name that is
    // not in the program (location -1) is ignored by GL. The program must be bound.
    void setUniform(const char* name, int32_t value);
    void setUniform(const char* name, float value);
    void setUniform(const char* name, const vec2& value);
    void setUniform(const char* name, const vec3& value);
    void setUniform(const char* name, const vec4& value);
    void setUniform(const char* name, const mat2& value); // as a 3x2 matrix
    void setUniform(const char* name, const mat4& value);
    void setUniform(const char* name, const int32_t* values, int32_t count);
    void setUniform(const char* name, const float* values, int32_t count);
    void setUniform(const char* name, const vec2* values, int32_t count);
    void setUniform(const char* name, const vec3* values, int32_t count);
    void setUniform(const char* name, const vec4* values, int32_t count);
    void setUniform(const char* name, const mat2* values, int32_t count);
    void setUniform(const char* name, const mat4* values, int32_t count);

private:
    bool ownsStages = false; // set by load: the stages were read for this program alone
};

static_assert(!std::is_copy_constructible_v<ShaderProgram>, "ShaderProgram owns a GL program");

} // namespace vorlik
