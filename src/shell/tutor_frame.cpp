#include "macros/lesson_guide.h"
#include "shell/tutor.h"

#include <algorithm>

// TutorFrame: the list of lessons, the step of the one that is played, the recording of one; above the
// drawing.

namespace {
constexpr std::uint32_t OutlineColour = 0x0870E8; // marks the button asked for; the theme gives the colour
constexpr const char *Levels[] = {"Starting", "Medium", "Advanced"};

std::string Steps(int n) { return std::to_string(n) + (n == 1 ? " step" : " steps"); }

std::string WithoutAnd(std::string_view label) { // of a mnemonic
  std::string text(label);
  for (std::size_t at; (at = text.find("&&")) != text.npos;) text.erase(at, 1);
  return text;
}

// Tools have a group in their pane; its head stands before them.
std::string GroupOf(Ctl button) {
  if (button < Ctl::Tools_Lines || button >= Ctl::End_Frame) return {};
  auto at = static_cast<int>(button);
  while (!RowOf(static_cast<Ctl>(at)).Name.starts_with("Tools_")) --at;
  return std::string(RowOf(static_cast<Ctl>(at)).Text);
}

std::string WhereText(const LessonTarget &target, const Screen &out) {
  if (target.Place && target.Button == Ctl::Count) return "The place is marked in the drawing.";
  if (target.Button == Ctl::Count) return {};
  if (target.Button == Ctl::XFormOption || target.Button == Ctl::Delete_Mode)
    return "In the card of the running tool, at the right.";
  const bool rotates = target.Button == Ctl::RotateDraw; // its face tells the number alone
  const std::string name = WithoutAnd(out[rotates ? Ctl::tbRotationDraw : target.Button].Text);
  const std::string group = GroupOf(target.Button);
  if (RowOf(target.Button).Name.starts_with("mnu")) return "In the menus above: " + name;
  if (!group.empty()) return "Outlined at the left, under " + group + ": " + name + ".";
  return "Outlined: " + name + (target.Place ? "; the place is marked in the drawing." : ".");
}

std::string OneLine(std::string words) {
  if (const auto end = words.find('\n'); end != words.npos) words.replace(end, 1, "  ");
  return words;
}

std::string ItemText(const Workbench &bench, const Lesson &l) {
  return std::string(Levels[std::clamp(l.Level, 1, 3) - 1]) + ":  " + std::to_string(l.Index) + "  " +
         l.Name + (LessonKept(bench, l).Done ? "  (done)" : "");
}

void ShowChoice(Workbench &bench) {
  Screen &out = bench.Out;
  const TutorState &t = bench.Tutor;
  out[Ctl::Tutor_Head].Text = "Lessons";
  for (const Lesson &l : t.List) out[Ctl::TutorCombo].Item.push_back(ItemText(bench, l));
  out[Ctl::TutorCombo].Index = t.Chosen;
  out[Ctl::TutorCombo].Visible = out[Ctl::Tutor_Start].Visible = out[Ctl::TutorCancel].Visible = true;
  const Lesson &lesson = t.List[static_cast<std::size_t>(t.Chosen)];
  const LessonPlace kept = LessonKept(bench, lesson);
  const LessonProgress at = ProgressOf(lesson, ResumeFrom(lesson, kept.Next));
  out[Ctl::Tutor_Step].Text =
      at.Step > 0 ? "Left at step " + std::to_string(at.Step + 1) + " of " + std::to_string(at.Of)
                  : Steps(at.Of);
  out[Ctl::Tutor_Start].Text = at.Step > 0 ? "Go On" : "Start";
  out[Ctl::Tutor_Start].Hint = at.Step > 0 ? "From the step it was left at" : "From its first step";
  out[Ctl::Tutor_Again].Visible = at.Step > 0;
  out[Ctl::TutorCancel].Text = "Close";
  out[Ctl::TutorCancel].Hint = "Closes the list";
  out[Ctl::Tutor_Note].Visible = true;
  out[Ctl::Tutor_Note].Text =
      "A lesson brings a drawing of its own. Yours is put aside and comes back when you leave it.";
}

void ShowLesson(Workbench &bench) {
  Screen &out = bench.Out;
  const TutorState &t = bench.Tutor;
  const LessonProgress at = ProgressOf(t.Play.What, t.Play.Next);
  const bool done = LessonDone(t.Play), wrong = t.Said.What == LessonAnswer::Kind::Wrong;
  out[Ctl::Tutor_Head].Text = t.Play.What.Name;
  out[Ctl::Tutor_Progress].Visible = out[Ctl::TutorCancel].Visible = true;
  out[Ctl::Tutor_Progress].Most = at.Of;
  out[Ctl::Tutor_Progress].Index = at.Step;
  out[Ctl::Tutor_Prompt].Visible = out[Ctl::Tutor_Note].Visible = true;
  out[Ctl::Tutor_Prompt].Item = LessonPrompts(t.Play.What);
  out[Ctl::TutorCancel].Text = done ? "Close" : "Leave Lesson";
  out[Ctl::TutorCancel].Hint = done ? "Your own drawing comes back"
                                    : "Your own drawing comes back; the lesson goes on here next time (Esc)";
  if (!done) {
    out[Ctl::Tutor_Step].Text = "Step " + std::to_string(at.Step + 1) + " of " + std::to_string(at.Of);
    out[Ctl::Tutor_Prompt].Text = LessonPrompt(t.Play);
    out[Ctl::Tutor_Note].Text = wrong ? OneLine(t.Said.Words) : WhereText(TargetOf(t.Play), out);
    out[Ctl::Tutor_Note].Checked = wrong;
    return;
  }
  const int next = NextLesson(bench);
  out[Ctl::Tutor_Step].Text = "Done";
  out[Ctl::Tutor_Prompt].Text = "That was the lesson: well done.";
  out[Ctl::Tutor_Note].Text = next >= 0 ? "Next: " + t.List[static_cast<std::size_t>(next)].Name + "."
                                        : "You have been through all lessons.";
  out[Ctl::Tutor_Again].Visible = true;
  out[Ctl::Tutor_Start].Visible = next >= 0;
  out[Ctl::Tutor_Start].Text = "Next Lesson";
  out[Ctl::Tutor_Start].Hint = "Begins the next lesson that is not done";
}

void ShowRecording(Workbench &bench) {
  Screen &out = bench.Out;
  const LessonRecording &rec = bench.Tutor.Rec.Lesson;
  out[Ctl::Tutor_Head].Text = "Recording: " + rec.What.Name;
  // the first row is the grain
  out[Ctl::Tutor_Step].Text = Steps(std::max(0, static_cast<int>(bench.Draft.Log.Row.size()) - 1));
  for (const Ctl c : {Ctl::MacroPause, Ctl::MacroStop, Ctl::TutorCancel, Ctl::Tutor_Tolerance_Label,
                      Ctl::Tutor_Tolerance, Ctl::Tutor_Note})
    out[c].Visible = true;
  out[Ctl::TutorCancel].Text = "Cancel";
  out[Ctl::TutorCancel].Hint = "Gives the lesson up; your own drawing comes back";
  out[Ctl::Tutor_Note].Text =
      "Each input asks for its message. M on the drawing: a message that is told behind the last input.";
}

// A control whose colour nothing else sets is to be put back.
void Outline(Workbench &bench) {
  const LessonTarget target = TargetOf(bench.Tutor.Play);
  const bool typing = target.Button == Ctl::Key_In && bench.Draft.Cmd.RefType == KeyInRef;
  if (target.Button == Ctl::Count || typing) return;
  bench.Tutor.Outlined = target.Button;
  bench.Out[target.Button].Colour = OutlineColour;
}
} // namespace

