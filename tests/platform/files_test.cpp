#include "platform/files.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>

#include <sys/resource.h>
#include <sys/stat.h>

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

TEST(CoreFile, KeepsWhatFailed)
{
    const TempFolder folder;
    CoreFile file;
    EXPECT_FALSE(file.Open(folder / "none", false));
    EXPECT_EQ(file.Error(), ENOENT);
    EXPECT_EQ(ErrorText(file.Error()), "No such file or directory");
    char byte = 0;
    std::size_t count = 0;
    ASSERT_TRUE(file.Open("/dev/full", true));
    EXPECT_EQ(file.Error(), 0);
    EXPECT_FALSE(file.Write(&byte, 1, count));
    EXPECT_FALSE(file.Close());
    EXPECT_EQ(file.Error(), ENOSPC);
}

// A pipe without a writer, without a reader, or with one that stops reading.
TEST(CoreFile, AWaitCanBeStopped)
{
    const TempFolder folder;
    const std::string pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    int looks = 0;
    const auto stop = [&looks] { return ++looks > 2; };
    std::size_t count = 0;
    char byte = 0;

    CoreFile reader;
    reader.StopWhen(stop);
    ASSERT_TRUE(reader.Open(pipe, false));
    EXPECT_FALSE(reader.Read(&byte, 1, count));
    EXPECT_EQ(reader.Error(), ECANCELED);

    looks = 0;
    CoreFile writer;
    writer.StopWhen(stop);
    EXPECT_FALSE(writer.Open(pipe, true));
    EXPECT_EQ(writer.Error(), ECANCELED);

    looks = 0;
    reader.StopWhen([] { return false; });
    ASSERT_TRUE(reader.Open(pipe, false));
    ASSERT_TRUE(writer.Open(pipe, true));
    const std::string more(std::size_t{1024} * 1024, 'x'); // than a pipe holds
    EXPECT_FALSE(writer.Write(more.data(), more.size(), count));
    EXPECT_EQ(writer.Error(), ECANCELED);
    EXPECT_TRUE(reader.Read(&byte, 1, count));
    EXPECT_EQ(byte, 'x');
}

// Neither a closed pipe nor the limit of a file's size ends the process, whose own handling of
// both signals is as before.
TEST(CoreFile, NoWriteRaisesASignal)
{
    const TempFolder folder;
    const auto writeBeyondLimits = [&folder] {
        const rlimit limit{1000, 1000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const std::string text(2000, 'x');
        std::size_t count = 0;
        CoreFile file;
        const bool isWritten =
            file.Open(folder / "large", true) && file.Write(text.data(), text.size(), count);
        const int fileError = file.Error();

        const std::string pipe = folder / "pipe";
        CoreFile reader;
        CoreFile writer;
        reader.StopWhen([] { return false; }); // so that it opens without a writer
        if (::mkfifo(pipe.c_str(), 0600) != 0 || !reader.Open(pipe, false) ||
            !writer.Open(pipe, true))
            std::_Exit(1);
        reader.Close();
        const bool isPiped = writer.Write("x", 1, count);

        struct sigaction action {};
        bool isDefault = true;
        for (const int signal : {SIGPIPE, SIGXFSZ}) {
            ::sigaction(signal, nullptr, &action);
            isDefault = isDefault && action.sa_handler == SIG_DFL;
        }
        sigset_t blocked;
        ::pthread_sigmask(SIG_BLOCK, nullptr, &blocked);
        const bool isOpenToBoth =
            ::sigismember(&blocked, SIGPIPE) == 0 && ::sigismember(&blocked, SIGXFSZ) == 0;
        std::_Exit(!isWritten && fileError == EFBIG && !isPiped && writer.Error() == EPIPE &&
                           isDefault && isOpenToBoth
                       ? 0
                       : 2);
    };
    EXPECT_EXIT(writeBeyondLimits(), testing::ExitedWithCode(0), "");
}

} // namespace
} // namespace XPJ
