#include "shell/recorder.h"

#include "base/whole_file.h"
#include "drafting/hot_keys.h"
#include "shell/script_keys.h"
#include "shell/start_values.h"

#include <filesystem>
#include <fmt/format.h>

namespace {
constexpr int LeftButton = 1, RightButton = 2, MiddleButton = 4, AltKey = 4;

std::string NameOf(Ctl control) {
  const ControlRow &row = RowOf(control);
  return FindControl(row.Name) ? std::string(row.Name)
                               : std::string(row.Window) + "." + std::string(row.Name);
}

std::string At(double x, double y) { return fmt::format("{:.6f} {:.6f}", x, y); }
std::string Alt(const Event &event) { return event.Shift & AltKey ? " Alt" : ""; }

bool Usable(const Workbench &bench, Ctl c) { return bench.Out[c].Visible && bench.Out[c].Enabled; }

void Add(Workbench &bench, std::string line) { bench.Record.Line.push_back(std::move(line)); }

std::vector<std::string> StartLines(const Workbench &bench) {
  const Design &grain = bench.Grain;
  constexpr const char *ends[] = {"none", "A", "B", "AB"};
  std::vector<std::string> lines{fmt::format("grain {} {} {} {}", grain.Doc.GrainDiam, grain.Doc.GrainLength,
                                             grain.Doc.ThroatDiam, ends[grain.Doc.EndsExposed & 3])};
  if (grain.Table.EntCount >= 0 && !grain.CurrentFile.empty() && grain.SavedFlag)
    lines.push_back("drop " + grain.CurrentFile);
  else if (grain.Table.EntCount >= 0)
    lines.push_back("# begins with a design of " + std::to_string(grain.Table.EntCount + 1) +
                    " entities that stood in no file");
  for (const std::string &value : StartValues(bench)) lines.push_back("have " + value);
  return lines;
}

void WriteMove(Workbench &bench) {
  if (!bench.Record.Moved) return;
  const Event move = *bench.Record.Moved;
  bench.Record.Moved.reset();
  Add(bench, move.Target == Ctl::DrawPanel ? "move " + At(move.X, move.Y) + Alt(move)
                                           : fmt::format("hover {} {:.6f}", NameOf(move.Target), move.X));
}

void NoteDown(Workbench &bench, const Event &event) {
  Recording &r = bench.Record;
  r.Moved.reset(); // the player moves there itself
  r.Held = event;
  r.HeldLine = r.Line.size();
  r.PannedX = r.PannedY = 0;
  if (event.Button != MiddleButton)
    Add(bench, (event.Button == LeftButton ? "click " : "back ") + At(event.X, event.Y) + Alt(event));
}

// A left button let go elsewhere makes a pull of the click; answers given in between stay behind it.
void NoteUp(Workbench &bench, const Event &event) {
  Recording &r = bench.Record;
  if (!r.Held || r.Held->Button != event.Button) return;
  const Event down = *r.Held;
  r.Held.reset();
  const std::string from = At(down.X, down.Y);
  if (event.Button == MiddleButton)
    Add(bench, "pan " + from + " " + At(down.X + r.PannedX, down.Y + r.PannedY));
  else if (event.Button == LeftButton && At(event.X, event.Y) != from)
    r.Line[r.HeldLine] = "drag " + from + " " + At(event.X, event.Y) + Alt(event);
}

// Turns and pans are from where the button went down to where it is let go, whatever lies between.
void NotePicture(Workbench &bench, const Event &event) {
  Recording &r = bench.Record;
  if (event.What == Event::Kind::MouseDown) {
    if (!r.Held) r.Held = event;
  } else if (event.What == Event::Kind::MouseUp && r.Held) {
    const bool turn = r.Held->Button == LeftButton && (r.Held->Shift & 1) == 0;
    Add(bench,
        (turn ? "drag " : "pan ") + At(r.Held->X, r.Held->Y) + " " + At(event.X, event.Y) + " in Picture1");
    r.Held.reset();
  } else if (event.What == Event::Kind::Wheel) {
    Add(bench, "wheel " + At(event.X, event.Y) + fmt::format(" {} in Picture1", event.Notches));
  }
}

void NoteMouse(Workbench &bench, const Event &event) {
  Recording &r = bench.Record;
  if (event.Target == Ctl::Picture1) return NotePicture(bench, event);
  const bool panel = event.Target == Ctl::DrawPanel;
  if (event.What == Event::Kind::MouseMove) {
    if (panel && r.Held && r.Held->Button == MiddleButton) { // the drawing goes along with the pointer
      r.PannedX += event.X - r.Held->X;
      r.PannedY += event.Y - r.Held->Y;
    } else if (panel || event.Target == Ctl::MyChart1 || event.Target == Ctl::MyChart2 ||
               event.Target == Ctl::My_Chart3 || event.Target == Ctl::Pep_Chart) {
      if (!r.Held) r.Moved = event;
    }
    return;
  }
  if (!panel) return;
  if (event.What == Event::Kind::MouseDown) return NoteDown(bench, event);
  if (event.What == Event::Kind::MouseUp) return NoteUp(bench, event);
  Add(bench, "wheel " + At(event.X, event.Y) + fmt::format(" {}", event.Notches));
}

void NoteControl(Workbench &bench, const Event &event) {
  if (!Usable(bench, event.Target)) return;
  const char *verb = event.Button == RightButton ? "ask " : "press ";
  WriteMove(bench);
  Add(bench, verb + NameOf(event.Target) + (event.Text.empty() ? "" : ":" + event.Text));
}

void NoteText(Workbench &bench, const Event &event) {
  if (!Usable(bench, event.Target)) return;
  WriteMove(bench);
  const std::string head = "type " + NameOf(event.Target);
  auto &lines = bench.Record.Line;
  if (!lines.empty() && (lines.back() == head || lines.back().starts_with(head + " "))) lines.pop_back();
  Add(bench, event.Text.empty() ? head : head + " " + event.Text);
}

void NoteKey(Workbench &bench, const Event &event) {
  constexpr int always[] = {13, 27, 46, 9, 32}; // have a meaning besides the tool they may be bound to
  bool alone = true;
  for (const int key : always) alone = alone && event.KeyCode != key;
  if (event.KeyCode <= 0 || (event.KeyCode >= 16 && event.KeyCode <= 18)) return;
  if (alone && event.Target == Ctl::DrawPanel && HotKeyPressed(bench.Draft, event.KeyCode, event.Shift))
    return;
  if (event.KeyCode == 'K' && event.Shift == 2 && RowOf(event.Target).Window == "frmMain") return;
  WriteMove(bench);
  Add(bench, "key " + KeyNameOf(event.KeyCode, event.Shift) + " in " + NameOf(event.Target));
}

// The tool finder is left out: what it found is noted as a press.
bool LeftOut(Ctl target) {
  const std::string_view window = RowOf(target).Window;
  return target == Ctl::mnuRecord || target == Ctl::mnuFindTool || target == Ctl::mnuFileExit ||
         window == "Find_Tool" || window == "Question_Form";
}

void Stop(Workbench &bench) {
  bench.Record = {};
  bench.Out.OnAnswer = nullptr;
}
} // namespace

