#pragma once
#include "outputs/picture.h"
#include "shell/workbench.h"

// Asks for a file to save a chart's picture to, as AskTarget does; its ending tells the form. False: called
// off, or told that the ending is none of the forms.
bool AskPicture(Workbench &, const std::string &behind, std::string &path, PictureForm &);
