#include "drafting/click_preview.h"

#include "base/fault.h"
#include "drafting/command_machine.h"
#include "drafting/point_preview.h"
#include "drafting/pointer_notes.h"
#include "drafting/table_change.h"
#include "drafting/view.h"

#include <algorithm>

namespace {
constexpr int SegmentsCommand = 54, SegmentQuestions = 3, SilentMode = 2;
constexpr double OnePlace = 1e-5; // of the grain's radius
constexpr double BreakPixels = 5;

class SilentScreen final : public Screen {
public:
  int Offers = 0; // so many questions are answered by the value they offer, all others by nothing

  Answer Ask(const Box &) override { return Answer::Cancel; }
  std::optional<std::string> AskFile(FileUse, std::string_view, std::string_view) override { return {}; }
  std::optional<std::uint32_t> AskColour(std::uint32_t) override { return {}; }
  void RunModal(Form) override {
    if (Offers-- <= 0) Show[static_cast<std::size_t>(Ctl::Question_Value)].Text.clear();
  }
  void Wait(double) override {}
};

constexpr Ctl Mirrored[] = {Ctl::XFormOption, Ctl::Delete_Mode, Ctl::X_Input, Ctl::Y_Input};
} // namespace

struct ClickShadow {
  SilentScreen Out;
  Design Grain;
  Drafting Draft{Grain, Out, UndoRing{.Slot = nullptr}};
  TableChange Change;
};

namespace {
void MakeTrue(ClickShadow &s, const Drafting &d) {
  s.Grain.Doc = d.Grain.Doc;
  s.Grain.Defaults = d.Grain.Defaults;
  s.Grain.Table.EntCount = d.Grain.Table.EntCount;
  std::copy_n(d.Grain.Table.Row.begin(), d.Grain.Table.EntCount + 1, s.Grain.Table.Row.begin());
  s.Grain.MacroMode = SilentMode;
  s.Draft.Cmd = d.Cmd;
  s.Draft.Rotation = d.Rotation;
  s.Draft.Tool = d.Tool;
  s.Draft.Select = d.Select;
  s.Draft.Track = d.Track;
  s.Draft.Changes = d.Changes;
  s.Draft.Marks.clear();
  const auto frame = [&](Ctl c) {
    s.Out[c].Visible = d.Out[c].Visible;
    s.Out[c].Enabled = d.Out[c].Enabled;
    s.Out[c].Text = d.Out[c].Text;
  };
  for (const Ctl c : BackFrames) frame(c);
  for (const Ctl c : Mirrored) frame(c);
  const DrawSurface &panel = d.Out.Panel;
  DrawSurface &own = s.Out.Panel;
  own.Left = panel.Left;
  own.Top = panel.Top;
  own.Width = panel.Width;
  own.Height = panel.Height;
  own.PixelHeight = panel.PixelHeight;
  own.Flash.clear();
  s.Out.Offers = d.Cmd.CmdNo == SegmentsCommand ? SegmentQuestions : 0;
}

ClickShadow &Clicked(Drafting &d, Point at) {
  if (!d.Shadow) d.Shadow = std::make_shared<ClickShadow>();
  ClickShadow &s = *d.Shadow;
  MakeTrue(s, d);
  s.Draft.Cmd.ClickX = d.Pointer.X;
  s.Draft.Cmd.ClickY = d.Pointer.Y;
  try {
    ClickHeld(s.Draft, at);
    FoldArcAngles(s.Grain.Table);
  } catch (const Fault &) { // the click itself will tell it
    MakeTrue(s, d);
    s.Grain.GeomAbort = true;
  }
  return s;
}
} // namespace

const EntityTable &TableAfterClick(Drafting &d, Point at) { return Clicked(d, at).Grain.Table; }

void PreviewClick(Drafting &d, Point at) {
  ClickShadow &s = Clicked(d, at);
  std::vector<DrawItem> &overlay = d.Out.Panel.Overlay;
  if (s.Draft.Changes == d.Changes) {
    if (!s.Grain.GeomAbort) overlay.insert(overlay.end(), s.Out.Panel.Flash.begin(), s.Out.Panel.Flash.end());
    return;
  }
  TableChange &change = s.Change;
  CompareTables(d.Grain.Table, s.Grain.Table, OnePlace * static_cast<double>(d.Grain.Doc.GrainRadius),
                change);
  for (const Entity &e : change.Gone) overlay.push_back(RowItem(e, Ink::WillGo));
  for (const Entity &e : change.Kept) overlay.push_back(RowItem(e, Ink::Geometry));
  for (const Entity &e : change.Made) overlay.push_back(RowItem(e, Ink::WillBe));
  for (const Point p : change.Breaks) {
    DrawItem mark;
    mark.What = DrawItem::Kind::Mark;
    mark.Role = Ink::WillBe;
    mark.At = {p.X, p.Y, BreakPixels * PixelSize(d.Out.Panel)};
    overlay.push_back(std::move(mark));
  }
  const auto made = std::find_if(change.After.begin(), change.After.end(),
                                 [](const TableChange::Pairing &row) { return row.On < 0; });
  if (made != change.After.end()) ShowReading(d, at, RowReading(made->Row));
}
