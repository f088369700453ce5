#pragma once
#include "macros/instruction_log.h"
#include "shell/grain_document.h"

#include <string>
#include <string_view>
#include <vector>

// Kinds of a lesson beside those of the log.
enum LessonKind : int {
  LessonGrain = 221, // the first of a lesson: diameter, length, throat in mm; SelectionType: EndsExposed
  LessonPress = 222, // a button that is no tool of the drawing; Value4: its name
  // Behind the press that begins or ends the recording of a template:
  LessonVariable = 223,   // row, value, and the name as Value4
  LessonName = 224,       // Value4: the template's name
  LessonPromptText = 225, // row, and the prompt as Value4
};

// An input the user is asked for.
struct LessonStep {
  std::string Message; // empty: one is made of the input's kind
  std::string Special; // a message of its own after the input, empty: none
  Instruction Expected;
  double Tolerance = 0; // of its position, mm; 0: a fiftieth of the grain's radius
  bool operator==(const LessonStep &) const = default;
};

struct Lesson {
  std::string Name;
  int Index = 0; // unique in its file
  int Level = 1; // 1 starting, 2 medium, 3 advanced
  std::vector<Entity> Start;
  std::vector<LessonStep> Step;
  std::vector<std::vector<Entity>> Shown; // the drawing at each pause and at the end; none of them empty
};

// All lessons of a program stand in "Tutor Macros.tut". Texts lose their quotes and line ends in it. Each
// returns the trouble, or an empty text; what is read is untouched then. The trouble begins with the words
// for its kind ("Can't Find Tutor File"), and after a line end names file, line, field and what was expected.
std::string TutorText(const std::vector<Lesson> &);
std::string ParseTutor(std::string_view bytes, const std::string &name, std::vector<Lesson> &);
std::string ReadTutorFile(const std::string &path, std::vector<Lesson> &);
std::string WriteTutorFile(const std::string &path, const std::vector<Lesson> &); // whole and atomic

// Reads, adds and writes the file; none there: the first lesson of a new one. Trouble too when the index is
// another's.
std::string AddLesson(const std::string &path, const Lesson &);
std::string FindLesson(const std::vector<Lesson> &, int index, const Lesson *&); // "Error: Can't Find Macro"

// TutorEntBuffer.tmp: the drawing at the pauses of a recording, one behind the other.
std::string AppendTutorBuffer(const std::string &path, const std::vector<Entity> &);
std::string ReadTutorBuffer(const std::string &path, std::vector<std::vector<Entity>> &); // no file: none