void NoteEvent(Workbench &bench, const Event &event) {
  Recording &r = bench.Record;
  if (!r.On || LeftOut(event.Target)) return;
  r.Before = bench.Draft.Track;
  switch (event.What) {
  case Event::Kind::Press: return NoteControl(bench, event);
  case Event::Kind::Text: return NoteText(bench, event);
  case Event::Kind::Key: return NoteKey(bench, event);
  case Event::Kind::MouseDown:
  case Event::Kind::MouseMove:
  case Event::Kind::MouseUp:
  case Event::Kind::Wheel: return NoteMouse(bench, event);
  case Event::Kind::Close:
    if (event.Target != Ctl::frmMain) Add(bench, "close " + NameOf(event.Target));
    return;
  case Event::Kind::Drop: return Add(bench, "drop " + event.Text);
  case Event::Kind::Leave:
  case Event::Kind::Tick:
  case Event::Kind::Resize: return;
  }
}

void NoteResult(Workbench &bench, const Event &event) {
  Recording &r = bench.Record;
  if (!r.On || event.What != Event::Kind::MouseMove || event.Target != Ctl::DrawPanel) return;
  const Tracker &now = bench.Draft.Track;
  const auto same = [](const std::optional<Point> &a, const std::optional<Point> &b) {
    return a.has_value() == b.has_value() && (!a || (a->X == b->X && a->Y == b->Y));
  };
  const bool snapped = now.Target.SnapActive != r.Before.Target.SnapActive ||
                       now.Target.SnapEntity != r.Before.Target.SnapEntity ||
                       now.Target.SnapKind != r.Before.Target.SnapKind;
  if (snapped || !same(now.Passed, r.Before.Passed)) WriteMove(bench);
}

void NotePress(Workbench &bench, Ctl target) {
  if (!bench.Record.On || LeftOut(target) || !Usable(bench, target)) return;
  Add(bench, "press " + NameOf(target));
}

bool StopRecording(Workbench &bench) {
  Screen &out = bench.Out;
  const auto listener = std::exchange(out.OnAnswer, nullptr); // the file asked for now is no part of it
  const auto chosen =
      out.AskFile(FileUse::SaveAs, "All Files (*.*)|*.*|Scripts (*.txt)|*.txt", "recording.txt");
  std::string trouble;
  if (chosen && !chosen->empty()) {
    std::string bytes;
    for (const std::string &line : bench.Record.Line) bytes += line + "\n";
    const std::string path = std::filesystem::path(*chosen).extension().empty() ? *chosen + ".txt" : *chosen;
    trouble = WriteWhole(path, bytes);
    if (trouble.empty()) return Stop(bench), true;
    out.Ask({trouble, "Record", Buttons::Ok, Icon::Exclamation});
  } else if (out.Ask({"Discard the recording?", "Record", Buttons::YesNo, Icon::Question}) == Answer::Yes) {
    return Stop(bench), true;
  }
  out.OnAnswer = listener;
  return false;
}

void ToggleRecording(Workbench &bench) {
  if (bench.Record.On) {
    StopRecording(bench);
    return;
  }
  bench.Record = {};
  bench.Record.On = true;
  bench.Record.Line = StartLines(bench);
  bench.Out.OnAnswer = [&bench](const std::string &line) { Add(bench, line); };
}
