#pragma once
#include "desktop/bindings.h"

#include <QFrame>

class QComboBox;
class QProgressBar;

// TutorFrame above the drawing: the list of lessons, or the lesson that is played or recorded.
class TutorStrip final : public QFrame {
public:
  explicit TutorStrip(Bindings &);
  void Copy(const Screen &);

protected:
  void resizeEvent(QResizeEvent *) override;

private:
  bool LowScreen() const;
  void Reserve(); // room for the longest of the lesson's prompts: the drawing below stays where it is
  QComboBox *Lessons = nullptr;
  QProgressBar *Progress = nullptr;
  QLabel *Prompt = nullptr, *Note = nullptr;
  std::vector<std::string> Prompts;
  std::string Told; // prompt and note, as last shown
};

// The prompt in a window beside the drawing, while a lesson leads there.
QWidget *BuildTutorNote(Bindings &);
