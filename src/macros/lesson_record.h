#pragma once
#include "drafting/drafting.h"
#include "macros/record.h"
#include "macros/tutor_file.h"

#include <string>
#include <utility>
#include <vector>

// The recording of a lesson (MacroMode 1): as a template's, with a message to each input.

struct LessonRecording {
  TemplateRecording Record;
  Lesson What;                                                    // its head, start entities and pauses
  std::vector<std::pair<unsigned, std::string>> Message, Special; // by the number of a log's row
  std::vector<std::pair<unsigned, double>> Tolerance;             // from that number on, mm
};

// The drawing as it stands becomes the lesson's start. `head`: name, index and level.
void BeginLessonRecording(LessonRecording &, Drafting &, const Lesson &head);
bool LessonRecords(const LessonRecording &);

void SayNext(LessonRecording &, const Drafting &, const std::string &message);   // of the input to come
void SayBehind(LessonRecording &, const Drafting &, const std::string &message); // behind the last input
// Of the positions to come; 0, or what is no length: a fiftieth of the grain's radius.
void SetTolerance(LessonRecording &, const Drafting &, double mm);
void KeepPress(LessonRecording &, Drafting &, const std::string &control); // a button that is no tool
std::vector<Entity> DrawnNow(const Drafting &);                            // for TutorEntBuffer.tmp

// What was done since, with the drawing as it is at its end; goes on recording.
Lesson RecordedLesson(const LessonRecording &, const Drafting &);
void EndLessonRecording(LessonRecording &, Drafting &);
