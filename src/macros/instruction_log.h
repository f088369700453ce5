#pragma once
#include <array>
#include <string>
#include <vector>

// What the user did, step by step, as a template or a lesson plays it again. PointArea is the kind: a
// command's number is its button, or with Value4 its Enter; other kinds are named below.
enum InstructionKind : int {
  LogSelectSingle = 101,
  LogSelectWindow,
  LogSelectByType,
  LogSelectAll,
  LogSelectLines,
  LogSelectArcs,
  LogSelectCircles,
  LogAllInside = 111,
  LogAllOutside,
  LogPartInside,
  LogPartOutside,
  LogMirrorHorizonal = 121,
  LogMirrorVertical,
  LogMirror2Points,
  LogFoundEnt = 130,    // a pick of a command or point mode: row, X, Y
  LogSelectEnt = 131,   // a pick that selects: row, X, Y
  LogRefType = 140,     // plus RefType 1..5; 147: typed X, Y
  LogDelta = 146,       // XV, YV
  LogTrimmingEnt = 150, // the entity that trims or breaks: row, X, Y
  LogClick = 151,       // X, Y, button (2 is Back)
  LogMove = 160,
  LogCopy = 161,
  LogDeltaMovement = 170,
  LogPoint2Movement,
  LogGrainMovement,
  LogCancelMovement,
  LogDeleteSingle = 180,
  LogDeleteRotation = 181,
  LogDeactivateRDraw = 182,
  LogEscape = 190,
  LogDeleteKey = 193, // in a command that selects; while idle it is the button of 86
  LogProperty = 194,  // a number of the picked entity: field, the number, 1 at the last of a change
  LogXInput = 201,
  LogYInput = 202,     // Enter in the field: the number
  LogAnswers = 203,    // answers to questions in the order asked, up to three
  LogPolyOption = 212, // 0 PolyFlat, 1 PolyCorner
};

struct Instruction {
  int PointArea = 0;
  double Value1 = 0, Value2 = 0, Value3 = 0;
  std::string Value4;    // "", "ENTERKEY", or up to three formulas parted by ";"
  int PlotType = 0;      // EntType: of a pick what was picked, else what the command draws
  int SelectionType = 0; // SelectionMethod
  bool operator==(const Instruction &) const = default;
};

struct InstructionLog {
  bool On = false; // a recording runs
  std::vector<Instruction> Row;
  std::vector<unsigned> Number;     // of each row, never given twice in a recording
  unsigned Given = 0;               // numbers so far
  std::array<std::string, 2> Place; // formulas of the next position's X and Y
  int PickedType = 0;               // EntType of the entity found last
};

// Appends while a recording runs.
void LogStep(InstructionLog &, Instruction);
void CutLog(InstructionLog &, std::size_t rows);    // the rows behind these go
std::vector<Instruction> TakeLog(InstructionLog &); // all rows, out of the log
