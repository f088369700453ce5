#include "drafting/transforms.h"

Entity MovedRow(Entity, double, double) { return {}; }
Entity RotatedRow(Entity, Point, double) { return {}; }
Entity ScaledRow(Entity, Point, double) { return {}; }
Entity MirroredRow(Entity, Point, Point) { return {}; }
Entity StretchedRow(Entity, const SelectionValues &, double, double) { return {}; }
bool StartTransform(Drafting &) { return {}; }
bool StartBoxMove(Drafting &) { return {}; }
void ClickTransform(Drafting &, Point) {}
void ClickBoxMove(Drafting &, Point) {}
void EnterTransform(Drafting &) {}
void BackTransform(Drafting &) {}
void BackBoxMove(Drafting &) {}
void TypedTransform(Drafting &, double) {}
const char *StemTransform(const Drafting &) { return nullptr; }
const char *StemBoxMove(const Drafting &) { return nullptr; }
void PreviewTransform(Drafting &, Point) {}
std::span<const ButtonRow> TransformButtons() { return {}; }
