#include "ui/MainWindow.h"

#include "core/AppState.h"

#include <QWidget>

MainWindow::MainWindow(AppState *state, QWidget *parent)
    : QMainWindow(parent)
    , m_state(state)
{
    setupUi();
}

MainWindow::~MainWindow() = default;

void MainWindow::setupUi()
{
    setWindowTitle(tr("Halcyra Ombrel"));
    resize(1200, 800);
    setCentralWidget(new QWidget(this));
}
