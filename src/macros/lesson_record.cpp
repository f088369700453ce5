#include "macros/lesson_record.h"

#include "macros/lesson_template.h"

void BeginLessonRecording(LessonRecording &rec, Drafting &d, const Lesson &head) {
  constexpr int recordingMode = 1;
  BeginRecording(rec.Record, d, {}, recordingMode);
  rec.What = {head.Name, head.Index, head.Level, rec.Record.Start, {}, {}};
  rec.Message.clear();
  rec.Special.clear();
  const GrainDoc &doc = d.Grain.Doc;
  Instruction grain;
  grain.PointArea = LessonGrain;
  grain.Value1 = doc.GrainDiam;
  grain.Value2 = static_cast<double>(doc.GrainLength);
  grain.Value3 = static_cast<double>(doc.ThroatDiam);
  grain.SelectionType = doc.EndsExposed;
  LogStep(d.Log, grain);
}

bool LessonRecords(const LessonRecording &rec) { return rec.Record.Running; }

void SayNext(LessonRecording &rec, const Drafting &d, const std::string &message) {
  rec.Message.emplace_back(d.Log.Given, message);
}

void SayBehind(LessonRecording &rec, const Drafting &d, const std::string &message) {
  if (!d.Log.Row.empty()) rec.Special.emplace_back(d.Log.Number.back(), message);
}

void SetTolerance(LessonRecording &rec, const Drafting &d, double mm) {
  rec.Tolerance.emplace_back(d.Log.Given, mm > 0 && mm < 1e6 ? mm : 0);
}

void KeepPress(LessonRecording &, Drafting &d, const std::string &control) {
  if (LogsItself(control)) return;
  Instruction press;
  press.PointArea = LessonPress;
  press.Value4 = control;
  LogStep(d.Log, press);
}

std::vector<Entity> DrawnNow(const Drafting &d) {
  std::vector<Entity> rows(d.Grain.Table.Row.begin(), d.Grain.Table.Row.begin() + d.Grain.Table.EntCount + 1);
  for (Entity &e : rows) e.Selected = false;
  return rows;
}

Lesson RecordedLesson(const LessonRecording &rec, const Drafting &d) {
  Lesson lesson = rec.What;
  for (const Instruction &i : d.Log.Row) {
    LessonStep step;
    step.Expected = i;
    lesson.Step.push_back(std::move(step));
  }
  for (std::size_t i = 0; i < lesson.Step.size(); ++i) {
    for (const auto &[number, text] : rec.Message)
      if (number == d.Log.Number[i]) lesson.Step[i].Message = text;
    for (const auto &[number, text] : rec.Special)
      if (number == d.Log.Number[i]) lesson.Step[i].Special = text;
    for (const auto &[number, mm] : rec.Tolerance)
      if (d.Log.Number[i] >= number) lesson.Step[i].Tolerance = mm;
  }
  if (std::vector<Entity> rows = DrawnNow(d); !rows.empty()) lesson.Shown.push_back(std::move(rows));
  return lesson;
}

void EndLessonRecording(LessonRecording &rec, Drafting &d) { EndRecording(rec.Record, d); }
