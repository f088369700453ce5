#pragma once
#include "shell/grain_document.h"

#include <algorithm>
#include <array>
#include <cmath>

// A few disjoint, ascending stretches of one parameter; what a stretch loses or keeps is worked out on these.
struct Ranges {
  std::array<double, 12> From, To;
  int Count = 0;
};

inline Ranges OneRange(double from, double to) {
  Ranges r;
  if (from < to) r.From[0] = from, r.To[0] = to, r.Count = 1;
  return r;
}

inline void AddRange(Ranges &r, double from, double to) {
  if (from < to && r.Count < static_cast<int>(r.From.size())) {
    r.From[r.Count] = from;
    r.To[r.Count++] = to;
  }
}

inline void Keep(Ranges &r, double from, double to) {
  Ranges out;
  for (int i = 0; i < r.Count; ++i) AddRange(out, std::max(r.From[i], from), std::min(r.To[i], to));
  r = out;
}

inline void Remove(Ranges &r, double from, double to) {
  if (!(from < to)) return;
  Ranges out;
  for (int i = 0; i < r.Count; ++i) {
    AddRange(out, r.From[i], std::min(r.To[i], from));
    AddRange(out, std::max(r.From[i], to), r.To[i]);
  }
  r = out;
}

// Angles: the parts within half of the direction at, whatever the turn.
inline void KeepAround(Ranges &r, double at, double half) {
  if (half >= TwoPi / 2 || r.Count == 0) return;
  Ranges out;
  if (half > 0) {
    const double first = r.From[0], last = r.To[r.Count - 1];
    double middle = at - TwoPi * std::floor((at + half - first) / TwoPi); // the first whose end is past first
    for (; middle - half < last; middle += TwoPi)
      for (int i = 0; i < r.Count; ++i)
        AddRange(out, std::max(r.From[i], middle - half), std::min(r.To[i], middle + half));
  }
  r = out;
}

inline void RemoveAround(Ranges &r, double at, double half) {
  if (half <= 0 || r.Count == 0) return;
  if (half >= TwoPi / 2) {
    r.Count = 0;
    return;
  }
  KeepAround(r, at + TwoPi / 2, TwoPi / 2 - half);
}
