// Vertical half of a separable Gaussian blur: nine taps along y, normalised Gaussian weights
// (a binomial kernel). texelHeight is 1 / the source texture's height.
#version 120

uniform sampler2D texture;
uniform float texelHeight;

const float kWeights[5] = float[5](0.2270270270, 0.1945945946, 0.1216216216, 0.0540540541, 0.0162162162);

void main()
{
    vec2 uv = gl_TexCoord[0].st;
    vec4 sum = texture2D(texture, uv) * kWeights[0];
    for (int i = 1; i < 5; ++i) {
        vec2 offset = vec2(0.0, texelHeight * float(i));
        sum += texture2D(texture, uv + offset) * kWeights[i];
        sum += texture2D(texture, uv - offset) * kWeights[i];
    }
    gl_FragColor = sum;
}
