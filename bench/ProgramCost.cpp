#include "ProgramCost.h"

#include <chrono>
#include <fcntl.h>
#include <sched.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace bench {

namespace {

[[noreturn]] void become(const char *folder, std::vector<const char *> words, ECores cores)
{
    cpu_set_t allowed;
    if (cores == ECores::One && sched_getaffinity(0, sizeof(allowed), &allowed) == 0) {
        int core = 0;
        while (!CPU_ISSET(core, &allowed))
            ++core;
        CPU_ZERO(&allowed);
        CPU_SET(core, &allowed);
        sched_setaffinity(0, sizeof(allowed), &allowed);
    }
    const int nowhere = open("/dev/null", O_WRONLY);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    words.push_back(nullptr);
    const std::string program = std::string(KIV_BIN_DIR "/") + words.front();
    if (chdir(folder) == 0)
        execv(program.c_str(), const_cast<char *const *>(words.data()));
    _exit(127);
}

} // namespace

SProgramCost programCost(const char *folder, const std::vector<const char *> &words, ECores cores)
{
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0)
        become(folder, words, cores);
    int status = -1;
    rusage used = {};
    wait4(child, &status, 0, &used);
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    const auto seconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return {took.count(), seconds(used.ru_utime) + seconds(used.ru_stime),
            static_cast<double>(used.ru_maxrss) / 1024,
            WIFEXITED(status) ? WEXITSTATUS(status) : -1};
}

} // namespace bench
