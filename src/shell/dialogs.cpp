#include "shell/dialogs.h"

#include "base/number_text.h"
#include "base/text_record.h"
#include "base/whole_file.h"
#include "drafting/command_machine.h"
#include "drafting/transform_rows.h"
#include "shell/design_view.h"
#include "shell/file_menu.h"
#include "shell/recovery.h"

#include <cmath>
#include <limits>

namespace {
constexpr int EnterKey = 13, EscapeKey = 27;

std::string LengthText(double mm) { return PlainText(static_cast<float>(mm)); }

void FillFields(Workbench &bench) {
  Screen &out = bench.Out;
  const DimensionsCopy &copy = bench.Dialog;
  out[Ctl::GrainDiam].Text = LengthText(copy.Diameter);
  out[Ctl::GrainLength].Text = LengthText(copy.Length);
  out[Ctl::Nozzle_Throat].Text = LengthText(copy.Throat);
  out[Ctl::EndA_Exposed].Checked = copy.EndsExposed & 1;
  out[Ctl::EndB_Exposed].Checked = copy.EndsExposed & 2;
}

void ToggleEnd(Workbench &bench, Ctl box, int bit) {
  bench.Dialog.EndsExposed ^= bit;
  bench.Out[box].Checked = bench.Dialog.EndsExposed & bit;
}

bool TooLarge(double mm) { return !(std::abs(mm) <= static_cast<double>(std::numeric_limits<float>::max())); }

bool Refuse(Workbench &bench, const char *text, Ctl field) {
  bench.Out.Ask({text, "INPUT ERROR", Buttons::Ok, Icon::Stop});
  bench.Out.Focus = field;
  return false;
}

bool Acceptable(Workbench &bench) {
  const DimensionsCopy &copy = bench.Dialog;
  const char *large = "THE NUMBER IS TOO LARGE";
  if (TooLarge(copy.Diameter)) return Refuse(bench, large, Ctl::GrainDiam);
  if (!(static_cast<float>(copy.Diameter / 2) > 0))
    return Refuse(bench, "A NUMBER GREATER THAN 0 MUST BE ENTERED", Ctl::GrainDiam);
  if (TooLarge(copy.Length)) return Refuse(bench, large, Ctl::GrainLength);
  if (TooLarge(copy.Throat)) return Refuse(bench, large, Ctl::Nozzle_Throat);
  return true;
}

void Next(Workbench &bench) {
  if (!Acceptable(bench)) return;
  DimensionsCopy &copy = bench.Dialog;
  copy.Accepted = true;
  SetDimensions(bench.Grain.Doc, copy.Diameter, copy.Length, copy.Throat, copy.EndsExposed);
  bench.Out[Ctl::Dimensions].Visible = false;
}

void Cancel(Workbench &bench) {
  bench.Dialog.Accepted = false;
  bench.Out[Ctl::Dimensions].Visible = false;
}

void FieldText(Workbench &bench, const Event &event) {
  const double value = Val(event.Text);
  DimensionsCopy &copy = bench.Dialog;
  switch (event.Target) {
  case Ctl::GrainDiam:
    copy.Diameter = value;
    copy.Radius = value / 2;
    break;
  case Ctl::GrainLength: copy.Length = value; break;
  case Ctl::Nozzle_Throat: copy.Throat = value; break;
  default: return;
  }
  bench.Out[event.Target].Text = event.Text;
}

void FieldKey(Workbench &bench, const Event &event) {
  if (event.KeyCode == EscapeKey) Cancel(bench);
  if (event.KeyCode != EnterKey) return;
  switch (event.Target) {
  case Ctl::GrainDiam: bench.Out.Focus = Ctl::GrainLength; break;
  case Ctl::GrainLength: bench.Out.Focus = Ctl::Nozzle_Throat; break;
  case Ctl::Nozzle_Throat:
  case Ctl::Dimensions_Next: Next(bench); break;
  case Ctl::Dimensions_Cancel: Cancel(bench); break;
  default: break;
  }
}

void FieldPress(Workbench &bench, Ctl target) {
  switch (target) {
  case Ctl::EndA_Exposed: ToggleEnd(bench, target, 1); break;
  case Ctl::EndB_Exposed: ToggleEnd(bench, target, 2); break;
  case Ctl::Dimensions_Next: Next(bench); break;
  case Ctl::Dimensions_Cancel: Cancel(bench); break;
  default: break;
  }
}

std::string IntroFile(const Workbench &bench) { return bench.Folders.AppDir + "IntroFile.txt"; }

void CloseIntro(Workbench &bench) {
  bench.Out[Ctl::IntroPage].Visible = false;
  const int answer = bench.Out[Ctl::Intro_DontShow].Checked ? 1 : 0;
  if (IntroWanted(bench) == (answer == 0)) return;
  RecordWriter record;
  Put(record, answer);
  EndRecord(record);
  WriteWhole(IntroFile(bench), record.Bytes); // when it fails the page comes again, no more
}
} // namespace

void LoadDimensions(Workbench &bench) {
  bench.Dialog = {};
  FillFields(bench);
}

void PrefillDimensions(Workbench &bench, const GrainDoc &doc) {
  DimensionsCopy &copy = bench.Dialog;
  copy.Diameter = 2.0 * static_cast<double>(doc.GrainRadius);
  copy.Radius = static_cast<double>(doc.GrainRadius);
  copy.Length = static_cast<double>(doc.GrainLength);
  copy.Throat = static_cast<double>(doc.ThroatDiam);
  copy.EndsExposed = doc.EndsExposed;
  FillFields(bench);
}

