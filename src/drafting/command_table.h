#pragma once
#include "drafting/drafting.h"

#include <span>

// How much of End_Frame a command shows: the point modes alone (height 930), or X_Input and Y_Input too
// (1350).
enum class EndFrame : std::uint8_t { None, Modes, Fields };

// One command. Empty function pointers mean: Start no questions; Click the generic point input and then
// Commit; Back the back store and nothing more (a Back at depth that has called PushBack stays in the
// command); Enter nothing; Typed the focus goes on to Y_Input, and from
// there the fields make a point; Preview nothing follows the pointer.
struct CommandRow {
  std::int16_t CmdNo;
  Ctl Button;
  std::int16_t BackDepth, NewType;
  const char *Message; // offered to a record
  int Points = 0;      // of the generic point input: how many complete the entity
  EndFrame Fields = EndFrame::None;
  const char *XLabel = nullptr, *YLabel = nullptr;
  std::array<const char *, 3> Stem{};                  // by CmdState
  const char *(*StemRule)(const Drafting &) = nullptr; // rules when it gives one
  bool (*Start)(Drafting &) = nullptr;                 // false: cancelled, the command is left
  void (*Click)(Drafting &, Point) = nullptr;
  void (*Commit)(Drafting &) = nullptr;
  void (*Back)(Drafting &) = nullptr;
  void (*Enter)(Drafting &) = nullptr;          // Enter on DrawPanel
  void (*Typed)(Drafting &, double) = nullptr;  // Enter in X_Input, the value
  void (*Preview)(Drafting &, Point) = nullptr; // appends to Panel.Overlay
};

std::span<const CommandRow> CommandTable(); // ascending and unique
const CommandRow *FindCommand(int cmdNo);   // null for 0 and numbers without a row
const CommandRow *CommandOf(Ctl button);

// A button of a frame or list, or a switch, that is no command of its own.
struct ButtonRow {
  Ctl Target;
  void (*Action)(Drafting &, const Event &);
};
