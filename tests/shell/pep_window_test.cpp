// PEP_SimA through Dispatch: pick, run, look, send; what cannot be run; the library; the files.
#include "base/number_text.h"
#include "shell/journey.h"
#include "shell/pep_nozzle.h"

#include <cmath>

namespace {

struct PepJourney : Journey {
  void Open() {
    ASSERT_TRUE(Start());
    Play("drop " TEST_SOURCE "/examples/star.mvd\npress frmMain.PEP_Simulation\nexpect visible PEP_SimA");
  }
  void Composite(const std::string &more = "press Run_Sim") {
    Open();
    Play("type Ingredient_Input(0) ammonium perchlorate\ntype Weight_Input(0) 68\n"
         "type Ingredient_Input(4) HTPB R-45M\ntype Weight_Input(4) 14\n"
         "type Ingredient_Input(9) aluminu\npress Ingredient_Input(9):ALUMINUM\ntype Weight_Input(9) 18\n" +
         more);
  }
  const Thermo &State() { return Bench().Pep; }
  std::string Text(Ctl c) { return Screen()[c].Text; }
};

TEST_F(PepJourney, PickRunLookSend) {
  Composite("expect text Total_Weight 100\nexpect text Ingredient_Note(9) Al1   0 cal/g   2.700 g/cc   A\n"
            "expect disabled Close_and_Send\npress Run_Sim\nexpect enabled Close_and_Send\n"
            "expect text Run_Sim Run Sim\nexpect text Pc_Min_Label 2\nexpect text Pc_Max_Label 10\n"
            "expect text Pc_Slider_Selection 6.00\nexpect text Pc_Psi_Label (870 psi)\n"
            "expect text Pa_Alt_Label (0 ft)\nexpect text Exp_Rat_Label 42.4mm\n"
            "expect text Nozzle_Angle_Eff 0.9830\nexpect visible Pep_Warning");
  ASSERT_EQ(Screen().Pep_Grid.Row.size(), 15u);
  const PepOutcome direct = RunPep(State().Inputs, State().Files);
  for (std::size_t i = 0; i < 15; ++i) {
    const PepFigures f = FiguresOf(direct, direct.Case[i]);
    const auto &cell = Screen().Pep_Grid.Row[i].Cell;
    ASSERT_EQ(cell.size(), 8u);
    EXPECT_EQ(cell[1], FormatMask(*f.ChamberTemperature, "0.0"));
    EXPECT_EQ(cell[4], FormatMask(*f.Isp[Frozen], "0.0"));
  }
  // A loss-free nozzle that expands to the sea level's pressure gives the impulse of the table.
  Play("type Nozzle_Half_Angle 0\npress Best_Ratio\nexpect text Draw_Note expanded to the ambient pressure");
  EXPECT_NEAR(*State().Pick.Isp, *State().Figures[7].Isp[Shifting], 0.02);
  Play("type Frozen_Shifting_Slider 0\npress Best_Ratio");
  EXPECT_NEAR(*State().Pick.Isp, *State().Figures[7].Isp[Frozen], 0.02);
  Play("type Ambient_Pressure 0\nexpect text Pa_Slider_Selection 0.00\nexpect text Pa_Alt_Label (space)\n"
       "type Nozzle_Angle_Eff 0.9829629\nexpect text Nozzle_Half_Angle 15\ntype Chamber_Pressure 1000\n"
       "expect text Pc_Slider_Selection 10.00\nexpect text Pc_Psi_Label (1450 psi)");
  EXPECT_EQ(Text(Ctl::Pep_Isp), Text(Ctl::Pep_Vacuum_Isp));
  Play("type Exp_Rat_Slider_Selection 101\nexpect box Expansion Ratio input limit is x100\nbox OK\n"
       "expect text Exp_Rat_Slider_Selection 100\nexpect text Expansion_Ratio 1000\n"
       "expect text Exp_Rat_Label 150.0mm");

  // Sent while the motor window is shut: it takes the figures when it opens; while it is open at once.
  const std::string cStar = Text(Ctl::Pep_CStar);
  Play("press Close_and_Send\nexpect hidden PEP_SimA\npress RunSim2\npress Performance_Sim\n"
       "expect text c_star " +
       cStar + "\npress Chart_Thrust");
  const Plot before = Screen().My_Chart3;
  Play("press Pressure_Results.PEP_Simulation\nexpect visible PEP_SimA\ntype Frozen_Shifting_Slider "
       "100\npress Close_and_Send\nexpect hidden PEP_SimA");
  EXPECT_EQ(Text(Ctl::c_star), Text(Ctl::Pep_CStar));
  EXPECT_NE(Screen().My_Chart3.Y, before.Y);
  EXPECT_EQ(Text(Ctl::Isp), FormatMask(*State().Pick.Isp, "0.00"));
}

TEST_F(PepJourney, ChartsReportsAndSweepFollow) {
  Composite();
  const struct {
    const char *Button;
    std::size_t Curves;
  } charts[] = {{"Curve_T", 1},     {"Curve_CStar", 2}, {"Curve_Isp", 2},
                {"Curve_Gamma", 1}, {"Curve_Gas", 1},   {"Curve_Species", 8}};
  for (const auto &[button, curves] : charts) {
    Play(std::string("press ") + button + "\nhover Pep_Chart 0.5");
    const Plot &plot = Screen().Pep_Chart;
    ASSERT_EQ(plot.Curve.size(), curves) << button;
    EXPECT_EQ(plot.X.size(), 15u);
    EXPECT_EQ(plot.Cursor, 7) << button;
    EXPECT_TRUE(plot.CursorText.starts_with("6.000 MPa")) << plot.CursorText;
    for (const PlotCurve &curve : plot.Curve)
      for (const double y : curve.Y) EXPECT_TRUE(y >= plot.YBegin && y <= plot.YTop) << button;
  }
  const struct {
    const char *Button, *Holds;
  } reports[] = {{"Chem_Report", "Mass fraction"},
                 {"Ing_Input", "AMMONIUM PERCHLORATE"},
                 {"Report1", "Sound speed m/s"},
                 {"Report2", "Pe kPa"},
                 {"ThermoChem_Report", "L = ln of the MPa"}};
  for (const auto &[button, holds] : reports) {
    Play(std::string("press ") + button + "\nexpect visible Report_Text\nexpect hidden Pep_Chart");
    EXPECT_NE(Text(Ctl::Report_Text).find(holds), std::string::npos) << button;
  }
  Play("press Report1");
  const std::string there = Text(Ctl::Report_Text);
  Play("type Pc_Slider_Selection 9.9\npress Save_Report\nfile " + At("state.csv"));
  EXPECT_NE(Text(Ctl::Report_Text), there);
  EXPECT_NE(Read("state.csv").find("Chamber,Throat"), std::string::npos);

  Play("press Curve_Isp\npress Curve_Sweep\nexpect text Sweep_From 58\nexpect text Sweep_To 78\n"
       "type Sweep_To 72\ntype Sweep_Step 2\npress Run_Sweep");
  const Plot &plot = Screen().Pep_Chart;
  ASSERT_EQ(plot.X, (std::vector<double>{58, 60, 62, 64, 66, 68, 70, 72}));
  PepInputs at66 = State().Inputs;
  at66.Ingredient[0].Weight = 66;
  at66.Ingredient[1].Weight = 16;
  at66.CaseCount = 1;
  at66.LowerPressure = at66.UpperPressure = 9.9;
  const PepOutcome run = RunPep(at66, State().Files);
  EXPECT_NEAR(plot.Y[4], *FiguresOf(run, run.Case[0]).Isp[Shifting], 1e-6);
  Play("press Sweep_Report\nexpect visible Report_Text\nexpect hidden Pep_Chart\npress Save_Report\nfile " +
       At("sweep.csv") + "\npress Curve_Isp\nexpect visible Pep_Chart\npress Save_Pep_Chart\nfile " +
       At("chart.svg") + "\npress Save_Pep_Chart\nfile " + At("chart.doc") + "\nexpect box .png\nbox OK");
  EXPECT_NE(
      Read("sweep.csv").find("\n66," + FormatMask(run.Case[0].Point[Shifting][Chamber].Temperature, "0.0")),
      std::string::npos)
      << Read("sweep.csv");
  EXPECT_NE(Read("chart.svg").find("<svg"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(At("chart.doc")));
  Play("type Sweep_To 99\npress Run_Sweep");
  EXPECT_NE(Text(Ctl::Pep_Warning).find("is too much"), std::string::npos) << Text(Ctl::Pep_Warning);
}

TEST_F(PepJourney, BadInputIsToldAndNothingBreaks) {
  Composite();
  const std::string flame = Text(Ctl::Pep_Temperature);
  const struct {
    const char *Typed, *Again, *Words;
  } table[] = {
      {"Weight_Input(0) -1", "Weight_Input(0) 68", "weight of ammonium perchlorate must be 0 or more"},
      {"Weight_Input(0) 6,8", "Weight_Input(0) 68", "with a decimal point"},
      {"Weight_Input(0) nan", "Weight_Input(0) 68", "must be a number"},
      {"Weight_Input(0) 1e300", "Weight_Input(0) 68", "must be a number from 0 to"},
      {"Ingredient_Input(0) ammonium percolate", "Ingredient_Input(0) AMMONIUM PERCHLORATE", "did you mean"},
      {"Propellant_Temp hot", "Propellant_Temp 25", "temperature must be a number"},
      {"Propellant_Temp 1e9", "Propellant_Temp 25", "temperature must be from"},
      {"Pc_Lower_Range 0", "Pc_Lower_Range 2", "chamber pressure must be from"},
      {"Pc_Higher_Range 1e9", "Pc_Higher_Range 10", "chamber pressure must be from"},
      {"Pc_Higher_Range", "Pc_Higher_Range 10", "higher chamber pressure must be a number"},
      {"Pc_Slider_Selection 11", "Pc_Slider_Selection 6", "from 2 to 10"},
      {"Pa_Slider_Selection -1", "Pa_Slider_Selection 101.3", "Error encounted adjusting ambient pressure"},
      {"Exp_Rat_Slider_Selection 0.5", "Exp_Rat_Slider_Selection 8", "from 1 to 100"},
      {"Nozzle_Half_Angle 90", "Nozzle_Half_Angle 15", "half angle must be"},
      {"Weight_Input(3) 5", "Weight_Input(3)", "Row 4 has a weight but no ingredient"}};
  for (const auto &[typed, again, words] : table) {
    const auto told = [&, words = words] { return Text(Ctl::Pep_Note).find(words) != std::string::npos; };
    Play(std::string("type ") + typed);
    if (!told()) Play("press Run_Sim"); // what only the run itself can tell
    EXPECT_TRUE(told()) << typed << ": " << Text(Ctl::Pep_Note);
    EXPECT_EQ(Text(Ctl::Pep_Temperature), flame) << typed;
    Play(std::string("type ") + again + "\npress Run_Sim\nexpect text Pep_Note");
    EXPECT_EQ(Text(Ctl::Pep_Temperature), flame) << again;
  }
  Play("type Weight_Input(0) 60\nexpect disabled Close_and_Send\ntype Weight_Input(0) 68\n"
       "expect enabled Close_and_Send");

  // What can be run but gives little: no figure that is none, on the chart or elsewhere.
  const char *const mixes[] = {"type Pc_Lower_Range 10\ntype Pc_Higher_Range 2",
                               "type Pc_Lower_Range 4\ntype Pc_Higher_Range 4",
                               "type Pc_Lower_Range 0.001\ntype Pc_Higher_Range 1000",
                               "type Pc_Lower_Range 0.01\ntype Pc_Higher_Range 0.012",
                               "press Clear_Mix\ntype Ingredient_Input(0) ALUMINUM\ntype Weight_Input(0) 1",
                               "press Clear_Mix\ntype Ingredient_Input(0) ALUMINUM\ntype Weight_Input(0) 0",
                               "press Clear_Mix"};
  for (const char *mix : mixes) {
    Play(std::string(mix) + "\npress Run_Sim\npress Curve_CStar\npress Best_Ratio");
    EXPECT_TRUE(!Text(Ctl::Pep_Note).empty() || State().Run.Done) << mix;
    for (const Control &shown : Screen().Show) EXPECT_EQ(shown.Text.find("nan"), std::string::npos) << mix;
    for (const PlotCurve &curve : Screen().Pep_Chart.Curve)
      for (const double y : curve.Y) EXPECT_TRUE(std::isfinite(y)) << mix;
  }
}

TEST_F(PepJourney, WeightsAddUpToAHundredAndAPropellantIsKept) {
  Composite(
      "type Weight_Input(0) 1\ntype Weight_Input(4) 1\ntype Weight_Input(9) 1\nexpect text Total_Weight 3\n"
      "press Make_100\nexpect text Weight_Input(0) 33.333\nexpect text Weight_Input(9) 33.334\n"
      "expect text Total_Weight 100\npress Run_Sim\npress Keep_Propellant\nexpect box needs a name\nbox OK\n"
      "type Pep_Name Third each\npress Keep_Propellant\nbox OK\ntype Pep_Name third EACH\n"
      "type Chamber_Pressure 900\npress Keep_Propellant\nexpect box Replace\nbox Yes\nbox OK");
  std::vector<Propellant> list;
  ASSERT_EQ(ReadPropellants(At("propellants.txt"), list), "");
  const Propellant *kept = FindPropellant(list, "Third each");
  ASSERT_NE(kept, nullptr);
  EXPECT_EQ(FormatMask(kept->CStar, "0.0"), Text(Ctl::Pep_CStar));
  EXPECT_EQ(FormatMask(kept->Density, "0.000"), Text(Ctl::Pep_Density));
}

TEST_F(PepJourney, MixRangeAndChoicesOutliveARestart) {
  Composite("type Pc_Higher_Range 12\ntype Propellant_Temp 30\npress Run_Sim\npress Curve_Gas\n"
            "type Pc_Slider_Selection 7.5\ntype Exp_Rat_Slider_Selection 12\npress PEP_SimA.Close");
  Open();
  Play("expect text Ingredient_Input(4) HTPB R-45M\nexpect text Weight_Input(9) 18\n"
       "expect text Total_Weight 100\nexpect text Pc_Higher_Range 12\nexpect text Propellant_Temp 30\n"
       "expect text Pc_Slider_Selection 7.50\nexpect text Exp_Rat_Slider_Selection 12\n"
       "expect checked Curve_Gas\npress Run_Sim\nexpect enabled Close_and_Send\n"
       "type Ingredient_Input(0)\npress Clear_Mix\npress PEP_SimA.Close");
  Open();
  Play("expect text Ingredient_Input(0)\nexpect text Total_Weight 0");
}

TEST_F(PepJourney, BrokenDataFilesKeepItShut) {
  ASSERT_TRUE(Start());
  Write("jannaf.daf", "no species");
  Play("press frmMain.PEP_Simulation\nexpect box jannaf.daf\nbox OK\nexpect hidden PEP_SimA");
  std::filesystem::remove(At("jannaf.daf"));
  Play("press frmMain.PEP_Simulation\nexpect visible PEP_SimA\nkey Escape in Ingredient_Input(0)\n"
       "expect hidden PEP_SimA");
}

TEST(Pep, AltitudesOfTheStandardAtmosphere) {
  // Pressures of the 1976 table as parts of that at sea level.
  const struct {
    double Part, Metres;
  } table[] = {{1, 0},
               {0.22336, 11000},
               {0.054033, 20000},
               {0.0085666, 32000},
               {0.0010946, 47000},
               {0.00066063, 51000},
               {3.9047e-5, 71000}};
  for (const auto &[part, metres] : table)
    EXPECT_NEAR(AltitudeFeet(101.3 * part), metres / 0.3048, 4) << metres;
}

} // namespace
