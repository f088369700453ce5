#include "desktop/event_codes.h"

#include <array>
#include <string_view>
#include <utility>

int ShiftCode(Qt::KeyboardModifiers m) {
  return (m.testFlag(Qt::ShiftModifier) ? 1 : 0) + (m.testFlag(Qt::ControlModifier) ? 2 : 0) +
         (m.testFlag(Qt::AltModifier) ? 4 : 0);
}

int ButtonCode(Qt::MouseButtons b) {
  return (b.testFlag(Qt::LeftButton) ? 1 : 0) + (b.testFlag(Qt::RightButton) ? 2 : 0) +
         (b.testFlag(Qt::MiddleButton) ? 4 : 0);
}

int KeyCode(const QKeyEvent &key) {
  static constexpr std::array<std::pair<int, int>, 14> Named{{{Qt::Key_Return, 13},
                                                              {Qt::Key_Enter, 13},
                                                              {Qt::Key_Tab, 9},
                                                              {Qt::Key_Backtab, 9},
                                                              {Qt::Key_Escape, 27},
                                                              {Qt::Key_Delete, 46},
                                                              {Qt::Key_Backspace, 8},
                                                              {Qt::Key_Left, 37},
                                                              {Qt::Key_Up, 38},
                                                              {Qt::Key_Right, 39},
                                                              {Qt::Key_Down, 40},
                                                              {Qt::Key_Home, 36},
                                                              {Qt::Key_End, 35},
                                                              {Qt::Key_Insert, 45}}};
  for (const auto &[qt, code] : Named)
    if (key.key() == qt) return code;
  if (key.key() >= Qt::Key_F1 && key.key() <= Qt::Key_F12) return key.key() - Qt::Key_F1 + 112;
  const int code = key.key();
  if ((code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9') || code == ' ') return code;
  // Signs have codes of their own above the letters', as their characters' are those of other keys.
  static constexpr std::array<std::pair<char, int>, 22> Signs{
      {{';', 186},  {':', 186}, {'=', 187}, {'+', 187}, {',', 188},  {'<', 188}, {'-', 189}, {'_', 189},
       {'.', 190},  {'>', 190}, {'/', 191}, {'?', 191}, {'`', 192},  {'~', 192}, {'[', 219}, {'{', 219},
       {'\\', 220}, {'|', 220}, {']', 221}, {'}', 221}, {'\'', 222}, {'"', 222}}};
  for (const auto &[sign, number] : Signs)
    if (code == sign) return number;
  constexpr std::string_view Shifted = ")!@#$%^&*("; // of the digits
  const auto digit = code > 0 && code < 128 ? Shifted.find(static_cast<char>(code)) : Shifted.npos;
  return digit == Shifted.npos ? 0 : '0' + static_cast<int>(digit);
}
