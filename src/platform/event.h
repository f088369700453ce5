#pragma once
#include "platform/controls.h"

#include <cstdint>
#include <optional>
#include <string>

// One thing the user did. X, Y in drawing units (mm); in a chart the share 0..1 of its axes, from the lower
// left corner; in Picture1 pixels from the upper left one. Shift: 1 Shift, 2 Ctrl, 4 Alt. Button: 1 left, 2
// right, 4 middle. Key codes: Enter 13, Tab 9, Escape 27, Delete 46, F1..F12 112..123, letters and digits
// their capital's code.
struct Event {
  enum class Kind : std::uint8_t {
    Press, // a button, menu entry, check box or option was pressed (Button 2: with the right one); a check
           // box is toggled by the core; of a list Text is the item's
    Text,  // the field or slider Target now holds Text
    Key,   // KeyCode with Shift in Target
    MouseDown, // in Target (DrawPanel, MyChart1, ...)
    MouseMove,
    MouseUp,
    Wheel,  // at X, Y, by Notches
    Close,  // the window of Target was asked to close
    Resize, // Target has X by Y pixels now
    Drop,   // the file Text was dropped on the window or named by another program
    Leave,  // the pointer left Target
    Tick,   // Notches seconds have passed while Target moves by itself
  } What = Kind::Press;
  Ctl Target = Ctl::Count;
  double X = 0, Y = 0;
  int Button = 0, Shift = 0, KeyCode = 0;
  std::string Text;
  double Notches = 0; // Wheel: positive away from the user
  int Caret = -1;     // in a list beside a field: the place in the field's text; -1: its end
};
