#pragma once
// A fresh scratch directory that the test runs in: created under /tmp, made
// the working directory, and removed with its contents afterwards. Beside it,
// the two things tests that write files most often need: reading one back
// whole and catching what the code under test prints.
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

class TempDir {
public:
    TempDir()
    {
        char pattern[] = "/tmp/bqtestXXXXXX";
        const char* made = mkdtemp(pattern);
        EXPECT_NE(made, nullptr);
        path = made ? made : "/tmp";
        char* cwd = getcwd(nullptr, 0);
        previous = cwd ? cwd : "/";
        std::free(cwd);
        EXPECT_EQ(chdir(path.c_str()), 0);
    }
    ~TempDir()
    {
        if (chdir(previous.c_str()) != 0)
            ADD_FAILURE() << "cannot return to " << previous;
        if (path.rfind("/tmp/bqtest", 0) == 0)
            run("rm -rf '" + path + "'");
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    // Writes a file relative to the scratch directory, making its folders.
    void write(const std::string& name, const std::string& bytes) const
    {
        const std::size_t slash = name.rfind('/');
        if (slash != std::string::npos)
            run("mkdir -p '" + path + "/" + name.substr(0, slash) + "'");
        std::ofstream out(path + "/" + name, std::ios::binary);
        out << bytes;
    }

    // Runs a shell command in the scratch directory; true when it succeeds.
    static bool run(const std::string& command)
    {
        return std::system(command.c_str()) == 0;
    }

    // The whole of a file; "" when it cannot be read.
    static std::string read(const std::string& name)
    {
        std::ifstream in(name, std::ios::binary);
        std::ostringstream bytes;
        bytes << in.rdbuf();
        return bytes.str();
    }

    std::string path;

private:
    std::string previous;
};

// Runs `body` and returns what it wrote to standard output.
template <class F>
std::string stdoutOf(F body)
{
    std::fflush(stdout);
    ::testing::internal::CaptureStdout();
    body();
    std::fflush(stdout);
    return ::testing::internal::GetCapturedStdout();
}
