#include "server/Server.h"
#include "server/ServerOptions.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <cstdio>
#include <sys/socket.h>
#include <unistd.h>

namespace {

int signalPipe[2];

void onSignal(int)
{
    const char byte = 1;
    [[maybe_unused]] const auto written = ::write(signalPipe[1], &byte, 1);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("ombrel-server"));

    OmbrelServer::ServerOptions options;
    QString error;
    if (!OmbrelServer::parseServerArguments(QCoreApplication::arguments(), &options, &error)) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 2;
    }

    // SIGINT and SIGTERM reach the event loop through a socket pair, so that the database is closed
    // by the same code as at any other exit.
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, signalPipe) != 0)
        return 1;
    QSocketNotifier notifier(signalPipe[0], QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, &app, [] {
        char byte;
        [[maybe_unused]] const auto got = ::read(signalPipe[0], &byte, 1);
        std::fprintf(stderr, "ombrel-server: stopping\n");
        QCoreApplication::quit();
    });
    struct sigaction action = {};
    action.sa_handler = onSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);

    OmbrelServer::Server server(options);
    if (!server.start(&error)) {
        std::fprintf(stderr, "ombrel-server: %s\n", qPrintable(error));
        return 1;
    }
    std::printf("ombrel-server listening on %s\nPoint the program at it with:\n%s",
                qPrintable(server.baseUrl().toString()), qPrintable(server.environmentText()));
    std::fflush(stdout);
    return QCoreApplication::exec();
}
