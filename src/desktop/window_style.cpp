#include "desktop/window_style.h"

#include "desktop/icons.h"

#include <QProxyStyle>

namespace {
class WindowStyle final : public QProxyStyle {
public:
  WindowStyle() : QProxyStyle("Fusion") {}

  int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                QStyleHintReturn *more) const override {
    switch (hint) {
    case SH_DialogButtonBox_ButtonsHaveIcons: return 0;
    case SH_ToolTip_WakeUpDelay: return 450;
    case SH_ItemView_ActivateItemOnSingleClick: return 0;
    default: return QProxyStyle::styleHint(hint, option, widget, more);
    }
  }

  int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override {
    return metric == PM_ToolBarExtensionExtent ? 24 : QProxyStyle::pixelMetric(metric, option, widget);
  }

  QIcon standardIcon(StandardPixmap which, const QStyleOption *option, const QWidget *widget) const override {
    switch (which) {
    case SP_ArrowBack:
    case SP_FileDialogBack: return SvgIcon("arrow_back");
    case SP_ArrowForward: return SvgIcon("arrow_forward");
    case SP_FileDialogToParent: return SvgIcon("arrow_up");
    case SP_FileDialogNewFolder: return SvgIcon("folder_new");
    case SP_FileDialogListView: return SvgIcon("view_list");
    case SP_FileDialogDetailedView: return SvgIcon("view_detail");
    case SP_DirIcon:
    case SP_DirClosedIcon:
    case SP_DirOpenIcon:
    case SP_DirHomeIcon: return SvgIcon("folder");
    case SP_FileIcon: return SvgIcon("file");
    case SP_ToolBarHorizontalExtensionButton: return SvgIcon("more");
    case SP_ComputerIcon:
    case SP_DriveHDIcon: return SvgIcon("computer");
    default: return QProxyStyle::standardIcon(which, option, widget);
    }
  }
};
} // namespace

// The pictures lie in a static library, whose resources do not register themselves.
static void RegisterPictures() { Q_INIT_RESOURCE(desktop); }

QStyle *MakeWindowStyle() {
  RegisterPictures();
  return new WindowStyle;
}
