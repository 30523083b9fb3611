// From the corners of a solid to the screen.

VARYING vec3 position;
VARYING vec3 normal;
VARYING vec3 tangent;
VARYING vec3 bitangent;
VARYING vec2 uv;

void MAIN() {
    position = (MODEL_MATRIX * vec4(VERTEX, 1.0)).xyz;
    normal = NORMAL;
    tangent = TANGENT;
    bitangent = BINORMAL;
    uv = UV0 * tiling;
    POSITION = MODELVIEWPROJECTION_MATRIX * vec4(VERTEX, 1.0);
}
