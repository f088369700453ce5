#pragma once
#include "shell/workbench.h"

// The rows and boxes of PEP_SimA.

constexpr std::size_t PepRows = MaxIngredients;
Ctl IngredientInput(std::size_t row); // rows from 0
Ctl IngredientNote(std::size_t row);
Ctl WeightInput(std::size_t row);
std::optional<std::size_t> RowOfIngredient(Ctl);
std::optional<std::size_t> RowOfWeight(Ctl);

// The ingredient is the one of exactly this name; what else the text may mean becomes the row's list:
// "NAME<tab>formula and heat".
void TypeIngredient(Workbench &, std::size_t row, const std::string &text);
void ChooseIngredient(Workbench &, std::size_t row, const std::string &name);
void ChooseLikeliest(Workbench &, std::size_t row); // of what was typed

void TotalWeights(Workbench &); // Total_Weights: the sum of all ten rows
void MakeHundred(Workbench &);  // all weights in proportion, so that they add up to 100
void ClearMix(Workbench &);

void ReadPepInputs(Workbench &);        // into Thermo::Inputs and Objection
bool RunIsStale(const Workbench &);     // the inputs are no longer those of the run
std::string MixText(const Workbench &); // of the run: "AMMONIUM PERCHLORATE 68, ..."

// A whole text as a number; nothing for what is none.
std::optional<double> NumberIn(const std::string &text);
