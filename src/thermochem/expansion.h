#pragma once
#include "thermochem/pep_run.h"

#include <vector>

// One row per whole area ratio from 1 to 100, from the case's isentrope and throat; rows that the isentrope
// does not reach do not stand.
std::vector<ExpansionRow> ExpansionTable(const PepCase &, PepMode, double weight);
