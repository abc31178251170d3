#pragma once

#include <QStatusBar>
#include <QString>

class QLabel;
class QProgressBar;

// The bottom line of the main window: accounts, recurring entries due, sync state, and the progress of
// background work.
class StatusBar : public QStatusBar {
    Q_OBJECT
public:
    explicit StatusBar(QWidget *parent = nullptr);

    void setAccountCount(int count);
    // Hidden when nothing is due.
    void setRecurringDue(int count);
    void setSyncText(const QString &text);

    void showProgress(const QString &text);
    void hideProgress();
    // Ends any progress display first: a message is what the work left behind.
    void showTimedMessage(const QString &text, int msec);

    // Call at start and after every change of theme.
    void refreshColors();

private:
    void setupUi();
    void applyRecurringStyle();
    // A message and the left labels share one place: while a message shows, the labels stand aside.
    void placeLeftLabels();

    QLabel *m_accountCountLabel = nullptr;
    QLabel *m_recurringDueLabel = nullptr;
    QLabel *m_progressLabel = nullptr;
    QProgressBar *m_progressBar = nullptr;
    QLabel *m_syncLabel = nullptr;
    int m_recurringDue = 0;
};
