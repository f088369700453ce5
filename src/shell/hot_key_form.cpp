#include "shell/hot_key_form.h"

#include "base/whole_file.h"
#include "drafting/hot_keys.h"
#include "shell/form_answer.h"
#include "shell/help_pages.h"

namespace {
constexpr int TabKey = 9, DeleteKey = 46, F1Key = 112;
constexpr int ShiftKey = 1, ControlKey = 2;
constexpr const char *SetItem = "Set Hot Key...", *HelpItem = "Help", *Title = "Hot Key";

std::string ToolName(int slot) {
  switch (slot) {
  case 87: return "Grid & Snap";
  case 97: return "Rotation Draw"; // its button shows the count
  case 99: return "Refresh Screen";
  default: return std::string(RowOf(HotKeyControl(slot)).Text);
  }
}

HotKey &Bound(Drafting &d) { return d.HotKeyTable[static_cast<std::size_t>(d.HotKeyCmd)]; }

void ShowPending(Workbench &bench) { bench.Out[Ctl::HotKeys].Text = HotKeyText(bench.PendingKey); }

void Close(Workbench &bench) { bench.Out[Ctl::HotKeyForm].Visible = false; }

void ShowForm(Workbench &bench) {
  Screen &out = bench.Out;
  bench.PendingKey = Bound(bench.Draft);
  ShowPending(bench);
  out[Ctl::HotKeys].Hint = "Press the keys; Delete takes them from the tool";
  out[Ctl::HotKeyForm].Text = std::string(Title) + " - " + ToolName(bench.Draft.HotKeyCmd);
  out[Ctl::HotKeyForm].Visible = true;
  out.Focus = Ctl::HotKeys;
  out.RunModal(Form::HotKey);
  Close(bench);
}

// Why the drawing would never hand these keys on to a tool; empty when it does.
std::string Taken(int key, int shift) {
  if (shift == ControlKey && key == 'Z') return "is the key of Undo";
  if (shift == ControlKey && key == 'Y') return "is the key of Redo";
  if (shift == ControlKey && key == 'K') return "is the key of the tool finder";
  if (shift == 0 && key == F1Key) return "is the key of help";
  if ((shift & ~ShiftKey) != 0) return {};
  if (key == TabKey) return "goes to the fields";
  constexpr int plus = 187, minus = 189, point = 190, numSigns[] = {107, 109, 110};
  const bool digit = (key >= '0' && key <= '9' && shift == 0) || (key >= 96 && key <= 105);
  const bool bracket = (key == '9' || key == '0') && shift == ShiftKey;
  bool sign = key == plus || key == minus || key == point;
  for (const int n : numSigns) sign = sign || key == n;
  return digit || bracket || sign ? "begins a value in the fields; hold Ctrl or Alt with it" : "";
}

void TakeKey(Workbench &bench, int key, int shift) {
  if (key <= 0 || key > 255 || (key >= 16 && key <= 18)) return; // Shift, Ctrl, Alt wait for their key
  const HotKey pressed{static_cast<std::int16_t>(key), static_cast<std::int16_t>(shift & 7)};
  if (key == DeleteKey && shift == 0) {
    bench.PendingKey = {};
  } else if (const std::string taken = Taken(key, shift & 7); !taken.empty()) {
    bench.Out.Ask({HotKeyText(pressed) + " " + taken, Title, Buttons::Ok, Icon::Exclamation});
    bench.Out.Focus = Ctl::HotKeys;
  } else {
    bench.PendingKey = pressed;
  }
  ShowPending(bench);
}

bool UsedElsewhere(const std::array<HotKey, 101> &table, int slot, HotKey pair) {
  for (int i = 1; pair.Key != 0 && i <= 100; ++i) {
    const HotKey held = table[static_cast<std::size_t>(i)];
    if (i != slot && held.Key == pair.Key && held.Shift == pair.Shift) return true;
  }
  return false;
}

void Accept(Workbench &bench) {
  Screen &out = bench.Out;
  Drafting &d = bench.Draft;
  const std::string path = bench.Folders.AppDir + "HotKeys";
  auto table = d.HotKeyTable;
  std::string trouble;
  if (!FileExists(path)) {
    trouble = path + " does not exist.";
  } else {
    std::array<HotKey, 101> kept{}; // another running program may have written it
    trouble = ReadHotKeys(path, kept);
    if (trouble.empty()) table = kept;
  }
  if (UsedElsewhere(table, d.HotKeyCmd, bench.PendingKey)) {
    out.Ask({"ERROR: Key Combination already used", Title, Buttons::Ok, Icon::Exclamation});
    out.Focus = Ctl::HotKeys;
    return;
  }
  if (!trouble.empty() && out.Ask({trouble + " Create new File?", "File Error", Buttons::OkCancel,
                                   Icon::Exclamation}) == Answer::Cancel) {
    out.Ask({"Aborting operation", Title, Buttons::Ok, Icon::None});
    return Close(bench);
  }
  table[static_cast<std::size_t>(d.HotKeyCmd)] = bench.PendingKey;
  if (trouble = WriteHotKeys(path, table); !trouble.empty()) {
    out.Ask({trouble, "File Error", Buttons::Ok, Icon::Exclamation});
    out.Focus = Ctl::HotKeys;
    return;
  }
  d.HotKeyTable = table;
  Close(bench);
}
} // namespace

void OpenHotKeyList(Workbench &bench, Ctl button) {
  const int slot = SlotOf(button);
  if (slot == 0) return;
  Screen &out = bench.Out;
  bench.Draft.HotKeyCmd = slot;
  out[Ctl::HotKeyPrompt].Text = ToolName(slot);
  out[Ctl::HotKeyList].Item = {SetItem, HelpItem};
  out[Ctl::HotKeyList].Visible = true;
}

void HotKeyListEvent(Workbench &bench, const Event &event) {
  const bool press = event.What == Event::Kind::Press, key = event.What == Event::Kind::Key;
  if (!press && !key) return;
  bench.Out[Ctl::HotKeyList].Visible = false; // also when left without a choice
  if (press && event.Text == SetItem) ShowForm(bench);
  if (press && event.Text == HelpItem) ShowHelp(bench, HotKeyControl(bench.Draft.HotKeyCmd));
}

void HotKeyFormEvent(Workbench &bench, const Event &event) {
  if (!bench.Out[Ctl::HotKeyForm].Visible) return;
  switch (ActOf(event, Ctl::HotKey_Ok, Ctl::HotKey_Cancel)) {
  case FormAct::Accept: return Accept(bench);
  case FormAct::Cancel: return Close(bench);
  case FormAct::None: break;
  }
  if (event.What == Event::Kind::Key && event.Target == Ctl::HotKeys)
    TakeKey(bench, event.KeyCode, event.Shift);
}
