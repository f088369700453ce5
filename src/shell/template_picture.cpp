#include "shell/template_picture.h"

#include "drafting/view.h"
#include "outputs/picture.h"

#include <filesystem>
#include <system_error>

DrawSurface GrainSurface(Design grain) {
  grain.MacroMode = 0;
  grain.Doc.DisplayGrid = 0;
  for (int i = 0; i <= grain.Table.EntCount; ++i) RowAt(grain.Table, i).Selected = false;
  DrawSurface surface;
  ZoomReset(surface, grain.Doc);
  Redraw(surface, grain);
  return surface;
}

DrawSurface TemplateSurface(const MacFile &mac) {
  Design grain;
  SetDimensions(grain.Doc, RecordedDiameter(mac), mac.Variables.Row[1].Value, 0, 0);
  for (const Entity &e : mac.Finished) AppendRow(grain.Table, e);
  return GrainSurface(std::move(grain));
}

std::string WriteTemplatePicture(const TemplateFolders &folders, const std::string &key, const MacFile &mac) {
  constexpr int side = 320;
  std::error_code failed;
  std::filesystem::create_directories(folders.Picture, failed);
  return WritePicture(TemplateSurface(mac), PictureForm::Bmp, side, side, PicturePath(folders, key));
}
