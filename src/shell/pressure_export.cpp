#include "shell/pressure_export.h"

#include "base/whole_file.h"
#include "outputs/burn_figures.h"
#include "outputs/channel_table.h"
#include "outputs/chart_picture.h"
#include "outputs/motor_report.h"
#include "outputs/plot_picture.h"
#include "outputs/thrust_file.h"
#include "performance/charts.h"
#include "shell/picture_target.h"
#include "shell/save_target.h"

namespace {

void Tell(Workbench &bench, const char *title, const std::string &trouble) {
  if (!trouble.empty()) bench.Out.Ask({trouble, title, Buttons::Ok, Icon::Exclamation});
}

// What leaves is what the boxes say: figures of former inputs would pass for theirs.
bool Ready(Workbench &bench, const char *title) {
  const Pressure &state = bench.Motor;
  if (!state.Objection.empty()) Tell(bench, title, state.Objection + ".");
  return state.Objection.empty() && !state.Run.Sample.empty();
}

} // namespace

void SaveChart(Workbench &bench) {
  constexpr const char *title = "Save Picture";
  const PerformanceChart &chart = bench.Motor.Chart;
  if (chart.Value.empty()) return;
  std::string path;
  PictureForm form{};
  if (!AskPicture(bench, std::string("_") + TextOf(chart.Kind).Name, path, form)) return;
  const Plot &plot = bench.Out.My_Chart3;
  Tell(bench, title,
       plot.Curve.empty() ? WriteChartPicture(chart, form, path)
                          : WritePlotPicture(plot, chart.Title, "The inputs at hand", form, path));
}

void ExportThrustFile(Workbench &bench) {
  constexpr const char *title = "Thrust File";
  if (!Ready(bench, title)) return;
  const std::string path = AskTarget(bench, "All Files (*.*)|*.*|Thrust Files (*.eng)|*.eng", "", ".eng");
  if (path.empty()) return;
  const Pressure &state = bench.Motor;
  const std::string name = bench.Grain.CurrentFile.empty() ? "" : DesignName(bench.Grain);
  Tell(bench, title, WriteWhole(path, ThrustFileText(state.Run, state.RunInputs, name)));
}

void ExportChannels(Workbench &bench) {
  constexpr const char *title = "Table of Channels";
  if (!Ready(bench, title)) return;
  const std::string path =
      AskTarget(bench, "All Files (*.*)|*.*|Comma Sep Value Files (*.csv)|*.csv", "_motor", ".csv");
  if (!path.empty()) Tell(bench, title, WriteWhole(path, ChannelTableText(bench.Motor.Run)));
}

void ExportMotorReport(Workbench &bench) {
  constexpr const char *title = "Report";
  if (!Ready(bench, title)) return;
  const std::string path = AskTarget(bench, "All Files (*.*)|*.*|PDF (*.pdf)|*.pdf", "_motor", ".pdf");
  if (path.empty()) return;
  const Pressure &state = bench.Motor;
  Tell(bench, title, WriteMotorReport(bench.Grain, bench.Sim.Run, state.RunInputs, &state.Run, path));
}
