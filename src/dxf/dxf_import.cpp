#include "dxf/dxf_import.h"

#include "base/number_text.h"
#include "base/whole_file.h"
#include "dxf/dxf_shapes.h"
#include "dxf/dxf_units.h"
#include "dxf/dxf_writer.h"
#include "geometry/diagnose.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {
constexpr double FarthestPlace = 1e6; // mm, as for the lengths of the document
constexpr std::size_t TableRows = 301;
constexpr double FineTolerance = 0.001, WideTolerance = 0.01; // mm

struct Frame {
  double Left = std::numeric_limits<double>::infinity(), Right = -Left, Bottom = Left, Top = -Left;
};

void Widen(Frame &f, double x, double y) {
  f.Left = std::min(f.Left, x);
  f.Right = std::max(f.Right, x);
  f.Bottom = std::min(f.Bottom, y);
  f.Top = std::max(f.Top, y);
}

bool Has(const Entity &arc, double angle) { return AngleInArc(angle, arc, ArcEnds::Closed); }

void Widen(Frame &f, const Entity &row) {
  if (row.EntType != CircleType) {
    Widen(f, row.X1, row.Y1);
    Widen(f, row.X2, row.Y2);
  }
  if (row.EntType == LineType) return;
  for (int quarter = 0; quarter < 4; ++quarter) {
    const double angle = quarter * Pi / 2;
    if (row.EntType == CircleType || Has(row, angle))
      Widen(f, row.CenterX + row.Radius * std::cos(angle), row.CenterY + row.Radius * std::sin(angle));
  }
}

// The farthest a row goes from a place.
double ReachOf(const Entity &row, Point from) {
  const double ends =
      std::max(std::hypot(row.X1 - from.X, row.Y1 - from.Y), std::hypot(row.X2 - from.X, row.Y2 - from.Y));
  if (row.EntType == LineType) return ends;
  const double away = std::hypot(row.CenterX - from.X, row.CenterY - from.Y);
  const double beyond = std::atan2(row.CenterY - from.Y, row.CenterX - from.X);
  const bool whole = row.EntType == CircleType;
  if (whole || away == 0 || Has(row, beyond < 0 ? beyond + TwoPi : beyond)) return away + row.Radius;
  return ends;
}

double ReachOf(const std::vector<Entity> &rows, Point from) {
  double reach = 0;
  for (const Entity &row : rows) reach = std::max(reach, ReachOf(row, from));
  return reach;
}

// The circle that holds all other rows; -1: none.
int RimOf(const std::vector<Entity> &rows, double tolerance) {
  int rim = -1;
  for (std::size_t i = 0; i < rows.size(); ++i)
    if (rows[i].EntType == CircleType &&
        (rim < 0 || rows[i].Radius > rows[static_cast<std::size_t>(rim)].Radius))
      rim = static_cast<int>(i);
  if (rim < 0 || rows.size() < 2) return -1;
  const Entity circle = rows[static_cast<std::size_t>(rim)];
  std::vector<Entity> others = rows;
  others.erase(others.begin() + rim);
  return ReachOf(others, {circle.CenterX, circle.CenterY}) <= circle.Radius + tolerance ? rim : -1;
}

void Shift(Entity &row, double x, double y) {
  row.X1 += x, row.X2 += x, row.CenterX += x;
  row.Y1 += y, row.Y2 += y, row.CenterY += y;
  if (row.EntType == LineType) SetLineSlope(row);
}

// The radius that the drawing's own header tells, if this program wrote it.
std::optional<double> OwnRadius(const DxfFile &file) {
  if (!file.OwnLayer || !file.LeastX || !file.LeastY || !file.MostX || !file.MostY) return std::nullopt;
  const double r = *file.MostX - 1;
  const bool square =
      *file.MostX == *file.MostY && *file.LeastX == *file.LeastY && *file.LeastX == -*file.MostX;
  return square && r > 0 && r <= FarthestPlace ? std::optional(r) : std::nullopt;
}

// A diameter that leaves some propellant about a drawing of this reach: a quarter more, in two digits.
double DiameterAbout(double reach) {
  const double wanted = 2.5 * reach, step = std::pow(10.0, std::floor(std::log10(wanted)) - 1);
  return std::ceil(wanted / step - 1e-9) * step;
}

std::string Mm(double v) { return PlainText(RoundPlaces(v, 6)) + " mm"; }
std::string Count(std::size_t n, const char *one, const char *many) {
  return std::to_string(n) + " " + (n == 1 ? one : many);
}

struct Import {
  const DxfImportOptions &Wish;
  DxfFile File;
  DxfShapes Shapes;
  DxfImportReport Report;
  Design Made;
  bool Own = false; // every row lies on the layer of this program
  double Unit = 1, Tolerance = FineTolerance;

