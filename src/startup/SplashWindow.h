#pragma once
// The first window: language table, the single-instance rule, portable mode, three ticks.
#include <QLabel>
#include <QTimer>
#include <QWidget>

class SplashWindow : public QWidget
{
    Q_OBJECT
public:
    SplashWindow();

    // Language table, then the refusal of a second instance (which ends the process).
    void initialize();
    void load();
    // A tick of tickTimer; tests call it instead of waiting.
    void tick();

    QLabel* picture;
    QLabel* rightsNotice;
    QTimer* tickTimer;
    qint16 ticks = 0;
};
