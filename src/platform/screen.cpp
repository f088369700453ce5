#include "platform/screen.h"

Ctl WindowOf(Form form) {
  switch (form) {
  case Form::Dimensions: return Ctl::Dimensions;
  case Form::IntroPage: return Ctl::IntroPage;
  case Form::About: return Ctl::frmAbout;
  case Form::Question: return Ctl::Question_Form;
  case Form::HotKey: return Ctl::HotKeyForm;
  case Form::Options: return Ctl::Options_Form;
  case Form::Grid: return Ctl::Grid_Control;
  case Form::Increments: return Ctl::Increments_2d;
  case Form::SaveResults: return Ctl::Save_Results_Form;
  case Form::ExportDxf: return Ctl::Export_DXF;
  case Form::FindTool: return Ctl::Find_Tool;
  case Form::Propellants: return Ctl::Propellants_Form;
  case Form::TutorMessage: return Ctl::TutorMsgForm;
  case Form::Setup3d: return Ctl::Setup_3D;
  case Form::VariableNames: return Ctl::VariableNameForm;
  case Form::MacroParams: return Ctl::MacroParams;
  case Form::Gallery: return Ctl::Grain_Selection_Window;
  case Form::TemplateFile: return Ctl::Template_File;
  case Form::TemplateValues: return Ctl::TemplateForm;
  case Form::Preview: return Ctl::PreviewForm;
  }
  return Ctl::Count;
}

Screen::Screen() {
  for (std::size_t i = 0; i < CtlCount; ++i) {
    Show[i].Text = RowOf(static_cast<Ctl>(i)).Text;
    Show[i].Visible = true;
  }
}
