// The game's GLSL programs, loaded once from the "shaders" directory beside the program.
// Only the two fixed-function programs draw anything: color_shader_fixed for untextured
// geometry and texture_shader_fixed (sampler "texture", always unit 0) for everything
// textured. The colour, texture, bright-pass and blur programs are loaded and kept for
// post-processing passes that the scenes do not run.
#pragma once

namespace vorlik {
class ShaderProgram;
}

namespace Shaders {

extern vorlik::ShaderProgram* color_shader_fixed;
extern vorlik::ShaderProgram* texture_shader_fixed;
extern vorlik::ShaderProgram* color_shader;
extern vorlik::ShaderProgram* texture_shader;
extern vorlik::ShaderProgram* color_extract_shader;
extern vorlik::ShaderProgram* hblur_shader;
extern vorlik::ShaderProgram* vblur_shader;

// Directory the programs are read from, relative to the working directory.
constexpr const char* kDirectory = "shaders";

// Loads the seven programs on the first call (both scene constructors call it); later calls
// do nothing. Needs a current GL context. Missing files leave the default program in place.
void setupShaders();

} // namespace Shaders
