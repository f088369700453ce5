#pragma once
#include "thermochem/elements.h"
#include "thermochem/pep_run.h"

// The chosen ingredients and the elements they bring. False: `trouble` says why there is nothing to compute
// (nothing chosen, weights not above zero or not finite, more than 12 elements, an unknown element).
bool ReadIngredients(const PepInputs &, const DataFiles &, IngredientTable &, ElementTable &,
                     std::vector<std::string> &messages, std::string &trouble);

// The species that can form from the elements. An element that none holds is told in `messages`; false and
// `trouble` past the limit of 400.
bool LoadSpecies(const DataFiles &, const ElementTable &, SpeciesTable &, std::vector<std::string> &messages,
                 std::string &trouble);

// Gram atoms into `elements`, weight, density and enthalpy at a propellant temperature in degrees Celsius.
Mix ComposeMix(const IngredientTable &, ElementTable &elements, double celsius);
