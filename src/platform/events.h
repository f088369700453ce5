#pragma once
#include "platform/event.h"

// The events as one says them. Units as in Event.

inline Event PressOf(Ctl target, std::string item = {}, int button = 0) {
  Event e;
  e.Target = target;
  e.Text = std::move(item);
  e.Button = button;
  return e;
}

inline Event TextIn(Ctl target, std::string text) {
  Event e = PressOf(target, std::move(text));
  e.What = Event::Kind::Text;
  return e;
}

inline Event KeyIn(Ctl target, int keyCode, int shift = 0) {
  Event e;
  e.What = Event::Kind::Key;
  e.Target = target;
  e.KeyCode = keyCode;
  e.Shift = shift;
  return e;
}

inline Event MouseAt(Event::Kind what, Ctl target, double x, double y, int button = 0, int shift = 0) {
  Event e;
  e.What = what;
  e.Target = target;
  e.X = x;
  e.Y = y;
  e.Button = button;
  e.Shift = shift;
  return e;
}

inline Event WheelAt(Ctl target, double x, double y, double notches) {
  Event e = MouseAt(Event::Kind::Wheel, target, x, y);
  e.Notches = notches;
  return e;
}

inline Event CloseOf(Ctl window) {
  Event e;
  e.What = Event::Kind::Close;
  e.Target = window;
  return e;
}
