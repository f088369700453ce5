#include "cli/motor.h"

#include "base/number_text.h"
#include "base/whole_file.h"
#include "burnback/run_sim.h"
#include "cli/exit_codes.h"
#include "cli/outputs.h"
#include "outputs/channel_table.h"
#include "outputs/chart_picture.h"
#include "outputs/motor_report.h"
#include "outputs/named_figures.h"
#include "outputs/thrust_file.h"
#include "shell/grain_file.h"

#include <filesystem>
#include <fmt/format.h>
#include <map>

namespace {

const std::map<std::string, ChartKind> ChartNames{{"kn", ChartKind::KN_Chart},
                                                  {"pressure", ChartKind::Chart_Pressure},
                                                  {"thrust", ChartKind::Chart_Thrust},
                                                  {"mass-flow", ChartKind::Chart_Mass_Flow},
                                                  {"mass-flow-rate", ChartKind::Mass_Flow_Rate},
                                                  {"mass-flux", ChartKind::Chart_Mass_Flux},
                                                  {"area", ChartKind::Area_Chart}};

// Bad inputs are told in the words of the chart that was asked for, too.
int Fail(const MotorArguments &a, int code, const std::string &words) {
  const std::string chart =
      a.Chart.empty() || code != BadUse ? "" : std::string(TextOf(ChartNames.at(a.Chart)).Message) + ": ";
  fmt::print(stderr, "{}{}\n", chart, words);
  return code;
}

std::string FillInputs(const MotorArguments &a, const GrainDoc &doc, MotorInputs &in) {
  in = OpeningInputs(doc);
  if (a.Dimensions.Throat) in.ThroatDiam = *a.Dimensions.Throat;
  if (a.Dimensions.Length) in.GrainLength = *a.Dimensions.Length;
  in.TopEnd = a.TopEnd == "yes";
  if (std::string trouble = ReadFuel(a.Fuel, in.Fuel); !trouble.empty()) return trouble;
  return CheckInputs(in);
}

std::string Report(const MotorArguments &a, const MotorInputs &in, const MotorFigures &f) {
  const auto line = [](const char *name, const std::string &value, const char *unit) {
    return fmt::format("  {:<22}{:>14}{}{}\n", name, value, *unit ? " " : "", unit);
  };
  const auto number = [&](const char *name, double value, const char *unit) {
    return line(name, fmt::format("{:.6g}", value), unit);
  };
  const Propellant &p = in.Fuel;
  std::string out =
      fmt::format("{}\n  {}a {} mm/s at Pa, n {}, density {} g/cc, c* {} m/s, Isp {} s\n"
                  "  throat {} mm, length {} mm\n\n",
                  std::filesystem::path(a.File).filename().string(), p.Name.empty() ? "" : p.Name + ": ",
                  PlainText(p.A), PlainText(p.N), PlainText(p.Density), PlainText(p.CStar), PlainText(p.Isp),
                  PlainText(in.ThroatDiam), PlainText(in.GrainLength));
  out += number("Burn time", f.BurnTime, "s");
  out += number("Peak pressure", f.PeakPressure / 1e6, "MPa");
  out += number("Mean pressure", f.MeanPressure / 1e6, "MPa");
  out += number("Peak thrust", f.PeakThrust, "N");
  out += number("Mean thrust", f.MeanThrust, "N");
  out += number("Total impulse", f.TotalImpulse, "N s");
  out += line("Motor class", f.MotorClass, "");
  out += number("Propellant mass", f.PropellantMass, "g");
  out += number("Delivered Isp", f.DeliveredIsp, "s");
  out += number("Mass balance", f.MassBalance, "");
  if (f.ChartBurnTime > 0) {
    out += number("Burn time by charts", f.ChartBurnTime, "s");
    out += "  (the charts begin at the end of the first step and stop at the last row: they come out low)\n";
  }
  const bool low = p.LowestPressure > 0 && f.MeanPressure < p.LowestPressure * 1e6;
  const bool high = p.HighestPressure > 0 && f.PeakPressure > p.HighestPressure * 1e6;
  if (low || high)
    out += fmt::format("  The pressure leaves the range in which a and n hold, {} to {} MPa\n",
                       PlainText(p.LowestPressure), PlainText(p.HighestPressure));
  return out;
}

} // namespace

int MotorCommand(const MotorArguments &a) {
  Design design;
  std::string trouble = ReadGrainFile(a.File, design);
  if (!trouble.empty()) return Fail(a, BadUse, trouble);
  design.CurrentFile = a.File;
  MotorInputs in;
  trouble = ApplyDimensions(a.Dimensions, design.Doc);
  if (trouble.empty()) trouble = FillInputs(a, design.Doc, in);
  if (!trouble.empty()) return Fail(a, BadUse, trouble);

  Outputs outputs;
  outputs.Input = a.File;
  for (const std::string *path : {&a.Table, &a.Svg, &a.Eng, &a.Report})
    if (!path->empty())
      if (trouble = PlanOutput(outputs, *path); !trouble.empty()) return Fail(a, BadUse, trouble);

  BurnRun burn;
  BurnRefusal refusal;
  if (!BurnDesign(design, {}, burn, refusal))
    return Fail(a, refusal.BadUse ? BadUse : Refused, RefusalWords(refusal));
  if (!burn.Notice.empty()) fmt::print(stderr, "{}\n", burn.Notice);
  MotorRun run;
  if (!RunMotor(burn, in, run, trouble)) return Fail(a, BadUse, trouble);

  PerformanceChart chart;
  if (!a.Chart.empty() && BuildChart(ChartNames.at(a.Chart), TableOfRun(burn),
                                     KnRowsOfRun(burn, in.ThroatDiam), in, chart) != ChartOutcome::Drawn)
    return Fail(a, BadUse, "the chart's steps of time find no burn in these inputs");

  const auto fill = [&](const std::string &path, const auto &write) {
    if (trouble.empty() && !path.empty()) trouble = FillOutput(outputs, path, write);
  };
  fill(a.Table, [&](const std::string &draft) { return WriteWhole(draft, ChannelTableText(run)); });
  fill(a.Svg, [&](const std::string &draft) { return WriteChartPicture(chart, PictureForm::Svg, draft); });
  fill(a.Eng, [&](const std::string &draft) {
    return WriteWhole(draft, ThrustFileText(run, in, std::filesystem::path(a.File).stem().string()));
  });
  fill(a.Report, [&](const std::string &draft) { return WriteMotorReport(design, burn, in, &run, draft); });
  if (trouble.empty()) trouble = MoveIntoPlace(outputs);
  if (!trouble.empty()) return Fail(a, BadUse, trouble);
  fmt::print("{}", a.Json ? JsonText(NamedMotorFigures(run.Figures)) : Report(a, in, run.Figures));
  return Done;
}
