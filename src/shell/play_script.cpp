#include "shell/play_script.h"

#include "drafting/ask_question.h"
#include "drafting/hot_keys.h"
#include "platform/events.h"
#include "shell/design_view.h"
#include "shell/dialogs.h"
#include "shell/dispatch.h"
#include "shell/grain_file.h"
#include "shell/script_keys.h"
#include "shell/start_values.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <memory>
#include <utility>

namespace {

struct Player {
  Workbench &Bench;
  ScriptedScreen &Out;
  ScriptedTemplates &Templates;
  ScriptedLessons &Lessons;
  Ctl Field = Ctl::DrawPanel; // where keys go
};

std::string_view Word(std::string_view &line) {
  const auto end = line.find(' ');
  const std::string_view word = line.substr(0, end);
  line.remove_prefix(end == line.npos ? line.size() : end + 1);
  return word;
}

bool Number(std::string_view &line, double &value) {
  const std::string_view word = Word(line);
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
  return error == std::errc() && end == word.data() + word.size();
}

template <std::size_t N>
bool Numbers(std::string_view line, std::array<double, N> &value) {
  for (double &v : value)
    if (!Number(line, v)) return false;
  return line.empty();
}

// Keys follow the focus that the core asks for, and go back to the drawing when its window has closed.
void Send(Player &p, const Event &event) {
  Dispatch(p.Bench, event);
  if (p.Out.Focus != Ctl::Count) p.Field = std::exchange(p.Out.Focus, Ctl::Count);
  const auto window = FindControl(RowOf(p.Field).Window);
  if ((window && !p.Out[*window].Visible) || !p.Out[p.Field].Visible) p.Field = Ctl::DrawPanel;
}

void SendMouse(Player &p, Event::Kind what, double x, double y, int button = 0, int shift = 0) {
  Send(p, MouseAt(what, Ctl::DrawPanel, x, y, button, shift));
}

// Of a name that stands in several windows the one in the window that is open.
std::optional<Ctl> OpenControl(const Player &p, std::string_view name) {
  std::optional<Ctl> found;
  for (std::size_t i = 0; i < CtlCount; ++i) {
    const auto control = static_cast<Ctl>(i);
    const auto window = FindControl(RowOf(control).Window);
    const bool open =
        window && p.Out[*window].Visible && *window != Ctl::frmMain && *window != Ctl::tbToolBar;
    if (RowOf(control).Name == name && open) found = control;
  }
  return found;
}

bool Name(Player &p, std::string_view name, Ctl &control) {
  auto found = FindControl(name);
  if (!found) found = OpenControl(p, name);
  if (!found) Fail(p.Out.Lines, "there is no one control " + std::string(name));
  control = found.value_or(Ctl::Count);
  return found.has_value();
}

bool Usable(Player &p, Ctl control) {
  if (p.Out[control].Visible && p.Out[control].Enabled) return true;
  Fail(p.Out.Lines, std::string(RowOf(control).Name) + " cannot be used now");
  return false;
}

void PressControl(Player &p, const Event &press) {
  if (!Usable(p, press.Target)) return;
  const std::string_view window = RowOf(press.Target).Window;
  p.Field = window == "frmMain" || window == "tbToolBar" ? Ctl::DrawPanel : press.Target;
  if (LessonRecords(p.Lessons.Record) && IsTaughtButton(press.Target))
    KeepPress(p.Lessons.Record, p.Bench.Draft, std::string(RowOf(press.Target).Name));
  Send(p, press);
}

void Press(Player &p, std::string_view name, int button) { // NAME, or LIST:ITEM
  const auto colon = name.find(':');
  Event e;
  e.Button = button;
  if (!Name(p, name.substr(0, colon), e.Target)) return;
  if (colon != name.npos) {
    e.Text = name.substr(colon + 1);
    const auto &items = p.Out[e.Target].Item;
    const auto named = [&](const std::string &item) { // what stands behind a tab is a note
      return item.substr(0, item.find('\t')) == e.Text;
    };
    if (std::none_of(items.begin(), items.end(), named))
      return Fail(p.Out.Lines, std::string(name.substr(0, colon)) + " has no item " + e.Text);
  }
  PressControl(p, e);
}

void Command(Player &p, std::string_view number) {
  int slot = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), slot);
  Event e;
  if (error == std::errc() && end == number.data() + number.size()) e.Target = HotKeyControl(slot);
  if (e.Target == Ctl::Count) return Fail(p.Out.Lines, "there is no command " + std::string(number));
  PressControl(p, e);
}

void Type(Player &p, std::string_view rest) {
  Event e;
  e.What = Event::Kind::Text;
  if (!Name(p, Word(rest), e.Target)) return;
  if (!Usable(p, e.Target)) return;
  e.Text = rest;
  p.Field = e.Target;
  Send(p, e);
}

