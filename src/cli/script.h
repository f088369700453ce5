#pragma once
#include <string>

struct ScriptArguments {
  std::string File, Design, Save, Svg;
  bool Trace = false; // each line on standard error, with the prompt and entity count it leads to
};

// Plays a script of user actions (shell/play_script.h) on a program without a display, beginning with a grain
// of the built-in dimensions or with the design. Work files go to a folder that ends with the run. Outputs
// are written only when every line has run. Exit code.
int ScriptCommand(const ScriptArguments &);
