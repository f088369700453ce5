#pragma once
#include "drafting/drafting.h"

// Typing at the pointer: a digit, sign, dot or bracket pressed on DrawPanel while the running command shows
// X_Input goes there, with the keys, and both fields stand beside the pointer (Typing_Card) until they are
// done with. False: the key is none of these, or nothing takes it.
bool TypeAtPointer(Drafting &, const Event &);

// Typing_Card, and as hints of the empty fields what the pointer would give.
void RefreshTyping(Drafting &);
