#include "macros/tutor_file.h"

#include "base/whole_file.h"
#include "macros/reading_parts.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr std::string_view Heading = "Next Macro";
constexpr int LessonEnd = 999, FieldsOfStep = 11;

// The order of the buffer is its own.
void PutBuffered(RecordWriter &w, const Entity &e) {
  Put(w, e.EndAngle);
  Put(w, e.EntType);
  Put(w, e.Selected);
  for (const double v :
       {e.Intercept, e.Radius, e.Slope, e.StartAngle, e.X1, e.X2, e.CenterX, e.Y1, e.Y2, e.CenterY})
    Put(w, v);
  EndRecord(w);
}

bool GetBuffered(Reading &in, Entity &e) {
  if (!Get(in, e.EndAngle, "EndAngle") || !Get(in, e.EntType, "EntType")) return false;
  if (e.EntType != LineType && e.EntType != CircleType && e.EntType != ArcType)
    return Refuse(in, "EntType",
                  "expected 1 (line), 2 (circle) or 4 (arc), found \"" + std::to_string(e.EntType) + "\"");
  if (!Get(in, e.Selected, "Selected") || !Get(in, e.Intercept, "Intercept") || !Get(in, e.Radius, "Radius"))
    return false;
  if (e.EntType != LineType && e.Radius < 0) return Refuse(in, "Radius", "expected a number not below 0");
  return Get(in, e.Slope, "Slope") && Get(in, e.StartAngle, "StartAngle") && Get(in, e.X1, "X1") &&
         Get(in, e.X2, "X2") && Get(in, e.CenterX, "CenterX") && Get(in, e.Y1, "Y1") && Get(in, e.Y2, "Y2") &&
         Get(in, e.CenterY, "CenterY");
}

void PutSnapshot(RecordWriter &w, const std::vector<Entity> &rows) {
  Put(w, static_cast<int>(rows.size()) - 1);
  EndRecord(w);
  for (const Entity &e : rows) PutBuffered(w, e);
}

bool GetSnapshot(Reading &in, int entCount, std::vector<std::vector<Entity>> &to) {
  std::vector<Entity> rows;
  for (int i = 0; i <= entCount; ++i)
    if (!GetBuffered(in, rows.emplace_back())) return false;
  if (!rows.empty()) to.push_back(std::move(rows));
  return true;
}

void PutStep(RecordWriter &w, int index, const LessonStep &step) {
  const Instruction &i = step.Expected;
  Put(w, index);
  Put(w, std::string_view(Plain(step.Message)));
  Put(w, std::string_view(Plain(step.Special)));
  for (const double v : {i.Value1, i.Value2, i.Value3, step.Tolerance}) Put(w, v);
  Put(w, std::string_view(Plain(i.Value4)));
  for (const int v : {i.PointArea, i.PlotType, i.SelectionType}) Put(w, v);
  EndRecord(w);
}

void PutLesson(RecordWriter &w, const Lesson &lesson) {
  const std::string name = Plain(lesson.Name);
  for (const std::string_view text : {Heading, std::string_view(name)}) {
    Put(w, text);
    EndRecord(w);
  }
  for (const int v : {lesson.Index, lesson.Level, static_cast<int>(lesson.Start.size())}) {
    Put(w, v);
    EndRecord(w);
  }
  for (const Entity &e : lesson.Start) PutEntity(w, e);
  for (std::size_t i = 0; i < lesson.Step.size(); ++i) PutStep(w, static_cast<int>(i), lesson.Step[i]);
  for (const std::vector<Entity> &rows : lesson.Shown) PutSnapshot(w, rows);
  if (lesson.Shown.empty()) PutSnapshot(w, {});
  Put(w, LessonEnd);
  EndRecord(w);
}

bool GetStep(Reading &in, LessonStep &step) {
  Instruction &i = step.Expected;
  int index = 0;
  if (!Get(in, index, "index") || !Get(in, step.Message, "message") ||
      !Get(in, step.Special, "special message") || !Get(in, i.Value1, "Value1") ||
      !Get(in, i.Value2, "Value2") || !Get(in, i.Value3, "Value3") || !Get(in, step.Tolerance, "tolerance"))
    return false;
  if (step.Tolerance < 0) return Refuse(in, "tolerance", "expected a number not below 0");
  return Get(in, i.Value4, "Value4") && Get16(in, i.PointArea, "PointArea") &&
         Get16(in, i.PlotType, "PlotType") && Get16(in, i.SelectionType, "SelectionType");
}

