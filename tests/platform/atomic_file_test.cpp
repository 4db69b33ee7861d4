#include "platform/atomic_file.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace XPJ {
namespace {

void WriteText(AtomicFile& file, std::string_view text)
{
    std::size_t count = 0;
    file.File().Write(text.data(), text.size(), count);
}

TEST(AtomicFile, AppearsCompleteOrNotAtAll)
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

TEST(AtomicFile, GivesTheReason)
{
    const TempFolder folder;
    const struct {
        std::string path;
        int error;
    } rows[] = {
        {"", ENOENT},
        {folder.Path(), EISDIR},
        {folder / "none/clip.xml", ENOENT},
        {folder / std::string(256, 'n'), ENAMETOOLONG},
    };
    for (const auto& [path, error] : rows)
        EXPECT_EQ(AtomicFile(path).Reason(), ErrorText(error)) << path;
    AtomicFile full("/dev/full");
    WriteText(full, "x");
    EXPECT_EQ(full.Reason(), ErrorText(ENOSPC));
}

// Whether `path` then holds the new text.
bool Replaces(const std::string& path)
{
    AtomicFile file(path);
    WriteText(file, "new");
    return file.Commit() && TempFolder::Read(path) == "new";
}

TEST(AtomicFile, LongNamesHaveShorterTemporaryOnes)
{
    const TempFolder folder;
    for (std::size_t size = 249; size <= 255; ++size) {
        EXPECT_TRUE(Replaces(folder / std::string(size, 'n'))) << size;
        EXPECT_TRUE(Replaces(folder / std::string(size, 'n'))) << size; // what is there, too
    }
    std::string accents;
    while (accents.size() < 254)
        accents += "\xC3\xA9";
    EXPECT_TRUE(Replaces(folder / accents));
    EXPECT_EQ(folder.FileCount(), 8u);
}

TEST(AtomicFile, OthersTemporaryFilesStay)
{
    const TempFolder folder;
    folder.Write("a.xml.part", "theirs");
    for (int i = 1; i < 150; ++i)
        folder.Write("a.xml.part" + std::to_string(i), "theirs");
    EXPECT_TRUE(Replaces(folder / "a.xml"));
    EXPECT_EQ(folder.FileCount(), 151u);
}

TEST(AtomicFile, WritesThroughALinkToWhatIsNotThereYet)
{
    const TempFolder folder;
    std::filesystem::create_directory(folder / "sub");
    const std::pair<const char*, const char*> links[] = {
        {"first", "second"}, {"second", "sub/third"}, {"sub/third", "../target.xml"}};
    for (const auto& [link, target] : links)
        ASSERT_EQ(::symlink(target, (folder / link).c_str()), 0);
    {
        AtomicFile file(folder / "first");
        WriteText(file, "lost");
    }
    EXPECT_FALSE(FileExists(folder / "target.xml"));
    EXPECT_TRUE(Replaces(folder / "first"));
    EXPECT_EQ(TempFolder::Read(folder / "target.xml"), "new");
    for (const auto& [link, target] : links)
        EXPECT_TRUE(std::filesystem::is_symlink(folder / link)) << link;

    ASSERT_EQ(::symlink("none/x", (folder / "astray").c_str()), 0);
    EXPECT_EQ(AtomicFile(folder / "astray").Reason(), ErrorText(ENOENT));
    ASSERT_EQ(::symlink("loop", (folder / "loop").c_str()), 0);
    EXPECT_EQ(AtomicFile(folder / "loop").Reason(), ErrorText(ELOOP));
}

constexpr uid_t kNobody = 65534;

// As somebody whom permissions bind, in a process of its own.
template <class Body>
void ExpectAsNobody(const Body& body)
{
    const auto run = [&body] {
        if (::getuid() == 0 && ::setuid(kNobody) != 0)
            std::_Exit(1);
        std::_Exit(body() ? 0 : 2);
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(0), "");
}

// A folder that takes no new files, with a file in it that anybody may write.
class LockedFolder : public testing::Test {
protected:
    LockedFolder()
    {
        EXPECT_EQ(::chmod(path_.c_str(), 0666), 0);
        EXPECT_EQ(::chmod(folder_.Path().c_str(), 0555), 0);
    }
    ~LockedFolder() override { ::chmod(folder_.Path().c_str(), 0755); }

    const TempFolder folder_;
    const std::string path_ = folder_.Write("clip.xml", std::string(5000, 'o'));
};

TEST_F(LockedFolder, AFileInItIsWrittenInPlace)
{
    ExpectAsNobody([this] {
        {
            AtomicFile file(path_);
            WriteText(file, "lost");
        }
        return TempFolder::Read(path_).size() == 5000 && Replaces(path_);
    });
    EXPECT_EQ(TempFolder::Read(path_), "new");
    EXPECT_EQ(folder_.FileCount(), 1u);
}

TEST_F(LockedFolder, AFailedWriteBringsTheOldTextBack)
{
    ExpectAsNobody([this] {
        AtomicFile file(path_);
        const std::string text(20000, 'n');
        WriteText(file, text);
        const rlimit limit{10000, 10000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        return !file.Commit() && file.Reason() == ErrorText(EFBIG);
    });
    EXPECT_EQ(TempFolder::Read(path_), std::string(5000, 'o'));
}

TEST_F(LockedFolder, ANewFileIsRefused)
{
    ExpectAsNobody([this] {
        AtomicFile file(folder_ / "new.xml");
        return !file.IsOpen() && file.Reason() == ErrorText(EACCES);
    });
}

} // namespace
} // namespace XPJ
