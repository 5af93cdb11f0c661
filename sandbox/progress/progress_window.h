#pragma once

#include <QDialog>
#include <QElapsedTimer>

#include <functional>

class QLabel;
class QProgressBar;

/// Shows how far work is that takes long, the time that is left, and a button that calls it off. It keeps
/// every other window of the program from being used.
class CProgressWindow : public QDialog {
    Q_OBJECT

public:
    CProgressWindow(QWidget* window, const QString& title);

    /// How far the work is, 0 to 1.
    void showDone(double fraction);
    /// The person does not want it any more.
    bool isCalledOff() const { return m_bCalledOff; }

    void reject() override; ///< the button, Escape, the window's own

private:
    QLabel* m_pTimeLeft;
    QProgressBar* m_pBar;
    QElapsedTimer m_clock;
    bool m_bCalledOff = false;
};

/// "about 12 s left", from the time that a part of the work took; empty as long as that tells little.
QString timeLeft(double secondsSoFar, double fraction);

/// Run the work in a thread of its own while the windows live on; after a moment a progress window stands
/// before them. False when it was called off; the work hears of that through CLongWork. What it throws is
/// thrown here.
bool runLongWork(QWidget* window, const QString& title, const std::function<void()>& work);
