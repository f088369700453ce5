#include "drafting/typing.h"

#include "base/number_text.h"
#include "drafting/point_fields.h"
#include "geometry/carrier.h"

#include <string_view>

namespace {
constexpr int ShiftKey = 1, ControlOrAlt = 2 | 4;
constexpr std::string_view Openers = "0123456789+-.(";

// The character of a key; without its text as most keyboards have it.
char CharacterOf(const Event &event) {
  if (event.Text.size() == 1) return event.Text[0];
  const bool shift = (event.Shift & ShiftKey) != 0;
  switch (event.KeyCode) {
  case 187: return '+';
  case 189: return shift ? '_' : '-';
  case 190: return shift ? '>' : '.';
  case '9': return shift ? '(' : '9';
  default: break;
  }
  const bool digit = event.KeyCode >= '0' && event.KeyCode <= '9';
  return digit && !shift ? static_cast<char>(event.KeyCode) : '\0';
}

std::array<std::string, 2> PointerValues(const Drafting &d) {
  const Point at{d.Cmd.TrackX, d.Cmd.TrackY}, last = LastPoint(d.Cmd);
  const auto shown = [](double first, double second) {
    return std::array{FormatMask(first, "0.000"), FormatMask(second, "0.000")};
  };
  switch (FieldsOf(d)) {
  case FieldUse::Position: return shown(at.X, at.Y);
  case FieldUse::Polar: return shown(Distance(last, at), Bearing(last, at) * 180 / Pi);
  case FieldUse::Size: return shown(at.X - last.X, at.Y - last.Y);
  case FieldUse::Diameter: return shown(2 * Distance(last, at), Distance(last, at));
  case FieldUse::None:
  case FieldUse::Value: break;
  }
  return {};
}
} // namespace

bool TypeAtPointer(Drafting &d, const Event &event) {
  const char c = CharacterOf(event);
  if ((event.Shift & ControlOrAlt) != 0 || c == '\0' || Openers.find(c) == Openers.npos) return false;
  const Control &field = d.Out[Ctl::X_Input];
  const FieldUse use = FieldsOf(d);
  // A command that waits for its value takes no clicks.
  const bool waits = use == FieldUse::Value || (use != FieldUse::None && d.Out[Ctl::DrawPanel].Enabled);
  if (!waits || !d.Out[Ctl::End_Frame].Visible || !field.Visible) return false;
  Event typed;
  typed.What = Event::Kind::Text;
  typed.Target = Ctl::X_Input;
  typed.Text = std::string(1, c);
  FieldText(d, typed);
  d.TypingAtPointer = true;
  d.Out.Focus = Ctl::X_Input;
  d.Out.CursorAtEnd = true;
  return true;
}

void RefreshTyping(Drafting &d) {
  const bool fields = d.Out[Ctl::End_Frame].Visible && d.Out[Ctl::X_Input].Visible;
  if (!fields || d.Out.Focus == Ctl::DrawPanel) d.TypingAtPointer = false;
  d.Out[Ctl::Typing_Card].Visible = d.TypingAtPointer;
  const auto values = PointerValues(d);
  d.Out[Ctl::X_Input].Hint = values[0];
  d.Out[Ctl::Y_Input].Hint = values[1];
}
