// The texel of unit 0 modulated by the vertex colour (GL_MODULATE). GLSL 1.20 still leaves the
// name "texture" free for the sampler, which the scenes set by that name.
#version 120

uniform sampler2D texture;

void main()
{
    gl_FragColor = texture2D(texture, gl_TexCoord[0].st) * gl_Color;
}
