#include "shell/design_defaults.h"

#include "base/rounding.h"
#include "base/text_record.h"
#include "base/whole_file.h"

#include <array>
#include <cmath>
#include <limits>
#include <variant>

namespace {

constexpr int FieldsNeeded = 12; // the two colours behind them are optional

using DefaultMember = std::variant<double DraftDefaults::*, float DraftDefaults::*, double GrainDoc::*,
                                   float GrainDoc::*, std::int32_t GrainDoc::*>;
struct DefaultField {
  const char *Name;
  DefaultMember At;
  bool WrittenWide = false; // a 32-bit value that goes into the file with 15 digits
};

constexpr std::array<DefaultField, 14> Fields{{
    {"ArcStartDefault", &DraftDefaults::ArcStartDefault},
    {"ArcEndDefault", &DraftDefaults::ArcEndDefault},
    {"LineAngleDefault", &DraftDefaults::LineAngleDefault, true},
    {"ArcAngleDefault", &DraftDefaults::ArcAngleDefault},
    {"RotationAngleDefault", &DraftDefaults::RotationAngleDefault},
    {"ScaleFactorDefault", &DraftDefaults::ScaleFactorDefault},
    {"SimIncrementDisplay", &GrainDoc::SimIncrementDisplay},
    {"GridSpacing", &GrainDoc::GridSpacing, true},
    {"GridColor", &GrainDoc::GridColor},
    {"DisplayGrid", &GrainDoc::DisplayGrid},
    {"SnapToGrid", &GrainDoc::SnapToGrid},
    {"GridLineType", &GrainDoc::GridLineType},
    {"BackColor", &GrainDoc::BackColor},
    {"LineColor", &GrainDoc::LineColor},
}};

auto &Held(DraftDefaults &defaults, GrainDoc &, auto DraftDefaults::*member) { return defaults.*member; }
auto &Held(DraftDefaults &, GrainDoc &doc, auto GrainDoc::*member) { return doc.*member; }

} // namespace

std::string ApplyDefaultFile(const std::string &path, Design &design, int most) {
  if (!FileExists(path)) return {};
  std::string bytes;
  const std::string trouble = ReadWhole(path, bytes);
  if (!trouble.empty()) return trouble;
  const std::size_t last = bytes.find_last_not_of(" \t\r\n");
  bytes.resize(last == bytes.npos ? 0 : last + 1);
  RecordReader r{bytes};
  DraftDefaults defaults = design.Defaults;
  GrainDoc doc = design.Doc;
  for (int i = 0; i < most; ++i) {
    if (i >= FieldsNeeded && AtEnd(r)) break;
    const DefaultField &field = Fields.at(static_cast<std::size_t>(i));
    if (!std::visit([&](auto member) { return Take(r, Held(defaults, doc, member)); }, field.At))
      return path + ": line " + std::to_string(r.Line) + ", field " + std::to_string(r.Field) + " (" +
             field.Name + "): " + r.Trouble;
  }
  design.Defaults = defaults;
  design.Doc = doc;
  return {};
}

std::string WriteDefaultFile(const std::string &path, const Design &design, bool lineAngleGiven) {
  DraftDefaults defaults = design.Defaults;
  GrainDoc doc = design.Doc;
  if (!lineAngleGiven && !FileExists(path)) defaults.LineAngleDefault = 0;
  doc.SimIncrementDisplay = RoundEven(doc.SimIncrementDisplay); // 16-bit in the file
  const auto refuse = [&](const char *name, const char *why) {
    return path + ": cannot be written: " + name + why;
  };
  if (!(std::fabs(doc.SimIncrementDisplay) <= std::numeric_limits<std::int16_t>::max()))
    return refuse("SimIncrementDisplay", " is no 16-bit whole number");
  const char *unfit = nullptr;
  RecordWriter w;
  for (const auto &field : Fields) {
    std::visit(
        [&](auto member) {
          const auto value = Held(defaults, doc, member);
          if (!std::isfinite(static_cast<double>(value)))
            unfit = field.Name;
          else if (field.WrittenWide)
            Put(w, static_cast<double>(value));
          else
            Put(w, value);
        },
        field.At);
    if (unfit) return refuse(unfit, " is not a finite number");
    EndRecord(w);
  }
  return WriteWhole(path, w.Bytes);
}
