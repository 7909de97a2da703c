#pragma once
// The program's own pictures, drawn at the screen's scale.
#include <QIcon>
#include <QPixmap>

QPixmap SplashPicture(qreal devicePixelRatio);
QIcon ProgramIcon();
