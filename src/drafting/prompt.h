#pragma once
#include "drafting/drafting.h"

#include <string>

std::string PromptText(const Drafting &); // stem, " / ", suffix by RefType; empty when idle
void SetPrompt(Drafting &);               // into UserPrompt
