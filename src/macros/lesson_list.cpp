#include "macros/lesson_list.h"

#include "base/whole_file.h"

#include <algorithm>

namespace {
int FreeIndex(const std::vector<Lesson> &list, int wanted) {
  const auto taken = [&](int index) {
    return std::any_of(list.begin(), list.end(), [&](const Lesson &l) { return l.Index == index; });
  };
  while (taken(wanted)) ++wanted;
  return wanted;
}

// False: nothing was to be changed.
bool Merge(std::vector<Lesson> &own, const std::vector<Lesson> &shipped) {
  bool changed = false;
  for (const Lesson &lesson : shipped) {
    const auto same =
        std::find_if(own.begin(), own.end(), [&](const Lesson &l) { return l.Name == lesson.Name; });
    if (same == own.end()) {
      own.push_back(lesson);
      own.back().Index = FreeIndex({own.begin(), own.end() - 1}, lesson.Index);
      changed = true;
    } else if (same->Index == lesson.Index && TutorText({*same}) != TutorText({lesson})) {
      *same = lesson;
      changed = true;
    }
  }
  return changed;
}
} // namespace

std::string SetUpLessons(const std::string &user, const std::string &shipped, std::vector<Lesson> &list) {
  std::vector<Lesson> own, theirs;
  const bool there = FileExists(user), ship = FileExists(shipped);
  if (there || !ship)
    if (std::string trouble = ReadTutorFile(user, own); !trouble.empty()) return trouble;
  if (ship)
    if (std::string trouble = ReadTutorFile(shipped, theirs); !trouble.empty()) return trouble;
  const bool changed = Merge(own, theirs);
  list = own;
  std::stable_sort(list.begin(), list.end(), [](const Lesson &a, const Lesson &b) {
    return a.Level != b.Level ? a.Level < b.Level : a.Index < b.Index;
  });
  return changed ? WriteTutorFile(user, own) : std::string();
}
