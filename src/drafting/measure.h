#pragma once
#include "drafting/command_table.h"

// Commands 90..95: boxes that report on the drawing; nothing is changed and no snapshot taken.

Box VerifyAttributes(
    const Entity &); // type, ends, length, direction, centre, radius, angles, sweep; "Verify Attributes"

void ClickVerify(Drafting &, Point);      // 90
void CommitVerifyPos(Drafting &);         // 91
void CommitVerifyDist(Drafting &);        // 92
void ClickVerifyAngle(Drafting &, Point); // 93
void EnterVerify(Drafting &);             // 94, 95
const char *StemVerifyAngle(const Drafting &);
