#pragma once
// A fresh scratch directory that the test runs in: created under /tmp, made
// the working directory, and removed with its contents afterwards.
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <fstream>
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

    std::string path;

private:
    std::string previous;
};
