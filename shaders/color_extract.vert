// Full-screen pass: the quad of drawFullscreenQuad, already in clip space, with its texture
// coordinates passed on.
#version 120

void main()
{
    gl_TexCoord[0] = gl_MultiTexCoord0;
    gl_FrontColor = gl_Color;
    gl_Position = ftransform();
}
