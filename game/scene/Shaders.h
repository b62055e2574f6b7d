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

// The one way to draw with the two programs. Each makes its program current; the textured
// one also points its sampler "texture" at unit 0. Before setupShaders has run there is no
// program to use, and GL's fixed-function pipeline (program 0) draws the same arrays instead,
// so a draw never fails for want of a program.
void useTextured();
void useColor();

} // namespace Shaders
