#pragma once
#include "drafting/drafting.h"
#include "macros/mac_file.h"

#include <functional>
#include <string>
#include <vector>

// What recording, playing and the headless drawing share.

// What a user's own inputs have left in the tools. Every recording and every play begins with the program's.
struct DraftingStart {
  ToolValues Tool;
  SelectionValues Select;
  RotationDraw Rotation;
  TypedPoint Typed;
  DraftDefaults Defaults;
  std::int32_t RefType = CursorRef;
  Tracker Track;
};
DraftingStart StartOf(const Drafting &);
void PutStart(Drafting &, const DraftingStart &);
void PutRecordingStart(Drafting &); // the program's own; the automatic point stays as it is

std::vector<Entity> ScaledRows(const std::vector<Entity> &, double scale);
double ScaleOf(const MacFile &, double diameter); // diameter now / recorded

// The table with the start entities, the variables, the tools: as a play begins. The machine must be idle.
void PutPlayStart(Drafting &, const MacFile &, const VariableTable &values, double scale);
Ctl ButtonOfKind(int kind); // of a kind that is one press and no command; Ctl::Count: there is none
std::string InstructionFault(std::size_t number, const Instruction &, const std::string &trouble);
// Delivers log[next] with the answers behind it and moves `next` on. The trouble, or empty.
std::string StepInstruction(Drafting &, const std::vector<Instruction> &log, std::size_t &next, double scale);

// Draws the first `end` rows of a log anew from its start entities, whatever stands now; undo, recovery file,
// view and the log being filled stay as they are. done: after each input, with the row that follows it. The
// trouble, or empty.
std::string DrawLog(Drafting &, const std::vector<Entity> &start, const VariableTable &,
                    const std::vector<Instruction> &, std::size_t end,
                    const std::function<void(std::size_t next)> &done = {});
