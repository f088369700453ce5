#pragma once
#include "thermochem/solver.h"

// Order := species by descending Key, ties by the lower index.
void SortByKey(Solver &);

// When BasisStale: one species per element by descending Key, rows that depend on those before it rejected;
// BasisMatrix becomes the inverse, the basis moles close the element balance. False: no basis can be found.
bool PickBasis(Solver &);

// Adds to the basis moles what the element totals lack, by the inverse in BasisMatrix.
void BasisMoles(Solver &);

// ReactionMatrix from BasisMatrix when `matrixToo`, LogK in every case.
void FormReactions(Solver &, double temperature, bool matrixToo);

// Species i takes row e of the basis from species b; the reactions are pivoted.
void SwapBasis(Solver &, double temperature, int b, int i, int e);

// Puts another phase in the place of a condensed basis species that is outside its ranges.
void PurgeBasis(Solver &);

// Closes the element balance by the basis that stands, whatever swaps led to it. False: the basis is
// singular.
bool CloseElements(Solver &);

// Largest relative fault of the element balance: |sum - total| over the largest term.
double ElementFault(const Solver &);
