layout(location = 0) in vec3 aPlace;
layout(location = 1) in vec3 aOther;   // other end of the line; the place itself for an area
layout(location = 2) in float aSide;   // -1 or 1 across the line, 0 for an area
layout(location = 3) in vec4 aColour;

uniform mat4 uWorldToClip;
uniform vec2 uViewSize;                // pixels
uniform float uLineWidth;              // pixels

out vec4 vColour;

void main() {
    vec4 here = uWorldToClip * vec4(aPlace, 1.0);
    if (aSide != 0.0) {
        vec4 there = uWorldToClip * vec4(aOther, 1.0);
        // A far end behind the eye has no place on the screen; the line then keeps its direction in clip space.
        vec2 way = there.w > 0.001 ? there.xy / there.w - here.xy / here.w : there.xy - here.xy;
        vec2 ahead = normalize(way * uViewSize + vec2(1e-6, 0.0));
        vec2 across = vec2(-ahead.y, ahead.x) * aSide - ahead;
        here.xy += across * uLineWidth / uViewSize * here.w;
    }
    here.z -= 0.0006 * here.w + 0.00002;   // in front of the ground it lies on
    vColour = aColour;
    gl_Position = here;
}
