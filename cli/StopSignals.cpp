#include "StopSignals.h"

#include <QDir>
#include <QFileInfo>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr int SignalCode = 128;

std::atomic<int> stopped{0};

bool isWritten(int descriptor)
{
    struct stat status = {};
    const int mode = fcntl(descriptor, F_GETFL);
    return mode >= 0 && (mode & O_ACCMODE) != O_RDONLY && fstat(descriptor, &status) == 0 &&
           S_ISREG(status.st_mode);
}

/// Outputs are written under another name and then renamed, so whatever is open is not finished.
void takeBackUnfinished()
{
    for (const QFileInfo &each :
         QDir(QStringLiteral("/proc/self/fd")).entryInfoList(QDir::Files | QDir::System)) {
        const int descriptor = each.fileName().toInt();
        if (descriptor <= STDERR_FILENO || !isWritten(descriptor))
            continue;
        const QFileInfo file(each.symLinkTarget());
        if (file.dir().dirName().startsWith(QLatin1String(".package-")))
            file.dir().removeRecursively();
        else
            QFile::remove(file.filePath());
    }
}

} // namespace

void StopSignals::watch()
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction before = {};
        sigaction(number, nullptr, &before);
        if (before.sa_handler != SIG_IGN) // as in the background, or under nohup
            sigaddset(&signals, number);
    }
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    std::thread([signals] {
        int number = 0;
        if (sigwait(&signals, &number) != 0)
            return;
        stopped = SignalCode + number;
        std::this_thread::sleep_for(std::chrono::milliseconds(LongestEnd));
        takeBackUnfinished();
        std::_Exit(exitCode()); // the program would have ended by now
    }).detach();
}

int StopSignals::exitCode()
{
    return stopped;
}
