// The system calls that a save is made of, defined by this program itself so that the libraries
// call them here, where one of them can be made to fail. The test in main() saves over and over,
// letting the first call fail, then the second, ..., until a save gets by without meeting it.
//   failingcalls FILE
#include "CFileCopies.h"
#include "CFileWriter.h"
#include "CProjectModel.h"
#include "CProjectSession.h"
#include "CRecentProjects.h"
#include "CScriptedUser.h"
#include "ProjectTestSupport.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cerrno>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <iostream>
#include <sys/types.h>
#include <unistd.h>

using namespace ProjectTestSupport;

namespace {
constexpr int ShortWrite = -1; // in place of an error number

enum class EKind {
    Save,
    Autosave,
    NewFile, // a page, an export, a picture: all are written by the same routine
    Replacement,
    Images, // several files that arrive together or not at all
};

struct
{
    bool armed = false;
    bool persistent = false;
    int error = 0;
    int failAt = 0;
    int count = 0;
    bool isOnDisk = false;
} plan;

bool failsNow()
{
    if (!plan.armed)
        return false;
    ++plan.count;
    return plan.count == plan.failAt || (plan.persistent && plan.count > plan.failAt);
}

template<typename Function>
Function next(const char *name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

/// A call that can do nothing but succeed or fail; a short write means nothing to it.
template<typename Result, typename Function, typename... Arguments>
Result callOrFail(const char *name, Arguments... arguments)
{
    if (failsNow() && plan.error != ShortWrite) {
        errno = plan.error;
        return Result(-1);
    }
    return next<Function>(name)(arguments...);
}

int noteOnDisk(int result)
{
    plan.isOnDisk |= result == 0;
    return result;
}

mode_t modeOf(int flags, va_list arguments)
{
    return (flags & (O_CREAT | __O_TMPFILE)) ? va_arg(arguments, mode_t) : mode_t(0);
}
} // namespace

extern "C" {
int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    using F = int (*)(const char *, int, mode_t);
    if ((flags & O_ACCMODE) == O_RDONLY)
        return next<F>("open")(path, flags, mode);
    return callOrFail<int, F>("open", path, flags, mode);
}

int open64(const char *path, int flags, ...) __attribute__((alias("open")));

int openat(int folder, const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    using F = int (*)(int, const char *, int, mode_t);
    if ((flags & O_ACCMODE) == O_RDONLY)
        return next<F>("openat")(folder, path, flags, mode);
    return callOrFail<int, F>("openat", folder, path, flags, mode);
}

ssize_t write(int file, const void *bytes, size_t count)
{
    using F = ssize_t (*)(int, const void *, size_t);
    if (file <= STDERR_FILENO || !failsNow())
        return next<F>("write")(file, bytes, count);
    if (plan.error != ShortWrite) {
        errno = plan.error;
        return -1;
    }
    return next<F>("write")(file, bytes, count / 2);
}

int fsync(int file)
{
    return noteOnDisk(callOrFail<int, int (*)(int)>("fsync", file));
}

int fdatasync(int file)
{
    return noteOnDisk(callOrFail<int, int (*)(int)>("fdatasync", file));
}

int rename(const char *from, const char *to) noexcept
{
    return callOrFail<int, int (*)(const char *, const char *)>("rename", from, to);
}

int renameat(int folder, const char *from, int other, const char *to) noexcept
{
    using F = int (*)(int, const char *, int, const char *);
    return callOrFail<int, F>("renameat", folder, from, other, to);
}

int linkat(int folder, const char *from, int other, const char *to, int flags) noexcept
{
    using F = int (*)(int, const char *, int, const char *, int);
    return callOrFail<int, F>("linkat", folder, from, other, to, flags);
}

int mkdirat(int folder, const char *path, mode_t mode) noexcept
{
    return callOrFail<int, int (*)(int, const char *, mode_t)>("mkdirat", folder, path, mode);
}
}

