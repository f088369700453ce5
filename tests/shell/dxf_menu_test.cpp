#include "dxf/dxf_writer.h"
#include "shell/journey.h"

#include <cmath>

namespace {
TEST_F(Journey, ExportDxfByItsDialog) {
  Start();
  Play("drop " + Cases + "dogbone.mvd\n");
  Bench().Grain.CurrentFile.clear();
  const std::string own = At("own.dxf"), plain = At("plain.dxf");
  Play("press ExportDXF\nexpect unchecked Include_Grain\npress Cancel_Now\n" // no file is asked for
       "press ExportDXF\nkey Escape\n"
       "press ExportDXF\nclose Export_DXF\n"
       "press ExportDXF\npress Export_Now\nfile cancel\n"
       "press ExportDXF\npress Include_Grain\npress Export_Now\nfile " +
       own + "\n");
  EXPECT_EQ(Read("own.dxf"), DxfText(Bench().Grain, {DxfForm::Own, true}));
  Play("press ExportDXF\nexpect unchecked Plain_R12\npress Plain_R12\npress Export_Now\nfile " + plain +
       "\n");
  EXPECT_EQ(Read("plain.dxf"), DxfText(Bench().Grain, {DxfForm::PlainR12, true}));
  // A file that cannot be written is told, and the old one stays.
  Play("press ExportDXF\npress Export_Now\nfile " + At("none/x.dxf") + "\nexpect box cannot be written\n");
  Bench().Grain.Table.Row[0].Y1 = Bench().Grain.Table.Row[0].CenterY = std::nan("");
  Play("press ExportDXF\npress Export_Now\nfile " + plain + "\nexpect box is not a finite number\n");
  EXPECT_NE(Read("plain.dxf").find("EOF"), std::string::npos);
  Start(); // the next session remembers the form, not the grain's edge
  Play("press ExportDXF\nexpect checked Plain_R12\nexpect unchecked Include_Grain\npress Cancel_Now\n");
}

TEST_F(Journey, ImportDxfIsANewDesign) {
  Start();
  Play("drop " + Cases + "dogbone.mvd\n");
  const Design before = Bench().Grain;
  Write("dogbone.dxf", DxfText(before, {DxfForm::Own, true}));
  Write("broken.dxf", "0\nSECTION\n2\nENTITIES\n0\nLINE\n");
  Write("notes.dxf", "0\nSECTION\n2\nENTITIES\n0\nCIRCLE\n10\n0\n20\n0\n40\n5\n0\nTEXT\n1\na\n"
                     "0\nARC\n10\n9\n20\n0\n40\n3\n50\n0\n51\n90\n0\nENDSEC\n0\nEOF\n");
  Play("press mnuImport\nfile " + At("broken.dxf") +
       "\nexpect box line 6: the file ends inside its section ENTITIES\n");
  EXPECT_EQ(Bench().Grain.Table.EntCount, before.Table.EntCount);
  EXPECT_EQ(Bench().Grain.CurrentFile, before.CurrentFile);
  Play("cmd 85\npress mnuImport\nfile " + At("dogbone.dxf") + "\nexpect box entities imported\n");
  EXPECT_EQ(Bench().Grain.Table.EntCount, before.Table.EntCount);
  EXPECT_EQ(Bench().Grain.Doc.GrainRadius, before.Doc.GrainRadius);
  EXPECT_EQ(Bench().Grain.CurrentFile, "");
  EXPECT_FALSE(Bench().Grain.SavedFlag);
  EXPECT_EQ(Screen()[Ctl::frmMain].Text, "Morvandel - dogbone.dxf");
  // What is amiss is told and marked; the unsaved design is asked about first.
  Play("press mnuImport\nbox No\nfile " + At("notes.dxf") + "\nexpect box Left out: 1 TEXT.\n");
  EXPECT_EQ(Bench().Grain.Table.EntCount, 1);
  EXPECT_FALSE(Bench().Amiss.Shown.empty());
}
} // namespace
