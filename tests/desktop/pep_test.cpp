// PEP_SimA on the real window.
#include "desktop/journey.h"

#include <QClipboard>

namespace {
const std::string Star = TEST_DATA "/../../examples/star.mvd";

Lines Opened(Lines lines) {
  Lines all = PastIntro({"drop " + Path(Star), "press PEP_Simulation", "visible PEP_SimA"});
  all.insert(all.end(), lines.begin(), lines.end());
  return all;
}
const Lines Binary = {"text Ingredient_Input(0) ammonium perchlorate",
                      "key Return",
                      "focus Weight_Input(0)",
                      "text Weight_Input(0) 72",
                      "text Ingredient_Input(1) HTPB R-45",
                      "key Down",
                      "key Return",
                      "focus Weight_Input(1)",
                      "shows Ingredient_Input(1) HTPB R-45M",
                      "text Weight_Input(1) 28"};

Lines With(Lines first, const Lines &more) {
  first.insert(first.end(), more.begin(), more.end());
  return first;
}
} // namespace

TEST(Desktop, PropellantByMouseAndKeys) {
  Journey j;
  const QString report = Path(j.File("report.csv"));
  j.Run(FiveKeys, Opened(With(Binary, {"shows Total_Weight 100",
                                       "disabled Close_and_Send",
                                       "keep Pep_Chart",
                                       "key Return",
                                       "enabled Close_and_Send",
                                       "changed Pep_Chart",
                                       "shows Pc_Psi_Label (870 psi)",
                                       "keep Pep_Chart",
                                       "move Pep_Chart 0.5 0.5",
                                       "changed Pep_Chart",
                                       "keep Draw_Nozzle",
                                       "text Exp_Rat_Slider_Selection 50",
                                       "changed Draw_Nozzle",
                                       "press Curve_Species",
                                       "checked Curve_Species",
                                       "press Report1",
                                       "visible Report_Text",
                                       "hidden Pep_Chart",
                                       "press Copy_Report",
                                       "press Save_Report",
                                       "file " + report,
                                       "press Curve_Sweep",
                                       "visible Run_Sweep",
                                       "keep Pep_Chart",
                                       "press Run_Sweep",
                                       "changed Pep_Chart",
                                       "press Best_Ratio",
                                       "press Close_and_Send",
                                       "hidden PEP_SimA",
                                       "press RunSim2",
                                       "visible Report_Frame",
                                       "press Performance_Sim",
                                       "visible Pressure_Results",
                                       "press Chart_Thrust",
                                       "keep My_Chart3",
                                       "press PEP_Simulation",
                                       "visible PEP_SimA",
                                       "text Nozzle_Half_Angle 0",
                                       "press Close_and_Send",
                                       "hidden PEP_SimA"})));
  EXPECT_NE(BytesOf(report.toStdString()).find("Sound speed m/s"), std::string::npos);
  EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith("State of the flow at 6.00 MPa"));
}

TEST(Layout, NoTextOfThePropellantWindowIsCut) {
  for (const double points : {10.0, 12.0}) {
    SCOPED_TRACE(points);
    SetBaseFont(points);
    Journey j;
    j.Run(FiveKeys, Opened(With(With({"whole PEP_SimA"}, Binary),
                                {"press Run_Sim", "shows Pep_Note ", "whole PEP_SimA", "press Curve_Sweep",
                                 "whole PEP_SimA", "press Report2", "whole PEP_SimA",
                                 "text Weight_Input(0) abc", "whole PEP_SimA"})));
  }
  SetBaseFont(10);
}
