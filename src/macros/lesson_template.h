#pragma once
#include "drafting/drafting.h"
#include "macros/mac_file.h"
#include "macros/tutor_file.h"

#include <span>
#include <string>

// A template made within a lesson: its recording has no log of its own, its inputs are the lesson's. It
// begins with the press of mnumaketemplate and the variables named, and ends with that of Stop_Macro, the
// name and the prompts; each of the two is one input, logged when its forms are done.

inline constexpr const char *MakePress = "mnumaketemplate", *StopPress = "Stop_Macro";

bool LogsItself(const std::string &control); // one of the two presses

// Logs the press and the variables, which hold from now on; the tools get the program's own values.
void LogTemplateBegin(Drafting &, const VariableTable &named);
void LogTemplateEnd(Drafting &, const std::string &name, const VariableTable &prompts);

// Of such a row when a lesson is drawn: what the press does to the tools, what a variable is.
void DrawTemplateStep(Drafting &, const Instruction &);

// Formulas of typed numbers, by the piece: "" where a number stands.
std::string FormulaOf(const Instruction &, std::size_t which);
// They come to the same whatever the table's variables are; with none named all do.
bool SameFormulas(const Instruction &, const Instruction &, const VariableTable &);
bool SamePrompt(const std::string &, const std::string &); // the same unit and range, and some words

bool InTemplate(std::span<const Instruction>); // the rows end within its recording

// The template recorded last in the rows, its variables and, when it is done, its prompts. Start and finished
// entities are none. `name`, if it is asked for: empty until it is named.
MacFile TemplateOfLesson(std::span<const Instruction>, double diameter, double length,
                         std::string *name = nullptr);
