// One compiled GLSL stage (vertex, fragment or geometry), ready to attach to ShaderProgram.
// Compilation is not checked here: a stage that fails to compile makes its program fail to
// link, and such a program draws nothing. Deleting a Shader deletes its GL shader object;
// GL keeps it alive while a program still has it attached.
#pragma once

#include <cstdint>
#include <type_traits>

namespace vorlik {

class Shader {
public:
    // Stage types; the program keeps one slot per type.
    static constexpr uint8_t kVertex = 1;
    static constexpr uint8_t kFragment = 2;
    static constexpr uint8_t kGeometry = 4;

    uint32_t id;  // GL shader object; 0 for an unknown type
    uint8_t type; // kVertex, kFragment or kGeometry

    // Creates the GL shader for type, sets its source (length 0 means strlen(source)) and
    // compiles it. An unknown type creates nothing.
    Shader(uint8_t type, const char* source, uint32_t length);
    ~Shader();

    Shader(const Shader&) = delete;
    Shader& operator=(const Shader&) = delete;

    // The GL shader type for a stage type, 0 for an unknown one.
    static uint32_t glType(uint8_t type);
};

static_assert(!std::is_copy_constructible_v<Shader>, "Shader owns a GL shader object");

} // namespace vorlik
