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
    void Form_Initialize();
    void Form_Load();
    // A tick of tmrTime; tests call it instead of waiting.
    void tmrTime_Timer();

    QLabel* Image39;
    QLabel* Label2;
    QTimer* tmrTime;
    qint16 tickCount = 0;
};
