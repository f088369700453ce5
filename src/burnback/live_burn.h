#pragma once
#include "burnback/burn_run.h"
#include "shell/grain_document.h"

#include <string>

// A burn of the drawing at hand, by value: it may run in another thread than the design's.
struct LiveRequest {
  unsigned Number = 0;
  Design Grain;
};
struct LiveResult {
  unsigned Number = 0; // of its request
  bool Burnt = false;
  BurnRun Run;         // when burnt
  bool Open = false;   // else: the outline is not closed
  std::string Trouble; // else: why not, in the system's words
};

// The run with the default step; neither work files nor a screen nor anything outside the request is touched.
LiveResult BurnLive(const LiveRequest &);

// What makes two designs burn the same way: dimensions, tolerance, and the geometry of the rows.
bool SameBurn(const Design &, const Design &);
