#pragma once
#include <QFrame>

class DrawPanel;
class PointStrip;

// Holds the fields of the point strip beside the pointer while what they take is typed from the drawing. It
// stays where it opened.
class TypingCard final : public QFrame {
public:
  TypingCard(DrawPanel &, PointStrip &);
  void Follow(bool wanted);

private:
  DrawPanel &Panel;
  PointStrip &Strip;
};
