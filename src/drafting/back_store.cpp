#include "drafting/back_store.h"

namespace {
bool FlagOf(const Screen &out, Ctl c) { return c == Ctl::DrawPanel ? out[c].Enabled : out[c].Visible; }

void SetFlag(Screen &out, Ctl c, bool on) { (c == Ctl::DrawPanel ? out[c].Enabled : out[c].Visible) = on; }

BackSlot &SlotAt(Drafting &d) { return d.Store.Slot.at(static_cast<std::size_t>(d.Cmd.BackPos)); }
} // namespace

void PushBack(Drafting &d) {
  if (d.Cmd.BackPos < 1) return;
  BackSlot &slot = SlotAt(d);
  slot.Step = d.Cmd;
  for (std::size_t i = 0; i < BackFrames.size(); ++i) slot.Visible[i] = FlagOf(d.Out, BackFrames[i]);
  slot.Marked.reset();
  for (int i = 0; i <= d.Grain.Table.EntCount; ++i)
    slot.Marked[static_cast<std::size_t>(i)] = RowAt(d.Grain.Table, i).Selected;
  if (--d.Cmd.BackPos == 0) d.Cmd.BackPos = d.Cmd.BackDepth;
}

bool RestoreBack(Drafting &d) {
  if (d.Cmd.BackPos >= d.Cmd.BackDepth) return false;
  ++d.Cmd.BackPos;
  const BackSlot &slot = SlotAt(d);
  static_cast<StepState &>(d.Cmd) = slot.Step;
  for (std::size_t i = 0; i < BackFrames.size(); ++i) SetFlag(d.Out, BackFrames[i], slot.Visible[i]);
  for (int i = 0; i <= d.Grain.Table.EntCount; ++i)
    RowAt(d.Grain.Table, i).Selected = slot.Marked[static_cast<std::size_t>(i)];
  return true;
}
