#include "shell/kn_batch.h"

#include "burnback/run_sim.h"
#include "shell/grain_file.h"

int RunKnBatch(const CommandLine &line, const WorkFolders &folders, std::string &words) {
  if (!IsBatch(line)) {
    words = "/Kn needs all five dimensions: Gd=, Gl= and Td= above 0, Ea= and Eb=";
    return 2;
  }
  if (!folders.Trouble.empty()) {
    words = folders.Trouble;
    return 2;
  }
  if (line.GrainFile.empty() && !line.MissingFile.empty()) {
    words = line.MissingFile + ": there is no such file";
    return 2;
  }
  Design design;
  design.AppDir = folders.AppDir;
  WorkClaim claim;
  if (!line.GrainFile.empty()) {
    words = ReadGrainFile(line.GrainFile, design);
  } else {
    ClaimWorkFiles(claim, folders.AppDir);
    const auto left = LeftOverTempFiles(claim, folders.AppDir);
    if (!left.empty()) words = ReadGrainFile(left.front(), design);
  }
  if (!words.empty()) return 2;
  ApplyKeys(line, design.Doc);

  BurnOptions options;
  options.WorkFolder = folders.AppDir;
  options.KnBatch = true;
  BurnRun run;
  BurnRefusal refusal;
  if (!BurnDesign(design, options, run, refusal)) {
    words = RefusalWords(refusal);
    return refusal.BadUse ? 2 : 1;
  }
  words = run.Notice;
  return 0;
}
