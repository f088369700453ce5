#pragma once
#include <string>
#include <string_view>
#include <vector>

// A curve that somebody measured: X is time in s or burn distance in mm, rising.
struct MeasuredCurve {
  std::vector<double> X, Value;
};

// Two columns parted by comma, semicolon or tab, a point in each line; behind semicolons and tabs numbers may
// have a decimal comma. The first line may name the columns; blank lines and lines that begin with # are
// passed over. The trouble names file and line, or is empty; the curve is replaced on success only.
std::string ReadMeasured(std::string_view text, const std::string &path, MeasuredCurve &);
