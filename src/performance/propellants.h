#pragma once
#include "performance/motor_inputs.h"

#include <string>
#include <string_view>
#include <vector>

// The library of propellants: a text of entries, each a name in brackets and lines "key = value". Lines that
// begin with # and blank lines are passed over. Keys: a, n, density, cstar, isp (all needed, in the units of
// Propellant), lowest_pressure, highest_pressure (MPa), source.

// The trouble names file, line and field, or is empty; `list` is replaced on success only.
std::string ParsePropellants(std::string_view text, const std::string &path, std::vector<Propellant> &list);
std::string PropellantsText(const std::vector<Propellant> &);

// Why a propellant cannot be kept, naming the field, or empty.
std::string CheckPropellant(const Propellant &);

std::string ReadPropellants(const std::string &path, std::vector<Propellant> &list);
// Atomic; the old file stays on any failure, also when an entry cannot be kept or a name stands twice.
std::string WritePropellants(const std::string &path, const std::vector<Propellant> &);

// The user's own library in the folder appDir; where there is none yet, the shipped one below install, which
// is then kept as the user's own where that can be done. Folders end with a separator.
std::string LoadPropellants(const std::string &appDir, const std::string &install,
                            std::vector<Propellant> &list);

// By name, letters' case aside; null when there is none.
const Propellant *FindPropellant(const std::vector<Propellant> &, std::string_view name);
