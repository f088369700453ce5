#pragma once
#include "macros/template_design.h"
#include "outputs/sweep.h"

#include <span>
#include <string>
#include <vector>

// A template tried with many values. What varies are its variables, or GRAINDIAMETER, GRAINLENGTH and THROAT
// (mm); case does not matter.
struct TemplateTrials {
  MacFile Mac;
  std::vector<TemplateAnswer> Fixed;
  TemplateGrain Grain;
  std::vector<std::string> Varies;
};

// Why these names cannot vary: there is no such variable, or one stands twice or is fixed too. Empty: they
// can.
std::string CheckVaried(const TemplateTrials &);

// The design of these values, one for each name that varies. The trouble, or empty.
std::string TryTemplate(TemplatePlayer &, const TemplateTrials &, std::span<const double> value, Design &);

// The designs of all values, the first varying slowest; the table tells the values.
SweepDesigns TemplateDesigns(const TemplateTrials &, const std::vector<std::vector<double>> &values);
