#pragma once
#include "thermochem/solver.h"

// One Newton step of all formation reactions together that hold a weighty part of the moles, shortened so
// that nothing falls below zero. It carries passes over valleys in which two reactions hold each other up.
// Calls for LogK, a settled basis and LogScale as ln(P/N). False: no step was possible, nothing changed.
bool JointStep(Solver &);