  void Say(std::string words, bool asks) {
    Report.Words.push_back(std::move(words));
    Report.Asks = Report.Asks || asks;
  }
};

bool OnOwnLayer(const DxfFile &file) {
  if (!file.OwnLayer) return false;
  std::string none;
  return std::all_of(file.Entity.begin(), file.Entity.end(), [&](const DxfEntity &e) {
    const DxfGroup *layer = FindGroup({file, e, none}, 8);
    return layer && SameName(BareText(layer->Value), DxfLayer);
  });
}

std::string Units(Import &in) {
  if (in.Wish.MillimetresPerUnit > 0) {
    in.Unit = in.Wish.MillimetresPerUnit;
    return {};
  }
  if (!in.File.InsUnits || *in.File.InsUnits == 0) return {};
  const auto unit = UnitOf(*in.File.InsUnits);
  if (!unit)
    return PlaceOf(in.File, 1) + "$INSUNITS " + std::to_string(*in.File.InsUnits) +
           " names no unit of length";
  in.Unit = unit->Millimetres;
  if (in.Unit != 1) in.Say(std::string("Drawn in ") + unit->Name + ", brought to mm.", false);
  return {};
}

void TellLeftOut(Import &in) {
  if (in.File.NoEnd) in.Say("The file has no EOF record; its sections are whole.", true);
  if (in.Shapes.Approximated > 0)
    in.Say(
        Count(static_cast<std::size_t>(in.Shapes.Approximated), "ellipse or spline", "ellipses and splines") +
            " drawn as " +
            Count(static_cast<std::size_t>(in.Shapes.ApproximationRows), "line or arc",
                  "tangent arcs and lines") +
            ", within " + Mm(in.Tolerance) + ".",
        false);
  if (in.Shapes.Skipped.empty()) return;
  std::string list;
  for (const auto &[kind, count] : in.Shapes.Skipped)
    list += (list.empty() ? "" : ", ") + std::to_string(count) + " " + kind;
  in.Say("Left out: " + list + ".", true);
}

std::string TooManyWords(const Import &in, std::size_t row) {
  const std::size_t over = std::min(row, in.Shapes.RowLine.size() - 1);
  return PlaceOf(in.File, in.Shapes.RowLine[over]) + "too many entities: the drawing comes to " +
         std::string(in.Shapes.Approximated > 0 ? "at least " : "") + std::to_string(in.Shapes.Count) +
         ", a design holds " + std::to_string(TableRows) + " at most" +
         (in.Shapes.Approximated > 0 ? " (a wider tolerance makes fewer arcs)" : "");
}

// The grain's edge as this program writes it: the last circle, of the radius that the header tells.
bool EndsWithRim(const std::vector<Entity> &rows, double radius) {
  const Entity &last = rows.back();
  return last.EntType == CircleType && last.CenterX == 0 && last.CenterY == 0 &&
         std::abs(last.Radius - radius) <= 1e-9 * radius;
}

// Takes the grain's edge out of the rows, moves them, and settles the diameter.
std::string Place(Import &in, std::vector<Entity> &rows) {
  GrainDoc &doc = in.Made.Doc;
  std::optional<double> radius = OwnRadius(in.File);
  if (radius) *radius *= in.Unit;
  int rim = in.Wish.GrainDiameter > 0 ? -1 : RimOf(rows, doc.JoinTolerance);
  if (radius && !rows.empty() && in.Wish.GrainDiameter == 0)
    rim = EndsWithRim(rows, *radius) ? static_cast<int>(rows.size()) - 1 : -1; // else a row like any other
  Frame frame;
  for (const Entity &row : rows) Widen(frame, row);
  Point middle{(frame.Left + frame.Right) / 2, (frame.Bottom + frame.Top) / 2};
  if (rim >= 0)
    middle = {rows[static_cast<std::size_t>(rim)].CenterX, rows[static_cast<std::size_t>(rim)].CenterY};
  const std::string at = PlainText(RoundPlaces(middle.X, 6)) + ", " + PlainText(RoundPlaces(middle.Y, 6));
  if (in.Wish.Centre && !rows.empty()) {
    for (Entity &row : rows) Shift(row, -middle.X, -middle.Y);
    in.Say("Moved by its middle (" + at + ") to the grain's centre.", false);
  }
  const bool centred = in.Wish.Centre || std::hypot(middle.X, middle.Y) <= doc.JoinTolerance;
  if (in.Wish.GrainDiameter > 0) {
    radius = in.Wish.GrainDiameter / 2;
  } else if (rim >= 0 && centred) {
    const double edge = rows[static_cast<std::size_t>(rim)].Radius;
    radius = edge;
    rows.erase(rows.begin() + rim);
    in.Say("The circle of " + Mm(2 * edge) + " about the drawing is the grain's edge.", false);
  } else if (rim >= 0) {
    in.Say("A circle about everything has its centre at " + at +
               ": to take it as the grain's edge, bring it to the grain's centre.",
           true);
  }
  const double reach = ReachOf(rows, {});
  if (!(reach <= FarthestPlace))
    return PlaceOf(in.File, in.Shapes.RowLine.front()) + "the drawing reaches " + Mm(reach) +
           " from its origin, a design 1000000 mm at most" +
           (in.Wish.Centre ? "" : "; it can be brought to the grain's centre");
  in.Report.GrainKnown = radius.has_value();
  if (!radius && doc.GrainRadius > 0 && reach <= static_cast<double>(doc.GrainRadius))
    radius = doc.GrainDiam / 2;
  if (!radius) {
    radius = reach > 0 ? DiameterAbout(reach) / 2 : 10;
    in.Say("The file tells no grain: a diameter of " + Mm(2 * *radius) + " is assumed.", true);
  }
  SetDimensions(doc, 2 * *radius, static_cast<double>(doc.GrainLength), static_cast<double>(doc.ThroatDiam),
                doc.EndsExposed);
  return {};
}

