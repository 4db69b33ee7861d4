#include "xpjconvert/print.h"
#include "platform/files.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace XPJ {
namespace {

int gFirstError = 0; // of the standard output

void KeepError()
{
    if (gFirstError == 0)
        gFirstError = errno;
}

} // namespace

void HoldStandardStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(stream, F_GETFD) < 0 && errno == EBADF)
            // With the wrong access, so that its use still fails. It gets the lowest free number.
            static_cast<void>(open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY));
}

void Print(std::string_view text)
{
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size())
        KeepError();
}

void PrintError(std::string_view text)
{
    std::fwrite(text.data(), 1, text.size(), stderr); // there is nobody left to report a failure to
}

std::string FlushPrinted()
{
    if (std::fflush(stdout) != 0)
        KeepError();
    return gFirstError == 0 ? std::string() : ErrorText(gFirstError);
}

} // namespace XPJ
