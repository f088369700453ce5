#include "shell/settings_dialogs.h"

#include "base/number_text.h"
#include "drafting/ask_question.h"
#include "shell/design_defaults.h"
#include "shell/design_view.h"
#include "shell/form_answer.h"

#include <algorithm>
#include <limits>

namespace {
constexpr int LinesOfTools = 7; // of DefaultFile

struct TypeRow {
  Ctl Button;
  float Type;
};
constexpr TypeRow Types[] = {
    {Ctl::SolidLine, 0}, {Ctl::Dashed_Line, 1}, {Ctl::Dotted_Line, 2}, {Ctl::Dots, 99}};

struct ColourRow {
  Ctl Button;
  float GrainDoc::*Colour;
};
constexpr ColourRow Colours[] = {{Ctl::Grid_Color, &GrainDoc::GridColor},
                                 {Ctl::Screen_Line_Color, &GrainDoc::LineColor},
                                 {Ctl::Screen_BG_Color, &GrainDoc::BackColor}};

// The preview: lines of the type Index in the colours of the buttons, on Colour.
void RefreshPreview(Screen &out) {
  out[Ctl::Grid_Preview].Colour = out[Ctl::Screen_BG_Color].Colour;
  for (const TypeRow &row : Types)
    if (out[row.Button].Checked) out[Ctl::Grid_Preview].Index = static_cast<int>(row.Type);
}

void ChooseType(Screen &out, Ctl chosen) {
  for (const TypeRow &row : Types) out[row.Button].Checked = row.Button == chosen;
  RefreshPreview(out);
}

void Load(Workbench &bench) {
  Screen &out = bench.Out;
  const GrainDoc &doc = bench.Grain.Doc;
  out[Ctl::Grid_Spacing].Text = PlainText(doc.GridSpacing);
  out[Ctl::Grid_Display].Checked = doc.DisplayGrid == 1;
  out[Ctl::Grid_Snap].Checked = doc.SnapToGrid == 1;
  for (const ColourRow &row : Colours)
    out[row.Button].Colour = static_cast<std::uint32_t>(ColourOf(doc.*row.Colour));
  Ctl type = Ctl::SolidLine; // what the grid draws for a type that is none of the four
  for (const TypeRow &row : Types)
    if (row.Type == doc.GridLineType) type = row.Button;
  ChooseType(out, type);
}

// A value that the dialog shows as it was stays to the last digit.
void Put(float &held, double shown, bool same) {
  if (!same) held = static_cast<float>(shown);
}

// The document with the dialog's values; nothing when the spacing is no number, which has been told.
std::optional<GrainDoc> Chosen(Workbench &bench) {
  constexpr double least = std::numeric_limits<float>::min();
  const Screen &out = bench.Out;
  GrainDoc doc = bench.Grain.Doc;
  const std::string &text = out[Ctl::Grid_Spacing].Text;
  const auto spacing = FormNumber(bench, Ctl::Grid_Spacing, text, {0, MostLength, false, true});
  if (!spacing) return std::nullopt;
  Put(doc.GridSpacing, std::max(*spacing, least), text == PlainText(doc.GridSpacing));
  doc.DisplayGrid = out[Ctl::Grid_Display].Checked;
  doc.SnapToGrid = out[Ctl::Grid_Snap].Checked;
  for (const TypeRow &row : Types)
    if (out[row.Button].Checked) doc.GridLineType = row.Type;
  for (const ColourRow &row : Colours) {
    const std::uint32_t colour = out[row.Button].Colour;
    Put(doc.*row.Colour, colour, colour == static_cast<std::uint32_t>(ColourOf(doc.*row.Colour)));
  }
  return doc;
}

bool Differs(const GrainDoc &a, const GrainDoc &b) {
  for (const ColourRow &row : Colours)
    if (a.*row.Colour != b.*row.Colour) return true;
  return a.GridSpacing != b.GridSpacing || a.DisplayGrid != b.DisplayGrid || a.SnapToGrid != b.SnapToGrid ||
         a.GridLineType != b.GridLineType;
}

void Accept(Workbench &bench) {
  const auto doc = Chosen(bench);
  if (!doc) return;
  bench.Out[Ctl::Grid_Control].Visible = false;
  const bool changed = Differs(bench.Grain.Doc, *doc);
  bench.Grain.Doc = *doc;
  if (changed) DocumentChanged(bench);
  RedrawDrawing(bench);
}

// False: told in a box.
bool Kept(Workbench &bench, const std::string &trouble) {
  if (!trouble.empty())
    bench.Out.Ask({trouble, bench.Out[Ctl::Grid_Control].Text, Buttons::Ok, Icon::Exclamation});
  return trouble.empty();
}

void AcceptAsDefault(Workbench &bench) {
  const auto doc = Chosen(bench);
  if (!doc) return;
  const std::string path = bench.Folders.AppDir + "DefaultFile";
  Design kept = bench.Grain;
  kept.Doc = *doc;
  Kept(bench, ApplyDefaultFile(path, kept, LinesOfTools)); // a broken one gives way to the program's values
  if (Kept(bench, WriteDefaultFile(path, kept))) Accept(bench);
}

void Press(Workbench &bench, Ctl target) {
  Screen &out = bench.Out;
  if (target == Ctl::Grid_Display || target == Ctl::Grid_Snap) out[target].Checked = !out[target].Checked;
  if (target == Ctl::SaveAsDefault) AcceptAsDefault(bench);
  for (const TypeRow &row : Types)
    if (row.Button == target) ChooseType(out, target);
  for (const ColourRow &row : Colours)
    if (row.Button == target) {
      if (const auto colour = out.AskColour(out[target].Colour)) out[target].Colour = *colour;
      RefreshPreview(out);
    }
}
} // namespace

void ShowGrid(Workbench &bench) {
  Load(bench);
  Screen &out = bench.Out;
  out[Ctl::Grid_Control].Visible = true;
  out.Focus = Ctl::Grid_Spacing;
  out.RunModal(Form::Grid);
  out[Ctl::Grid_Control].Visible = false;
}

void GridEvent(Workbench &bench, const Event &event) {
  if (!bench.Out[Ctl::Grid_Control].Visible) return;
  switch (ActOf(event, Ctl::Grid_OK, Ctl::Grid_Cancel)) {
  case FormAct::Accept: return Accept(bench);
  case FormAct::Cancel: bench.Out[Ctl::Grid_Control].Visible = false; return;
  case FormAct::None: break;
  }
  if (event.What == Event::Kind::Press) Press(bench, event.Target);
  if (event.What == Event::Kind::Text && event.Target == Ctl::Grid_Spacing)
    bench.Out[Ctl::Grid_Spacing].Text = event.Text;
}
