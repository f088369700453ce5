#pragma once

// Of every subcommand.
enum ExitCode {
  Done = 0,
  Refused = 1, // the system's own refusal; its words and the place stand on standard error
  BadUse = 2,  // bad options, a bad file, an unwritable target
};
