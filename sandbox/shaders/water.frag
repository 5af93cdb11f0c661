in vec3 vPlace;
out vec4 oColour;

uniform int uGridDim;
uniform float uHeightScale;
uniform float uTiling;
uniform usampler2D uHeights;
uniform usampler2D uWater;       // 1 where a point is water
uniform sampler2D uWaterTexture;
uniform bool uHasWaterTexture;

const vec3 SHALLOW = vec3(0.28, 0.50, 0.52);
const vec3 DEEP = vec3(0.08, 0.22, 0.33);

float bed(ivec2 cell, vec2 inside) {
    float h00 = float(texelFetch(uHeights, cell, 0).r);
    float h10 = float(texelFetch(uHeights, cell + ivec2(1, 0), 0).r);
    float h01 = float(texelFetch(uHeights, cell + ivec2(0, 1), 0).r);
    float h11 = float(texelFetch(uHeights, cell + ivec2(1, 1), 0).r);
    return mix(mix(h00, h10, inside.x), mix(h01, h11, inside.x), inside.y) * uHeightScale;
}

// Water fills every cell that has a corner of water; the shore is where the ground comes through.
bool isWater(ivec2 cell) {
    return (texelFetch(uWater, cell, 0).r | texelFetch(uWater, cell + ivec2(1, 0), 0).r |
            texelFetch(uWater, cell + ivec2(0, 1), 0).r | texelFetch(uWater, cell + ivec2(1, 1), 0).r) != 0u;
}

void main() {
    ivec2 cell = clamp(ivec2(floor(vPlace.xz)), ivec2(0), ivec2(uGridDim - 1));
    if (!isWater(cell)) {
        discard;
    }
    float depth = max(vPlace.y - bed(cell, vPlace.xz - vec2(cell)), 0.0);
    vec3 toEye = normalize(uEye - vPlace);
    vec2 wave = vPlace.xz;
    vec2 slope = vec2(sin(wave.x * 2.1 + wave.y * 1.3) + sin(wave.x * 4.7 - wave.y * 3.9) * 0.5,
                      sin(wave.y * 2.3 - wave.x * 1.1) + sin(wave.y * 5.1 + wave.x * 3.3) * 0.5);
    float calm = clamp(1.0 - length(fwidth(wave)) * 1.5, 0.0, 1.0);
    vec3 normal = normalize(vec3(slope.x * 0.030 * calm, 1.0, slope.y * 0.030 * calm));
    float fresnel = 0.03 + 0.97 * pow(1.0 - max(dot(normal, toEye), 0.0), 5.0);
    vec3 body = mix(SHALLOW, DEEP, 1.0 - exp(-depth * 1.1));
    if (uHasWaterTexture) {
        body *= texture(uWaterTexture, vPlace.xz / float(uGridDim) * uTiling).rgb * 1.6;
    }
    vec3 mirrored = skyColour(reflect(-toEye, normal));
    float glint = pow(max(dot(reflect(-uSunDirection, normal), toEye), 0.0), 120.0);
    vec3 colour = mix(body, mirrored, fresnel) + vec3(1.0, 0.95, 0.85) * glint * 0.6;
    float alpha = mix(0.55, 0.93, 1.0 - exp(-depth * 1.6));
    oColour = vec4(throughAir(colour, vPlace), max(alpha, fresnel));
}
