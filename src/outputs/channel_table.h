#pragma once
#include "performance/motor_run.h"

#include <string>

// Every channel of a motor's burn, a row per sample:
// time_s,burn_distance_mm,kn,pressure_mpa,thrust_n,mass_flow_g_s,mass_flux_kg_s_m2
std::string ChannelTableText(const MotorRun &);