// Behind its heading, to its end.
bool GetLesson(Reading &in, Lesson &lesson) {
  int count = 0;
  if (!Get(in, lesson.Name, "name") || !Get(in, lesson.Index, "index") ||
      !GetBetween(in, lesson.Level, 1, 3, "level") || !GetBetween(in, count, 0, MostEntities, "entity count"))
    return false;
  for (int i = 0; i < count; ++i)
    if (!GetEntity(in, lesson.Start)) return false;
  while (FieldsInRecord(in.R) == FieldsOfStep)
    if (!GetStep(in, lesson.Step.emplace_back())) return false;
  for (;;) { // a record of one number: a drawing, or the end
    int number = 0;
    if (!Get(in, number, "EntCount")) return false;
    if (number == LessonEnd) return true;
    if (number < -1 || number >= MostEntities)
      return Refuse(in, "EntCount",
                    "expected a whole number from -1 to 300, or 999 at the end, found \"" +
                        std::to_string(number) + "\"");
    if (!GetSnapshot(in, number, lesson.Shown)) return false;
  }
}

std::string NotFinite(const Lesson &lesson) {
  for (std::size_t i = 0; i < lesson.Step.size(); ++i) {
    const LessonStep &step = lesson.Step[i];
    for (const double v : {step.Expected.Value1, step.Expected.Value2, step.Expected.Value3, step.Tolerance})
      if (!std::isfinite(v)) return "a value of instruction " + std::to_string(i);
  }
  std::vector<std::vector<Entity>> drawn = lesson.Shown;
  drawn.push_back(lesson.Start);
  for (const std::vector<Entity> &rows : drawn)
    for (const Entity &e : rows)
      if (const std::string field = NotFiniteField(e); !field.empty()) return field + " of an entity";
  return {};
}

std::string Broken(const std::string &trouble) {
  return "Unfortunately an Error was encounted reading the Tutor file\n" + trouble;
}
} // namespace

std::string TutorText(const std::vector<Lesson> &lessons) {
  RecordWriter w;
  for (const Lesson &lesson : lessons) PutLesson(w, lesson);
  return std::move(w.Bytes);
}

std::string ParseTutor(std::string_view bytes, const std::string &name, std::vector<Lesson> &lessons) {
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  Reading in{RecordReader{WithoutBlankEnd(bytes)}, name};
  std::vector<Lesson> read;
  while (!AtEnd(in.R)) {
    const int fields = FieldsInRecord(in.R); // what is no heading stands between two lessons
    std::string text;
    for (int i = 0; i < fields; ++i)
      if (!Get(in, text, "")) return Broken(in.Trouble);
    if (fields != 1 || text != Heading) continue;
    if (!GetLesson(in, read.emplace_back())) return Broken(in.Trouble);
  }
  lessons = std::move(read);
  return {};
}

std::string ReadTutorFile(const std::string &path, std::vector<Lesson> &lessons) {
  if (!FileExists(path)) return "Can't Find Tutor File\n" + path + ": there is no such file";
  std::string bytes;
  if (const std::string trouble = ReadWhole(path, bytes); !trouble.empty()) return Broken(trouble);
  return ParseTutor(bytes, path, lessons);
}

std::string WriteTutorFile(const std::string &path, const std::vector<Lesson> &lessons) {
  for (const Lesson &lesson : lessons)
    if (const std::string what = NotFinite(lesson); !what.empty())
      return path + ": cannot be written: " + what + " of \"" + lesson.Name + "\" is not a finite number";
  return WriteWhole(path, TutorText(lessons));
}

std::string AddLesson(const std::string &path, const Lesson &lesson) {
  std::vector<Lesson> lessons;
  if (FileExists(path))
    if (std::string trouble = ReadTutorFile(path, lessons); !trouble.empty()) return trouble;
  const Lesson *other = nullptr;
  if (FindLesson(lessons, lesson.Index, other).empty())
    return "The index " + std::to_string(lesson.Index) + " is that of \"" + other->Name + "\"";
  lessons.push_back(lesson);
  return WriteTutorFile(path, lessons);
}

std::string FindLesson(const std::vector<Lesson> &lessons, int index, const Lesson *&found) {
  const auto at =
      std::find_if(lessons.begin(), lessons.end(), [&](const Lesson &l) { return l.Index == index; });
  if (at == lessons.end()) return "Error: Can't Find Macro";
  found = &*at;
  return {};
}

std::string AppendTutorBuffer(const std::string &path, const std::vector<Entity> &rows) {
  std::string bytes;
  if (FileExists(path))
    if (std::string trouble = ReadWhole(path, bytes); !trouble.empty()) return trouble;
  RecordWriter w;
  PutSnapshot(w, rows);
  return WriteWhole(path, bytes + w.Bytes);
}

std::string ReadTutorBuffer(const std::string &path, std::vector<std::vector<Entity>> &to) {
  if (!FileExists(path)) return {};
  std::string bytes;
  if (std::string trouble = ReadWhole(path, bytes); !trouble.empty()) return trouble;
  Reading in{RecordReader{WithoutBlankEnd(bytes)}, path};
  std::vector<std::vector<Entity>> read;
  for (int entCount = 0; !AtEnd(in.R);)
    if (!GetBetween(in, entCount, -1, MostEntities - 1, "EntCount") || !GetSnapshot(in, entCount, read))
      return in.Trouble;
  to = std::move(read);
  return {};
}
