#pragma once
#include "shell/command_line.h"
#include "shell/work_folder.h"

#include <string>

// Burns the design at hand (the grain file of the command line, else a crashed session's recovery file) with
// the dimensions of the keys and leaves the run's work files, KnProfile among them, in AppDir. The exit code:
// 0 done, 1 the run was refused, 2 bad use, bad file or unwritable folder; `words` then says why.
int RunKnBatch(const CommandLine &, const WorkFolders &, std::string &words);
