#pragma once
#include "drafting/drafting.h"

#include <vector>

// Undo and redo of a recording. They are no inputs: an undo takes the inputs that made the last change off
// the log, a redo puts them back, and the drawing, the tool and its settings are drawn anew from what the log
// holds then, so that it always plays to what is seen. What was set since (point mode, rotation draw) and the
// running tool's button are kept; picks of a change not made yet go.

struct LogRows {
  std::vector<Instruction> Row;
  std::vector<unsigned> Number;
};

struct LogHistory {
  std::vector<Entity> Start; // of the recording
  struct Undone {
    LogRows Rows; // of the log with the change
    int Changes = 1;
  };
  std::vector<Undone> Again; // for redo, the next one last
  std::size_t Base = 0;      // rows of the log after the last undo or redo
};

void TakeBackInput(LogHistory &, Drafting &);
void BringBackInput(LogHistory &, Drafting &);
