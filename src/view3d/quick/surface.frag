// The metallic-roughness material of glTF 2.0 (its specification, appendix B), lit by the studio and one lamp.
// Colors are linear until the end. The uniforms are the properties of the material in scene.qml.

VARYING vec3 position;
VARYING vec3 normal;
VARYING vec3 tangent;
VARYING vec3 bitangent;
VARYING vec2 uv;

const float PI = 3.14159265358979;

// The cases of SceneContent, and the walls of the studio.
const int LIT = 0;
const int BASE_COLOR = 1;
const int OCCLUSION = 2;
const int ROUGHNESS = 3;
const int METALLIC = 4;
const int NORMAL_MAP = 5;
const int STUDIO = 6;

// The atlas of light: the tiles of environment/light_atlas.h.
const int MATT_TILE = 6;
const int REFLECTANCE_TILE = 7;
const float MOST_BLURRED_TILE = 5.0;
const float TILE_BORDER = 1.0;

float tileEdge(int index) {
    return max(256.0 / exp2(float(index)), 32.0);
}

vec3 atlasAt(int tile, vec2 place) {
    float top = 0.0;
    for (int above = 0; above < tile; ++above)
        top += tileEdge(above) + 2.0 * TILE_BORDER;
    vec2 texel = vec2(TILE_BORDER, top + TILE_BORDER) + place * tileEdge(tile);
    return texture(lightAtlas, texel / vec2(textureSize(lightAtlas, 0))).rgb;
}

float signOf(float value) {
    return value < 0.0 ? -1.0 : 1.0;
}

// The same as placeInTile() of environment/octahedron.cpp.
vec2 placeInTile(vec3 direction) {
    vec3 ratio = direction / (abs(direction.x) + abs(direction.y) + abs(direction.z));
    vec2 point = ratio.xz;
    if (direction.y < 0.0)
        point = vec2((1.0 - abs(ratio.z)) * signOf(ratio.x), (1.0 - abs(ratio.x)) * signOf(ratio.z));
    return (point + 1.0) / 2.0;
}

vec3 studioLight(vec3 direction, float roughness) {
    vec2 place = placeInTile(direction);
    float tile = roughness * MOST_BLURRED_TILE;
    int sharper = int(floor(tile));
    int duller = int(ceil(tile));
    return mix(atlasAt(sharper, place), atlasAt(duller, place), fract(tile));
}

vec3 lightOfStudio(vec3 n, vec3 v, vec3 matt, vec3 f0, float roughness, float occlusion) {
    float cosine = clamp(dot(n, v), 0.0, 1.0);
    vec2 factors = atlasAt(REFLECTANCE_TILE, vec2(cosine, roughness)).rg;
    vec3 reflected = f0 * factors.r + factors.g;
    vec3 shine = studioLight(reflect(-v, n), roughness) * reflected;
    vec3 body = atlasAt(MATT_TILE, placeInTile(n)) * matt * (1.0 - reflected);
    return (shine + body) * occlusion;
}

vec3 lightOfLamp(vec3 n, vec3 v, vec3 matt, vec3 f0, float roughness) {
    vec3 l = lampDirection;
    vec3 h = normalize(l + v);
    float nl = dot(n, l);
    // A face that is turned away is not lit, whatever its normal map says.
    if (nl <= 0.0 || dot(normalize(normal), l) <= 0.0)
        return vec3(0.0);
    float nv = max(dot(n, v), 0.001);
    float nh = clamp(dot(n, h), 0.0, 1.0);
    float vh = clamp(dot(v, h), 0.0, 1.0);
    // A lamp without size would be invisible in a perfect mirror.
    float alpha = max(roughness * roughness, 0.0025);
    float a2 = alpha * alpha;
    float d = nh * nh * (a2 - 1.0) + 1.0;
    float distribution = a2 / (PI * d * d);
    float visibility = 0.5 / (nl * sqrt(nv * nv * (1.0 - a2) + a2) + nv * sqrt(nl * nl * (1.0 - a2) + a2));
    vec3 fresnel = f0 + (1.0 - f0) * pow(1.0 - vh, 5.0);
    vec3 body = (1.0 - fresnel) * matt / PI;
    // The lamp's light is given as what a white matt surface reflects that faces it.
    return (body + fresnel * visibility * distribution) * nl * lampLight * PI;
}

// Leaves colors up to 0.8 as they are, brings brighter ones below 1 with a curve that continues the straight
// line, and lets them turn white the brighter they are.
vec3 toScreenRange(vec3 color) {
    const float straight = 0.8;
    const float room = 1.0 - straight;
    float peak = max(color.r, max(color.g, color.b));
    if (peak <= straight)
        return color;
    float bent = 1.0 - room * room / (peak - straight + room);
    float whiteness = 1.0 - 1.0 / (0.15 * (peak - bent) + 1.0);
    return mix(color * (bent / peak), vec3(bent), whiteness);
}

vec3 toSrgb(vec3 color) {
    vec3 steep = 12.92 * color;
    vec3 curved = 1.055 * pow(max(color, vec3(0.0031308)), vec3(1.0 / 2.4)) - 0.055;
    return mix(curved, steep, vec3(lessThanEqual(color, vec3(0.0031308))));
}

vec4 shown(vec3 light) {
    return vec4(toSrgb(toScreenRange(light * exposure)), 1.0);
}

void MAIN() {
    vec3 v = normalize(CAMERA_POSITION - position);
    if (content == STUDIO) {
        // Slightly out of focus, as behind a photographed object.
        FRAGCOLOR = shown(studioLight(-v, 0.3));
        return;
    }
    vec3 base = texture(baseColorMap, uv).rgb;
    vec3 orm = texture(ormMap, uv).rgb;
    vec3 bump = texture(normalMap, uv).rgb;
    if (content == LIT) {
        vec3 slope = bump * 2.0 - 1.0;
        vec3 n = normalize(slope.x * tangent + slope.y * bitangent + slope.z * normal);
        vec3 f0 = mix(vec3(0.04), base, orm.b);
        vec3 matt = base * (1.0 - orm.b);
        FRAGCOLOR = shown(lightOfStudio(n, v, matt, f0, orm.g, orm.r) + lightOfLamp(n, v, matt, f0, orm.g));
    } else if (content == BASE_COLOR) {
        FRAGCOLOR = vec4(toSrgb(base), 1.0);
    } else if (content == NORMAL_MAP) {
        FRAGCOLOR = vec4(bump, 1.0);
    } else {
        float value = content == OCCLUSION ? orm.r : content == ROUGHNESS ? orm.g : orm.b;
        FRAGCOLOR = vec4(vec3(value), 1.0);
    }
}
