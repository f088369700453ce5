#pragma once
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// What a thing is, so that a screen can choose theme colours; Own means Colour as it stands.
enum class Ink : std::uint8_t {
  Own,
  Grid,
  GridFifth,
  GrainCircle,
  Geometry,
  Picked,
  Propellant,
  Core,
  Contour,
  Fault,
  Note,
  Guide,  // snaps, guides, rubber bands
  WillBe, // what a click will make
  WillGo  // what a click will remove
};

// One thing drawn, in drawing units, Y upward, angles in radians counter-clockwise.
struct DrawItem {
  enum class Kind : std::uint8_t {
    Line,   // At: x1 y1 x2 y2
    Circle, // At: centre x, y, radius
    Arc,    // At: centre x, y, radius, start, end
    Mark,   // At: x, y, half size: two diagonal lines
    Dot,    // At: x, y: one point
    Label,  // At: x, y; Text
  } What = Kind::Line;
  bool Inverse = false;     // an inverse item drawn twice cancels
  std::uint8_t Style = 0;   // 0 solid, 1 dashed, 2 dotted
  std::uint32_t Colour = 0; // red in the low byte
  Ink Role = Ink::Own;
  std::array<double, 5> At{};
  std::string Text;
  bool operator==(const DrawItem &) const = default;
};

// A closed region of lines and arcs, filled: the propellant of a closed outline is the disc less the core.
struct OutlinePiece {
  double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0; // walking direction
  double CenterX = 0, CenterY = 0, Radius = 0,
         Sweep = 0; // Radius 0: a line; Sweep signed, counter-clockwise positive
  bool operator==(const OutlinePiece &) const = default;
};

// The drawing: a window in drawing units and the list of what stands in it.
struct DrawSurface {
  double Left = -1, Top = 1, Width = 2, Height = -2; // Height is negative: Y goes upward
  double PixelWidth = 800, PixelHeight = 800;
  double GrainRadius = 0;
  std::optional<std::uint32_t> Ground; // the design's own BackColor; none: the theme's
  double ContourFrom = 0,
         ContourTo = 0; // mm: the burn distances the Contour items' colours stand for; equal: no legend
  std::vector<OutlinePiece> Core; // the closed core outline, empty when it is not closed
  std::vector<DrawItem> Item;
  std::vector<DrawItem> Overlay; // what follows the pointer, on top; Redraw leaves it
  std::vector<DrawItem> Flash;   // shown for 0.1 s whenever FlashNo has changed
  unsigned FlashNo = 0;
};
void Draw(DrawSurface &,
          DrawItem); // appends; an inverse item equal to the last inverse one of its place removes it
