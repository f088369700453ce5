#pragma once
#include "shell/grain_document.h"

#include <string>

enum class DxfForm {
  Own,      // header, tables and spellings that never change; strict readers stop at some of them
  PlainR12, // the same drawing with a header and tables that any reader of release 12 takes
};
struct DxfChoice {
  DxfForm Form = DxfForm::Own;
  bool IncludeGrain = false; // one more circle, the grain's edge
};

// The layer of every entity that is written.
inline constexpr char DxfLayer[] = "Morvandel_LEVEL_1";

// The bytes of the drawing: release 12, millimetres and degrees in ten decimals, CR LF ends. Fault 6 at a
// value that is not finite.
std::string DxfText(const Design &, const DxfChoice &);

// Written whole or not at all. The trouble, or empty; it names a value that is not finite.
std::string WriteDxfFile(const std::string &path, const Design &, const DxfChoice &);
