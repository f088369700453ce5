#include "drafting/prompt.h"

#include "drafting/command_table.h"

#include <algorithm>
#include <array>

namespace {
// Of these the stem alone stands with RefType 1, and says "Select" with RefType 5.
constexpr std::array<int, 7> Bare{71, 72, 73, 76, 77, 91, 92};

const char *Suffix(const CommandState &cmd) {
  switch (cmd.RefType) {
  case CursorRef: return "Indicate Position";
  case EndRef: return "Select Entity";
  case CentreRef: return "Select Entity(Edge)";
  case IntersectionRef: return cmd.CmdStep % 2 == 0 ? "Indicate First Entity" : "Indicate Second Entity";
  case AlongRef: return "Select Line";
  default: return nullptr;
  }
}

std::string Stem(const Drafting &d, const CommandRow &row) {
  if (row.StemRule)
    if (const char *ruled = row.StemRule(d)) return ruled;
  const auto state = static_cast<std::size_t>(std::clamp<int>(d.Cmd.CmdState, 0, 2));
  for (std::size_t i = state + 1; i-- > 0;)
    if (row.Stem[i]) return row.Stem[i];
  return {};
}
} // namespace

std::string PromptText(const Drafting &d) {
  const CommandRow *row = FindCommand(d.Cmd.CmdNo);
  if (!row) return {};
  std::string text = Stem(d, *row);
  const bool bare = std::find(Bare.begin(), Bare.end(), d.Cmd.CmdNo) != Bare.end();
  if (bare && d.Cmd.RefType == CursorRef) return text;
  constexpr std::string_view indicate = "Indicate";
  if (bare && d.Cmd.RefType == AlongRef)
    if (const auto at = text.find(indicate); at != text.npos) text.replace(at, indicate.size(), "Select");
  if (const char *suffix = Suffix(d.Cmd)) text += std::string(" / ") + suffix;
  return text;
}

void SetPrompt(Drafting &d) {
  d.Out[Ctl::UserPrompt].Text = PromptText(d);
  d.Out[Ctl::UserPrompt].Visible = d.Cmd.CmdNo != 0;
  d.Out[Ctl::Idle_Prompt].Visible = d.Cmd.CmdNo == 0;
}
