#pragma once
#include "desktop/bindings.h"

class QComboBox;
class QGridLayout;
class SceneView;

// What stands in the drawing's place while the 3D view is open: its buttons, the picture, the burn.
class View3dPane final : public QWidget {
public:
  explicit View3dPane(Bindings &);
  void Copy(const Screen &, const Theme &);
  SceneView *View;
  QGridLayout *Over; // what lies over the picture

private:
  QWidget *BuildStrip(Bindings &);
  QWidget *BuildBurn(Bindings &);
  QComboBox *Part;
  QWidget *Note;
};
