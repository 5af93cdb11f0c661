layout(location = 0) in uvec4 aVertex;  // column and row in the chunk, side (0 ground, 1 to 4 skirts), 1 for a skirt's hem
layout(location = 1) in vec3 aChunk;    // first point x and z of the chunk, length of its skirt

uniform mat4 uWorldToClip;
uniform usampler2D uHeights;
uniform int uGridDim;
uniform float uHeightScale;
uniform float uBase;                    // world height of the underside of the map

out vec3 vPlace;
flat out int vWall;                     // 1 to 4 on the cut faces at the map's border, 0 elsewhere

void main() {
    ivec2 first = ivec2(aChunk.xy);
    ivec2 point = min(first + ivec2(aVertex.xy), ivec2(uGridDim));
    float height = float(texelFetch(uHeights, point, 0).r) * uHeightScale;
    int side = int(aVertex.z);
    bool border = (side == 1 && point.y == 0) || (side == 2 && point.x == uGridDim) ||
                  (side == 3 && point.y == uGridDim) || (side == 4 && point.x == 0);
    if (aVertex.w == 1u) {
        height = border ? uBase : height - aChunk.z;
    }
    vWall = border ? side : 0;
    vPlace = vec3(float(point.x), height, float(point.y));
    gl_Position = uWorldToClip * vec4(vPlace, 1.0);
}
