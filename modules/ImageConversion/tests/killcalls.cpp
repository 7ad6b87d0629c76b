// To be loaded into a program and all that it starts: counts their calls by which files come and
// go, and ends them all, as a crash would, in front of the call whose number KIV_KILL_AT is.
// KIV_KILL_COUNT is a file that grows by one byte a call.
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {
const pid_t first = [] { // of the programs: those that it starts find it in their environment
    if (!getenv("KIV_KILL_FIRST"))
        setenv("KIV_KILL_FIRST", std::to_string(getpid()).c_str(), 1);
    return atoi(getenv("KIV_KILL_FIRST"));
}();

void countCall()
{
    const char *path = getenv("KIV_KILL_COUNT");
    if (!path)
        return;
    const int file = int(syscall(SYS_openat, AT_FDCWD, path, O_WRONLY | O_APPEND | O_CREAT, 0600));
    syscall(SYS_write, file, "x", 1);
    const off_t count = lseek(file, 0, SEEK_CUR);
    close(file);
    if (count != atoi(getenv("KIV_KILL_AT")))
        return;
    kill(first, SIGKILL);
    kill(getpid(), SIGKILL);
}

template<typename Function, typename... Arguments>
auto counted(const char *name, Function, Arguments... arguments)
{
    countCall();
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name))(arguments...);
}
} // namespace

extern "C" {
int openat(int folder, const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & (O_CREAT | __O_TMPFILE)) ? va_arg(arguments, mode_t) : mode_t(0);
    va_end(arguments);
    if ((flags & O_ACCMODE) != O_RDONLY)
        countCall();
    using F = int (*)(int, const char *, int, mode_t);
    return reinterpret_cast<F>(dlsym(RTLD_NEXT, "openat"))(folder, path, flags, mode);
}

ssize_t write(int file, const void *bytes, size_t count)
{
    struct stat status;
    if (fstat(file, &status) == 0 && S_ISREG(status.st_mode))
        countCall();
    return syscall(SYS_write, file, bytes, count);
}

int fsync(int file)
{
    return counted("fsync", &fsync, file);
}

int linkat(int folder, const char *from, int other, const char *to, int flags) noexcept
{
    return counted("linkat", &linkat, folder, from, other, to, flags);
}

int renameat(int folder, const char *from, int other, const char *to) noexcept
{
    return counted("renameat", &renameat, folder, from, other, to);
}

int unlinkat(int folder, const char *path, int flags) noexcept
{
    return counted("unlinkat", &unlinkat, folder, path, flags);
}

int mkdirat(int folder, const char *path, mode_t mode) noexcept
{
    return counted("mkdirat", &mkdirat, folder, path, mode);
}
}
