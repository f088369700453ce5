#include "drafting/cutting.h"

bool StartFillet(Drafting &) { return {}; }
bool StartChamfer(Drafting &) { return {}; }
void ClickTangentPoint(Drafting &, Point) {}
void ClickTwo(Drafting &, Point) {}
void ClickThreeLines(Drafting &, Point) {}
void ClickTrim(Drafting &, Point) {}
void ClickMulti(Drafting &, Point) {}
void ClickSection(Drafting &, Point) {}
void BackPicks(Drafting &) {}
void BackFillet(Drafting &) {}
void TypedTangentRadius(Drafting &, double) {}
const char *StemPicks(const Drafting &) { return nullptr; }
void PreviewSection(Drafting &, Point) {}
