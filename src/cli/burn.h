#pragma once
#include <string>

struct BurnArguments {
  std::string File, Ends, WorkDir, Table, Svg, Png;
  double Diameter = 0, Length = 0, Throat = 0, Step = 0;
  bool HasDiameter = false, HasLength = false, HasThroat = false, HasEnds = false, HasStep = false,
       Json = false;
};

// Burns one grain file and leaves the report on standard output. Exit code.
int BurnCommand(const BurnArguments &);
