#pragma once
#include "shell/workbench.h"

#include <string>
#include <string_view>
#include <vector>

// One page of the manual: what stands from its heading to the next one, as markdown without the anchors.
struct HelpPage {
  std::vector<std::string> Anchor; // names of the controls it is about
  std::string Title, Text;
};
// A page begins at a heading that carries an anchor, `<a id="FilletArc"></a>`; other headings of the first
// and second level end it and stand between the pages.
std::vector<HelpPage> SplitHelp(std::string_view markdown);

// Help_Window beside the drawing, with the page of this control or, when it has none, the first one. Without
// the shipped file the window says so.
void ShowHelp(Workbench &, Ctl about);
void HelpKey(Workbench &, Ctl target); // F1: the tool under the pointer, else the running one, else the field
void HelpEvent(Workbench &, const Event &);
