#pragma once

#include <QApplication>

#include <memory>

class AppState;
class MainWindow;
class QTranslator;

// The process: identity, logging and translators in the constructor; database, window and event
// loop in run().
class Application : public QApplication {
    Q_OBJECT
public:
    Application(int &argc, char **argv);
    ~Application() override;

    // The process exit status: 1 when the database cannot be opened or migrated.
    int run();

    // Installed unless OMBREL_VERBOSE is set: drops debug and info, one bare line per message else.
    static void filteredMessageHandler(QtMsgType type, const QMessageLogContext &context,
                                       const QString &message);

private:
    void setupTranslators();

    AppState *m_appState = nullptr;
    std::unique_ptr<MainWindow> m_mainWindow;
    QTranslator *m_qtTranslator = nullptr;
    QTranslator *m_appTranslator = nullptr;
};
