#include "shell/template_windows.h"

#include "shell/template_form.h"
#include "shell/template_gallery.h"
#include "shell/template_play.h"
#include "shell/template_record.h"

#include <string_view>

bool TemplateWindowEvent(Workbench &bench, const Event &event) {
  static constexpr struct {
    std::string_view Window;
    void (*Take)(Workbench &, const Event &);
  } windows[] = {{"VariableNameForm", VariableNameEvent},  {"MacroParams", MacroParamsEvent},
                 {"Grain_Selection_Window", GalleryEvent}, {"Template_File", TemplateFileEvent},
                 {"TemplateForm", TemplateFormEvent},      {"PreviewForm", PreviewEvent}};
  const std::string_view window = RowOf(event.Target).Window;
  for (const auto &row : windows) {
    if (row.Window != window) continue;
    const auto self = FindControl(window);
    if (self && bench.Out[*self].Visible) row.Take(bench, event);
    return true;
  }
  return false;
}

bool PressTemplate(Workbench &bench, const Event &event) {
  switch (event.Target) {
  case Ctl::mnuchoosetemplate:
  case Ctl::tbTemplates:
  case Ctl::Empty_Template: return ShowGallery(bench), true;
  case Ctl::mnumaketemplate: return Macro(bench), true;
  case Ctl::Stop_Macro: return Stop_Macro(bench), true;
  case Ctl::Cancel_Macro: return CancelMacro(bench), true;
  case Ctl::Paused_Button: return MacroPause(bench), true;
  case Ctl::Macro_Step: return MacroStep(bench), true;
  case Ctl::VariableList2: return InsertVariable(bench, event), true;
  default: return false;
  }
}
