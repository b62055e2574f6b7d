// Running the generator again gives byte-identical files: the build's run directory is
// compared with a fresh run into a temporary directory.
#include <dirent.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "RunDirFiles.h"

namespace {

std::vector<std::string> filesIn(const std::string& dir)
{
    std::vector<std::string> names;
    if (DIR* d = opendir(dir.c_str())) {
        while (dirent* e = readdir(d)) {
            std::string n = e->d_name;
            if (n != "." && n != "..")
                names.push_back(n);
        }
        closedir(d);
    }
    return names;
}

} // namespace

TEST(Determinism, SecondRunGivesIdenticalFiles)
{
    char pattern[] = "/tmp/kelvane-assets-XXXXXX";
    ASSERT_NE(mkdtemp(pattern), nullptr);
    const std::string fresh = pattern;
    const std::string command = std::string("\"") + KELVANE_ASSETGEN + "\" \"" + fresh + "\"";
    ASSERT_EQ(std::system(command.c_str()), 0);

    int compared = 0;
    for (const std::string sub : {"gfx", "sfx"}) {
        for (const std::string& name : filesIn(testing_assets::runPath(sub))) {
            std::vector<uint8_t> built = testing_assets::readFile(testing_assets::runPath(sub + "/" + name));
            std::vector<uint8_t> again = testing_assets::readFile(fresh + "/" + sub + "/" + name);
            EXPECT_FALSE(again.empty()) << name;
            EXPECT_TRUE(built == again) << sub << "/" << name << " differs between runs";
            ++compared;
            std::remove((fresh + "/" + sub + "/" + name).c_str());
        }
        rmdir((fresh + "/" + sub).c_str());
    }
    rmdir(fresh.c_str());
    EXPECT_EQ(compared, 41);
}