void Join(Import &in) {
  EntityTable &table = in.Made.Table;
  const Solution closing = CloseGaps(table, in.Made.Doc.JoinTolerance);
  if (!Commit(table, closing).Text.empty()) return;
  if (!closing.Changed.empty())
    in.Say(Count(closing.Changed.size(), "piece was", "pieces were") + " drawn to a neighbour within " +
               Mm(in.Made.Doc.JoinTolerance) + ".",
           false);
  if (!closing.Deleted.empty())
    in.Say(Count(closing.Deleted.size(), "piece", "pieces") + " lay on another and went.", true);
}
} // namespace

std::string ImportDxf(std::string_view bytes, const std::string &name, const DxfImportOptions &wish,
                      Design &design, DxfImportReport &report, bool &tooMany) {
  tooMany = false;
  Import in{wish, {}, {}, {}, design, false, 1, FineTolerance};
  if (std::string trouble = ReadDxf(bytes, name, in.File); !trouble.empty()) return trouble;
  if (std::string trouble = Units(in); !trouble.empty()) return trouble;
  if (wish.Tolerance > 0) in.Tolerance = wish.Tolerance;
  in.Shapes = ShapesOf(in.File, ScaleMap(in.Unit, in.Unit), in.Tolerance);
  if (in.Shapes.Count > TableRows + 1 && in.Shapes.Approximated > 0 && wish.Tolerance == 0) {
    in.Tolerance = WideTolerance;
    in.Shapes = ShapesOf(in.File, ScaleMap(in.Unit, in.Unit), in.Tolerance);
  }
  if (!in.Shapes.Trouble.empty()) return in.Shapes.Trouble;
  in.Own = OnOwnLayer(in.File);
  TellLeftOut(in);
  if (in.Shapes.Row.empty() && !in.Own) {
    std::string words =
        PlaceOf(in.File, in.File.Group.back().Line) + "there is nothing in it that can be drawn.";
    for (const std::string &more : in.Report.Words) words += " " + more;
    return words;
  }
  if ((tooMany = in.Shapes.Count > TableRows + 1)) return TooManyWords(in, TableRows);
  std::vector<Entity> rows = in.Shapes.Row;
  if (std::string trouble = Place(in, rows); !trouble.empty()) return trouble;
  if ((tooMany = rows.size() > TableRows)) return TooManyWords(in, TableRows);
  in.Made.Table.EntCount = -1;
  for (const Entity &row : rows) AppendRow(in.Made.Table, row);
  if (!in.Own) Join(in);
  in.Report.Problem = Diagnose(in.Made.Table, in.Made.Doc).Words;
  const auto count = static_cast<std::size_t>(in.Made.Table.EntCount + 1);
  in.Report.Words.insert(in.Report.Words.begin(), Count(count, "entity", "entities") + " imported.");
  design = in.Made;
  report = in.Report;
  return {};
}

std::string ImportDxfFile(const std::string &path, const DxfImportOptions &wish, Design &design,
                          DxfImportReport &report, bool &tooMany) {
  std::string bytes;
  tooMany = false;
  if (std::string trouble = ReadWhole(path, bytes); !trouble.empty()) return trouble;
  return ImportDxf(bytes, path, wish, design, report, tooMany);
}
