#include "thermochem/data_places.h"

#include "shell/work_folder.h"

#include <filesystem>

DataPlaces PlacesOfData(const std::string &folder) {
  if (!folder.empty()) return FindDataFiles({folder + "/"});
  const std::filesystem::path program = std::filesystem::path(ExecutablePath()).parent_path();
  return FindDataFiles(
      {program.string() + "/", (program.parent_path() / "share" / "morvandel").string() + "/"});
}

std::string LoadDataFiles(const std::string &folder, DataFiles &files) {
  return ReadDataFiles(PlacesOfData(folder), files);
}
