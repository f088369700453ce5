#pragma once
#include "platform/scripted_screen.h"
#include "shell/script_lessons.h"
#include "shell/script_templates.h"
#include "shell/workbench.h"

// Where what a script makes is to be found afterwards; null: nowhere.
struct ScriptKeeps {
  ScriptedTemplates *Templates = nullptr;
  ScriptedLessons *Lessons = nullptr;
};

// Ties a scripted screen to the workbench it shows: from now on its lines go through Dispatch, those of
// dialogs during start-up too.
void BindScript(Workbench &, ScriptedScreen &, const ScriptKeeps & = {});

// Plays the lines to their end or their first fault:
//   grain DIAM LENGTH THROAT none|A|B|AB   acts as Next of the Dimensions dialog
//   cmd N              the tool button of command N
//   have NAME VALUE    a value that a former session left, see shell/start_values
//   click X Y | back X Y | drag X1 Y1 X2 Y2   left button, right button, a pull with the left one; mm.
//                      " Alt" behind these and a move: it is held
//   press NAME         a button, menu entry or check box ("Window.Name" where two windows share the name and
//                      neither is open), or LIST:ITEM
//   ask NAME           the same with the right button
//   type FIELD TEXT    replaces the field's text and leaves the focus there
//   key NAME [in CONTROL]   Enter, Escape, Ctrl+Z, letters, see shell/script_keys; to the control, which
//                      has the focus from then on, else to the focus, else to DrawPanel
//   move X Y | wheel X Y NOTCHES | pan X1 Y1 X2 Y2    on DrawPanel, mm
//   drag|pan X1 Y1 X2 Y2 in Picture1 | wheel X Y NOTCHES in Picture1    pixels from its upper left corner
//   hover CHART PART   the pointer over a chart, 0..1 of its width
//   drop PATH | close [WINDOW] | save PATH
//   variable, record, point, clickat, template   see shell/script_templates
//   lesson, say, then, pause, endlesson          see shell/script_lessons
//   answer TEXT | box ANSWER | file PATH    answers, see ScriptedScreen
//   expect prompt TEXT | count N | text NAME TEXT
//   expect visible|hidden|enabled|disabled|checked|unchecked NAME
void PlayScript(ScriptedScreen &);
