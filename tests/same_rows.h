#pragma once
#include "shell/grain_document.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

inline std::vector<Entity> RowsOf(const EntityTable &table) {
  return {table.Row.begin(), table.Row.begin() + table.EntCount + 1};
}

// Whichever way round a line is told.
inline bool SameShape(const Entity &a, const Entity &b, double near) {
  const auto close = [&](double x, double y) { return std::abs(x - y) <= near; };
  const auto at = [&](double x, double y, double u, double v) { return close(x, u) && close(y, v); };
  const auto turned = [&](double x, double y) { return close(std::remainder(x - y, TwoPi), 0); };
  if (a.EntType != b.EntType) return false;
  if (a.EntType == LineType)
    return (at(a.X1, a.Y1, b.X1, b.Y1) && at(a.X2, a.Y2, b.X2, b.Y2)) ||
           (at(a.X1, a.Y1, b.X2, b.Y2) && at(a.X2, a.Y2, b.X1, b.Y1));
  return at(a.CenterX, a.CenterY, b.CenterX, b.CenterY) && close(a.Radius, b.Radius) &&
         (a.EntType == CircleType || (turned(a.StartAngle, b.StartAngle) && turned(a.EndAngle, b.EndAngle)));
}

inline std::string ShapeWords(const Entity &e) {
  return e.EntType == LineType
             ? testing::PrintToString(std::array{e.X1, e.Y1, e.X2, e.Y2})
             : testing::PrintToString(std::array{e.CenterX, e.CenterY, e.Radius, e.StartAngle, e.EndAngle});
}

// As sets: what one has and the other lacks is told. near: mm and radians.
inline void ExpectSameRows(const std::vector<Entity> &got, std::vector<Entity> wanted, double near = 1e-6) {
  for (const Entity &e : got) {
    const auto same =
        std::find_if(wanted.begin(), wanted.end(), [&](const Entity &w) { return SameShape(e, w, near); });
    if (same == wanted.end())
      ADD_FAILURE() << "not wanted: " << ShapeWords(e);
    else
      wanted.erase(same);
  }
  for (const Entity &e : wanted) ADD_FAILURE() << "missing: " << ShapeWords(e);
}