bool AskDimensions(Workbench &bench) {
  bench.Dialog.DiameterBefore = bench.Dialog.Diameter;
  bench.Dialog.Accepted = false;
  bench.Out.Focus = Ctl::GrainDiam;
  bench.Out[Ctl::Dimensions].Visible = true;
  bench.Out.RunModal(Form::Dimensions);
  bench.Out[Ctl::Dimensions].Visible = false;
  return bench.Dialog.Accepted;
}

bool ScaleEntities(EntityTable &table, double factor) {
  EntityTable scaled = table;
  for (int i = 0; i <= scaled.EntCount; ++i) {
    Entity &e = RowAt(scaled, i);
    e = ScaledRow(e, {0, 0}, factor);
    for (const double value : {e.X1, e.Y1, e.X2, e.Y2, e.CenterX, e.CenterY, e.Radius, e.Intercept})
      if (!std::isfinite(value)) return false;
  }
  table = scaled;
  return true;
}

void MenuDimensions(Workbench &bench) {
  Design &grain = bench.Grain;
  LeaveCommand(bench.Draft);
  PrefillDimensions(bench, grain.Doc);
  const GrainDoc before = grain.Doc;
  if (AskDimensions(bench)) {
    bench.Chart2Hidden = bench.Chart2Hidden || !(grain.Doc.ThroatDiam > 0);
    // Compared as the file keeps them: a field that only repeats the 7 digits shown is no change.
    const bool resized = grain.Doc.GrainRadius != before.GrainRadius;
    const bool changed = resized || grain.Doc.GrainLength != before.GrainLength ||
                         grain.Doc.ThroatDiam != before.ThroatDiam ||
                         grain.Doc.EndsExposed != before.EndsExposed;
    if (resized && grain.Table.EntCount >= 0 &&
        bench.Out.Ask({"Scale Core Entities with Grain Diameter?", "", Buttons::YesNo, Icon::None}) ==
            Answer::Yes) {
      const double factor = grain.Doc.GrainDiam / bench.Dialog.DiameterBefore;
      const EntityTable table = grain.Table;
      if (ScaleEntities(grain.Table, factor)) {
        TakeSnapshot(bench.Draft.Ring, table, grain.MacroMode, "Scaling");
        for (int i = 0; i <= grain.Table.EntCount; ++i) RowAt(grain.Table, i).Selected = false;
        grain.Defaults.ScaleFactorDefault = factor;
      } else {
        bench.Out.Ask({"The core cannot be scaled that far", "", Buttons::Ok, Icon::Exclamation});
      }
    }
    if (changed && grain.Table.EntCount >= 0) {
      grain.SavedFlag = false;
      KeepWorkFile(bench);
    }
  }
  ShowWholeGrain(bench);
}

void DimensionsEvent(Workbench &bench, const Event &event) {
  switch (event.What) {
  case Event::Kind::Press: FieldPress(bench, event.Target); break;
  case Event::Kind::Text: FieldText(bench, event); break;
  case Event::Kind::Key: FieldKey(bench, event); break;
  case Event::Kind::Close: Cancel(bench); break;
  default: break;
  }
}

bool IntroWanted(const Workbench &bench) {
  std::string bytes;
  if (!ReadWhole(IntroFile(bench), bytes).empty()) return true;
  return Val(bytes) == 0;
}

void ShowIntro(Workbench &bench) {
  Screen &out = bench.Out;
  out[Ctl::Intro_Text].Text = "Morvandel burns the grain you draw. Give its overall dimensions, draw the "
                              "outline of the core inside the grain "
                              "circle or open a grain, then press RUN SIM: the burn area, the Kn ratio and "
                              "the outline at every distance "
                              "follow at once.";
  out[Ctl::Intro_DontShow].Checked = !IntroWanted(bench);
  const bool shipped = !ExamplePath(bench.Folders).empty();
  out[Ctl::Intro_Example].Enabled = shipped;
  out[Ctl::Intro_Example].Hint = shipped ? "Opens a star grain, ready to run" : "No examples are installed";
  out[Ctl::IntroPage].Visible = true;
  out.Focus = Ctl::Intro_OK;
  out.RunModal(Form::IntroPage);
  out[Ctl::IntroPage].Visible = false;
}

void IntroEvent(Workbench &bench, const Event &event) {
  const bool close =
      event.What == Event::Kind::Close ||
      (event.What == Event::Kind::Key && (event.KeyCode == EnterKey || event.KeyCode == EscapeKey));
  if (close) CloseIntro(bench);
  if (event.What != Event::Kind::Press) return;
  switch (event.Target) {
  case Ctl::Intro_DontShow:
    bench.Out[Ctl::Intro_DontShow].Checked = !bench.Out[Ctl::Intro_DontShow].Checked;
    break;
  case Ctl::Intro_OK: CloseIntro(bench); break;
  case Ctl::Intro_Example:
    CloseIntro(bench);
    OpenExample(bench);
    break;
  default: break;
  }
}

void ShowAbout(Workbench &bench) {
  Screen &out = bench.Out;
  out[Ctl::About_Text].Text = "Morvandel - Solid Motor Geometry Simulator\nVersion " MORVANDEL_VERSION
                              "\nFree software under the GNU General Public License, version 3 or later.";
  out[Ctl::frmAbout].Visible = true;
  out.Focus = Ctl::About_OK;
  out.RunModal(Form::About);
  out[Ctl::frmAbout].Visible = false;
}
