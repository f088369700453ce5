#pragma once
#include "macros/mac_file.h"
#include "macros/template_values.h"

#include <memory>
#include <string>

// A template drawn without a screen: no drawing, no undo, no files. For sweeps, searches and live previews.

struct TemplateGrain {
  double Diameter = 0, Length = 0, Throat = 0; // mm; 0: as recorded (throat: none)
  int EndsExposed = 3;
};

// A player that may be used again and again; one thread each.
struct TemplatePlayer;
std::shared_ptr<TemplatePlayer> MakeTemplatePlayer();

struct TemplateResult {
  std::string Trouble;  // empty: Grain holds the drawing
  int Instruction = -1; // the one that failed, from 0; -1: none
  std::string Variable; // the answer at fault, if it is one
};

// The drawing goes to `grain` (whole: dimensions, table); on trouble it is untouched.
TemplateResult DesignFromTemplate(TemplatePlayer &, const MacFile &, const VariableTable &values,
                                  const TemplateGrain &, Design &grain);
TemplateResult DesignFromTemplate(const MacFile &, std::span<const TemplateAnswer>, const TemplateGrain &,
                                  Design &grain);
