#pragma once
#include <cstdlib>
#include <filesystem>
#include <string>

// A folder of a test's own, gone with it. Path ends with the separator.
struct ScratchFolder {
  std::string Path;
  ScratchFolder() {
    std::string made = (std::filesystem::temp_directory_path() / "morvandel-test-XXXXXX").string();
    if (mkdtemp(made.data())) Path = made + "/";
  }
  ScratchFolder(const ScratchFolder &) = delete;
  ScratchFolder &operator=(const ScratchFolder &) = delete;
  ~ScratchFolder() {
    std::error_code none;
    if (!Path.empty()) std::filesystem::remove_all(Path, none);
  }
};