void Key(Player &p, std::string_view rest) { // NAME, or NAME in CONTROL
  if (p.Out.Focus != Ctl::Count) p.Field = std::exchange(p.Out.Focus, Ctl::Count);
  constexpr std::string_view in = " in ";
  const auto where = rest.find(in);
  if (where != rest.npos && !Name(p, rest.substr(where + in.size()), p.Field)) return;
  Event e = KeyIn(p.Field, 0);
  if (!ReadKeyName(rest.substr(0, where), e))
    return Fail(p.Out.Lines, "unknown key " + std::string(rest.substr(0, where)));
  Send(p, e);
}

void Grain(Player &p, std::string_view rest) {
  double diameter, length, throat;
  const bool numbers = Number(rest, diameter) && Number(rest, length) && Number(rest, throat);
  const int ends = rest == "none" ? 0 : rest == "A" ? 1 : rest == "B" ? 2 : rest == "AB" ? 3 : -1;
  if (!numbers || ends < 0) return Fail(p.Out.Lines, "expected grain DIAM LENGTH THROAT none|A|B|AB");
  GrainDoc doc = p.Bench.Grain.Doc;
  SetDimensions(doc, diameter, length, throat, ends);
  PrefillDimensions(p.Bench, doc);
  Send(p, PressOf(Ctl::Dimensions_Next));
  ShowWholeGrain(p.Bench);
}

void Click(Player &p, double x, double y, int button, int shift) {
  p.Field = Ctl::DrawPanel;
  SendMouse(p, Event::Kind::MouseMove, x, y, 0, shift);
  SendMouse(p, Event::Kind::MouseDown, x, y, button, shift);
  SendMouse(p, Event::Kind::MouseUp, x, y, button, shift);
}

void Drag(Player &p, const std::array<double, 4> &at, int shift) {
  p.Field = Ctl::DrawPanel;
  SendMouse(p, Event::Kind::MouseMove, at[0], at[1], 0, shift);
  SendMouse(p, Event::Kind::MouseDown, at[0], at[1], 1, shift);
  SendMouse(p, Event::Kind::MouseMove, at[2], at[3], 0, shift);
  SendMouse(p, Event::Kind::MouseUp, at[2], at[3], 1, shift);
}

// Alt behind the numbers: it was held.
int TakeAlt(std::string_view &rest) {
  constexpr std::string_view alt = " Alt";
  if (!rest.ends_with(alt)) return 0;
  rest.remove_suffix(alt.size());
  return 4;
}

// In Picture1, pixels. False: the line is none of it.
bool PictureMouse(Player &p, std::string_view verb, std::string_view rest) {
  constexpr std::string_view in = " in Picture1";
  if (!rest.ends_with(in)) return false;
  rest.remove_suffix(in.size());
  std::array<double, 3> at3;
  std::array<double, 4> at4;
  if (verb == "wheel" && Numbers(rest, at3)) {
    Send(p, WheelAt(Ctl::Picture1, at3[0], at3[1], at3[2]));
  } else if ((verb == "drag" || verb == "pan") && Numbers(rest, at4)) {
    const int button = verb == "drag" ? 1 : 4;
    Send(p, MouseAt(Event::Kind::MouseDown, Ctl::Picture1, at4[0], at4[1], button));
    Send(p, MouseAt(Event::Kind::MouseMove, Ctl::Picture1, at4[2], at4[3], button));
    Send(p, MouseAt(Event::Kind::MouseUp, Ctl::Picture1, at4[2], at4[3], button));
  } else {
    return false;
  }
  p.Field = Ctl::Picture1;
  return true;
}

// Of a line with a place. False: it is none.
bool Mouse(Player &p, std::string_view verb, std::string_view rest) {
  if (PictureMouse(p, verb, rest)) return true;
  const int shift = TakeAlt(rest);
  std::array<double, 2> at;
  std::array<double, 3> at3;
  std::array<double, 4> at4;
  if (verb == "click" && Numbers(rest, at))
    Click(p, at[0], at[1], 1, shift);
  else if (verb == "back" && Numbers(rest, at))
    Click(p, at[0], at[1], 2, shift);
  else if (verb == "drag" && Numbers(rest, at4))
    Drag(p, at4, shift);
  else if (verb == "move" && Numbers(rest, at))
    SendMouse(p, Event::Kind::MouseMove, at[0], at[1], 0, shift);
  else if (verb == "wheel" && Numbers(rest, at3))
    Send(p, WheelAt(Ctl::DrawPanel, at3[0], at3[1], at3[2]));
  else if (verb == "pan" && Numbers(rest, at4)) {
    SendMouse(p, Event::Kind::MouseDown, at4[0], at4[1], 4);
    SendMouse(p, Event::Kind::MouseMove, at4[2], at4[3]);
    SendMouse(p, Event::Kind::MouseUp, at4[2], at4[3], 4);
  } else
    return false;
  return true;
}

// A place by formulas, typed into the fields or clicked at.
void Placed(Player &p, bool typed, std::string_view rest) {
  ScriptedPlace place;
  if (const std::string trouble = ReadPlace(p.Bench, rest, place); !trouble.empty())
    return Fail(p.Out.Lines, trouble);
  if (!typed) {
    p.Bench.Draft.Log.Place = {IsPlainNumber(place.X) ? "" : place.X, IsPlainNumber(place.Y) ? "" : place.Y};
    return Click(p, place.AtX, place.AtY, 1, 0);
  }
  Press(p, RowOf(Ctl::Key_In).Name, 0);
  Type(p, "X_Input " + place.X);
  Type(p, "Y_Input " + place.Y);
  Key(p, "Enter in Y_Input");
}

