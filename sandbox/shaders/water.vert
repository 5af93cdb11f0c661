uniform mat4 uWorldToClip;
uniform int uGridDim;
uniform float uWaterLevel;
out vec3 vPlace;

void main() {
    vec2 corner = vec2(gl_VertexID & 1, gl_VertexID >> 1) * float(uGridDim);
    vPlace = vec3(corner.x, uWaterLevel, corner.y);
    gl_Position = uWorldToClip * vec4(vPlace, 1.0);
}
