#pragma once
#include "geometry/diagnose.h"
#include "platform/screen.h"

#include <optional>

struct Workbench;

// What is amiss with the drawing: its line of words, the marks on the drawing, and the way to each place.
struct DiagnosisView {
  struct State {
    unsigned Changes = 0;
    int EntCount = -1;
    double JoinTolerance = 0;
    float GrainRadius = 0;
    bool operator==(const State &) const = default;
  };
  std::optional<State> Of;    // what Found was found in
  std::optional<State> Asked; // the newest diagnosis asked for
  Diagnosis Found;
  Solution Closing;            // what Close_Gaps would do
  std::vector<DrawItem> Fault; // of Found; a ring's and a cross's size in pixels
  std::vector<DrawItem> Shown; // on the drawing: Fault when last idle
  std::vector<DrawItem> Drawn; // Shown as it stands in the panel, mm
  std::size_t Next = 0;        // the place that Diagnosis_Next shows
};

// Diagnosed anew only when the drawing has changed, on a copy, beside the work. While a tool runs no new
// marks appear, only the words follow; marks of what was mended go at once.
void RefreshDiagnosis(Workbench &);
void DrawFaults(Workbench &); // into the panel's items, after those of the drawing; once
void ShowNextFault(Workbench &);
void ApplyCloseGaps(Workbench &); // leaves the running tool
