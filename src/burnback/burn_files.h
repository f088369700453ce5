#pragma once
#include "base/whole_file.h"
#include "burnback/burn_run.h"
#include "burnback/profile.h"

#include <string>

// GraphicFile: per live row its type, then its fields; an 8 ends a step. Coordinates of the turned working
// copy.
void WriteRow(StreamedFile &, const BurnEntity &, int index);
void WriteStepEnd(StreamedFile &);

// How CheckFile shows areas and distances.
constexpr const char *CheckAreaMask = "0000.0000", *CheckDistMask = "00.00";
// Header, then core area, the section left (once, whichever ends burn) and burn distance as texts.
std::string CheckFileText(const BurnRun &);
std::string KnProfileText(const BurnRun &); // burn distance and Kn of each row
