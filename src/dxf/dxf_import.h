#pragma once
#include "shell/grain_document.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct DxfImportOptions {
  double GrainDiameter = 0;      // mm; 0: as the drawing tells it
  double MillimetresPerUnit = 0; // 0: by the file's $INSUNITS, without which it is in mm
  double Tolerance = 0; // mm, of the arcs that stand for ellipses and splines; 0: 0.001, and 0.01 where that
  // comes to more rows than a design holds
  bool Centre = false; // the middle of the drawing goes to the grain's centre
};

// What a user wants to hear of an import.
struct DxfImportReport {
  std::vector<std::string> Words; // a line each
  bool Asks = false;              // something was left out, assumed or is amiss
  bool GrainKnown = false;        // the file told the diameter
  std::string Problem;            // Diagnose: why the outline does not burn
};

// Replaces the rows of the design by those of the drawing, and its diameter where the file tells one or the
// drawing does not fit. The other dimensions stay. On failure the design is as it was, and the trouble names
// file and line; TooMany tells that the file is sound but fits in no design.
std::string ImportDxf(std::string_view bytes, const std::string &name, const DxfImportOptions &, Design &,
                      DxfImportReport &, bool &tooMany);

// The same from a file.
std::string ImportDxfFile(const std::string &path, const DxfImportOptions &, Design &, DxfImportReport &,
                          bool &tooMany);
