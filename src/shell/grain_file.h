#pragma once
#include "shell/grain_document.h"

#include <string>
#include <string_view>

enum class GrainForm { File, Work };  // with "Version1_1" (.mvd), or without (TempFile, CurrentWorkFile)

std::string GrainText(const Design &, GrainForm);  // the bytes of the file

// Reads either form and the older one (entity lines only: the document values of `design` stay). On success the
// table, document values and tolerances of `design` are replaced; on failure it is untouched and the text names
// file, line, field and what was expected. `name` stands for the file in that text.
std::string ParseGrain(std::string_view bytes, const std::string &name, Design &design);

std::string ReadGrainFile(const std::string &path, Design &);                // the trouble, or empty
std::string WriteGrainFile(const std::string &path, const Design &);         // atomic
std::string WriteWorkFile(const std::string &path, const Design &);          // atomic; nothing when MacroMode is 2
