#pragma once
#include <functional>
#include <string>
#include <vector>

// Output files that appear together or not at all: each is written as a draft first, beside its place, and
// all are moved into place at the end. Dropping the record without MoveIntoPlace leaves every target as it
// was. A target that is no plain file (a pipe, a device) takes the draft's bytes at the end.
struct Outputs {
  struct Target {
    std::string Path, Place, Draft; // as named; links followed
    bool Plain = true;
  };
  std::string Input; // a file that no output may overwrite
  std::vector<Target> All;
  Outputs() = default;
  Outputs(const Outputs &) = delete;
  Outputs &operator=(const Outputs &) = delete;
  ~Outputs();
};

// Makes the (still empty) draft of a target, so that an unwritable one is found before any work. The trouble,
// or empty.
std::string PlanOutput(Outputs &, const std::string &path);
// Fills the draft through write(draft path); the trouble then names the target.
std::string FillOutput(Outputs &, const std::string &path,
                       const std::function<std::string(const std::string &)> &write);
std::string MoveIntoPlace(Outputs &);
