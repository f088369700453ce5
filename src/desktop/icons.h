#pragma once
#include <QIcon>

// An icon of our own family (:/icons/NAME.svg), drawn at any size in the colours of the theme that rules at
// that moment.
QIcon SvgIcon(const QString &name);
QPixmap SvgPicture(const QString &name, int side,
                   double pixelRatio); // in its own colours; side in logical pixels
