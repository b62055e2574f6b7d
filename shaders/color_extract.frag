// Bright pass for a glow: keeps the part of each pixel that is brighter than threshold
// (luminance 0..1) and turns the rest black, ready to be blurred and added back.
#version 120

uniform sampler2D texture;
uniform float threshold;

const vec3 kLuminance = vec3(0.2126, 0.7152, 0.0722);

void main()
{
    vec4 texel = texture2D(texture, gl_TexCoord[0].st);
    float luminance = dot(texel.rgb, kLuminance);
    float bright = max(luminance - threshold, 0.0) / max(1.0 - threshold, 0.0001);
    gl_FragColor = vec4(texel.rgb * bright, texel.a);
}
