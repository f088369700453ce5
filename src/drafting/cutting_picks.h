#pragma once
#include "drafting/drafting.h"

#include <functional>
#include <span>

// What the picking commands share: holding picks, and applying what was solved from them.

inline constexpr int AnyType = LineType | CircleType | ArcType;

// The pick as the next of the running command: CmdState counts them. Logged as `kind`.
void HoldPick(Drafting &, const PickedRow &, Point clicked, int kind);
std::span<const PickedRow> HeldPicks(const Drafting &);

using PickSolver = std::function<Solution(const EntityTable &, std::span<const PickedRow>)>;
// Solves with the rotation-draw images and applies; false when that failed and was told. An answer that
// changes no row is applied without an undo snapshot.
bool ApplyPicks(Drafting &, std::span<const PickedRow>, const PickSolver &);
// One failure that gives the picks up: the command stands at its first again. The log tells it as steps back.
void DropPicks(Drafting &);
