#include "cli/render.h"

#include "burnback/run_sim.h"
#include "cli/exit_codes.h"
#include "cli/outputs.h"
#include "outputs/grain_picture.h"
#include "shell/grain_file.h"
#include "view3d/solids.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <charconv>
#include <cmath>
#include <fmt/format.h>

namespace {

int Fail(int code, const std::string &words) {
  fmt::print(stderr, "{}\n", words);
  return code;
}

bool ReadSize(const std::string &text, int &width, int &height) {
  const char *const end = text.data() + text.size();
  const auto [cross, bad] = std::from_chars(text.data(), end, width);
  if (bad != std::errc{} || cross == end || *cross != 'x') return false;
  const auto [last, worse] = std::from_chars(cross + 1, end, height);
  return worse == std::errc{} && last == end && width >= 16 && height >= 16 && width <= 8192 &&
         height <= 8192;
}

} // namespace

void AddRender(CLI::App &app, RenderArguments &a) {
  CLI::App *const command = app.add_subcommand("render", "draw the grain in its liner as a solid (PNG)");
  command->add_option("FILE.mvd", a.File, "grain file")->required();
  command->add_option("--png", a.Png, "the picture")->required();
  command->add_option("--at", a.At, "burn distance, mm (else 0)");
  command->add_option("--cut", a.Cut, "what is cut away: none, the front half (else), a quarter")
      ->check(CLI::IsMember({"none", "half", "quarter"}));
  command->add_option("--size", a.Size, "pixels, as 1600x1000");
  command->add_option("--azimuth", a.Azimuth, "of the eye, degrees from the side towards end B (else 38)");
  command->add_option("--elevation", a.Elevation, "of the eye, degrees above the ground (else 24)");
  command
      ->add_option("--roll", a.Roll, "of the drawing about the axis, degrees (else so that the cut is seen)")
      ->each([&a](const std::string &) { a.HasRoll = true; });
  command->add_flag("--parallel", a.Parallel, "without perspective");
  command->add_flag("--no-liner", a.NoLiner, "the propellant alone");
  command->add_flag("--plain", a.Plain, "without title and legend");
}

int RenderCommand(const RenderArguments &a) {
  GrainPicture picture;
  if (!(a.At >= 0 && a.At < 1e9)) return Fail(BadUse, "--at: expected millimetres, 0 or more");
  if (!a.Size.empty() && !ReadSize(a.Size, picture.Width, picture.Height))
    return Fail(BadUse, "--size: expected WIDTHxHEIGHT, 16 to 8192 pixels each");
  if (!(std::abs(a.Elevation) <= 90)) return Fail(BadUse, "--elevation: expected degrees, -90 to 90");
  if (!(std::abs(a.Azimuth) <= 3600) || !(std::abs(a.Roll) <= 3600))
    return Fail(BadUse, "--azimuth, --roll: expected degrees");
  picture.BurnDist = a.At;
  picture.Azimuth = a.Azimuth, picture.Elevation = a.Elevation;
  if (a.HasRoll) picture.Roll = a.Roll;
  picture.Section = a.Cut == "none"   ? GrainPicture::Cut::None
                    : a.Cut == "half" ? GrainPicture::Cut::Half
                                      : GrainPicture::Cut::Quarter;
  picture.Perspective = !a.Parallel;
  picture.Liner = !a.NoLiner;
  picture.Legend = !a.Plain;
  Design design;
  if (std::string trouble = ReadGrainFile(a.File, design); !trouble.empty()) return Fail(BadUse, trouble);
  design.CurrentFile = a.File;
  Outputs outputs;
  outputs.Input = a.File;
  if (std::string trouble = PlanOutput(outputs, a.Png); !trouble.empty()) return Fail(BadUse, trouble);
  FrontStart start;
  BurnRefusal refusal;
  if (!PrepareFront(design, start, refusal))
    return Fail(refusal.BadUse ? BadUse : Refused, RefusalWords(refusal));
  // What the design itself refuses is told apart from a file that cannot be written.
  GrainSection section;
  Mesh grain;
  std::string trouble = SectionAt(start, a.At, section);
  if (trouble.empty()) trouble = GrainMesh(section, EndsOf(design.Doc), start.GrainRadius / 1000, grain);
  if (!trouble.empty()) return Fail(Refused, trouble);
  trouble = FillOutput(outputs, a.Png, [&](const std::string &draft) {
    return WriteGrainPicture(design, start, picture, draft);
  });
  if (trouble.empty()) trouble = MoveIntoPlace(outputs);
  return trouble.empty() ? static_cast<int>(Done) : Fail(BadUse, trouble);
}