void UnmarkTutor(Workbench &bench) {
  Ctl &outlined = bench.Tutor.Outlined;
  if (outlined != Ctl::Count && bench.Out[outlined].Colour == OutlineColour) bench.Out[outlined].Colour = 0;
  outlined = Ctl::Count;
}

void RefreshTutor(Workbench &bench) {
  Screen &out = bench.Out;
  const TutorState &t = bench.Tutor;
  const bool records = LessonRecords(t.Rec.Lesson), plays = LessonPlays(bench);
  for (Ctl c = Ctl::Tutor_Head; c <= Ctl::TutorCancel; c = static_cast<Ctl>(static_cast<int>(c) + 1))
    out[c].Visible = false;
  out[Ctl::Tutor_Head].Visible = out[Ctl::Tutor_Step].Visible = true;
  out[Ctl::TutorCombo].Item.clear();
  out[Ctl::Tutor_Prompt].Item.clear();
  out[Ctl::Tutor_Note].Checked = false;
  out[Ctl::MacroPause].Visible = out[Ctl::MacroStop].Visible = false;
  out[Ctl::Tutor_Again].Hint = "From its first step";
  out[Ctl::MacroPause].Hint = "Keeps the drawing as it is now with the lesson";
  out[Ctl::MacroStop].Hint = "Adds the lesson to the list";
  out[Ctl::TutorFrame].Visible = records || plays || t.Choosing;
  if (records)
    ShowRecording(bench);
  else if (plays)
    ShowLesson(bench);
  else if (t.Choosing)
    ShowChoice(bench);
  if (!records && !plays) return;
  for (const Ctl c : {Ctl::RecoveryBar, Ctl::Recovery_SaveAs, Ctl::Recovery_Discard, Ctl::Empty_Hint,
                      Ctl::Empty_Circle, Ctl::Empty_Open, Ctl::Empty_Template})
    out[c].Visible = false; // of the design that is put aside
  if (plays && !LessonDone(t.Play)) {
    std::string &hints = out[Ctl::sbHints].Text;
    constexpr std::string_view escape = "Esc: leave the tool";
    if (const auto at = hints.find(escape); at != hints.npos)
      hints.replace(at, escape.size(), "Esc: leave the lesson");
  }
  Outline(bench);
}

void DrawLessonMark(Workbench &bench) {
  const LessonPlay &play = bench.Tutor.Play;
  const LessonTarget target = TargetOf(play);
  if (!target.Place || bench.Sim.ResultMode) return;
  DrawSurface &panel = bench.Out.Panel;
  constexpr double leastPixels = 9, crossPixels = 4;
  const double pixel = -panel.Height / std::max(panel.PixelHeight, 1.0);
  const double near = NearOf(play, static_cast<double>(bench.Grain.Doc.GrainRadius));
  DrawItem ring, cross;
  ring.What = DrawItem::Kind::Circle;
  cross.What = DrawItem::Kind::Mark;
  ring.Role = cross.Role = Ink::Guide;
  ring.At = {target.Place->X, target.Place->Y, std::max(near, leastPixels * pixel)};
  cross.At = {target.Place->X, target.Place->Y, crossPixels * pixel};
  panel.Item.push_back(ring);
  panel.Item.push_back(cross);
}
