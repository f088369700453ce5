#pragma once
#include "burnback/burn_run.h"
#include "performance/motor_run.h"

#include <string>

// One A4 page as PDF: the drawing with its burn contours, the figures of burn and motor, charts over time
// (Kn, pressure, thrust), inputs. Without a motor (null: no throat, or none wanted) the charts stand over the
// burn distance and the inputs are not used. Returns the trouble, or an empty text; written atomically.
std::string WriteMotorReport(const Design &, const BurnRun &, const MotorInputs &, const MotorRun *,
                             const std::string &path);
