#include "StalledRead.h"

#include <atomic>
#include <cstdio>
#include <cstring>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

std::atomic<int> reads{0};
std::atomic<bool> isReleased{false};

bool isStalled(int descriptor)
{
    char link[40];
    char path[1024] = {};
    std::snprintf(link, sizeof(link), "/proc/self/fd/%d", descriptor);
    return readlink(link, path, sizeof(path) - 1) > 0 && std::strstr(path, "/stalled.png");
}

} // namespace

int stalledread::begun()
{
    return reads;
}

void stalledread::release()
{
    isReleased = true;
}

/// Takes the place of the C library's.
extern "C" __attribute__((visibility("default"))) ssize_t read(int descriptor, void *target,
                                                               size_t count)
{
    constexpr useconds_t Millisecond = 1000;
    if (!isReleased && isStalled(descriptor)) {
        ++reads;
        while (!isReleased)
            usleep(Millisecond);
    }
    return syscall(SYS_read, descriptor, target, count);
}
