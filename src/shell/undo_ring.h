#pragma once
#include "shell/grain_document.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

// Undo: a ring of eleven whole-table snapshots in memory. Dimensions and SavedFlag are not in them.

constexpr int UndoSlots = 11;

struct UndoSlot {
  bool Held = false; // a snapshot stands here, be it of an empty table
  int Count = -1;    // EntCount at the snapshot
  std::array<Entity, 301> Row{};
  std::string Name; // of the change that followed
};

struct UndoRing {
  std::unique_ptr<std::array<UndoSlot, UndoSlots>> Slot = std::make_unique<std::array<UndoSlot, UndoSlots>>();
  std::int16_t UndoPos = 0; // the slot of the next snapshot
  std::int16_t UndoTop = 0; // the number of valid slots
  bool UndoPending = false; // a snapshot was taken after the last undo
};

// The table as it is, before a change is made to it; Selected is cleared in the copy. When slot 10 holds one,
// the oldest is dropped, unless that one is the very state an undo or redo has just put back. Takes nothing
// while a template plays (macroMode 2). A solver's failure needs no snapshot: solve first, then take it.
// `name` says what the change is.
void TakeSnapshot(UndoRing &, const EntityTable &, int macroMode = 0, std::string_view name = "");

// Put a state back into the table; false, the table as it was, when there is none.
bool Undo(UndoRing &, EntityTable &, int macroMode = 0);
bool Redo(UndoRing &, EntityTable &);

// The change that an undo would take back, and that a redo would bring again. The text stands until the ring
// changes; it may be empty.
struct UndoName {
  bool There = false;
  std::string_view Text;
};
UndoName NextUndo(const UndoRing &);
UndoName NextRedo(const UndoRing &);
