#pragma once

#include <QMainWindow>

class AppState;

// The program's one top-level window. It borrows AppState, which outlives it.
class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit MainWindow(AppState *state, QWidget *parent = nullptr);
    ~MainWindow() override;

private:
    void setupUi();

    AppState *m_state = nullptr;
};
