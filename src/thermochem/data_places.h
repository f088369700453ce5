#pragma once
#include "thermochem/data_files.h"

#include <string>

// The data files in a folder; of an empty one those beside the program, else in the install's share folder,
// each on its own.
DataPlaces PlacesOfData(const std::string &folder = "");
// Both, read. The trouble, or empty.
std::string LoadDataFiles(const std::string &folder, DataFiles &);
