#pragma once
#include "drafting/command_table.h"

// Commands 90..95: boxes that report on the drawing; nothing is changed and no snapshot taken.

// Type, ends, length, direction, centre, radius, angles and sweep, each on a line of its own: mm, degrees.
Box VerifyAttributes(const Entity &);

void ClickVerify(Drafting &, Point);       // 90
void CommitVerifyPos(Drafting &);          // 91
void CommitVerifyDist(Drafting &);         // 92
void ClickVerifyAngle(Drafting &, Point);  // 93
void VerifySelected(Drafting &, int kind); // 94, 95: the selection is complete; logged as kind
const char *StemVerifyAngle(const Drafting &);
