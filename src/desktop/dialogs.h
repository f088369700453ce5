#pragma once
#include "desktop/form_dialog.h"

FormDialog *MakeDimensions(Sender, QWidget *parent);
FormDialog *MakeIntroPage(Sender, QWidget *parent);
FormDialog *MakeAbout(Sender, QWidget *parent);
FormDialog *MakeQuestion(Sender, QWidget *parent);
FormDialog *MakeHotKey(Sender, QWidget *parent);
FormDialog *MakeOptions(Sender, QWidget *parent);
FormDialog *MakeFindTool(Sender, QWidget *parent);
FormDialog *MakeIncrements(Sender, QWidget *parent);
FormDialog *MakeExportDxf(Sender, QWidget *parent);
FormDialog *MakeSaveResults(Sender, QWidget *parent);
FormDialog *MakeGridControl(Sender, QWidget *parent);
FormDialog *MakePropellants(Sender, QWidget *parent);
FormDialog *MakeSetup3d(Sender, QWidget *parent);
FormDialog *MakeVariableNames(Sender, QWidget *parent);
FormDialog *MakeMacroParams(Sender, QWidget *parent);
FormDialog *MakeGallery(Sender, QWidget *parent);
FormDialog *MakeTemplateFile(Sender, QWidget *parent);
FormDialog *MakeTemplateValues(Sender, QWidget *parent);
FormDialog *MakePreview(Sender, QWidget *parent);
FormDialog *MakeTutorMessage(Sender, QWidget *parent);
