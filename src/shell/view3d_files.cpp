#include "base/whole_file.h"
#include "shell/save_target.h"
#include "shell/view3d.h"
#include "shell/workbench.h"
#include "view3d/mesh_files.h"

#include <algorithm>
#include <filesystem>

namespace {
std::string EndingOf(const std::string &path) {
  std::string ending = std::filesystem::path(path).extension().string();
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return ending;
}

void Tell(Workbench &bench, Ctl what, const std::string &text, Icon mark) {
  bench.Out.Ask({text, bench.Out[what].Text, Buttons::Ok, mark, mark == Icon::None});
}
} // namespace

void SaveShot3d(Workbench &bench) {
  std::string png;
  if (const std::string trouble = bench.Out.PictureBytes(png); !trouble.empty())
    return Tell(bench, Ctl::mnuShot3d, trouble, Icon::Exclamation);
  const std::string path =
      AskTarget(bench, "All Files (*.*)|*.*|Pictures (*.png)|*.png", "_3d", ".png", "grain");
  if (path.empty()) return;
  const std::string trouble = WriteWhole(path, png);
  Tell(bench, Ctl::mnuShot3d, trouble.empty() ? "Saved " + path : trouble,
       trouble.empty() ? Icon::None : Icon::Exclamation);
}

void ExportMesh3d(Workbench &bench) {
  constexpr const char *behind[] = {"_grain", "_core", "_liner"};
  const int index = std::clamp(bench.Out[Ctl::Mesh_Part].Index, 0, 2);
  SolidRequest request = WantedSolids(bench);
  request.Liner = LinerOf(bench);
  Mesh mesh;
  const double chord = bench.Grain.Doc.GrainRadius / 5000;
  if (const std::string trouble = PartMesh(request, static_cast<MeshPart>(index), chord, mesh);
      !trouble.empty())
    return Tell(bench, Ctl::mnuMesh3d, trouble, Icon::Exclamation);
  const std::string path =
      AskTarget(bench, "All Files (*.*)|*.*|3MF (*.3mf)|*.3mf|STL (*.stl)|*.stl", behind[index], ".stl");
  if (path.empty()) return;
  const std::string ending = EndingOf(path);
  if (ending != ".stl" && ending != ".3mf")
    return Tell(bench, Ctl::mnuMesh3d, path + ": the name must end in .stl or .3mf", Icon::Exclamation);
  const std::string name = std::filesystem::path(path).stem().string();
  const std::string trouble = ending == ".stl" ? WriteStl(path, mesh) : WriteThreeMf(path, mesh, name);
  Tell(bench, Ctl::mnuMesh3d,
       trouble.empty() ? "Saved " + path + ": " + std::to_string(mesh.Triangle.size()) + " triangles"
                       : trouble,
       trouble.empty() ? Icon::None : Icon::Exclamation);
}
