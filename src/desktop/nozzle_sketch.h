#pragma once
#include "desktop/theme.h"
#include "platform/plot.h"

#include <QWidget>

// A conical nozzle cut along its axis, in its true proportions.
class NozzleSketch final : public QWidget {
public:
  NozzleSketch();
  void Copy(const NozzleShape &, const Theme &);

protected:
  void paintEvent(QPaintEvent *) override;

private:
  NozzleShape Shown;
  const Theme *Colours = nullptr;
};
