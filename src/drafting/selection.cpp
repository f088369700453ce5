#include "drafting/selection.h"

bool StartErase(Drafting &) { return {}; }
bool StartSelection(Drafting &) { return {}; }
void ClickErase(Drafting &, Point) {}
void ClickSelection(Drafting &, Point) {}
void EnterDelete(Drafting &) {}
void BackSelection(Drafting &) {}
const char *StemSelection(const Drafting &) { return nullptr; }
bool SelectionClick(Drafting &, Point) { return {}; }
bool Selecting(const Drafting &) { return {}; }
int CountSelected(const EntityTable &) { return {}; }
bool InWindow(const Entity &, const SelectionValues &) { return {}; }
void MarkWindow(Drafting &, Point, Point) {}
void DeleteSelected(Drafting &) {}
void IdlePress(Drafting &, Point) {}
void IdleMove(Drafting &, Point) {}
void IdleRelease(Drafting &, Point) {}
std::span<const ButtonRow> SelectionButtons() { return {}; }
void RefreshSelection(Drafting &) {}
