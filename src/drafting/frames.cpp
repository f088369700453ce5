#include "drafting/frames.h"

#include "drafting/command_table.h"

namespace {
// Controls follow their frame in the list of all controls.
struct FrameRow {
  Ctl Frame, First, Last;
};
constexpr FrameRow Frames[] = {{Ctl::Selection_Frame, Ctl::SelectSingle, Ctl::SelectAll},
                               {Ctl::Mirror_Frame, Ctl::Mirror_Horizonal, Ctl::Mirror_Cancel},
                               {Ctl::Movement_Frame, Ctl::DeltaMovement, Ctl::CancelMovement},
                               {Ctl::BoxWH_Frame, Ctl::BoxWidth, Ctl::CancelBoxWH},
                               {Ctl::Poly_Frame, Ctl::PolySides, Ctl::PolyCancel}};
} // namespace

void RefreshFrames(Drafting &d, bool designing) {
  for (const FrameRow &row : Frames)
    for (auto c = static_cast<std::size_t>(row.First); c <= static_cast<std::size_t>(row.Last); ++c)
      d.Out.Show[c].Visible = d.Out[row.Frame].Visible;
  for (const CommandRow &row : CommandTable()) d.Out[row.Button].Enabled = designing;
  d.Out[Ctl::RotateDraw].Enabled = d.Out[Ctl::tbRotationDraw].Enabled = designing;
}
