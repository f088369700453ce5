#pragma once
#include "burnback/live_burn.h"
#include "macros/play.h"
#include "macros/record.h"
#include "macros/search.h"
#include "macros/template_design.h"
#include "macros/templates.h"
#include "platform/controls.h"

#include <array>
#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

constexpr int TemplateRows = 10; // of VariableNameForm and TemplateForm: those of VariableTable

// A template drawn and burnt by value, in another thread if the screen has one.
struct TemplateTrial {
  unsigned Number = 0;  // of its request; 0: not worked out
  TemplateResult Drawn; // its Trouble empty: Grain holds the drawing
  Design Grain;
  LiveResult Burnt;
};

// What stands in the rows of TemplateForm.
struct TemplateAnswers {
  std::array<std::string, TemplateRows> Answer; // a number or a formula
  std::array<bool, TemplateRows> Touched{};     // by the user
  bool operator==(const TemplateAnswers &) const = default;
};

// What a search tells while it is at work, in another thread if the screen has one.
struct SearchNews {
  std::atomic<bool> Stop = false; // asked for
  std::mutex Lock;                // of the rest
  SearchTrial Best;
  std::size_t Trials = 0, Better = 0; // how many of them were better than all before
  double Seconds = 0;
};

// The search for the best values of TemplateForm.
struct TemplateSeeking {
  bool Open = false;                       // its panel
  std::array<bool, TemplateRows> Ranged{}; // the range is the user's
  std::shared_ptr<SearchNews> Running;     // null: none is at work
  std::shared_ptr<const Search> Asked;
  std::vector<int> Row;        // that vary
  std::size_t Shown = 0;       // the better trial whose values stand in the rows
  TemplateAnswers From, Found; // From: what the search puts the values of those rows into
  TemplateAnswers Before;      // to go back to
  bool HasBefore = false;
};

// What TemplateForm was opened with, holds and shows.
struct TemplateAsking {
  bool Prompts = false; // prompts are typed for a new template, else values are asked for
  std::string Name;
  MacFile Mac;
  GrainDoc Doc;                           // with the dimensions of the first two rows
  std::vector<TemplateVariable> Variable; // at that diameter
  TemplateAnswers Given;
  int Changed = -1;     // the row changed last
  int AtFault = -1;     // the row that Trouble is about
  std::string Trouble;  // why the values cannot be drawn; empty: they can
  VariableTable Values; // of the answers, when there is no trouble with them
  bool Accepted = false;

  unsigned Number = 0; // of the newest trial; results of others are stale
  bool UnderWay = false, Shown = false;
  std::shared_ptr<TemplatePlayer> Player; // of the trials, one after another
  Design Grain;                           // the last good one
  BurnRun Run;                            // its burn; StepCount 0: it does not burn
  std::vector<float> Before;              // the curve of the values offered, or of those a search began with
  TemplateSeeking Seek;
};

// Templates: the one being recorded, asked about or played, and the list to choose from.
struct TemplateState {
  TemplateFolders Folders;
  std::vector<TemplateEntry> Entry; // of Grain_Selection_Window

  TemplateRecording Record;
  VariableTable Named; // of the recording about to begin
  bool NamesAccepted = false;
  bool ByMouse = false, WayAccepted = false; // MacroParams
  Ctl Field = Ctl::Count;                    // where VariableList2 inserts

  TemplateAsking Ask;
  TemplatePlay Play; // step by step, when it is running between two events
  std::string PlayName;
  VariableTable PlayValues;
  GrainDoc Before; // of the design, when the play began
  bool Paused = false;

  std::string UsedName; // the template the design was made from; empty: none
  VariableTable UsedValues;
};
