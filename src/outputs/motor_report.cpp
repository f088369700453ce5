#include "outputs/motor_report.h"

#include "base/number_text.h"
#include "outputs/burn_drawing.h"
#include "outputs/burn_figures.h"
#include "outputs/canvas.h"
#include "outputs/line_plot.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

// A4 in points.
constexpr double PageWidth = 595.28, PageHeight = 841.89, Margin = 40, Inner = PageWidth - 2 * Margin;
constexpr double Gap = 20, TextSize = 8;
constexpr std::uint32_t Accent = Hex(0x1B4F8F), Tile = Hex(0xF3F6F9);
constexpr std::uint32_t ThrustInk = Hex(0xC2410C), PressureInk = Hex(0x1B4F8F), KnInk = Hex(0x2B8A3E),
                        EndsInk = Hex(0x0B7285);

// With thousands parted, for figures too large to have decimals.
std::string Grouped(double value) {
  return std::abs(value) < 1000 ? ShortFigure(value) : FormatMask(value, "##,##0");
}

Figure MassFigure(const char *name, double grams) {
  if (grams < 1000) return {name, ShortFigure(grams), "g"};
  return {name, FormatMask(grams / 1000, grams < 1e5 ? "0.000" : "##,##0.0"), "kg"};
}

std::string ClassWords(const MotorFigures &f) {
  return f.MotorClass.empty() ? "" : f.MotorClass + " " + FormatMask(f.MeanThrust, "0");
}

std::vector<Figure> ChiefFigures(const MotorFigures &f) {
  return {{"Class", ClassWords(f), ""},
          {"Total impulse", Grouped(f.TotalImpulse), "N s"},
          {"Peak thrust", Grouped(f.PeakThrust), "N"},
          {"Mean thrust", Grouped(f.MeanThrust), "N"},
          {"Peak pressure", ShortFigure(f.PeakPressure / 1e6), "MPa"},
          {"Burn time", ShortFigure(f.BurnTime), "s"}};
}

std::vector<Figure> ListedFigures(const BurnRun &burn, const MotorRun *motor) {
  std::vector<Figure> list = BurnFigures(burn);
  if (!motor) return list;
  const MotorFigures &f = motor->Figures;
  double flow = 0;
  for (const MotorSample &s : motor->Sample) flow = std::max(flow, s.MassFlow);
  list.push_back({"Mean pressure", ShortFigure(f.MeanPressure / 1e6), "MPa"});
  list.push_back({"Peak mass flow", Grouped(flow), "g/s"});
  list.push_back(MassFigure("Propellant", f.PropellantMass));
  list.push_back({"Delivered Isp", ShortFigure(f.DeliveredIsp), "s"});
  list.push_back({"Mass balance", FormatMask(f.MassBalance * 100, "0.00"), "%"});
  return list;
}

std::vector<Figure> InputFigures(const Design &design, const BurnRun &burn, const MotorInputs &in,
                                 const MotorRun *motor) {
  std::vector<Figure> list;
  if (motor) {
    const Propellant &p = in.Fuel;
    if (!p.Name.empty()) list.push_back({"Propellant", Printable(p.Name), ""});
    list.push_back({"Burn rate a, at Pa", PlainText(static_cast<float>(p.A)), "mm/s"});
    list.push_back({"Exponent n", PlainText(static_cast<float>(p.N)), ""});
    list.push_back({"Density", PlainText(static_cast<float>(p.Density)), "g/cc"});
    list.push_back({"c*", PlainText(static_cast<float>(p.CStar)), "m/s"});
    list.push_back({"Isp", PlainText(static_cast<float>(p.Isp)), "s"});
    list.push_back({"Throat", "\u2300 " + ShortFigure(in.ThroatDiam), "mm"});
  } else if (design.Doc.ThroatDiam > 0) {
    list.push_back({"Throat", "\u2300 " + ShortFigure(design.Doc.ThroatDiam), "mm"});
  }
  const double diameter = motor ? in.GrainDiam : design.Doc.GrainDiam;
  const double length = motor ? in.GrainLength : design.Doc.GrainLength;
  constexpr std::array<const char *, 4> ends{"none", "A", "B", "A and B"};
  const auto burning = static_cast<std::size_t>((motor ? in.EndsExposed : design.Doc.EndsExposed) & 3);
  list.push_back({"Grain", "\u2300 " + ShortFigure(diameter) + " \u00d7 " + ShortFigure(length), "mm"});
  list.push_back({"Burning ends", ends[burning], ""});
  list.push_back({"Burn step", PlainText(static_cast<float>(burn.BurnIncrement)), "mm"});
  return list;
}

