#include "shell/picture_target.h"

#include "shell/save_target.h"

#include <filesystem>

bool AskPicture(Workbench &bench, const std::string &behind, std::string &path, PictureForm &form) {
  path = AskTarget(bench, "All Files (*.*)|*.*|PDF (*.pdf)|*.pdf|SVG (*.svg)|*.svg|PNG (*.png)|*.png", behind,
                   ".png");
  if (path.empty()) return false;
  std::string ending = std::filesystem::path(path).extension().string();
  for (char &c : ending)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  if (ending != ".png" && ending != ".svg" && ending != ".pdf") {
    bench.Out.Ask({path + ": expected a name that ends in .png, .svg or .pdf", "Save Picture", Buttons::Ok,
                   Icon::Exclamation});
    return false;
  }
  form = ending == ".png" ? PictureForm::Png : ending == ".svg" ? PictureForm::Svg : PictureForm::Pdf;
  return true;
}
