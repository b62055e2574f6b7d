// For tests of code that reads files relative to the working directory: a change of working
// directory that the destructor undoes, and a fresh empty directory that is removed again.
#pragma once

#include <gtest/gtest.h>
#include <climits>
#include <cstdlib>
#include <string>
#include <unistd.h>

class WorkingDirectory {
public:
    explicit WorkingDirectory(const std::string& path)
    {
        char here[PATH_MAX];
        if (getcwd(here, sizeof here) != nullptr) previous = here;
        EXPECT_EQ(chdir(path.c_str()), 0) << path;
    }
    ~WorkingDirectory()
    {
        if (!previous.empty()) {
            EXPECT_EQ(chdir(previous.c_str()), 0) << previous;
        }
    }

    WorkingDirectory(const WorkingDirectory&) = delete;
    WorkingDirectory& operator=(const WorkingDirectory&) = delete;

private:
    std::string previous;
};

// An empty directory under the system's temporary directory, removed by the destructor (it
// must be empty again by then).
class EmptyDirectory {
public:
    EmptyDirectory()
    {
        char pattern[] = "/tmp/kelvane-empty-XXXXXX";
        const char* made = mkdtemp(pattern);
        EXPECT_NE(made, nullptr);
        if (made != nullptr) path = made;
    }
    ~EmptyDirectory()
    {
        if (!path.empty()) {
            EXPECT_EQ(rmdir(path.c_str()), 0) << path;
        }
    }

    EmptyDirectory(const EmptyDirectory&) = delete;
    EmptyDirectory& operator=(const EmptyDirectory&) = delete;

    std::string path;
};
