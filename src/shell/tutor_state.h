#pragma once
#include "burnback/run_sim.h"
#include "macros/lesson.h"
#include "macros/lesson_record.h"

#include <functional>
#include <string>
#include <vector>

// What is the user's own beside his design, put aside while a lesson has the window.
struct OwnWork {
  std::string Caption, UsedTemplate;
  SimulationView Sim;
  Chart Area, Kn;
};

struct TutorRecording {
  LessonRecording Lesson;
  unsigned Told = 0;              // log rows of a lower number had their message asked for
  std::function<void()> KeepWork; // recovery files are those of the design that is put aside
  Design Own;                     // the user's, while the lesson is recorded
  OwnWork Aside;
};

// Lessons: the list to choose from, and the one that is played or recorded.
struct TutorState {
  std::vector<Lesson> List; // by level, then by index
  int Chosen = -1;          // of List
  bool Choosing = false;    // the list is shown

  LessonPlay Play;
  OwnWork Aside;
  LessonAnswer Said;            // to the last input
  std::vector<std::string> Due; // messages that wait for the event's end
  bool Stale = false;           // the mark on the drawing is that of a step before
  Ctl Outlined = Ctl::Count;    // the button asked for

  TutorRecording Rec;
  int Depth = 0; // events at work: what a dialog sends lies within another
};
