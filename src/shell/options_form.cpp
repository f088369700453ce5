#include "shell/settings_dialogs.h"

#include "base/number_text.h"
#include "base/whole_file.h"
#include "drafting/ask_question.h"
#include "shell/design_defaults.h"
#include "shell/form_answer.h"

namespace {
constexpr double Degree = 3.14159265358979 / 180;
constexpr int LinesOfTools = 7; // of DefaultFile; the document's grid and colours follow
constexpr NumberRange Angles{-36000, 36000}, Factors{0, MostLength, false, true}, Steps{1, 32767, true};

struct OptionRow {
  const char *Name;
  NumberRange Range;
  bool Angle;
  double (*Get)(const OptionsCopy &);
  void (*Set)(OptionsCopy &, double);
};
constexpr std::size_t LineAngleRow = 3;
constexpr std::array<OptionRow, 8> Rows{{
    {"Joining Tolerance", Factors, false, [](const OptionsCopy &o) { return o.JoinTolerance; },
     [](OptionsCopy &, double) {}}, // not in the file: takes no effect
    {"Arc Start Angle", Angles, true, [](const OptionsCopy &o) { return o.Defaults.ArcStartDefault; },
     [](OptionsCopy &o, double v) { o.Defaults.ArcStartDefault = v; }},
    {"Arc End Angle", Angles, true, [](const OptionsCopy &o) { return o.Defaults.ArcEndDefault; },
     [](OptionsCopy &o, double v) { o.Defaults.ArcEndDefault = v; }},
    {"Line Angle", Angles, true,
     [](const OptionsCopy &o) { return static_cast<double>(o.Defaults.LineAngleDefault); },
     [](OptionsCopy &o, double v) { o.Defaults.LineAngleDefault = static_cast<float>(v); }},
    {"Arc Angle", Angles, true, [](const OptionsCopy &o) { return o.Defaults.ArcAngleDefault; },
     [](OptionsCopy &o, double v) { o.Defaults.ArcAngleDefault = v; }},
    {"Rotation Angle", Angles, true, [](const OptionsCopy &o) { return o.Defaults.RotationAngleDefault; },
     [](OptionsCopy &o, double v) { o.Defaults.RotationAngleDefault = v; }},
    {"Scale Factor", Factors, false, [](const OptionsCopy &o) { return o.Defaults.ScaleFactorDefault; },
     [](OptionsCopy &o, double v) { o.Defaults.ScaleFactorDefault = v; }},
    {"Sim Increment Display!", Steps, false, [](const OptionsCopy &o) { return o.SimIncrement; },
     [](OptionsCopy &o, double v) { o.SimIncrement = v; }},
}};
constexpr std::size_t SimIncrementRow = Rows.size() - 1;

std::string DefaultPath(const Workbench &bench) { return bench.Folders.AppDir + "DefaultFile"; }

std::string ShownText(std::size_t row, const OptionsCopy &copy) {
  const double value = Rows[row].Get(copy) / (Rows[row].Angle ? Degree : 1);
  return row == LineAngleRow ? PlainText(static_cast<float>(value)) : PlainText(value);
}

void Tell(Workbench &bench, const std::string &trouble) {
  bench.Out.Ask({trouble, "Options", Buttons::Ok, Icon::Exclamation});
}

void Load(Workbench &bench) {
  Design held = bench.Grain;
  const bool kept = FileExists(DefaultPath(bench));
  if (const std::string trouble = ApplyDefaultFile(DefaultPath(bench), held, LinesOfTools); !trouble.empty())
    Tell(bench, trouble);
  OptionsCopy &copy = bench.Options = {};
  copy.JoinTolerance = held.Doc.JoinTolerance;
  copy.SimIncrement = held.Doc.SimIncrementDisplay;
  copy.Defaults = held.Defaults;
  if (!kept) copy.Defaults.LineAngleDefault = 0; // as it goes into a new file
  for (std::size_t i = 0; i < Rows.size(); ++i) copy.Text[i] = ShownText(i, copy);
}

void Choose(Workbench &bench, int index) {
  Screen &out = bench.Out;
  out[Ctl::Default_List].Index = index;
  Control &value = out[Ctl::Default_Value];
  value.Enabled = index >= 0;
  value.Text = index < 0 ? "" : bench.Options.Text[static_cast<std::size_t>(index)];
  value.Hint = index < 0    ? "Choose a row first"
               : index == 0 ? "Stays with the design; it is not changed here"
                            : "";
}

// The copy with what was typed; nothing when a text is no number, which has been told.
std::optional<OptionsCopy> Accepted(Workbench &bench) {
  OptionsCopy next = bench.Options;
  for (std::size_t i = 0; i < Rows.size(); ++i) {
    if (!next.Typed[i]) continue;
    const auto value = FormNumber(bench, Ctl::Default_Value, next.Text[i], Rows[i].Range);
    if (!value) {
      Choose(bench, static_cast<int>(i));
      return std::nullopt;
    }
    Rows[i].Set(next, Rows[i].Angle ? *value * Degree : *value);
  }
  return next;
}

void Accept(Workbench &bench) {
  const auto next = Accepted(bench);
  if (!next) return;
  bench.Out[Ctl::Options_Form].Visible = false;
  Design &grain = bench.Grain;
  grain.Defaults = next->Defaults;
  Design kept = grain;
  kept.Doc.SimIncrementDisplay = next->SimIncrement;
  if (next->Typed[SimIncrementRow]) SetSimIncrement(bench, next->SimIncrement);
  const std::string trouble = WriteDefaultFile(DefaultPath(bench), kept, next->Typed[LineAngleRow]);
  if (!trouble.empty()) Tell(bench, trouble);
}
} // namespace

void ShowOptions(Workbench &bench) {
  Load(bench);
  Screen &out = bench.Out;
  Control &list = out[Ctl::Default_List];
  list.Item.clear();
  for (const OptionRow &row : Rows) list.Item.emplace_back(row.Name);
  Choose(bench, -1);
  out[Ctl::Options_Form].Visible = true;
  out.Focus = Ctl::Default_List;
  out.RunModal(Form::Options);
  out[Ctl::Options_Form].Visible = false;
}

void OptionsEvent(Workbench &bench, const Event &event) {
  if (!bench.Out[Ctl::Options_Form].Visible) return;
  switch (ActOf(event, Ctl::Options_OK, Ctl::Options_Cancel)) {
  case FormAct::Accept: return Accept(bench);
  case FormAct::Cancel: bench.Out[Ctl::Options_Form].Visible = false; return;
  case FormAct::None: break;
  }
  const int chosen = bench.Out[Ctl::Default_List].Index;
  if (event.Target == Ctl::Default_List && event.What == Event::Kind::Press) {
    for (std::size_t i = 0; i < Rows.size(); ++i)
      if (event.Text == Rows[i].Name) Choose(bench, static_cast<int>(i));
  } else if (event.Target == Ctl::Default_Value && event.What == Event::Kind::Text && chosen >= 0) {
    const auto row = static_cast<std::size_t>(chosen);
    bench.Out[Ctl::Default_Value].Text = bench.Options.Text[row] = event.Text;
    bench.Options.Typed[row] = true;
  }
}
