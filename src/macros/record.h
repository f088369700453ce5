#pragma once
#include "drafting/drafting.h"
#include "macros/mac_file.h"

#include <memory>

// The recording of a session. While it runs drafting fills its log, positions are narrowed to 32 bits and
// nothing snaps but the grid. What changes the drawing other than drafting (a file opened, dimensions, gaps
// closed) is to be kept from the user: the log knows nothing of it.

struct RecordingSaved;

struct TemplateRecording {
  bool Running = false;
  bool InLesson = false;     // it goes into the lesson's log; there is nothing to begin or to end
  std::vector<Entity> Start; // the drawing it begins with
  std::shared_ptr<RecordingSaved> Before;
};

// The drawing as it stands becomes the start entities, undo begins anew, the tools get the program's own
// values. mode: MacroMode, 3 for a template, 1 for a lesson.
void BeginRecording(TemplateRecording &, Drafting &, const VariableTable &, int mode = 3);

// The template of what was done since; goes on recording. Finished holds the drawing as it is.
MacFile RecordedTemplate(const TemplateRecording &, const Drafting &);

// The drawing stays; the tools' values and the mode are as before.
void EndRecording(TemplateRecording &, Drafting &);
