#pragma once
#include "base/whole_file.h"
#include "burnback/burn_run.h"
#include "burnback/profile.h"

#include <string>

// GraphicFile: per live row its type, then its fields; an 8 ends a step. Coordinates of the turned working
// copy.
void WriteRow(StreamedFile &, const BurnEntity &, int index);
void WriteStepEnd(StreamedFile &);

std::string CheckFileText(const BurnRun &); // header, then core area, ends area, burn distance as texts
std::string KnProfileText(const BurnRun &); // burn distance and Kn of each row
