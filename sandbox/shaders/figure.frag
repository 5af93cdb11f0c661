in vec3 vPlace;
flat in vec3 vNormal;
in vec3 vColour;
out vec4 oColour;

uniform vec3 uAmbient;
uniform vec3 uDiffuse;

void main() {
    vec3 normal = faceforward(vNormal, vPlace - uEye, vNormal);   // seen from both sides
    vec3 lit = vColour * (uAmbient + uDiffuse * max(dot(normal, uSunDirection), 0.0));
    oColour = vec4(throughAir(lit, vPlace), 1.0);
}