namespace {
int faults = 0;

void check(bool holds, const char *what)
{
    if (holds)
        return;
    ++faults;
    std::cout << "fault: " << what << ", call " << plan.failAt << ", error " << plan.error
              << (plan.persistent ? " from then on" : " once") << std::endl;
}

template<typename Function>
bool underPlan(Function function)
{
    plan.count = 0;
    plan.isOnDisk = false;
    plan.armed = true;
    const bool done = function();
    plan.armed = false;
    check(!done || plan.isOnDisk, "done without being on the disk");
    return done;
}

/// As saveOnce(), for a file that is no project.
bool writeOnce(EKind kind)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("file"));
    const bool isThere = kind == EKind::Replacement;
    const QByteArray before(isThere ? 5'000 : 0, 'o');
    if (isThere)
        writeFile(path, before);
    const QByteArray wanted(20'000, 'n');
    const bool written = underPlan([&] { return CFileWriter::write(path, wanted).isEmpty(); });
    check(readFile(path) == (written ? wanted : before), "the file is neither old nor new");
    check(filesIn(folder.path()).size() == (written || isThere), "one file too many or too few");
    return plan.count >= plan.failAt;
}

/// As saveOnce(), for images that are taken along or made.
bool copyOnce()
{
    const QTemporaryDir folder;
    CFileCopies copies(folder.path());
    for (const char *name : {"a.raw", "a.png"}) {
        writeFile(folder.filePath(QLatin1String(name)), QByteArray(20'000, name[2]));
        copies.add(folder.filePath(QLatin1String(name)),
                   folder.filePath(QStringLiteral("to/here/") + QLatin1String(name)));
    }
    const bool copied = underPlan([&] { return copies.copy().isEmpty(); });
    check(filesIn(folder.filePath(QStringLiteral("to/here"))).size() == (copied ? 2 : 0),
          "some images and not others");
    check(QFileInfo::exists(folder.filePath(QStringLiteral("to"))) == copied, "a folder is left");
    check(!copied || readFile(folder.filePath(QStringLiteral("to/here/a.png"))).size() == 20'000,
          "an image is cut short");
    return plan.count >= plan.failAt;
}

/// One save with one plan. True when the save has met the call that was to fail.
bool saveOnce(const QString &path, EKind kind)
{
    if (kind == EKind::NewFile || kind == EKind::Replacement)
        return writeOnce(kind);
    if (kind == EKind::Images)
        return copyOnce();
    const bool automatic = kind == EKind::Autosave;
    CScriptedUser user;
    CRecentProjects recent;
    CProjectSession session(&user, &recent);
    check(session.openFile(path), "opening");
    const QByteArray before = readFile(path);
    static int colour = 0;
    change(session.project(), QStringLiteral("#%1").arg(++colour, 6, 16, QLatin1Char('0')));
    const QByteArray wanted = session.project()->saveToBytes(nullptr, path);

    const bool saved = underPlan([&] {
        return automatic ? session.autosave() == CProjectSession::EAutosave::Saved : session.save();
    });

    check(readFile(path) == (saved ? wanted : before), "the file is neither old nor new");
    check(session.isDirty() != saved, "clean without being saved");
    check(user.errors.size() == (saved ? 0 : 1), "the error is not shown once");
    const QFileInfo info(path);
    const QString folder = info.path();
    QStringList expected = {QLatin1Char('.') + info.fileName() + QStringLiteral(".lock"),
                            info.fileName()};
    const QString backup = QLatin1Char('.') + info.fileName() + QStringLiteral(".saved");
    const bool hasBackup = QFile::exists(folder + QLatin1Char('/') + backup);
    if (automatic && hasBackup) {
        expected.insert(1, backup);
        check(readFile(folder + QLatin1Char('/') + backup).startsWith(before), "a torn backup");
        QFile::remove(folder + QLatin1Char('/') + backup);
    }
    check(!automatic || !saved || hasBackup, "no backup");
    check(session.project() != nullptr, "the project is gone");
    QStringList found = filesIn(folder);
    if (automatic && hasBackup)
        found.insert(1, backup);
    check(found == expected, qPrintable(found.join(QLatin1Char(' '))));
    return plan.count >= plan.failAt;
}
} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QString path = application.arguments().value(1);
    int saves = 0;
    for (const EKind kind :
         {EKind::Save, EKind::Autosave, EKind::NewFile, EKind::Replacement, EKind::Images}) {
        for (const int error : {ENOSPC, EIO, EACCES, EINTR, ShortWrite}) {
            for (const bool persistent : {false, true}) {
                if (persistent && error == EINTR)
                    continue; // no system interrupts every call for ever
                plan.error = error;
                plan.persistent = persistent;
                plan.failAt = 1;
                while (saveOnce(path, kind)) {
                    ++plan.failAt;
                    ++saves;
                }
                check(plan.failAt > 3, "the calls of a save were not met");
            }
        }
    }
    std::cout << "saves: " << saves << std::endl;
    return faults ? 1 : 0;
}
