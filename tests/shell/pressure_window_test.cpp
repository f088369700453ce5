// Pressure_Results through Dispatch: charts, boxes, propellants, comparison, files.
#include "base/number_text.h"
#include "shell/journey.h"

#include <algorithm>
#include <cmath>

namespace {

struct PressureJourney : Journey {
  void Open(const std::string &more = "") {
    ASSERT_TRUE(Start());
    Play("drop " TEST_SOURCE "/examples/star.mvd\n" + more + "press RunSim2\npress Performance_Sim");
  }
  const Pressure &State() { return Bench().Motor; }
  std::string Text(Ctl c) { return Screen()[c].Text; }
};

TEST_F(PressureJourney, OpensOnTheKnChartWithItsValues) {
  Open();
  Play(
      "expect visible Pressure_Results\nexpect checked KN_Chart\nexpect text burn_rate_a 0.04\n"
      "expect text burn_rate_n 0.3\nexpect text Density 1.7\nexpect text c_star 1500\nexpect text Isp 180\n"
      "expect text Throat_Diameter 15\nexpect text Exit_Diameter 30\nexpect text Time_Intervals 0.01\n"
      "expect text MyChart_3_Frame Kn Ratio / Burn Distance Chart   Dt=15.0\nexpect disabled Compare_Remove\n"
      "expect text Pressure_Inputs Grain && Nozzle && Propellant Input Parameters");
  const Control &y = Screen()[Ctl::Y_Axis], &t = Screen()[Ctl::Time_Axis];
  ASSERT_EQ(y.Item.size(), 18u);
  ASSERT_EQ(t.Item.size(), 11u);
  const double most = *std::max_element(Screen().My_Chart3.Y.begin(), Screen().My_Chart3.Y.end());
  EXPECT_EQ(y.Item[17], FormatMask(most, "###"));
  EXPECT_NEAR(Screen().My_Chart3.YTop, most * 16 / 15, 1e-9 * most);
  EXPECT_EQ(t.Item[10], "0.0");
  Play("press Design_Mode\nexpect hidden Pressure_Results");
}

TEST_F(PressureJourney, TypingFollowsTheRuleOfEachBox) {
  Open("");
  Play("press Chart_Pressure\nexpect text Time_Intervals 0.001");
  const unsigned drawn = Screen().My_Chart3.Number;
  const auto times = [&] { return Screen().My_Chart3.Number - drawn; };
  const struct {
    const char *Typed;
    bool Draws, Marked;
  } table[] = {{"burn_rate_a 0", false, true},
               {"burn_rate_a", false, true},
               {"burn_rate_a 0,05", false, true},
               {"burn_rate_a -1", false, true},
               {"burn_rate_a 0.05", true, false},
               {"burn_rate_n 1", false, true},
               {"burn_rate_n 0.9999", false, true},
               {"burn_rate_n 0.31", true, false},
               {"Density 0", false, true},
               {"Density 1.6", true, false},
               {"c_star abc", false, true},
               {"c_star 1400", true, false},
               {"Isp 0", true, true},
               {"Isp 200", true, false},
               {"Throat_Diameter 0", false, true},
               {"Throat_Diameter 14", true, false},
               {"Grain_Diameter 65", false, false}};
  unsigned expected = 0;
  for (const auto &[typed, draws, marked] : table) {
    Play(std::string("type ") + typed); // a box that opens would be a fault of the script
    expected += draws ? 1 : 0;
    EXPECT_EQ(times(), expected) << typed;
    const Ctl box = *FindControl(std::string(typed).substr(0, std::string(typed).find(' ')));
    EXPECT_EQ(!Screen()[box].Hint.empty(), marked) << typed << ": " << Screen()[box].Hint;
    EXPECT_EQ(Screen()[Ctl::Input_Note].Checked, marked) << typed;
  }
  EXPECT_DOUBLE_EQ(State().RunInputs.ThroatDiam, 14);
  Play("press Area_Chart");
  const unsigned before = Screen().My_Chart3.Number;
  Play("type Throat_Diameter 13");
  EXPECT_EQ(Screen().My_Chart3.Number, before) << "chart 7 waits for its button";
  Play("type burn_rate_a 0\npress Chart_Thrust\nexpect box Error generating Thrust Chart\nbox OK\n"
       "type burn_rate_a 0.05\nexpect checked Chart_Thrust");
  EXPECT_EQ(State().Chart.Kind, ChartKind::Chart_Thrust)
      << "the chart asked for comes with the next good value";
}

TEST_F(PressureJourney, AZeroAndBackGivesTheSameChartAndFigures) {
  Open();
  Play("press Chart_Thrust");
  const std::vector<double> before = Screen().My_Chart3.Y;
  const std::string impulse = Text(Ctl::Motor_Impulse);
  Play("type burn_rate_a 0\ntype burn_rate_a 0.06");
  EXPECT_NE(Screen().My_Chart3.Y, before);
  Play("type burn_rate_a 0.04");
  EXPECT_EQ(Screen().My_Chart3.Y, before);
  EXPECT_EQ(Text(Ctl::Motor_Impulse), impulse);
}

TEST_F(PressureJourney, OneEndIsAskedAboutOncePerFluxChart) {
  Open("press mnuDims\npress EndB_Exposed\npress Dimensions.Next\n");
  ASSERT_EQ(State().Inputs.EndsExposed, 1);
  const auto last = [&] { return Screen().My_Chart3.Y.back(); };
  Play("press Chart_Mass_Flux\nexpect box Is this the top end?\nbox Yes");
  const double top = last();
  Play("press Core_Gas_Velocity\nexpect box Is this the top end?\nbox No");
  EXPECT_LE(last(), top);
  Play("type burn_rate_a 0.05\ntype burn_rate_a 0.04"); // asks nothing
  EXPECT_FALSE(State().Inputs.TopEnd);
}

TEST_F(PressureJourney, ThePointerReadsTheChartAndShowsTheOutline) {
  Open();
  Play("press Chart_Mass_Flow\nhover My_Chart3 0.5");
  const Plot &plot = Screen().My_Chart3;
  ASSERT_GE(plot.Cursor, 0);
  EXPECT_NE(plot.CursorText.find("g/s"), std::string::npos) << plot.CursorText;
  const auto i = static_cast<std::size_t>(plot.Cursor);
  const BurnRun &run = Bench().Sim.Run;
  const int step = Bench().Sim.ReplayStep;
  ASSERT_GT(step, 0);
  EXPECT_NEAR(static_cast<double>(run.Result[static_cast<std::size_t>(step - 1)].BurnDist),
              static_cast<double>(State().Chart.Dist[i]), run.BurnIncrement);
}

TEST_F(PressureJourney, PropellantsFillTheBoxesAndAreKept) {
  Open();
  const std::string name = State().Library.front().Name;
  Play("press Propellant_Choice:" + name);
  EXPECT_EQ(Text(Ctl::burn_rate_a), PlainText(State().Library.front().A));
  EXPECT_EQ(State().RunInputs.Fuel.Name, name);
  Play("type Isp 1\nexpect text Propellant_Choice Own figures\n"
       "press Edit_Propellants\npress Fuel_Add\ntype Fuel_Name " +
       name +
       "\npress Propellants_Form.OK\nexpect box stands twice\nbox OK\ntype Fuel_Name Mine\n"
       "type Fuel_n 1\npress Propellants_Form.OK\nexpect box exponent n\nbox OK\ntype Fuel_n 0.4\n"
       "type Fuel_Highest 0.1\npress Propellants_Form.OK\npress Propellant_Choice:Mine");
  EXPECT_NE(Text(Ctl::Input_Note).find("above 0.1 MPa"), std::string::npos) << Text(Ctl::Input_Note);
  const auto count = State().Library.size();
  Play("press Edit_Propellants\npress Fuel_List:Mine\npress Fuel_Delete\nclose Propellants_Form");
  EXPECT_EQ(State().Library.size(), count);
  Play("press Edit_Propellants\npress Fuel_List:Mine\npress Fuel_Delete\npress Propellants_Form.OK");
  EXPECT_EQ(State().Library.size(), count - 1);

  Write("propellants.txt", "[broken\n");
  Play("close Pressure_Results\npress Performance_Sim\nexpect box line 1\nbox OK\nexpect disabled "
       "Edit_Propellants");
  EXPECT_EQ(Read("propellants.txt"), "[broken\n");
}

TEST_F(PressureJourney, ComparesKeptAndMeasured) {
  Open();
  Play("press Chart_Thrust");
  for (int i = 0; i < 6; ++i) Play("press Keep_Result");
  Play("expect disabled Keep_Result\ntype Throat_Diameter 14");
  ASSERT_EQ(Screen().My_Chart3.Curve.size(), 6u);
  ASSERT_EQ(Screen().Compare.Row.size(), 7u);
  EXPECT_EQ(Screen().Compare.Row[1].Cell[1], "0.0 %   " + Screen().Compare.Row[0].Cell[1]);
  EXPECT_EQ(Screen().Compare.Row[6].Cell[1].front(), '+');
  for (std::size_t i = 0; i < 6; ++i)
    for (std::size_t j = 0; j < i; ++j)
      EXPECT_NE(Screen().My_Chart3.Curve[i].Colour, Screen().My_Chart3.Curve[j].Colour);
  const std::string second = Screen()[Ctl::Compare_Table].Item[1];
  Play("press Compare_Table:" + second + "\npress Compare_Remove\nexpect enabled Keep_Result");
  EXPECT_EQ(State().Kept.size(), 5u);

  Write("good.csv", "t;F\r\n0;0\r\n0,5;100\r\n1,5;100\r\n");
  Write("bad.csv", "0,1\n1,x\n");
  Play("press Load_Measured\nfile " + At("good.csv") + "\npress Load_Measured\nfile " + At("bad.csv") +
       "\nexpect box bad.csv: line 2\nbox OK\npress Load_Measured\nfile cancel");
  ASSERT_EQ(Screen().My_Chart3.Curve.size(), 6u);
  EXPECT_TRUE(Screen().Compare.Row.back().Cell[4].ends_with("  125")) << Screen().Compare.Row.back().Cell[4];
  const auto strokes = [this](const char *file) {
    const std::string svg = Read(file);
    int count = 0;
    for (auto at = svg.find("stroke-width:2;"); at != svg.npos; at = svg.find("stroke-width:2;", at + 1))
      ++count;
    return count;
  };
  Play("press Save_Chart\nfile " + At("compared.svg") + "\npress Chart_Pressure\npress Save_Chart\nfile " +
       At("pressure.svg"));
  EXPECT_EQ(Screen().My_Chart3.Curve.size(), 5u) << "a measured thrust is no pressure";
  EXPECT_EQ(strokes("pressure.svg"), 2 * 5 + 1)
      << "each curve, each in the key, and the inputs at hand there";
  EXPECT_EQ(strokes("compared.svg"), 2 * 5 + 1) << "what was measured is dots";
}

TEST_F(PressureJourney, ExportsOrSaysWhyNot) {
  Open();
  Play("press Export_Eng\nfile " + At("a") + "\npress Export_Channels\nfile " + At("b.csv") +
       "\npress Export_Report\nfile " + At("c.pdf") + "\npress Save_Chart\nfile " + At("d.svg") +
       "\npress Save_Chart\nfile " + At("e") + "\npress Save_Chart\nfile " + At("f.PDF") +
       "\npress Save_Chart\nfile " + At("g.bmp") + "\nexpect box .png, .svg or .pdf\nbox OK");
  EXPECT_NE(Read("a.eng").find("star 66 190"), std::string::npos) << Read("a.eng");
  EXPECT_EQ(Read("b.csv").substr(0, 7), "time_s,");
  for (const auto &[file, begins] :
       {std::pair{"c.pdf", "%PDF"}, {"d.svg", "<?xml"}, {"e.png", "\x89PNG"}, {"f.PDF", "%PDF"}})
    EXPECT_EQ(Read(file).substr(0, std::string(begins).size()), begins) << file;
  std::filesystem::create_directories(Home / "folder.eng");
  Play("press Export_Eng\nfile " + At("folder.eng") +
       "\nexpect box folder.eng\nbox OK\ntype Density 0\n"
       "press Export_Eng\nexpect box The density must be above 0\nbox OK");
  Play("key Escape in Density\nexpect hidden Pressure_Results");
}

TEST_F(PressureJourney, WithoutAThroatNothingIsDrawnUntilOneIsTyped) {
  Open("press mnuDims\ntype Nozzle_Throat 0\npress Dimensions.Next\n");
  EXPECT_TRUE(Screen().My_Chart3.X.empty());
  Play("expect disabled Export_Eng\nexpect disabled Keep_Result\nhover My_Chart3 0.5\ntype Throat_Diameter "
       "15");
  EXPECT_FALSE(Screen().My_Chart3.X.empty());
  Play("expect enabled Export_Eng");
}

TEST_F(PressureJourney, ImperialCoefficientsAreConverted) {
  Open();
  Play("press Convert_Imperial_a\nanswer 0.02");
  EXPECT_EQ(Text(Ctl::burn_rate_a), Convert_Imperial_a(0.02, 0.3));
  Play("press Convert_Imperial_a\nanswer -1\npress Convert_Imperial_a\nanswer cancel");
  EXPECT_EQ(Text(Ctl::burn_rate_a), Convert_Imperial_a(0.02, 0.3));
}

} // namespace
