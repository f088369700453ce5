#include "drafting/creation.h"

bool StartParallel(Drafting &) { return {}; }
bool StartCircleRadius(Drafting &) { return {}; }
bool StartArcRadius(Drafting &) { return {}; }
bool StartArcAngles(Drafting &) { return {}; }
bool StartArcAngle(Drafting &) { return {}; }
bool StartBox(Drafting &) { return {}; }
bool StartPolygon(Drafting &) { return {}; }
void ClickLineAngle(Drafting &, Point) {}
void ClickParallel(Drafting &, Point) {}
void ClickPerpendicular(Drafting &, Point) {}
void ClickSegments(Drafting &, Point) {}
void CommitLine(Drafting &) {}
void CommitStraightLine(Drafting &) {}
void CommitCircle(Drafting &) {}
void CommitArc(Drafting &) {}
void CommitBox(Drafting &) {}
void CommitPolygon(Drafting &) {}
void BackParallel(Drafting &) {}
void BackLineAngle(Drafting &) {}
void BackBox(Drafting &) {}
void BackPolygon(Drafting &) {}
void TypedDiameter(Drafting &, double) {}
void TypedArcRadius(Drafting &, double) {}
const char *StemLineFirst(const Drafting &) { return nullptr; }
const char *StemThreePoints(const Drafting &) { return nullptr; }
const char *StemPolygon(const Drafting &) { return nullptr; }
std::span<const ButtonRow> CreationButtons() { return {}; }
void CreationText(Drafting &, const Event &) {}
void RefreshCreation(Drafting &) {}
