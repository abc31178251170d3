#include "ui/StatusBar.h"

#include "ui/UiStyle.h"

#include <QLabel>
#include <QProgressBar>

StatusBar::StatusBar(QWidget *parent)
    : QStatusBar(parent)
{
    setupUi();
    refreshColors();
}

void StatusBar::setupUi()
{
    setStyleSheet(QStringLiteral("QStatusBar {  padding: 2px 4px;}QStatusBar::item { border: none; }"));

    m_accountCountLabel = new QLabel(this);
    m_accountCountLabel->setObjectName(QStringLiteral("accountCountLabel"));
    m_recurringDueLabel = new QLabel(this);
    m_recurringDueLabel->setObjectName(QStringLiteral("recurringDueLabel"));
    m_progressLabel = new QLabel(this);
    m_progressLabel->setObjectName(QStringLiteral("progressLabel"));
    m_progressBar = new QProgressBar(this);
    m_progressBar->setObjectName(QStringLiteral("progressBar"));
    m_syncLabel = new QLabel(tr("Offline"), this);
    m_syncLabel->setObjectName(QStringLiteral("syncLabel"));

    for (QLabel *label : {m_accountCountLabel, m_recurringDueLabel, m_progressLabel, m_syncLabel})
        applyFontRole(label, 0);
    applyFontRole(m_progressBar, 0);

    // A zero range makes the bar a busy indicator: background work reports no fraction done.
    m_progressBar->setRange(0, 0);
    m_progressBar->setMaximumSize(100, 14);
    m_progressBar->setTextVisible(false);

    addWidget(m_accountCountLabel);
    addWidget(m_recurringDueLabel);
    addPermanentWidget(m_progressLabel);
    addPermanentWidget(m_progressBar);
    addPermanentWidget(m_syncLabel);

    m_recurringDueLabel->hide();
    m_progressLabel->hide();
    m_progressBar->hide();
    // The status bar hides its left widgets for a message only when they are visible at that moment; a
    // message shown before the window, or a label shown during one, would be drawn over otherwise.
    connect(this, &QStatusBar::messageChanged, this, &StatusBar::placeLeftLabels);
}

void StatusBar::placeLeftLabels()
{
    const bool message = !currentMessage().isEmpty();
    m_accountCountLabel->setVisible(!message);
    m_recurringDueLabel->setVisible(!message && m_recurringDue > 0);
}

void StatusBar::setAccountCount(int count)
{
    m_accountCountLabel->setText(tr("%n account(s)", nullptr, count));
}

void StatusBar::setRecurringDue(int count)
{
    m_recurringDue = count;
    if (count > 0) {
        m_recurringDueLabel->setText(tr("  •  %n recurring due", nullptr, count));
        applyRecurringStyle();
    }
    placeLeftLabels();
}

void StatusBar::setSyncText(const QString &text)
{
    m_syncLabel->setText(text);
}

void StatusBar::showProgress(const QString &text)
{
    m_progressLabel->setText(text);
    m_progressLabel->show();
    m_progressBar->show();
}

void StatusBar::hideProgress()
{
    m_progressLabel->hide();
    m_progressBar->hide();
}

void StatusBar::showTimedMessage(const QString &text, int msec)
{
    hideProgress();
    showMessage(text, msec);
}

void StatusBar::refreshColors()
{
    const QString style = QStringLiteral("color: %1;").arg(isDarkPalette() ? "#8FAF9F" : "#2A3D33");
    m_syncLabel->setStyleSheet(style);
    m_accountCountLabel->setStyleSheet(style);
    // The warning keeps the colour it was given otherwise, unreadable after a switch of theme.
    applyRecurringStyle();
}

void StatusBar::applyRecurringStyle()
{
    m_recurringDueLabel->setStyleSheet(
        QStringLiteral("color: %1; font-weight: bold;").arg(isDarkPalette() ? "#FFA726" : "#E65100"));
}
