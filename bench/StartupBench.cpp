#include "StartupBench.h"

#include "core/Application.h"
#include "ui/MainWindow.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QProcess>
#include <QTemporaryDir>
#include <QWidget>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

constexpr char kChildFlag[] = "--first-paint";

// Says so on the first paint of anything inside the main window, then ends the process at once: the
// parent's clock stops on that line, and nothing after it is of interest.
class FirstPaint : public QObject {
protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && watched->isWidgetType() &&
            qobject_cast<MainWindow *>(static_cast<QWidget *>(watched)->window())) {
            std::fputs("painted\n", stdout);
            std::fflush(stdout);
            std::_Exit(0);
        }
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

bool isStartupChild(int argc, char **argv)
{
    return argc == 2 && std::strcmp(argv[1], kChildFlag) == 0;
}

int runStartupChild(int argc, char **argv)
{
    Application app(argc, argv);
    FirstPaint watcher;
    app.installEventFilter(&watcher);
    return app.run();
}

double measureStartupInChild(const QString &dataDirectory, int runs)
{
    QTemporaryDir config;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("OMBREL_DATA_DIR"), dataDirectory);
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), config.path());
    std::vector<double> times;
    // The first start fills the page cache and the font cache, as any start after the first finds them.
    for (int i = 0; i <= runs; ++i) {
        QProcess child;
        child.setProcessEnvironment(environment);
        child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        QElapsedTimer timer;
        timer.start();
        child.start(QCoreApplication::applicationFilePath(), {QLatin1String(kChildFlag)});
        while (child.state() != QProcess::NotRunning && !child.canReadLine())
            child.waitForReadyRead(60000);
        const double ms = double(timer.nsecsElapsed()) / 1e6;
        const bool painted = child.readLine().startsWith("painted");
        child.waitForFinished(60000);
        if (!painted)
            return -1;
        if (i > 0)
            times.push_back(ms);
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}
