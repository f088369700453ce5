#pragma once
#include <array>
#include <cstdint>
#include <string>

enum class Paint : std::uint8_t { Propellant, Cut, Burning, Exposed, Inhibited, Liner, Core };
constexpr std::size_t PaintCount = 7;
enum class Texture : std::uint8_t { Propellant, Burning, Liner };
constexpr std::size_t TextureCount = 3;

// How the solids look.
struct Look3d {
  std::array<std::uint32_t, PaintCount> Colour{0x93B6D2, 0xB4D8EF, 0x2F5FD9, 0x4DA8F2,
                                               0x8C7B6B, 0x51463C, 0xC4BBB2}; // red in the low byte
  std::array<std::string, TextureCount> Bitmap;                               // paths; empty: none
  bool OwnGround = false;                                                     // else the theme's
  std::uint32_t Ground = 0xF1EDE9;
  double Liner = 0; // mm; 0: a twentieth of the grain's radius
  bool operator==(const Look3d &) const = default;
};
constexpr double MostLiner = 1e5; // mm

// Default3DFile: a heading and one named value a line. An absent file is no trouble; of a broken one nothing
// is taken, and the text returned names file, line and field. Whether a bitmap can be shown is not looked
// into.
std::string ReadLook(const std::string &path, Look3d &);
std::string WriteLook(const std::string &path, const Look3d &); // whole and atomically; the trouble, or empty
