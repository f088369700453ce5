#pragma once
#include "dxf/dxf_groups.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

// One record of a drawing file: the groups First up to Last, behind the one that names it.
struct DxfEntity {
  std::string_view Type;
  int Line = 0;
  std::size_t First = 0, Last = 0;
};
struct DxfBlock {
  double BaseX = 0, BaseY = 0;
  int Line = 0;
  std::vector<DxfEntity> Entity;
};
struct DxfFile {
  std::string Name;
  std::vector<DxfGroup> Group;
  std::optional<int> InsUnits;
  std::optional<double> LeastX, LeastY, MostX, MostY; // of the header's extents
  bool OwnLayer = false;                              // it has the layer that this program writes on
  bool NoEnd = false;                                 // the EOF record is missing
  std::map<std::string, DxfBlock> Block;              // by name in small letters
  std::vector<DxfEntity> Entity;
};

// Sections, blocks and entities of a text DXF of any release. The trouble names file and line; a file that
// ends inside a section is refused. Values point into `bytes`.
std::string ReadDxf(std::string_view bytes, const std::string &name, DxfFile &);

std::string SmallLetters(std::string_view);
std::string PlaceOf(const DxfFile &, int line); // "FILE: line N: "

// The fields of one entity. What is missing or no number goes to Trouble, the first one stays.
struct DxfFields {
  const DxfFile &File;
  const DxfEntity &Entity;
  std::string &Trouble;
};
const DxfGroup *FindGroup(const DxfFields &, int code); // the first of that code, null when there is none
double RealOf(const DxfFields &, const DxfGroup &);
double Real(const DxfFields &, int code); // 0 and a trouble when it is missing
double Real(const DxfFields &, int code, double otherwise);
int Whole(const DxfFields &, int code, int otherwise);
