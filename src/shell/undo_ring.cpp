#include "shell/undo_ring.h"

#include <algorithm>

namespace {

constexpr std::int16_t LastSlot = UndoSlots - 1;

UndoSlot &SlotAt(UndoRing &ring, int i) { return (*ring.Slot)[static_cast<std::size_t>(i)]; }

void Restore(UndoRing &ring, EntityTable &table) {
  const UndoSlot &slot = SlotAt(ring, ring.UndoPos);
  std::copy_n(slot.Row.begin(), slot.Count + 1, table.Row.begin());
  table.EntCount = slot.Count;
}

} // namespace

void TakeSnapshot(UndoRing &ring, const EntityTable &table, int macroMode, std::string_view name) {
  if (macroMode == 2) return;
  if (ring.UndoPos == LastSlot && SlotAt(ring, LastSlot).Held && ring.UndoPending)
    std::move(ring.Slot->begin() + 1, ring.Slot->end(), ring.Slot->begin());
  UndoSlot &slot = SlotAt(ring, ring.UndoPos);
  std::copy_n(table.Row.begin(), table.EntCount + 1, slot.Row.begin());
  std::for_each_n(slot.Row.begin(), table.EntCount + 1, [](Entity &row) { row.Selected = false; });
  slot.Count = table.EntCount;
  slot.Held = true;
  slot.Name = name;
  if (ring.UndoPos < LastSlot) {
    ring.UndoTop = ++ring.UndoPos;
    for (int i = ring.UndoPos; i < UndoSlots; ++i) SlotAt(ring, i).Held = false;
  } else {
    ring.UndoTop = UndoSlots;
  }
  ring.UndoPending = true;
}

bool Undo(UndoRing &ring, EntityTable &table, int macroMode) {
  if (ring.UndoPending) {
    const std::int16_t present = ring.UndoPos; // the step taken for the present state is taken back
    TakeSnapshot(ring, table, macroMode);
    ring.UndoPos = present;
  }
  ring.UndoPending = false;
  if (ring.UndoPos == 0) return false;
  --ring.UndoPos;
  Restore(ring, table);
  return true;
}

bool Redo(UndoRing &ring, EntityTable &table) {
  if (ring.UndoPos >= ring.UndoTop - 1) return false;
  ++ring.UndoPos;
  Restore(ring, table);
  return true;
}

UndoName NextUndo(const UndoRing &ring) {
  const auto at = static_cast<std::size_t>(ring.UndoPos);
  // The last slot holds the state before the last change once the ring is full.
  const bool full = ring.UndoPending && ring.UndoPos == LastSlot && (*ring.Slot)[at].Held;
  if (full) return {true, (*ring.Slot)[at].Name};
  if (ring.UndoPos == 0) return {};
  return {true, (*ring.Slot)[at - 1].Name};
}

UndoName NextRedo(const UndoRing &ring) {
  if (ring.UndoPos >= ring.UndoTop - 1) return {};
  return {true, (*ring.Slot)[static_cast<std::size_t>(ring.UndoPos)].Name};
}