void Have(Player &p, std::string_view rest) {
  const std::string_view name = Word(rest);
  double value;
  if (!Number(rest, value) || !rest.empty() || !SetStartValue(p.Bench, name, value))
    Fail(p.Out.Lines, "there is no value " + std::string(name) + " that could be so");
}

void ExpectState(Player &p, std::string_view what, std::string_view name) {
  Ctl control;
  if (!Name(p, name, control)) return;
  const Control &c = p.Out[control];
  const bool holds = what == "visible"    ? c.Visible
                     : what == "hidden"   ? !c.Visible
                     : what == "enabled"  ? c.Enabled
                     : what == "disabled" ? !c.Enabled
                     : what == "checked"  ? c.Checked
                                          : !c.Checked;
  if (!holds) Fail(p.Out.Lines, std::string(name) + " is not " + std::string(what));
}

void Expect(Player &p, std::string_view rest) {
  const std::string_view what = Word(rest);
  const auto differs = [&](std::string got) {
    while (got.ends_with(' ')) got.pop_back(); // a line of a script keeps none
    if (got != rest) Fail(p.Out.Lines, "expected \"" + std::string(rest) + "\", found \"" + got + "\"");
  };
  if (what == "prompt") return differs(p.Out[Ctl::UserPrompt].Visible ? p.Out[Ctl::UserPrompt].Text : "");
  if (what == "box") {
    if (p.Out.LastBox.empty() || p.Out.LastBox.find(rest) == std::string::npos)
      Fail(p.Out.Lines, "the last box said \"" + p.Out.LastBox + "\"");
    p.Out.LastBox.clear();
    return;
  }
  if (what == "count") return differs(std::to_string(p.Bench.Grain.Table.EntCount + 1));
  if (what == "text") {
    Ctl control;
    if (Name(p, Word(rest), control)) differs(p.Out[control].Text);
    return;
  }
  for (const std::string_view state : {"visible", "hidden", "enabled", "disabled", "checked", "unchecked"})
    if (what == state) return ExpectState(p, what, rest);
  Fail(p.Out.Lines, "cannot expect " + std::string(what));
}

void PlayLine(Player &p) {
  const std::string line(Upcoming(p.Out.Lines));
  ++p.Out.Lines.Next;
  std::string_view rest = line;
  const std::string_view verb = Word(rest);
  if (verb == "grain") return Grain(p, rest);
  if (verb == "have") return Have(p, rest);
  if (verb == "press") return Press(p, rest, 0);
  if (verb == "ask") return Press(p, rest, 2);
  if (verb == "cmd") return Command(p, rest);
  if (verb == "answer" || verb == "box" || verb == "file") return p.Out.KeepAhead(line);
  if (verb == "type") return Type(p, rest);
  if (verb == "key") return Key(p, rest);
  if (verb == "expect") return Expect(p, rest);
  if (Mouse(p, verb, rest)) return;
  if (verb == "point" || verb == "clickat") return Placed(p, verb == "point", rest);
  if (std::string trouble; ScriptTemplateLine(p.Templates, p.Bench, verb, rest, trouble) ||
                           ScriptLessonLine(p.Lessons, p.Bench, verb, rest, trouble)) {
    if (!trouble.empty()) Fail(p.Out.Lines, trouble);
    return;
  }
  if (verb == "hover") {
    Ctl chart;
    double part;
    if (!Name(p, Word(rest), chart)) return;
    if (Number(rest, part)) return Send(p, MouseAt(Event::Kind::MouseMove, chart, part, 0.5));
  }
  if (verb == "drop" || verb == "close") {
    Event e;
    e.What = verb == "drop" ? Event::Kind::Drop : Event::Kind::Close;
    e.Target = Ctl::frmMain;
    if (verb == "drop") e.Text = rest;
    if (verb == "close" && !rest.empty() && !Name(p, rest, e.Target)) return;
    return Send(p, e);
  }
  if (verb == "save") {
    if (const std::string trouble = WriteGrainFile(std::string(rest), p.Bench.Grain); !trouble.empty())
      Fail(p.Out.Lines, trouble);
    return;
  }
  Fail(p.Out.Lines, "cannot " + line);
}

} // namespace

void BindScript(Workbench &bench, ScriptedScreen &screen, const ScriptKeeps &keep) {
  const auto templates = std::make_shared<ScriptedTemplates>();
  const auto lessons = std::make_shared<ScriptedLessons>();
  screen.PlayLine = [templates, lessons,
                     player = Player{bench, screen, keep.Templates ? *keep.Templates : *templates,
                                     keep.Lessons ? *keep.Lessons : *lessons}]() mutable {
    PlayLine(player);
  };
}

void PlayScript(ScriptedScreen &screen) {
  while (!AtEnd(screen.Lines)) screen.PlayLine();
  screen.RefuseLeftOvers();
}
