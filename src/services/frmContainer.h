#pragma once
// The host window that the user is not meant to see. Its load creates and loads the vault
// window and gives a profile its default options; it lives until the run ends.
#include <QWidget>

class frmContainer : public QWidget
{
    Q_OBJECT
public:
    static frmContainer* Instance();
    static frmContainer* Loaded();
    static void Unload();

    void Form_Load();
    void Form_Unload();

    // "Tolvane ", CR LF, the profile, a zero, blanks: a field of 64 characters.
    static QString TipText(const QString& profile);
    QString tip;

private:
    frmContainer();
};
