#pragma once
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

// Work files of one run; the user's own are never touched.
struct PrivateFolder {
  std::string Path; // ends with the separator; empty: it could not be made
  PrivateFolder() {
    std::error_code problem;
    std::string made = (std::filesystem::temp_directory_path(problem) / "morvandel-script-XXXXXX").string();
    if (!problem && mkdtemp(made.data())) Path = made + "/";
  }
  PrivateFolder(const PrivateFolder &) = delete;
  PrivateFolder &operator=(const PrivateFolder &) = delete;
  ~PrivateFolder() {
    std::error_code none;
    if (!Path.empty()) std::filesystem::remove_all(Path, none);
  }
};
