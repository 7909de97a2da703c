// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The program's own pictures, all drawn as vectors in one style (dark blue ink on pale paper,
// round ends), so that they stay sharp at any scale of the screen.
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

// The toolbar of the vault window and its search button.
QIcon NewEntryPicture();
QIcon DeleteEntryPicture();
QIcon PrintPicture();
QIcon ReportPicture();
QIcon CutPicture();
QIcon PastePicture();
QIcon UndoPicture();
QIcon RedoPicture();
QIcon SettingsPicture();
QIcon SearchPicture();

// The skinned button's backgrounds (150 by 25 pixels) and the four parts of its frame.
enum class ButtonLook
{
    Normal,
    Over,
    Down
};
QPixmap ButtonBackground(ButtonLook look, qreal devicePixelRatio);
enum class FrameEdge
{
    Up,
    Bottom,
    Left,
    Right
};
// An edge of `length` pixels and the frame's thickness (2 pixels): a dark outer line and a
// light inner one.
QPixmap ButtonFrameEdge(FrameEdge edge, int length, qreal devicePixelRatio);
