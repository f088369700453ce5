#pragma once
#include "shell/workbench.h"

// The Dimensions dialog. Its fields are filled from the working copy, which starts from the built-in values.
void LoadDimensions(Workbench &);                      // built-in values, both ends exposed
void PrefillDimensions(Workbench &, const GrainDoc &); // the copy and the fields from these values
bool AskDimensions(Workbench &);  // shown modally; true: accepted, the document holds the values
void MenuDimensions(Workbench &); // mnuDims: with scaling of the core
void DimensionsEvent(Workbench &, const Event &);

// Every coordinate and radius of every entity times the factor, about the origin. Slopes are made anew.
// False: a number would be past all bounds; the table stays.
bool ScaleEntities(EntityTable &, double factor);

// The intro page: shown unless IntroFile.txt in AppDir says otherwise.
bool IntroWanted(const Workbench &);
void ShowIntro(Workbench &);
void IntroEvent(Workbench &, const Event &);

void ShowAbout(Workbench &);
