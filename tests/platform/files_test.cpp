#include "platform/files.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace XPJ {
namespace {

TEST(CoreFile, ReadsWhatWasWritten)
{
    const TempFolder folder;
    const std::string path = folder / "a b \xC3\xA9.txt";
    std::size_t count = 0;
    CoreFile file;
    ASSERT_TRUE(file.Open(path, true));
    EXPECT_TRUE(file.Write("Slate", 5, count));
    EXPECT_EQ(count, 5u);
    EXPECT_TRUE(file.Close());
    EXPECT_FALSE(file.Close());

    char text[16];
    ASSERT_TRUE(file.Open(path, false));
    EXPECT_TRUE(file.Read(text, sizeof(text), count));
    EXPECT_EQ(std::string(text, count), "Slate");
    EXPECT_TRUE(file.Read(text, sizeof(text), count)); // the end is no failure
    EXPECT_EQ(count, 0u);

    ASSERT_TRUE(file.Open(path, true)); // truncates
    file.Close();
    EXPECT_EQ(TempFolder::Read(path), "");
}

TEST(CoreFile, ClosesItselfAfterAFailure)
{
    const TempFolder folder;
    std::size_t count = 7;
    char byte = 0;
    CoreFile file;
    EXPECT_FALSE(file.Open(folder / "none", false));
    EXPECT_FALSE(file.Open(folder / "none/a", true));
    EXPECT_FALSE(file.Open(folder.Path(), true));

    ASSERT_TRUE(file.Open(folder.Path(), false)); // a folder opens but can't be read
    EXPECT_FALSE(file.Read(&byte, 1, count));
    EXPECT_EQ(count, 0u);
    EXPECT_FALSE(file.IsOpen());

    ASSERT_TRUE(file.Open("/dev/full", true));
    EXPECT_FALSE(file.Write(&byte, 1, count));
    EXPECT_FALSE(file.IsOpen());
    EXPECT_FALSE(file.Write(&byte, 1, count));
    EXPECT_EQ(count, 0u);
}

void WriteText(AtomicFile& file, std::string_view text)
{
    std::size_t count = 0;
    file.File().Write(text.data(), text.size(), count);
}

TEST(AtomicFile, AppearsWholeOrNotAtAll)
{
    const TempFolder folder;
    const std::string path = folder / "clip.xml";
    {
        AtomicFile file(path);
        ASSERT_TRUE(file.IsOpen());
        WriteText(file, "half");
        EXPECT_FALSE(FileExists(path));
    }
    EXPECT_EQ(folder.FileCount(), 0u);
    {
        AtomicFile file(path);
        WriteText(file, "whole");
        EXPECT_TRUE(file.Commit());
    }
    EXPECT_EQ(TempFolder::Read(path), "whole");
    EXPECT_EQ(folder.FileCount(), 1u);
    {
        AtomicFile file(path);
        WriteText(file, "half");
    }
    EXPECT_EQ(TempFolder::Read(path), "whole");
    EXPECT_EQ(folder.FileCount(), 1u);
}

TEST(AtomicFile, KeepsOthersFilesPermissionsAndLinks)
{
    const TempFolder folder;
    const std::string path = folder.Write("clip.xml", "old");
    const std::string foreign = folder.Write("clip.xml.part", "foreign");
    ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
    const std::string link = folder / "link.xml";
    ASSERT_EQ(::symlink("clip.xml", link.c_str()), 0);
    {
        AtomicFile file(link);
        WriteText(file, "new");
        EXPECT_TRUE(file.Commit());
    }
    EXPECT_EQ(TempFolder::Read(path), "new");
    EXPECT_EQ(TempFolder::Read(foreign), "foreign");
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    struct stat status {};
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640u);
}

TEST(AtomicFile, RefusesWhatCannotBeWritten)
{
    const TempFolder folder;
    for (const std::string& path : {std::string(), folder.Path(), folder / "none/clip.xml"}) {
        AtomicFile file(path);
        EXPECT_FALSE(file.IsOpen()) << path;
        EXPECT_FALSE(file.Commit()) << path;
    }
    EXPECT_EQ(folder.FileCount(), 0u);

    // A device is written to as it is; its failure counts.
    AtomicFile full("/dev/full");
    ASSERT_TRUE(full.IsOpen());
    WriteText(full, "x");
    EXPECT_FALSE(full.Commit());
    AtomicFile null("/dev/null");
    WriteText(null, "x");
    EXPECT_TRUE(null.Commit());
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

} // namespace
} // namespace XPJ
