#pragma once
#include "view3d/mesh.h"

#include <string>

// Whole files, written atomically. The trouble, or empty. Millimetres.
std::string StlBytes(const Mesh &);                              // binary
std::string ThreeMfBytes(const Mesh &, const std::string &name); // name: what slicers show for the object
std::string WriteStl(const std::string &path, const Mesh &);
std::string WriteThreeMf(const std::string &path, const Mesh &, const std::string &name);
