#include "outputs/channel_table.h"

#include "base/number_text.h"

std::string ChannelTableText(const MotorRun &run) {
  std::string text = "time_s,burn_distance_mm,kn,pressure_mpa,thrust_n,mass_flow_g_s,mass_flux_kg_s_m2\n";
  for (const MotorSample &s : run.Sample) {
    for (const double v : {s.Time, s.BurnDist, s.Kn, s.Pressure / 1e6, s.Thrust, s.MassFlow})
      text += PlainText(v) + ',';
    text += PlainText(s.MassFlux) + '\n';
  }
  return text;
}
