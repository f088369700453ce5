#include "shell/held_controls.h"

#include "macros/lesson_guide.h"
#include "shell/tutor.h"

#include <algorithm>

namespace {
enum When : int { Template = 1, Recorded = 2, Played = 4 }; // Recorded, Played: of a lesson
constexpr int Always = Template | Recorded | Played, NotPlayed = Template | Recorded;

struct HeldRow {
  Ctl Target;
  int In;
  bool OthersDecide = false; // elsewhere, anew each time
};
constexpr HeldRow Held[] = {{Ctl::mnuFileNew, NotPlayed},
                            {Ctl::tbNew, NotPlayed},
                            {Ctl::mnuFileOpen, NotPlayed},
                            {Ctl::tbOpen, NotPlayed},
                            {Ctl::mnuImport, NotPlayed},
                            {Ctl::mnuMRU0, NotPlayed},
                            {Ctl::mnuMRU1, NotPlayed},
                            {Ctl::mnuMRU2, NotPlayed},
                            {Ctl::mnuMRU3, NotPlayed},
                            {Ctl::mnuRecovered, NotPlayed},
                            {Ctl::Recovery_Discard, Always},
                            {Ctl::Empty_Open, Always},
                            {Ctl::mnuOptions, Always},
                            {Ctl::tbConfigure, Always},
                            {Ctl::mnuchoosetemplate, Always},
                            {Ctl::tbTemplates, Always},
                            {Ctl::Empty_Template, Always},
                            {Ctl::mnumaketemplate, Template | Played},
                            {Ctl::Intro_Example, Always},
                            {Ctl::mnuTutor, NotPlayed},
                            {Ctl::tbTutor, NotPlayed},
                            {Ctl::MacroRecord, Always},
                            {Ctl::Zoom_Window, Played},
                            {Ctl::mnuEditUndo, Played},
                            {Ctl::tbUndo, Played},
                            {Ctl::mnuEditRedo, Played},
                            {Ctl::tbRedo, Played},
                            {Ctl::mnuDims, Always, true},
                            {Ctl::Close_Gaps, Always, true},
                            {Ctl::RunSim2, Template, true}};
constexpr const char *FinishRecording = "Finish or cancel the recording first",
                     *FinishPlay = "Finish or stop the template first", *Leave = "Leave the lesson first";

bool IsWhy(const std::string &hint) { return hint == FinishRecording || hint == FinishPlay || hint == Leave; }
} // namespace

void HoldControls(Workbench &bench) {
  const bool records = bench.Template.Record.Running, plays = bench.Template.Play.Running;
  const bool authors = LessonRecords(bench.Tutor.Rec.Lesson), learns = LessonPlays(bench);
  const int now = (records || plays ? Template : 0) | (authors ? Recorded : 0) | (learns ? Played : 0);
  const char *why = records || authors ? FinishRecording : plays ? FinishPlay : Leave;
  const Ctl asked = TargetOf(bench.Tutor.Play).Button;
  for (const HeldRow &row : Held) {
    Control &control = bench.Out[row.Target];
    const bool held = (row.In & now) != 0 && row.Target != asked;
    if (held)
      control.Hint = why;
    else if (IsWhy(control.Hint))
      control.Hint.clear();
    control.Enabled = !held && (control.Enabled || !row.OthersDecide);
  }
}
