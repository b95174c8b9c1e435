#pragma once
// The game's log lines would drown the benchmark table: while one of these
// lives, standard output goes nowhere.
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

class QuietStdout {
public:
    QuietStdout()
    {
        std::fflush(stdout);
        saved = dup(1);
        const int null = open("/dev/null", O_WRONLY);
        dup2(null, 1);
        close(null);
    }
    ~QuietStdout()
    {
        std::fflush(stdout);
        dup2(saved, 1);
        close(saved);
    }
    QuietStdout(const QuietStdout&) = delete;
    QuietStdout& operator=(const QuietStdout&) = delete;

private:
    int saved = -1;
};
