#pragma once
#include "platform/screen.h"

#include <functional>
#include <string>
#include <vector>

// The lines of a script, one step each; blank lines and lines that begin with # are skipped. The first line
// that is unknown, impossible or disappointed stops it.
struct Script {
  std::vector<std::string> Line;
  std::size_t Next = 0;
  std::string Fault; // "line N: ...", empty while all is well
};
Script ReadScript(std::string_view text);
bool AtEnd(Script &);                     // nothing is left, or a fault stands; passes over blank lines
std::string_view Upcoming(Script &);      // the next line, empty at the end
void Fail(Script &, const std::string &); // of the line taken last; the first one stays

// A screen without a display. Modal questions and windows take their answers from the lines that follow the
// one that raised them: `box ANSWER` (after `expect box TEXT`, if its words matter), `file PATH` or `file
// cancel`, `answer TEXT` or `answer cancel` for a value (of a colour: its number), and for a dialog any lines
// up to the one that closes it. An answer may also stand before the line that raises its question: it is kept
// for the next one. What comes unexpected, and an answer nobody asked for, is a fault of the script.
class ScriptedScreen : public Screen {
public:
  Script Lines;
  std::function<void()> PlayLine; // takes and plays the next line
  double Waited = 0;              // seconds
  std::string LastBox;            // words of the last box that was answered

  void KeepAhead(std::string_view line); // an answer, box or file line that nothing has asked for yet
  void RefuseLeftOvers();                // a fault when one was never asked for

  Answer Ask(const Box &) override;
  std::optional<std::string> AskFile(FileUse, std::string_view filter, std::string_view initial) override;
  std::optional<std::uint32_t> AskColour(std::uint32_t initial) override;
  void RunModal(Form) override;
  void Wait(double seconds) override;

private:
  struct Early {
    std::string Line;
    std::size_t Number = 0;
  };
  std::vector<Early> Ahead;
  std::optional<std::string> TakeAnswer(std::string_view verb); // kept ahead, else the upcoming line
  bool AnswerQuestion();
};
