#include "bench/measure.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <ctime>

extern char** environ;

namespace XPJ::Bench {

double Stopwatch::ProcessorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

namespace {

struct Report {
    double seconds;
    std::size_t bytes;
};

[[noreturn]] void RunChild(const std::function<void(Stopwatch&)>& job, int output)
{
    Stopwatch watch;
    job(watch);
    const Report report = {watch.Seconds(), watch.Bytes()};
    const bool isSent = write(output, &report, sizeof report) == sizeof report;
    _exit(isSent ? 0 : 1);
}

} // namespace

Measurement MeasureInChild(const std::function<void(Stopwatch&)>& job)
{
    int ends[2];
    if (pipe(ends) != 0)
        return {};
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        RunChild(job, ends[1]);
    }
    close(ends[1]);
    Measurement result;
    Report report{};
    const bool isReceived =
        child > 0 && read(ends[0], &report, sizeof report) == static_cast<ssize_t>(sizeof report);
    close(ends[0]);
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child)
        return {};
    result.isDone = isReceived && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    result.seconds = report.seconds;
    result.bytes = report.bytes;
    result.peakMemory = static_cast<std::size_t>(usage.ru_maxrss) * 1024;
    return result;
}

double TimeProgram(const std::vector<std::string>& arguments)
{
    std::vector<char*> argv;
    argv.reserve(arguments.size() + 1);
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);

    const auto start = std::chrono::steady_clock::now();
    pid_t child = 0;
    int status = -1;
    const bool isStarted =
        posix_spawn(&child, argv[0], &actions, nullptr, argv.data(), environ) == 0;
    if (isStarted)
        waitpid(child, &status, 0);
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    posix_spawn_file_actions_destroy(&actions);
    const bool isDone = isStarted && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    return isDone ? time.count() : -1;
}

} // namespace XPJ::Bench
