#include "shell/setup3d_form.h"

#include "base/number_text.h"
#include "shell/form_answer.h"

#include <filesystem>

namespace {
struct PaintRow {
  Ctl Button;
  Paint What;
};
constexpr PaintRow Paints[] = {{Ctl::Paint_Propellant, Paint::Propellant},
                               {Ctl::Paint_Cut, Paint::Cut},
                               {Ctl::Paint_Burning, Paint::Burning},
                               {Ctl::Paint_Exposed, Paint::Exposed},
                               {Ctl::Paint_Inhibited, Paint::Inhibited},
                               {Ctl::Paint_Liner, Paint::Liner},
                               {Ctl::Paint_Core, Paint::Core}};

struct TextureRow {
  Ctl Shown, Pick, Drop;
  Texture What;
};
constexpr TextureRow Textures[] = {
    {Ctl::Texture_Propellant, Ctl::Pick_Propellant, Ctl::Drop_Propellant, Texture::Propellant},
    {Ctl::Texture_Burning, Ctl::Pick_Burning, Ctl::Drop_Burning, Texture::Burning},
    {Ctl::Texture_Liner, Ctl::Pick_Liner, Ctl::Drop_Liner, Texture::Liner}};

std::string &BitmapOf(Look3d &look, Texture t) { return look.Bitmap[static_cast<std::size_t>(t)]; }
std::uint32_t &ColourFor(Look3d &look, Paint p) { return look.Colour[static_cast<std::size_t>(p)]; }

void Show(Workbench &bench) {
  Screen &out = bench.Out;
  Look3d &look = bench.View.Editing;
  for (const PaintRow &row : Paints) out[row.Button].Colour = ColourFor(look, row.What);
  out[Ctl::Paint_Ground].Colour = look.Ground;
  out[Ctl::Paint_Ground].Enabled = out[Ctl::Own_Ground].Checked = look.OwnGround;
  for (const TextureRow &row : Textures) {
    const std::string &path = BitmapOf(look, row.What);
    out[row.Shown].Text = path.empty() ? "none" : std::filesystem::path(path).filename().string();
    out[row.Shown].Hint = path;
    out[row.Drop].Enabled = !path.empty();
  }
}

void Load(Workbench &bench, const Look3d &look) {
  bench.View.Editing = look;
  bench.Out[Ctl::Liner_Thickness].Text = look.Liner > 0 ? PlainText(look.Liner) : "";
  bench.Out[Ctl::Liner_Thickness].Hint = PlainText(bench.Grain.Doc.GrainRadius / 20);
  Show(bench);
}

void Pick(Workbench &bench, const TextureRow &row) {
  std::string &path = BitmapOf(bench.View.Editing, row.What);
  const auto chosen = bench.Out.AskFile(
      FileUse::Open, "All Files (*.*)|*.*|Pictures (*.png *.bmp *.jpg *.jpeg)|*.png *.bmp *.jpg *.jpeg",
      path);
  if (!chosen || chosen->empty()) return;
  const std::string trouble = bench.Out.CheckBitmap(*chosen);
  if (trouble.empty())
    path = *chosen;
  else
    bench.Out.Ask({trouble, bench.Out[Ctl::Setup_3D].Text, Buttons::Ok, Icon::Exclamation});
}

void Press(Workbench &bench, Ctl target) {
  Look3d &look = bench.View.Editing;
  for (const PaintRow &row : Paints)
    if (row.Button == target)
      ColourFor(look, row.What) =
          bench.Out.AskColour(ColourFor(look, row.What)).value_or(ColourFor(look, row.What));
  if (target == Ctl::Paint_Ground) look.Ground = bench.Out.AskColour(look.Ground).value_or(look.Ground);
  if (target == Ctl::Own_Ground) look.OwnGround = !look.OwnGround;
  for (const TextureRow &row : Textures) {
    if (row.Pick == target) Pick(bench, row);
    if (row.Drop == target) BitmapOf(look, row.What).clear();
  }
  if (target == Ctl::Setup_Restore) return Load(bench, Look3d{});
  Show(bench);
}

void Accept(Workbench &bench) {
  Screen &out = bench.Out;
  Look3d look = bench.View.Editing;
  const std::string &text = out[Ctl::Liner_Thickness].Text;
  look.Liner = 0;
  if (text.find_first_not_of(" \t") != text.npos) {
    const auto mm = FormNumber(bench, Ctl::Liner_Thickness, text, {0, MostLiner});
    if (!mm) return;
    look.Liner = *mm;
  }
  const std::string trouble = WriteLook(bench.Folders.AppDir + "Default3DFile", look);
  if (!trouble.empty()) {
    out.Ask({trouble, out[Ctl::Setup_3D].Text, Buttons::Ok, Icon::Exclamation});
    return;
  }
  bench.View.Look = look;
  out.View3d.Texture = look.Bitmap;
  out[Ctl::Setup_3D].Visible = false;
}
} // namespace

void EditSetup3d(Workbench &bench) {
  Load(bench, bench.View.Look);
  bench.Out[Ctl::Setup_3D].Visible = true;
  bench.Out.Focus = Ctl::Setup_OK;
  bench.Out.RunModal(Form::Setup3d);
  bench.Out[Ctl::Setup_3D].Visible = false;
}

void Setup3dEvent(Workbench &bench, const Event &event) {
  Screen &out = bench.Out;
  if (!out[Ctl::Setup_3D].Visible || !out[event.Target].Enabled) return;
  switch (ActOf(event, Ctl::Setup_OK, Ctl::Setup_Cancel)) {
  case FormAct::Accept: return Accept(bench);
  case FormAct::Cancel: out[Ctl::Setup_3D].Visible = false; return;
  case FormAct::None: break;
  }
  if (event.What == Event::Kind::Press) Press(bench, event.Target);
  if (event.What == Event::Kind::Text && event.Target == Ctl::Liner_Thickness)
    out[Ctl::Liner_Thickness].Text = event.Text;
}
