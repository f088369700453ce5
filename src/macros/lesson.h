#pragma once
#include "drafting/drafting.h"
#include "macros/mac_file.h"
#include "macros/tutor_file.h"

#include <memory>
#include <string>

// A lesson at work (MacroMode 4): drafting logs what the user does as in a recording, and each input is held
// against the one the lesson has next. The drawing always is what the lesson's own inputs up to there make:
// one that came close is drawn where the lesson has it, one that does not fit is taken back.

struct LessonSaved; // the user's own design

struct LessonPlay {
  Lesson What;
  std::vector<Instruction> Log; // of its steps
  std::size_t Next = 0;         // the step the user is asked for; What.Step.size(): all is done
  bool Running = false;
  std::shared_ptr<LessonSaved> Before;
};

// The lesson's grain and start entities come up, and the steps before `from` are done. Recovery files are not
// written until EndLesson. The trouble, the design as it was, when the lesson cannot be played.
std::string BeginLesson(LessonPlay &, Drafting &, const Lesson &, std::size_t from = 0);
void EndLesson(LessonPlay &, Drafting &); // the user's own design and tools are back

bool LessonDone(const LessonPlay &);
std::string LessonPrompt(const LessonPlay &); // what the user is asked for; empty when done

struct LessonAnswer {
  enum class Kind : std::uint8_t { Nothing, Good, Wrong } What = Kind::Nothing;
  std::string Words; // wrong: what was, and after a line end what was expected; good: the special message
};
LessonAnswer CheckLesson(LessonPlay &, Drafting &); // after an event: what it logged, taken out of the log

// A button that is no tool of the drawing, before it acts. Wrong: it is not to act.
LessonAnswer CheckPress(LessonPlay &, const Drafting &, const std::string &control);
bool ExpectsPress(const LessonPlay &);
bool ExpectsEscape(const LessonPlay &);
