layout(location = 0) in vec3 aPlace;
layout(location = 1) in vec3 aNormal;
layout(location = 2) in vec3 aColour;

uniform mat4 uWorldToClip;

out vec3 vPlace;
flat out vec3 vNormal;
out vec3 vColour;

void main() {
    vPlace = aPlace;
    vNormal = aNormal;
    vColour = aColour;
    gl_Position = uWorldToClip * vec4(aPlace, 1.0);
}
