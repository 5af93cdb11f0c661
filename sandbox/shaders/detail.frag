in vec3 vPlace;
in vec2 vTexture;
in float vHighlight;
out vec4 oColour;

uniform sampler2D uTexture;
uniform vec3 uAmbient;
uniform vec3 uDiffuse;

const vec3 HIGHLIGHT = vec3(1.0, 0.84, 0.25);

void main() {
    vec4 texel = texture(uTexture, vTexture);
    if (texel.a < 0.5) {
        discard;
    }
    vec3 lit = texel.rgb * (uAmbient + uDiffuse * uSunDirection.y);
    lit = mix(lit, HIGHLIGHT, vHighlight * 0.5);
    oColour = vec4(throughAir(lit, vPlace), 1.0);
}
