uniform mat4 uClipToWorld;
out vec3 vDirection;

void main() {
    // One triangle that covers the view.
    vec2 corner = vec2(gl_VertexID == 1 ? 3.0 : -1.0, gl_VertexID == 2 ? 3.0 : -1.0);
    vec4 far = uClipToWorld * vec4(corner, 1.0, 1.0);
    vDirection = far.xyz / far.w - uEye;
    gl_Position = vec4(corner, 1.0, 1.0);
}
