#pragma once
#include "drafting/command_table.h"

// Lines, circles, arcs, boxes and polygons. Click and Commit are called by the machine with the command
// running.

bool StartParallel(Drafting &);     // 4
bool StartCircleRadius(Drafting &); // 20, 21
bool StartArcRadius(Drafting &);    // 30, 31
bool StartArcAngles(Drafting &);    // 32
bool StartArcAngle(Drafting &);     // 33
bool StartBox(Drafting &);          // 51
bool StartPolygon(Drafting &);      // 53

void ClickLineAngle(Drafting &, Point);
void ClickParallel(Drafting &, Point); // 4, 5
void ClickPerpendicular(Drafting &, Point);
void ClickSegments(Drafting &, Point);

void CommitLine(Drafting &);  // 1, 2, 7, 8, 9
void CommitRound(Drafting &); // 20..24, 30..34
void CommitBox(Drafting &);   // 51, 52
void CommitPolygon(Drafting &);

void BackParallel(Drafting &);
void BackLineAngle(Drafting &); // 3, 5, 6
void BackBox(Drafting &);
void BackPolygon(Drafting &);

void TypedDiameter(Drafting &, double);  // 24
void TypedArcRadius(Drafting &, double); // 30

const char *StemLineFirst(const Drafting &);   // 3, 4, 5, 6
const char *StemThreePoints(const Drafting &); // 23, 34
const char *StemPolygon(const Drafting &);

std::span<const ButtonRow> CreationButtons(); // the box and polygon frames
void CreationText(Drafting &, const Event &); // BoxWidth .. PolyRotate
void RefreshCreation(Drafting &);
