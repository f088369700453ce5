#pragma once
#include <cstdint>
#include <string>
#include <vector>

// A curve laid over a plot, in the plot's units.
struct PlotCurve {
  std::string Name;
  std::uint32_t Colour = 0; // red in the low byte
  int Dash = 0;             // which of the dash patterns
  bool Points = false;      // marks in the colour of text instead of a line
  std::vector<double> X, Y;
};

// A filled curve over time or burn distance, X evenly from 0 on, with others over it: what My_Chart3 shows
// (its labels stand in Y_Axis and Time_Axis); or curves alone: what Pep_Chart shows.
struct Plot {
  std::string XTitle, YTitle;
  bool Filled = true;     // false: X and Y are only where the cursor stands, Curve holds all that is drawn
  std::uint32_t Fill = 0; // red in the low byte
  std::vector<double> X, Y;
  double XBegin = 0, YBegin = 0, XEnd = 1, YTop = 1; // of the whole view
  double LabelEnd = 0, LabelLast = 0;                // where the last label of Time_Axis and of Y_Axis stands
  std::vector<PlotCurve> Curve;
  unsigned Number = 0; // another one whenever anything above has changed
  int Cursor = -1;     // the point under the pointer, -1: none
  std::string CursorText;
};

// Rows of texts; the first column is a name, the others are numbers.
struct TextTable {
  std::vector<std::string> Head;
  struct Line {
    std::vector<std::string> Cell;
    PlotCurve Key; // how its curve is drawn; a Name: it is
    bool operator==(const Line &other) const {
      return Cell == other.Cell && Key.Name == other.Key.Name && Key.Colour == other.Key.Colour &&
             Key.Dash == other.Key.Dash && Key.Points == other.Key.Points;
    }
  };
  std::vector<Line> Row;
  bool operator==(const TextTable &) const = default;
};

// A nozzle's shape to be sketched; a ratio of 0: nothing to show.
struct NozzleShape {
  double Ratio = 0;     // of exit to throat area
  double HalfAngle = 0; // degrees
  bool operator==(const NozzleShape &) const = default;
};
