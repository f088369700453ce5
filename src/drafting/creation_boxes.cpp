#include "drafting/command_machine.h"
#include "drafting/creation.h"
#include "drafting/creation_parts.h"
#include "drafting/creation_shapes.h"
#include "drafting/report.h"

#include <algorithm>
#include <array>

namespace {

constexpr int WidthHeight = 51, Corners = 52;
constexpr std::string_view NoBoxText = "ERROR: Height & Width of Box must be Greater than 0";
constexpr std::array References{Ctl::TL, Ctl::TC, Ctl::TR, Ctl::CL, Ctl::CC,
                                Ctl::RC, Ctl::BL, Ctl::BC, Ctl::BR}; // BoxReference 1..9

} // namespace

bool StartBox(Drafting &d) {
  ShowFrame(d, Ctl::BoxWH_Frame, Ctl::BoxWidth);
  return true;
}

void BackBox(Drafting &d) {
  if (d.Cmd.CmdNo == WidthHeight) BackToFrame(d, Ctl::BoxWH_Frame, Ctl::BoxHeight);
}

void PressReference(Drafting &d, const Event &event) {
  if (!d.Out[Ctl::BoxWH_Frame].Visible) return;
  const auto at = std::find(References.begin(), References.end(), event.Target);
  d.Tool.BoxReference = static_cast<int>(at - References.begin()) + 1;
}

void AcceptBox(Drafting &d, const Event &) {
  if (!d.Out[Ctl::BoxWH_Frame].Visible) return;
  std::vector<std::string> formulas;
  const auto width = FrameValue(d, Ctl::BoxWidth, formulas);
  if (!width) return;
  const auto height = FrameValue(d, Ctl::BoxHeight, formulas);
  if (!height) return;
  if (!(*width > 0 && *height > 0)) return Report(d, NoBoxText);
  d.Tool.BoxWidth = *width;
  d.Tool.BoxHeight = *height;
  HideFrame(d, Ctl::BoxWH_Frame);
  LogInput(d, WidthHeight, *width, *height, d.Tool.BoxReference, EnterText(formulas));
}

void CommitBox(Drafting &d) {
  if (CommitShape(d) || d.Cmd.CmdNo != Corners) return;
  if (ShapeOf(d, std::array{PointAt(d.Cmd, 0), PointAt(d.Cmd, 1)}).Solved()) return;
  LeaveCommand(d);
  d.Grain.GeomAbort = true;
}

void RefreshBox(Drafting &d) {
  for (std::size_t i = 0; i < References.size(); ++i)
    d.Out[References[i]].Checked = d.Tool.BoxReference == static_cast<int>(i) + 1;
}
