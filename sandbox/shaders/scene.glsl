// Common to all programs: the light of the scene and its haze.
uniform vec3 uEye;
uniform vec3 uSunDirection;  // towards the sun
uniform float uFogDistance;  // world units at which two thirds are hidden; 0 for clear air

const vec3 HORIZON = vec3(0.80, 0.86, 0.90);
const vec3 ZENITH = vec3(0.27, 0.47, 0.72);
const vec3 NADIR = vec3(0.60, 0.66, 0.71);

vec3 skyColour(vec3 direction) {
    float rise = normalize(direction).y;
    vec3 above = mix(HORIZON, ZENITH, pow(max(rise, 0.0), 0.55));
    vec3 sky = rise < 0.0 ? mix(HORIZON, NADIR, smoothstep(0.0, 0.6, -rise)) : above;
    if (uFogDistance > 0.0) {
        sky = mix(HORIZON, sky, smoothstep(0.05, 0.7, rise));
    }
    float glow = max(dot(normalize(direction), uSunDirection), 0.0);
    return sky + vec3(0.20, 0.16, 0.09) * pow(glow, 24.0);
}

vec3 throughAir(vec3 colour, vec3 place) {
    if (uFogDistance <= 0.0) {
        return colour;
    }
    float way = distance(place, uEye) / uFogDistance;
    return mix(HORIZON, colour, exp(-way * way));
}
