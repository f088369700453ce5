#include "cli/mesh.h"

#include "base/number_text.h"
#include "base/whole_file.h"
#include "burnback/run_sim.h"
#include "cli/exit_codes.h"
#include "cli/outputs.h"
#include "shell/grain_file.h"
#include "view3d/mesh_files.h"
#include "view3d/solids.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <filesystem>
#include <fmt/format.h>

namespace {

int Fail(int code, const std::string &words) {
  fmt::print(stderr, "{}\n", words);
  return code;
}

std::string BuildPart(const MeshArguments &a, const Design &design, const FrontStart &start, double chord,
                      Mesh &mesh, std::string &pieces) {
  const GrainEnds ends = EndsOf(design.Doc);
  if (a.HasDraft) return DraftedCoreMesh(start, ends, chord, a.Draft, mesh);
  GrainSection section;
  if (std::string trouble = SectionAt(start, a.At, section); !trouble.empty()) return trouble;
  if (a.Part == "grain") {
    const auto loose = std::count_if(section.Group.begin(), section.Group.end(),
                                     [](const SectionGroup &group) { return group.Loose; });
    if (section.Group.size() > 1) pieces = fmt::format(", in {} pieces", section.Group.size());
    if (loose > 0) pieces += fmt::format(", {} of them loose", loose);
    return GrainMesh(section, ends, chord, mesh);
  }
  if (a.Part == "core") return CoreMesh(section, ends, chord, mesh);
  return LinerMesh(section, ends, design.Doc.LinerThickness, chord, mesh);
}

} // namespace

void AddMesh(CLI::App &app, MeshArguments &a) {
  CLI::App *const command = app.add_subcommand("mesh", "write a solid for the printer or another program");
  command->add_option("FILE.mvd", a.File, "grain file")->required();
  command->add_option("--part", a.Part, "the propellant, the casting core that leaves its port, or the liner")
      ->required()
      ->check(CLI::IsMember({"grain", "core", "liner"}));
  command->add_option("--at", a.At, "burn distance, mm (else 0)");
  command->add_option("--chord", a.Chord, "how far a chord may be from its arc, mm (else radius/5000)")
      ->each([&a](const std::string &) { a.HasChord = true; });
  command->add_option("--draft", a.Draft, "of the core, degrees a side: wider towards end B")
      ->each([&a](const std::string &) { a.HasDraft = true; });
  command->add_option("--stl", a.Stl, "write it as STL (binary, mm)");
  command->add_option("--3mf", a.ThreeMf, "write it as 3MF (mm)");
}

int MeshCommand(const MeshArguments &a) {
  if (a.Stl.empty() && a.ThreeMf.empty()) return Fail(BadUse, "mesh: expected --stl or --3mf");
  if (!(a.At >= 0 && a.At < 1e9)) return Fail(BadUse, "--at: expected millimetres, 0 or more");
  if (a.HasDraft && a.Part != "core") return Fail(BadUse, "--draft: only a core has one");
  if (a.HasDraft && a.At > 0) return Fail(BadUse, "--draft: a core is drafted at 0 mm only");
  if (a.HasDraft && !(a.Draft >= 0 && a.Draft <= 45))
    return Fail(BadUse, "--draft: expected degrees, 0 to 45");
  Design design;
  if (std::string trouble = ReadGrainFile(a.File, design); !trouble.empty()) return Fail(BadUse, trouble);
  const double R = design.Doc.GrainRadius, chord = a.HasChord ? a.Chord : R / 5000;
  if (a.HasChord)
    if (std::string trouble = CheckChord(R, chord); !trouble.empty())
      return Fail(BadUse, "--chord: " + trouble);
  Outputs outputs;
  outputs.Input = a.File;
  for (const std::string *path : {&a.Stl, &a.ThreeMf})
    if (!path->empty())
      if (std::string trouble = PlanOutput(outputs, *path); !trouble.empty()) return Fail(BadUse, trouble);

  FrontStart start;
  BurnRefusal refusal;
  if (!PrepareFront(design, start, refusal))
    return Fail(refusal.BadUse ? BadUse : Refused, RefusalWords(refusal));
  Mesh mesh;
  std::string pieces;
  if (std::string trouble = BuildPart(a, design, start, chord, mesh, pieces); !trouble.empty())
    return Fail(Refused, trouble);

  std::string trouble;
  const std::string name = std::filesystem::path(a.File).stem().string() + " " + a.Part;
  if (!a.Stl.empty())
    trouble = FillOutput(outputs, a.Stl, [&](const std::string &draft) { return WriteStl(draft, mesh); });
  if (trouble.empty() && !a.ThreeMf.empty())
    trouble = FillOutput(outputs, a.ThreeMf,
                         [&](const std::string &draft) { return WriteThreeMf(draft, mesh, name); });
  if (trouble.empty()) trouble = MoveIntoPlace(outputs);
  if (!trouble.empty()) return Fail(BadUse, trouble);
  fmt::print("{} at {} mm: {} triangles, {:.6g} cm3{}\n", a.Part, PlainText(a.At), mesh.Triangle.size(),
             VolumeOf(mesh) / 1000, pieces);
  return Done;
}
