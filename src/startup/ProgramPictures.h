#pragma once
// The program's own pictures, drawn at the screen's scale.
#include <QIcon>
#include <QPixmap>

QPixmap SplashPicture(qreal devicePixelRatio);
QIcon ProgramIcon();

// The small pictures beside the boxes: copy, open the document, open the web address, and the
// password generator.
QIcon CopyPicture();
QIcon DocumentPicture();
QIcon WebPicture();
QIcon GeneratorPicture();