LinePlot OverTime(const MotorRun &motor, const char *title, const char *unit, std::uint32_t colour,
                  double MotorSample::*channel, double scale, double mean) {
  LinePlot plot;
  plot.Title = title;
  plot.Unit = unit;
  plot.XTitle = "Time, s";
  plot.MarkPeak = mean > 0;
  plot.Mean = mean;
  plot.Line.push_back({title, colour, {}});
  for (const MotorSample &s : motor.Sample) {
    plot.X.push_back(s.Time);
    plot.Line[0].Y.push_back(s.*channel * scale);
  }
  return plot;
}

std::vector<LinePlot> MotorPlots(const MotorRun &motor) {
  const MotorFigures &f = motor.Figures;
  return {OverTime(motor, "Thrust", "N", ThrustInk, &MotorSample::Thrust, 1, f.MeanThrust),
          OverTime(motor, "Pressure", "MPa", PressureInk, &MotorSample::Pressure, 1e-6, f.MeanPressure / 1e6),
          OverTime(motor, "Kn", "", KnInk, &MotorSample::Kn, 1, 0)};
}

LinePlot OverDistance(const char *title, const char *unit) {
  LinePlot plot;
  plot.Title = title;
  plot.Unit = unit;
  plot.XTitle = "Burn distance, mm";
  return plot;
}

std::vector<LinePlot> BurnPlots(const BurnRun &run) {
  LinePlot area = OverDistance("Burn area", "cm\u00b2"), kn = OverDistance("Kn", ""),
           perimeter = OverDistance("Perimeter", "mm"), port = OverDistance("Port area", "cm\u00b2");
  area.Line = {{"Total", ThrustInk, {}}, {"Core", Accent, {}}, {"Ends", EndsInk, {}}};
  kn.Line = {{"Kn", KnInk, {}}};
  kn.MarkPeak = area.MarkPeak = true;
  for (const RowFigures &row : run.Figures) {
    area.X.push_back(row.BurnDist);
    area.Line[0].Y.push_back((row.CoreArea + row.EndsArea) / 100);
    area.Line[1].Y.push_back(row.CoreArea / 100);
    area.Line[2].Y.push_back(row.EndsArea / 100);
    kn.Line[0].Y.push_back(row.Kn);
  }
  kn.X = area.X;
  perimeter.Line = {{"Perimeter", PressureInk, run.StepPerimeter}};
  port.Line = {{"Port area", EndsInk, {}}};
  for (const double section : run.StepSection)
    port.Line[0].Y.push_back((Pi * run.GrainRadius * run.GrainRadius - section) / 100);
  perimeter.X = port.X = run.StepDist;
  return {area, run.HasThroat ? kn : port, perimeter};
}

// The line below `y`.
double PaintTitle(cairo_t *cr, const Design &design, const MotorRun *motor) {
  const TextStyle kind{.Size = 9.5, .Colour = QuietInk, .Anchor = TextAnchor::Right};
  const std::string what = motor ? "Motor report" : "Burn report";
  DrawText(cr, what, Margin + Inner, Margin + 15, kind);
  TextStyle title{.Size = 20, .Bold = true, .Colour = StrongInk};
  const std::string name = FitText(cr, DesignName(design), Inner - TextWidth(cr, what, kind) - Gap, title);
  DrawText(cr, name, Margin, Margin + 15, title);
  std::string below;
  for (const std::string &part : DimensionLines(design.Doc))
    below += (below.empty() ? "" : "   \u00b7   ") + part;
  TextStyle style{.Size = 9.5, .Colour = QuietInk};
  below = FitText(cr, below, Inner, style);
  DrawText(cr, below, Margin, Margin + 32, style);
  SetInk(cr, Accent);
  cairo_rectangle(cr, Margin, Margin + 42, Inner, 1.6);
  cairo_fill(cr);
  return Margin + 42 + 1.6;
}

