layout(location = 0) in vec3 aPlace;
layout(location = 1) in vec2 aTexture;
layout(location = 2) in float aHighlight;

uniform mat4 uWorldToClip;

out vec3 vPlace;
out vec2 vTexture;
out float vHighlight;

void main() {
    vPlace = aPlace;
    vTexture = aTexture;
    vHighlight = aHighlight;
    gl_Position = uWorldToClip * vec4(aPlace, 1.0);
    gl_Position.z -= 0.0003 * gl_Position.w;   // in front of the ground it lies on
}
