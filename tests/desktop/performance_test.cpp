// Pressure_Results on the real window.
#include "desktop/journey.h"

#include <QClipboard>
#include <QMimeData>
#include <filesystem>

namespace {
const std::string Star = TEST_DATA "/../../examples/star.mvd";

Lines Opened(Lines lines) {
  Lines all = PastIntro({"drop " + Path(Star), "press RunSim2", "visible Report_Frame",
                         "press Performance_Sim", "visible Pressure_Results"});
  all.insert(all.end(), lines.begin(), lines.end());
  return all;
}
} // namespace

TEST(Desktop, MotorPerformanceByMouseAndKeys) {
  Journey j;
  const QString eng = Path(j.File("star.eng")), png = Path(j.File("chart.png"));
  j.Run(FiveKeys,
        Opened({"shows Pressure_Results Motor Performance Simulation",
                "shows MyChart_3_Frame Kn Ratio / Burn Distance Chart   Dt=15.0",
                "press Chart_Pressure",
                "checked Chart_Pressure",
                "unchecked KN_Chart",
                "shows MyChart_3_Frame Chamber Pressure MPa / Time (sec) Chart   Dt=15.0",
                "keep My_Chart3",
                "text burn_rate_a 0",
                "same My_Chart3",
                "shows Input_Note The burn rate a must be above 0 (mm/s at Pa). Chart and figures are "
                "those of the last inputs that could be used.",
                "text burn_rate_a 0.05",
                "changed My_Chart3",
                "shows Input_Note ",
                "keep My_Chart3",
                "keep DrawPanel",
                "move My_Chart3 0.5 0.5",
                "changed My_Chart3",
                "changed DrawPanel",
                "disabled Reset_Zoom",
                "wheel My_Chart3 0.5 0.5 2",
                "enabled Reset_Zoom",
                "press Reset_Zoom",
                "disabled Reset_Zoom",
                "press Copy_Chart",
                "press Chart_Thrust",
                "hidden Compare_Table",
                "press Keep_Result",
                "visible Compare_Table",
                "press Edit_Propellants",
                "visible Propellants_Form",
                "press Fuel_Add",
                "focus Fuel_Name",
                "key Escape",
                "hidden Propellants_Form",
                "press Export_Eng",
                "file " + eng,
                "press Save_Chart",
                "file " + png,
                "text Density 1.8",
                "key Escape",
                "hidden Pressure_Results",
                "press Performance_Sim",
                "visible Pressure_Results",
                "shows Density 1.7",
                "close Pressure_Results",
                "hidden Pressure_Results"}));
  EXPECT_NE(BytesOf(eng.toStdString()).find("star 66 190"), std::string::npos);
  EXPECT_EQ(BytesOf(png.toStdString()).substr(1, 3), "PNG");
  const QMimeData *copied = QGuiApplication::clipboard()->mimeData();
  EXPECT_TRUE(copied->hasImage());
  EXPECT_TRUE(copied->text().startsWith("Time, s\tChamber Pressure MPa\n0\t"));
}

TEST(Layout, NoTextOfMotorPerformanceIsCut) {
  for (const double points : {10.0, 12.0}) {
    SCOPED_TRACE(points);
    SetBaseFont(points);
    Journey j;
    j.Run(FiveKeys, Opened({"whole Pressure_Results", "press Chart_Pressure", "whole Pressure_Results",
                            "press Keep_Result", "visible Compare_Table", "whole Pressure_Results",
                            "text burn_rate_a 0", "whole Pressure_Results", "press Edit_Propellants",
                            "whole Propellants_Form", "press Cancel", "press Convert_Imperial_a",
                            "whole Question_Form", "press Cancel"}));
  }
  SetBaseFont(10);
}
