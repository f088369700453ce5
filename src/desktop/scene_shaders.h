#pragma once

// Programs of the 3D view. Colours are worked with as squares, which is near enough to linear light.
namespace shaders {
constexpr const char *SolidVertex = R"(#version 330 core
layout(location = 0) in vec3 place;
layout(location = 1) in vec3 normal;
layout(location = 2) in float surface;
uniform mat4 View, Projection;
out vec3 P, N;
flat out int S;
void main() {
  P = place;
  N = normal;
  S = int(surface + 0.5);
  gl_Position = Projection * View * vec4(place, 1.0);
}
)";

// A key light over the eye's left shoulder, a fill, a rim, and sky and floor; in the port it is the darker
// the farther the next opening is. Before it stands the version, and TEXTURED or GRAINY or neither: one
// without a bitmap must not pay for one where a processor paints.
constexpr const char *SolidFragment = R"(
in vec3 P, N;
flat in int S;
out vec4 Out;
uniform mat4 View;
uniform vec3 Colour[11], Eye;
uniform vec4 Plane;
uniform bool Perspective;
uniform float Radius, PortRadius, LowZ, HighZ;

#ifdef TEXTURED
uniform float TextureSize;
uniform sampler2D Bitmap;
// Faces look along the motor or across it, but for a drafted core's.
vec3 Material(vec3 n) {
  vec3 q = P / TextureSize;
  bool end = abs(n.z) > 0.7;
  vec2 w = n.xy * n.xy;
  w = w * w;
  float share = end ? 1.0 : w.x / max(w.x + w.y, 1e-6);
  vec3 c = mix(texture(Bitmap, q.zx).rgb, texture(Bitmap, end ? q.xy : q.zy).rgb, share);
  return c * c;
}
#elif defined(GRAINY)
float Hash(vec3 p) {
  p = fract(p * 0.3183099 + 0.1) * 17.0;
  return fract(p.x * p.y * p.z * (p.x + p.y + p.z));
}

float Noise(vec3 x) {
  vec3 i = floor(x), f = fract(x);
  f = f * f * (3.0 - 2.0 * f);
  return mix(mix(mix(Hash(i), Hash(i + vec3(1, 0, 0)), f.x),
                 mix(Hash(i + vec3(0, 1, 0)), Hash(i + vec3(1, 1, 0)), f.x), f.y),
             mix(mix(Hash(i + vec3(0, 0, 1)), Hash(i + vec3(1, 0, 1)), f.x),
                 mix(Hash(i + vec3(0, 1, 1)), Hash(i + vec3(1, 1, 1)), f.x), f.y), f.z);
}

vec3 Material(vec3 n) {
  vec3 c = Colour[S];
  return c * c * (S == 10 ? 0.95 + 0.10 * Noise(P * (70.0 / Radius)) : 1.0);
}
#else
vec3 Material(vec3 n) { return Colour[S] * Colour[S]; }
#endif

void main() {
  vec3 right = vec3(View[0][0], View[1][0], View[2][0]);
  vec3 up = vec3(View[0][1], View[1][1], View[2][1]);
  vec3 back = vec3(View[0][2], View[1][2], View[2][2]);
  vec3 n = normalize(N);
  vec3 toEye = Perspective ? normalize(Eye - P) : back;
  vec3 base = Material(n);
  bool burning = S <= 2, liner = S >= 5 && S <= 7, core = S == 8 || S == 9;
  float gloss = core ? 0.55 : liner ? 0.22 : burning ? 0.16 : 0.08;
  float tight = core ? 60.0 : liner ? 30.0 : 18.0;

  float open = 1.0;
  if (S == 0 || S == 5) {
    float away = max(0.0, min(P.z - LowZ, HighZ - P.z));
    if (dot(Plane.xyz, Plane.xyz) > 0.5) away = min(away, max(0.0, Plane.w - dot(Plane.xyz, P)));
    open = mix(0.34, 1.0, exp(-away / (1.25 * max(PortRadius, 0.05 * Radius))));
  }
  vec3 key = normalize(-0.50 * right + 0.72 * up + 0.62 * back);
  vec3 fill = normalize(0.85 * right + 0.10 * up + 0.50 * back);
  vec3 rim = normalize(0.30 * right + 0.60 * up - 0.75 * back);
  vec3 sky = mix(vec3(0.26, 0.25, 0.24), vec3(0.46, 0.48, 0.51), 0.5 + 0.5 * n.y);
  float front = 0.5 + 0.5 * max(dot(n, toEye), 0.0);
  vec3 light = sky * front * open;
  light += vec3(0.66, 0.645, 0.62) * pow(max(0.0, 0.12 + 0.88 * dot(n, key)), 1.1) * mix(open, 1.0, 0.35);
  light += vec3(0.34, 0.35, 0.37) * max(0.0, dot(n, fill)) * open;
  light += vec3(0.16) * max(0.0, dot(n, rim)) * open;
  float shine = pow(max(0.0, dot(n, normalize(key + toEye))), tight);
  float grazing = pow(1.0 - max(0.0, dot(n, toEye)), 4.0);
  vec3 c = base * light + gloss * open * (shine * vec3(0.9, 0.89, 0.86) + 0.25 * grazing * sky);
  Out = vec4(sqrt(clamp(c, 0.0, 1.0)), 1.0);
}
)";

constexpr const char *LineVertex = R"(#version 330 core
layout(location = 0) in vec3 place;
uniform mat4 View, Projection;
void main() { gl_Position = Projection * View * vec4(place, 1.0); }
)";
constexpr const char *LineFragment = R"(#version 330 core
uniform vec4 Ink;
out vec4 Out;
void main() { Out = Ink; }
)";

// The ground: two colours over the height, in the projection's upside-down picture.
constexpr const char *GroundVertex = R"(#version 330 core
out float Down;
void main() {
  vec2 at = vec2(gl_VertexID == 1 ? 3.0 : -1.0, gl_VertexID == 2 ? 3.0 : -1.0);
  Down = 0.5 + 0.5 * at.y;
  gl_Position = vec4(at, 0.0, 1.0);
}
)";
constexpr const char *GroundFragment = R"(#version 330 core
in float Down;
uniform vec3 High, Low;
out vec4 Out;
void main() { Out = vec4(mix(High, Low, smoothstep(0.0, 1.0, Down)), 1.0); }
)";

// The soft shadow of a lying cylinder on the floor that it touches.
constexpr const char *ShadowVertex = R"(#version 330 core
uniform mat4 View, Projection;
uniform float Radius, Low, High, Floor;
out vec2 At;
void main() {
  float x = (gl_VertexID & 1) == 0 ? -3.0 * Radius : 3.0 * Radius;
  float z = (gl_VertexID & 2) == 0 ? Low - 2.0 * Radius : High + 2.0 * Radius;
  At = vec2(x, z);
  gl_Position = Projection * View * vec4(x, Floor, z, 1.0);
}
)";
constexpr const char *ShadowFragment = R"(#version 330 core
in vec2 At;
uniform float Radius, Low, High, Strength;
out vec4 Out;
void main() {
  float across = exp(-At.x * At.x / (0.95 * Radius * Radius));
  float along = 0.5 * (tanh((At.y - Low) * 2.2 / Radius) - tanh((At.y - High) * 2.2 / Radius));
  Out = vec4(0.0, 0.0, 0.0, Strength * across * max(along, 0.0));
}
)";
} // namespace shaders
