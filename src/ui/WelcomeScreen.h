#pragma once

#include <QWidget>

class QFrame;
class QLabel;

// The first page for someone with no account who is not signed in: what the program does, in a few
// lines, and three ways on.
class WelcomeScreen : public QWidget {
    Q_OBJECT
public:
    explicit WelcomeScreen(QWidget *parent = nullptr);

signals:
    void createAccountRequested();
    void learnMoreRequested();
    void signInRequested();

protected:
    void changeEvent(QEvent *event) override;

private:
    void setupUi();
    QFrame *buildHowItWorksCard();
    void applyColors();

    QLabel *m_tagline = nullptr;
    QFrame *m_card = nullptr;
};
