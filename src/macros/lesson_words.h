#pragma once
#include "macros/tutor_file.h"
#include "macros/variable_table.h"

#include <span>
#include <string>

// What a lesson says. Inputs come in groups: one of the user's, and the answers to what it asks.

std::size_t GroupEnd(std::span<const LessonStep>, std::size_t first); // behind the last of its group

int ToolBefore(std::span<const LessonStep>, std::size_t next); // the command that runs then, 0 for none

bool IsLessonTool(int kind); // a command, or rotation draw: numbers that follow are for it

// What is asked for: the author's words of the group, else words of our own by its kind and values. lastTool:
// the command that runs, 0 for none.
std::string LessonMessage(std::span<const LessonStep> group, int lastTool);

// Compares what the user did with one instruction of the group. Positions may lie apart by its tolerance, a
// picked row's by five times that; numbers agree to 4 decimals or a millionth. Empty: it fits. Else what was
// wrong, and after a line end what was expected. radius: of the grain, mm. variables: of the template that is
// recorded in the lesson; formulas of them fit when they agree whatever the variables are.
std::string LessonObjection(const LessonStep &expected, const Instruction &got, int lastTool, double radius,
                            const VariableTable &variables = {});
std::string MissingInput(const LessonStep &expected, int lastTool);
