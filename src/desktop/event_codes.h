#pragma once
#include <QKeyEvent>

// The codes of platform/event.h.
int ShiftCode(Qt::KeyboardModifiers);
int ButtonCode(Qt::MouseButtons);
int KeyCode(const QKeyEvent &); // 0: a key without a code
