// Textured drawing as the fixed-function pipeline does it: texture coordinate 0 and the vertex
// colour passed on, the position transformed by the GL projection and model-view matrices.
#version 120

void main()
{
    gl_TexCoord[0] = gl_MultiTexCoord0;
    gl_FrontColor = gl_Color;
    gl_BackColor = gl_Color;
    gl_Position = ftransform();
}
