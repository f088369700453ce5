#pragma once
#include "shell/workbench.h"

// The recording of a template: names of its variables, the session, its prompts and its file.

void Macro(Workbench &);           // mnumaketemplate: asks for the variables, then M2
void M2(Workbench &);              // the recording begins with the variables named
void FinishRecording(Workbench &); // asks for the name and the prompts, and writes the template
bool CancelRecording(Workbench &); // asks; false: it goes on

// While a lesson is played or recorded the template's inputs are the lesson's, and no file comes of them.
// After CheckLesson: whether the recording runs is what the lesson's steps up to here say.
void FollowLessonTemplate(Workbench &, const LessonPlay &);

bool AskVariableNames(Workbench &);                 // VariableNameForm; false: called off
void VariableNameEvent(Workbench &, const Event &); // of VariableNameForm
void MacroParamsEvent(Workbench &, const Event &);

// Before a tool that asks for a length: is it typed, or shown by the pointer? Then the tool's twin that takes
// it from the drawing is meant. Ctl::Count: called off.
Ctl ToolWanted(Workbench &, Ctl tool);

void OfferVariables(Workbench &, Ctl field);     // F2 in a field: on to VariableList2
void InsertVariable(Workbench &, const Event &); // of VariableList2
