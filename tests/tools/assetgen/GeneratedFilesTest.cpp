// The generator's table of files against its readers: the game's load tables and music track,
// and the build's list of outputs. A picture the game loads but nobody makes, a picture made
// but never loaded, or a file the build would not make again once deleted fails here.
#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "Generator.h"
#include "app/Music.h"
#include "base/Resources.h"

namespace {

const std::string kPictureDir = "gfx/";

std::set<std::string> generatedUnder(const std::string& dir)
{
    std::set<std::string> files;
    for (const std::string& file : assetgen::generatedFiles())
        if (file.rfind(dir, 0) == 0)
            files.insert(file);
    return files;
}

// Every file the game loads as a texture or a font image.
std::set<std::string> gameLoads()
{
    std::set<std::string> files;
    for (const Resources::TextureFile& file : Resources::kTextureFiles)
        files.insert(file.path);
    for (const Resources::FontFile& file : Resources::kFontFiles)
        files.insert(file.path);
    return files;
}

} // namespace

TEST(GeneratedFiles, EveryFileTheGameLoadsIsGenerated)
{
    const std::set<std::string> pictures = generatedUnder(kPictureDir);
    for (const std::string& file : gameLoads())
        EXPECT_EQ(pictures.count(file), 1u) << file << " is loaded by the game but not generated";
}

TEST(GeneratedFiles, EveryGeneratedPictureIsLoadedByTheGame)
{
    const std::set<std::string> loaded = gameLoads();
    for (const std::string& file : generatedUnder(kPictureDir))
        EXPECT_EQ(loaded.count(file), 1u) << file << " is generated but the game never loads it";
    EXPECT_EQ(loaded.size(), 40u);  // 36 texture files and 4 font images
}

TEST(GeneratedFiles, TheOnlyOtherFileIsTheGamesMusic)
{
    const std::vector<std::string> files = assetgen::generatedFiles();
    EXPECT_EQ(files.size(), generatedUnder(kPictureDir).size() + 1);
    EXPECT_EQ(generatedUnder("sfx/"), std::set<std::string>{kMusicFile});
}

TEST(GeneratedFiles, EachFileIsWrittenByOneJob)
{
    const std::vector<std::string> files = assetgen::generatedFiles();
    EXPECT_EQ(std::set<std::string>(files.begin(), files.end()).size(), files.size());
}

TEST(GeneratedFiles, TheContactSheetShowsEveryPicture)
{
    std::set<std::string> shown;
    for (const std::string& name : assetgen::generatedPictures())
        shown.insert(kPictureDir + name + ".png");
    EXPECT_EQ(shown, generatedUnder(kPictureDir));
}

TEST(GeneratedFiles, TheBuildMakesExactlyTheListedFiles)
{
    // The build reads the table with a regular expression; its reading must be the generator's.
    std::vector<std::string> outputs;
    std::istringstream in(KELVANE_BUILD_OUTPUTS);
    for (std::string file; in >> file;)
        outputs.push_back(file);
    EXPECT_EQ(outputs, assetgen::generatedFiles());
}
