in vec3 vDirection;
out vec4 oColour;

void main() {
    oColour = vec4(skyColour(vDirection), 1.0);
}
