// Any events in any order: the program neither falls nor leaves a broken design.
#include "chance.h"
#include "rounds.h"
#include "shell/journey.h"

#include "shell/grain_file.h"

#include <cmath>

namespace {

struct Odds : Chance {
  double Number() {
    static const std::vector<double> odd{0, -1, 1e-300, 1e300, 1e38, 1e9, HUGE_VAL, -HUGE_VAL, std::nan("")};
    return Below(8) ? (Below(20001) - 10000) / 100.0 : Of(odd);
  }
};

// A user without sense: every box, file dialog and window gets some answer.
struct RandomScreen : Screen {
  Odds Luck;
  std::vector<std::string> Files;

  Answer Ask(const Box &box) override {
    switch (box.Offer) {
    case Buttons::Ok: return Answer::Ok;
    case Buttons::OkCancel: return Luck.Below(2) ? Answer::Ok : Answer::Cancel;
    case Buttons::YesNo: return Luck.Below(2) ? Answer::Yes : Answer::No;
    case Buttons::YesNoCancel: return Luck.Of<Answer>({Answer::Yes, Answer::No, Answer::Cancel});
    }
    return Answer::Cancel;
  }
  std::optional<std::string> AskFile(FileUse use, std::string_view, std::string_view) override {
    if (Luck.Below(4) == 0) return std::nullopt;
    if (use == FileUse::Open) return Luck.Of(Files);
    return Files.back() + std::to_string(Luck.Below(3));
  }
  std::optional<std::uint32_t> AskColour(std::uint32_t) override {
    return Luck.Below(2) ? std::optional<std::uint32_t>(Luck.Below(0x1000000)) : std::nullopt;
  }
  void RunModal(Form form) override {
    const Ctl self = WindowOf(form);
    for (int i = 0; i < 30 && (*this)[self].Visible; ++i) OnEvent(Some(RowOf(self).Window));
    (*this)[self].Visible = false;
  }
  void Wait(double) override {}
  bool Progress(double) override { return Luck.Below(50) > 0; }

  Event Some(std::string_view window) {
    Event e;
    do e.Target = static_cast<Ctl>(Luck.Below(static_cast<int>(CtlCount)));
    while (!window.empty() && RowOf(e.Target).Window != window);
    e.What = static_cast<Event::Kind>(Luck.Below(static_cast<int>(Event::Kind::Drop) + 1));
    if (Luck.Below(2)) e.What = Event::Kind::Press;
    if (Luck.Below(3) == 0 && window.empty()) e.Target = Ctl::DrawPanel;
    e.X = Luck.Number();
    e.Y = Luck.Number();
    e.Notches = Luck.Number() / 10;
    e.Button = Luck.Of<int>({0, 1, 2, 4});
    e.KeyCode = Luck.Of<int>({9, 13, 27, 46, 65, 112});
    e.Shift = Luck.Below(8);
    e.Text = e.What == Event::Kind::Drop
                 ? Luck.Of(Files)
                 : Luck.Of<std::string>({"", "12", "-3", "60.5", "1e400", "1e-60", "abc", "1e38"});
    return e;
  }
};

void ExpectSound(const Workbench &bench) {
  const EntityTable &table = bench.Grain.Table;
  ASSERT_TRUE(table.EntCount >= -1 && table.EntCount <= 300);
  for (int i = 0; i <= table.EntCount; ++i) {
    const Entity &e = RowAt(table, i);
    ASSERT_TRUE(e.EntType == LineType || e.EntType == CircleType || e.EntType == ArcType);
    for (const double v : {e.X1, e.Y1, e.X2, e.Y2, e.CenterX, e.CenterY, e.Radius})
      ASSERT_TRUE(std::isfinite(v));
  }
  const DrawSurface &panel = bench.Out.Panel;
  for (const double v : {panel.Left, panel.Top, panel.Width, panel.Height}) ASSERT_TRUE(std::isfinite(v));
  ASSERT_GT(panel.Width, 0);
  ASSERT_LT(panel.Height, 0);
  ASSERT_FALSE(bench.Out[Ctl::Report_Frame].Visible && !bench.Sim.ResultMode); // either pane may be closed
  ASSERT_FALSE(bench.Out[Ctl::Tools_Frame].Visible && bench.Sim.ResultMode);
  ASSERT_FALSE(bench.Running);
}

TEST_F(Journey, RandomEvents) {
  Write("bad.mvd", "\"Version1_1\"\r\n12\r\n");
  std::string grain;
  ASSERT_EQ(ReadWhole(Cases + "d_port.mvd", grain), "");
  Write("cut.mvd", grain.substr(0, grain.size() / 2));
  int results = 0;
  for (int round = 0; round < 6 * Rounds(); ++round) {
    const auto seed = static_cast<unsigned>(Seed()) + static_cast<unsigned>(round);
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomScreen screen;
    screen.Luck.Source.seed(seed);
    // Copies: what is opened is saved again.
    screen.Files = {At("d_port.mvd"), At("circle_centred.mvd"), At("square_port.mvd"), At("bad.mvd"),
                    At("cut.mvd"),    At("none.mvd"),           Home.string(),         At("out.mvd")};
    for (const char *name : {"d_port.mvd", "circle_centred.mvd", "square_port.mvd"})
      std::filesystem::copy_file(Cases + name, At(name), std::filesystem::copy_options::overwrite_existing);
    Workbench bench(screen);
    WorkFolders folders;
    folders.AppDir = Home.string() + "/";
    folders.Install = std::string(TEST_SOURCE) + "/";
    ASSERT_TRUE(StartUp(bench, folders, ReadCommandLine(FiveKeys())));
    for (int i = 0; i < 1000 && !HasFatalFailure(); ++i) {
      Event e = screen.Some("");
      const bool closes = e.What == Event::Kind::Close || e.Target == Ctl::mnuFileExit;
      if (closes && screen.Luck.Below(400)) e.What = Event::Kind::MouseMove; // else few streams last
      if (screen.Luck.Below(15) == 0) {
        e.What = Event::Kind::Drop;
        e.Target = Ctl::frmMain;
        e.Text = screen.Luck.Of(screen.Files);
      } else if (screen.Luck.Below(40) == 0) {
        e.What = Event::Kind::Press;
        e.Target = Ctl::RunSim2;
      }
      Dispatch(bench, e);
      ExpectSound(bench);
      results += bench.Sim.ResultMode;
      if (bench.Ended) break;
    }
    if (!bench.Ended) {
      Design kept;
      if (bench.Grain.Table.EntCount >= 0) {
        EXPECT_EQ(ReadGrainFile(bench.Claim.TempFile, kept), ""); // a kill now would lose nothing
        EXPECT_EQ(kept.Table.EntCount, bench.Grain.Table.EntCount);
      }
    }
  }
  EXPECT_GT(results, 50 * Rounds()); // the streams get as far as results
}

} // namespace
