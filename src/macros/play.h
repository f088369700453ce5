#pragma once
#include "drafting/drafting.h"
#include "macros/mac_file.h"

#include <memory>
#include <string>

// The play of a template into a drafting state, one instruction at a time. Pausing is not calling
// NextInstruction for a while. Mode 2 plays a template: no drawing, no boxes, no files. Mode 4 is a lesson:
// boxes and drawing stay on.

struct PlaySaved; // what StopPlay puts back

struct TemplatePlay {
  std::vector<Instruction> Log;
  std::size_t Next = 0;     // index of the instruction to be delivered
  double Scale = 1;         // of clicks without a formula: diameter now / recorded
  bool Running = false;     // from BeginPlay to the end, a fault or StopPlay
  std::string Fault;        // "Instruction 17 (Found Ent): Entity not found"; empty: none
  int FaultInstruction = 0; // its number, from 0 as in the file; -1: none of them
  std::shared_ptr<PlaySaved> Before;
};

// Empties the drawing, draws the start entities (scaled), sets the variables and the drafting's own values to
// what every recording begins with. `values` holds the answers (AnswerTemplate, or the file's own variables);
// its rows 0 and 1 are taken from the design. mode: MacroMode while stepping, 2 or 4.
void BeginPlay(TemplatePlay &, Drafting &, const MacFile &, const VariableTable &values, int mode = 2);

// Delivers one instruction, with the answers that follow it. False: the play has ended, by itself (Fault
// empty: one undo for the whole, the mode is 0 again, the drawing redrawn) or by a fault (the design is as it
// was before BeginPlay).
bool NextInstruction(TemplatePlay &, Drafting &);

// Ends a play before its end: the design is as it was before.
void StopPlay(TemplatePlay &, Drafting &);

// Delivers one instruction to the drafting state as the user's input would be, with the answers to the
// questions it asks; nothing is logged. Values and formulas must have been worked out. The text says why it
// could not be done.
std::string Deliver(Drafting &, const Instruction &, const std::vector<double> &answers);

// The values of Value4's formulas set in Value1..3 (a piece that is empty keeps the recorded value), else
// positions scaled. Returns the trouble.
std::string WorkOut(Instruction &, const VariableTable &, double scale);

const char *KindName(int pointArea); // "Found Ent"; of unknown kinds ""