void PaintTiles(cairo_t *cr, const std::vector<Figure> &figures, const PageBox &box) {
  const double between = 6, count = static_cast<double>(figures.size());
  const double width = (box.Width - between * (count - 1)) / count;
  double left = box.Left;
  for (const Figure &f : figures) {
    SetInk(cr, Tile);
    cairo_rectangle(cr, left, box.Top, width, box.Height);
    cairo_fill(cr);
    DrawText(cr, f.Name, left + 8, box.Top + 14, {.Size = TextSize, .Colour = QuietInk});
    const TextStyle unit{.Size = 8.5, .Colour = QuietInk};
    TextStyle value{.Size = 14.5, .Bold = true, .Colour = StrongInk};
    const std::string text =
        FitText(cr, f.Value, width - 16 - (f.Unit.empty() ? 0 : TextWidth(cr, f.Unit, unit) + 4), value);
    DrawText(cr, text, left + 8, box.Top + 33, value);
    DrawText(cr, f.Unit, left + 8 + TextWidth(cr, text, value) + 4, box.Top + 33, unit);
    left += width + between;
  }
}

void PaintList(cairo_t *cr, const char *title, const std::vector<Figure> &figures, const PageBox &box) {
  DrawText(cr, title, box.Left, box.Top + 1.2 * TextSize,
           {.Size = 1.2 * TextSize, .Bold = true, .Colour = StrongInk});
  const double top = box.Top + 2.4 * TextSize, count = static_cast<double>(figures.size());
  PaintFigures(cr, figures, {box.Left, top, box.Width, std::min(box.Height - 2.4 * TextSize, 22 * count)},
               TextSize + 0.5);
}

void PaintPage(cairo_t *cr, const Design &design, const BurnRun &burn, const MotorInputs &inputs,
               const MotorRun *motor) {
  SetInk(cr, Hex(0xFFFFFF));
  cairo_paint(cr);
  double y = PaintTitle(cr, design, motor) + 14;
  if (motor) {
    PaintTiles(cr, ChiefFigures(motor->Figures), {Margin, y, Inner, 42});
    y += 42 + 18;
  }
  const double side = 272, legendWidth = 78, listLeft = Margin + side + 14 + legendWidth + 14;
  PaintBurn(cr, design, burn, {Margin, y, side, side}, 0.6);
  PaintLegend(cr, 0, BurnEnd(burn), {Margin + side + 14, y, legendWidth, side}, TextSize);
  PaintList(cr, motor ? "Burn and motor" : "Burn", ListedFigures(burn, motor),
            {listLeft, y, Margin + Inner - listLeft, side});
  y += side + 22;

  const double footer = PageHeight - Margin + 4, width = (Inner - Gap) / 2;
  const double height = (footer - 18 - y - Gap) / 2;
  const std::vector<LinePlot> plots = motor ? MotorPlots(*motor) : BurnPlots(burn);
  const PageBox cell[] = {{Margin, y, width, height},
                          {Margin + width + Gap, y, width, height},
                          {Margin, y + height + Gap, width, height},
                          {Margin + width + Gap, y + height + Gap, width, height}};
  for (std::size_t i = 0; i < 3; ++i) PaintPlot(cr, plots[i], cell[i], TextSize);
  PaintList(cr, "Inputs", InputFigures(design, burn, inputs, motor), cell[3]);

  const TextStyle small{.Size = 7, .Colour = QuietInk};
  DrawText(cr, "Morvandel - Solid Motor Geometry Simulator", Margin, footer, small);
  const std::string caveat = motor ? "Steady state; no ignition transient, no erosive burning" : "";
  DrawText(cr, caveat, Margin + Inner, footer, {.Size = 7, .Colour = QuietInk, .Anchor = TextAnchor::Right});
}

} // namespace

std::string WriteMotorReport(const Design &design, const BurnRun &burn, const MotorInputs &inputs,
                             const MotorRun *motor, const std::string &path) {
  return RenderPage(
      PictureForm::Pdf, {PageWidth, PageHeight},
      [&](cairo_t *cr) { PaintPage(cr, design, burn, inputs, motor); }, path);
}
