#pragma once
#include "drafting/drafting.h"

// The numbers of the entity picked while idle, in Property_Frame: shown, typed, entered. mm, degrees. A
// line's length and angle keep its first end, radius and diameter the centre, a sweep and an arc's end its
// start.

bool IsPropertyField(Ctl);
void PropertyText(Drafting &, const Event &); // typed so far: Panel.Overlay shows what it would make
// Enter makes what was typed, in the order of typing, one change; the entity stays picked. What makes no
// entity is told and changes nothing. Escape puts the numbers back; Tab goes to the next field.
void PropertyKey(Drafting &, const Event &);
void RefreshProperties(Drafting &);
// A number of the picked entity as a log has it: the field by its place, from 0; the last one enters them.
// False: there is no such field, or not one entity is picked.
bool PlayProperty(Drafting &, int field, double value, bool last);
