#pragma once
#include "shell/workbench.h"

// What the search's panel asks for.

constexpr int SearchRules = 3;

const std::vector<std::string> &SearchFigures();                     // to choose from: "Neutrality, %"
std::string FigureTold(const std::string &key, double value);        // "94.3 %"
std::string FigureTold(const SearchTrial &, const std::string &key); // "-" when it has none
std::string FigureName(const std::string &key);

// The search and the rows that it varies. Else the trouble, by the field's name, and the field.
std::string ReadSearch(const Workbench &, Search &, std::vector<int> &rows, Ctl &field);
