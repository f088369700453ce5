#pragma once
#include "shell/workbench.h"

// Lessons in the window: chosen from a list, played while the user's own design is put aside, left and taken
// up again.

void OpenTutor(Workbench &);         // the list; its trouble is told
bool LessonPlays(const Workbench &); // from its start to its leaving, so when it is done too
void LeaveLesson(Workbench &);       // where it stands is kept; the user's own design is back
bool AskLeave(Workbench &);          // false: it was asked about, and the lesson goes on

// Before an event is handed on. True: it was the tutor's alone.
bool TutorTakes(Workbench &, const Event &);
// Before a button acts. False: the lesson asks for something else, and has said so.
bool LessonAllows(Workbench &, Ctl button);
bool PressTutor(Workbench &, Ctl button, const std::string &item); // false: it is none of the tutor's
void TutorMessageEvent(Workbench &, const Event &);                // of TutorMsgForm

void FollowLesson(Workbench &); // once an event is done: holds what it came to against the lesson
void TellLesson(Workbench &);   // on a screen that is true: what the lesson has to say of its own

struct LessonPlace {
  std::size_t Next = 0; // where it was left, 0: at its beginning or its end
  bool Done = false;    // it has once been played to its end
};
LessonPlace LessonKept(const Workbench &, const Lesson &);
int NextLesson(const Workbench &); // of the list, behind the one that plays; -1: all are done

// The user's own things beside his design, while a lesson is played or recorded.
void PutAside(Workbench &, OwnWork &);
void BringBack(Workbench &, OwnWork &);

void RefreshTutor(Workbench &);   // TutorFrame and the outlined button
void UnmarkTutor(Workbench &);    // before anything else is refreshed
void DrawLessonMark(Workbench &); // the place asked for, into the panel's items
