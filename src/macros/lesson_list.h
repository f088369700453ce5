#pragma once
#include "macros/tutor_file.h"

// The lessons of the user's file together with the shipped ones: one of theirs is brought up to date, one
// that is missing is added, at an index of its own if the user's has it; lessons are the same when their
// names are. By level, then index. What changed is written. The trouble ("Can't Find Tutor File" when there
// is neither file), or empty.
std::string SetUpLessons(const std::string &user, const std::string &shipped, std::vector<Lesson> &);
