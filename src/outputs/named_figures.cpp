#include "outputs/named_figures.h"

#include "base/number_text.h"

namespace {

std::string OrNull(bool known, double value) { return known ? PlainText(value) : "null"; }

} // namespace

std::vector<NamedFigure> NamedBurnFigures(const GrainDoc &doc, const BurnRun &run) {
  return {{"max_burn_area_mm2", PlainText(run.MaxBurnArea)},
          {"max_kn", OrNull(run.HasThroat, run.MaxKn)},
          {"ap_at", OrNull(run.HasThroat, run.ApAt)},
          {"volume_loading", PlainText(run.VolumeLoading)},
          {"sliver_fraction", OrNull(run.HasSliver, run.SliverFraction)},
          {"neutrality", PlainText(run.Neutrality)},
          {"web_mm", run.TouchDist == -1 ? "null" : PlainText(run.TouchDist)},
          {"burn_end_mm", PlainText(run.LastLiveDist)},
          {"steps", std::to_string(run.StepCount)},
          {"propellant_volume_mm3", PlainText(run.Section * doc.GrainLength)},
          {"section_check", PlainText(run.SectionCheck)}};
}

std::vector<NamedFigure> NamedMotorFigures(const MotorFigures &f) {
  return {{"burn_time_s", PlainText(f.BurnTime)},
          {"peak_pressure_mpa", PlainText(f.PeakPressure / 1e6)},
          {"mean_pressure_mpa", PlainText(f.MeanPressure / 1e6)},
          {"peak_thrust_n", PlainText(f.PeakThrust)},
          {"mean_thrust_n", PlainText(f.MeanThrust)},
          {"total_impulse_ns", PlainText(f.TotalImpulse)},
          {"motor_class", '"' + f.MotorClass + '"'},
          {"propellant_mass_g", PlainText(f.PropellantMass)},
          {"delivered_isp_s", PlainText(f.DeliveredIsp)},
          {"mass_balance", PlainText(f.MassBalance)},
          {"chart_burn_time_s", OrNull(f.ChartBurnTime > 0, f.ChartBurnTime)}};
}

std::span<const FigureWords> AllFigureWords() {
  static constexpr FigureWords all[] = {{"neutrality", "Neutrality", "%", 100},
                                        {"volume_loading", "Volume loading", "%", 100},
                                        {"sliver_fraction", "Sliver", "%", 100},
                                        {"max_kn", "Max Kn", "", 1, true},
                                        {"ap_at", "Ap/At", "", 1, true},
                                        {"max_burn_area_mm2", "Max area", "cm\u00b2", 0.01},
                                        {"web_mm", "Web", "mm"},
                                        {"burn_end_mm", "Burns out at", "mm"},
                                        {"propellant_volume_mm3", "Propellant volume", "cm\u00b3", 1e-3},
                                        {"burn_time_s", "Burn time", "s", 1, true},
                                        {"peak_pressure_mpa", "Peak pressure", "MPa", 1, true},
                                        {"mean_pressure_mpa", "Mean pressure", "MPa", 1, true},
                                        {"peak_thrust_n", "Peak thrust", "N", 1, true},
                                        {"mean_thrust_n", "Mean thrust", "N", 1, true},
                                        {"total_impulse_ns", "Total impulse", "N s", 1, true},
                                        {"propellant_mass_g", "Propellant mass", "g", 1, true},
                                        {"delivered_isp_s", "Delivered Isp", "s", 1, true}};
  return all;
}

std::string JsonText(const std::vector<NamedFigure> &figures) {
  std::string text = "{\n";
  for (const NamedFigure &f : figures)
    text += "  \"" + f.Key + "\": " + f.Value + (&f == &figures.back() ? "\n" : ",\n");
  return text + "}\n";
}
