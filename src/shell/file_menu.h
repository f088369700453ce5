#pragma once
#include "shell/workbench.h"

#include <string>

// The entries of the File menu. Each asks what it must; a refused or failed one leaves the open design as it
// was.
void NewGrain(Workbench &);
void OpenGrain(Workbench &);   // asks for the file
bool SaveGrain(Workbench &);   // false: not saved
bool SaveGrainAs(Workbench &); // asks for the file; false: not saved
void OpenRecent(Workbench &, std::size_t entry);
void OpenDropped(Workbench &, const std::string &path);
void OpenRecoveredCopy(Workbench &);
void OpenExample(Workbench &); // a shipped design, as an unnamed one
void DiscardRecovered(Workbench &);

// Reads the file into the open design without a question. False: a box has told why not, all is as before.
bool ReadIntoDesign(Workbench &, const std::string &path);

// "Save Current Geometry First?" when something would be lost. False: called off.
bool SaveFirst(Workbench &);

std::string ExamplePath(const WorkFolders &); // of the shipped design shown first; empty: none is installed
void KeepRecent(Workbench &, const std::string &path);
