in vec3 vPlace;
flat in int vWall;
out vec4 oColour;

uniform int uGridDim;
uniform sampler2D uNormals;      // x and z of the unit normal
uniform sampler2D uColours;
uniform sampler2D uBlends;
uniform sampler2D uMarkers;      // one texel a point
uniform sampler2D uSmooth;
uniform sampler2D uRough;
uniform bvec2 uHasTexture;       // smooth, rough
uniform float uTiling;
uniform vec2 uHeightRange;       // world heights, low and high
uniform vec3 uAmbient;
uniform vec3 uDiffuse;
uniform bool uChecker;
uniform bool uGrid;

const vec3 VALLEY = vec3(0.40, 0.47, 0.32);
const vec3 MEADOW = vec3(0.55, 0.56, 0.39);
const vec3 HEATH = vec3(0.60, 0.55, 0.44);
const vec3 PEAK = vec3(0.72, 0.71, 0.68);
const vec3 ROCK = vec3(0.52, 0.47, 0.42);
const vec3 EARTH = vec3(0.43, 0.35, 0.28);

float hash(vec2 p) {
    return fract(sin(dot(p, vec2(127.1, 311.7))) * 43758.5453);
}

float noise(vec2 p) {
    vec2 cell = floor(p);
    vec2 f = p - cell;
    f = f * f * (3.0 - 2.0 * f);
    return mix(mix(hash(cell), hash(cell + vec2(1, 0)), f.x),
               mix(hash(cell + vec2(0, 1)), hash(cell + vec2(1, 1)), f.x), f.y);
}

vec3 bareGround(vec3 normal) {
    float span = max(uHeightRange.y - uHeightRange.x, 0.001);
    float rise = clamp((vPlace.y - uHeightRange.x) / span, 0.0, 1.0);
    rise = clamp(rise + (noise(vPlace.xz * 0.11) - 0.5) * 0.08, 0.0, 1.0);
    vec3 colour = mix(VALLEY, MEADOW, smoothstep(0.0, 0.35, rise));
    colour = mix(colour, HEATH, smoothstep(0.3, 0.7, rise));
    colour = mix(colour, PEAK, smoothstep(0.75, 1.0, rise));
    colour = mix(ROCK, colour, smoothstep(0.66, 0.86, normal.y));
    return colour * (0.96 + 0.08 * noise(vPlace.xz * 0.9));
}

// 1 on the lines between cells, `width` pixels wide, 0 off them; fades where cells are too small to tell apart.
float gridLine(vec2 cells, float width, float smallest) {
    vec2 pixel = fwidth(cells);
    vec2 away = abs(fract(cells - 0.5) - 0.5) / max(pixel, vec2(1e-6));
    float line = 1.0 - clamp(min(away.x, away.y) - (width * 0.5 - 0.5), 0.0, 1.0);
    return line * clamp(1.0 - max(pixel.x, pixel.y) * smallest, 0.0, 1.0);
}

vec3 checkerboard(vec2 cells) {
    float parity = mod(floor(cells.x) + floor(cells.y), 2.0);
    vec2 pixel = fwidth(cells);
    float contrast = clamp(1.5 - max(pixel.x, pixel.y) * 1.5, 0.0, 1.0);
    return vec3(0.62 + (parity - 0.5) * 0.36 * contrast);
}

vec3 groundColour(vec3 normal, vec2 pointUv) {
    vec3 pointColour = texture(uColours, pointUv).rgb;
    if (uChecker) {
        return checkerboard(vPlace.xz) * pointColour;
    }
    vec2 tiled = vPlace.xz / float(uGridDim) * uTiling;
    vec3 bare = bareGround(normal);
    vec3 smoothGround = uHasTexture.x ? texture(uSmooth, tiled).rgb : bare;
    vec3 roughGround = uHasTexture.y ? texture(uRough, tiled).rgb : (uHasTexture.x ? smoothGround : bare * 0.8);
    return mix(smoothGround, roughGround, texture(uBlends, pointUv).r) * pointColour;
}

float markAt(ivec2 cell) {
    if (any(lessThan(cell, ivec2(0))) || any(greaterThan(cell, ivec2(uGridDim)))) {
        return 0.0;
    }
    return texelFetch(uMarkers, cell, 0).a;
}

// Marked cells are veiled in the mark's colour and framed where they meet cells without one.
vec3 withMarks(vec3 ground) {
    ivec2 cell = ivec2(floor(vPlace.xz));
    vec2 pixel = max(fwidth(vPlace.xz), vec2(1e-6));
    vec2 inside = fract(vPlace.xz);
    float marked = markAt(cell);
    if (marked == 0.0) {
        return ground;
    }
    vec3 mark = texelFetch(uMarkers, cell, 0).rgb;
    float frame = 1e3;
    if (markAt(cell - ivec2(1, 0)) == 0.0) frame = min(frame, inside.x / pixel.x);
    if (markAt(cell + ivec2(1, 0)) == 0.0) frame = min(frame, (1.0 - inside.x) / pixel.x);
    if (markAt(cell - ivec2(0, 1)) == 0.0) frame = min(frame, inside.y / pixel.y);
    if (markAt(cell + ivec2(0, 1)) == 0.0) frame = min(frame, (1.0 - inside.y) / pixel.y);
    vec3 veiled = mix(ground, mark, min(marked * 3.2, 1.0));
    veiled = mix(vec3(0.10, 0.13, 0.20), veiled, smoothstep(2.6, 3.4, frame));
    return mix(mark, veiled, smoothstep(1.2, 2.0, frame));
}

vec3 cutFace() {
    float along = (vWall == 1 || vWall == 3) ? vPlace.x : vPlace.z;
    float depth = vPlace.y + noise(vec2(along * 0.05, 3.0)) * 1.5;
    float layer = noise(vec2(depth * 1.3, 7.0));
    vec3 colour = EARTH * (0.72 + 0.42 * layer);
    float light = vWall == 3 ? 0.80 : (vWall == 4 ? 0.95 : 0.62);
    return colour * light;
}

void main() {
    if (vWall != 0) {
        oColour = vec4(throughAir(cutFace(), vPlace), 1.0);
        return;
    }
    vec2 pointUv = (vPlace.xz + 0.5) / float(uGridDim + 1);
    vec2 flatNormal = texture(uNormals, pointUv).rg;
    vec3 normal = normalize(vec3(flatNormal.x, sqrt(max(1.0 - dot(flatNormal, flatNormal), 0.0)), flatNormal.y));
    vec3 ground = groundColour(normal, pointUv);
    // The light wraps a little around the slopes: ground in the shade must still show its shape.
    float facing = dot(normal, uSunDirection);
    float wrapped = facing * 0.5 + 0.5;
    float sun = mix(max(facing, 0.0), wrapped * wrapped, 0.35);
    vec3 skyLight = uAmbient * (0.84 + 0.34 * normal.y) * vec3(0.94, 0.99, 1.08);
    vec3 lit = ground * (skyLight + uDiffuse * sun * vec3(1.05, 1.0, 0.92));
    if (uGrid) {
        lit *= 1.0 - 0.20 * gridLine(vPlace.xz, 1.0, 5.0);
    }
    oColour = vec4(throughAir(withMarks(lit), vPlace), 1.0);
}
