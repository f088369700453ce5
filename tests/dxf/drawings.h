#pragma once
#include "dxf/dxf_import.h"

#include <gtest/gtest.h>

#include <string>

// A drawing of a few entities: each "TYPE code value code value ...", parted by blanks.
inline std::string Pairs(std::string text) {
  for (char &c : text)
    if (c == ' ') c = '\n';
  return text + "\n";
}
inline std::string Drawing(const std::string &entities, const std::string &before = "") {
  return Pairs(before.empty() ? "0 SECTION 2 ENTITIES" : before + " 0 SECTION 2 ENTITIES") +
         (entities.empty() ? "" : Pairs(entities)) + Pairs("0 ENDSEC 0 EOF");
}

struct Imported {
  Design Made;
  DxfImportReport Report;
  bool TooMany = false;
  std::string Trouble;
  std::string Words() const {
    std::string all;
    for (const std::string &line : Report.Words) all += line + "\n";
    return all;
  }
  const Entity &Row(int i) const { return RowAt(Made.Table, i); }
};
inline Imported ImportText(const std::string &bytes, const DxfImportOptions &wish = {}) {
  Imported in;
  in.Trouble = ImportDxf(bytes, "x.dxf", wish, in.Made, in.Report, in.TooMany);
  return in;
}
