// Runs a program as a child process of a benchmark and measures its peak resident memory. The
// program is run through the benchmark started again as "--peak-of program args...", a small
// go-between that reports its child's peak: measured from the benchmark itself, Linux would
// count the benchmark's own memory in the child's peak (it carries over the exec).
#pragma once

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QByteArray>
#include <QStringList>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

extern char** environ;

namespace BenchChildProcess {

constexpr char kPeakOf[] = "--peak-of";

inline std::string& Self() {
    static std::string self = [] {
        char path[4096] = {};
        const ssize_t length = readlink("/proc/self/exe", path, sizeof path - 1);
        return length > 0 ? std::string(path, size_t(length)) : std::string("/proc/self/exe");
    }();
    return self;
}

inline std::vector<char*> Argv(std::vector<QByteArray>& bytes) {
    std::vector<char*> argv;
    for (QByteArray& argument : bytes) argv.push_back(argument.data());
    argv.push_back(nullptr);
    return argv;
}

// The "--peak-of" side: runs the program with standard output thrown away, writes its peak
// resident memory in KB, and exits with its exit code.
inline int ReportPeakOf(char** argv) {
    const pid_t pid = fork();
    if (pid == 0) {
        const int null = open("/dev/null", O_WRONLY);
        dup2(null, STDOUT_FILENO);
        execv(argv[0], argv);
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (pid < 0 || wait4(pid, &status, 0, &usage) != pid) return 127;
    std::printf("%ld\n", usage.ru_maxrss);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 127;
}

// Call first in main(): when this process was started as the go-between, runs the program and
// sets the exit code to return.
inline bool IsGoBetween(int argc, char** argv, int& exitCode) {
    if (argc <= 2 || std::strcmp(argv[1], kPeakOf) != 0) return false;
    exitCode = ReportPeakOf(argv + 2);
    return true;
}

// Runs the program (arguments[0]) to its end; its exit code, or -1 when it could not be run.
// `peakKB` is its peak resident memory.
inline int Run(const QStringList& arguments, long& peakKB) {
    std::vector<QByteArray> bytes{QByteArray(Self().c_str()), QByteArray(kPeakOf)};
    for (const QString& argument : arguments) bytes.push_back(argument.toLocal8Bit());
    std::vector<char*> argv = Argv(bytes);
    int report[2];
    if (pipe(report) != 0) return -1;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, report[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, report[0]);
    pid_t pid = 0;
    const int spawned = posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(report[1]);
    char text[32] = {};
    const ssize_t got = spawned == 0 ? read(report[0], text, sizeof text - 1) : -1;
    close(report[0]);
    int status = 0;
    if (spawned != 0 || waitpid(pid, &status, 0) != pid || got <= 0) return -1;
    peakKB = std::atol(text);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace BenchChildProcess
