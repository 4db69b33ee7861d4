#include "xpjconvert/conversion_process.h"

#include "platform/atomic_file.h"
#include "xpjconvert/convert_document.h"
#include "xpjconvert/guard.h"
#include "xpjconvert/interrupt.h"
#include "xpjconvert/print.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

namespace XPJ {
namespace {

// What a child writes for its parent, followed by the path of the report.
struct ChildResult {
    int status = kUnexpectedError;
    OutcomeCounts counts = {};
};

void WriteAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
        if (count <= 0)
            return; // without it the parent takes the document for failed
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

// 0 for what isn't there.
std::uint64_t SizeOf(const std::string& path)
{
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    return error ? 0 : size;
}

double SecondsOf(const timeval& time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

// A conversion that someone else has stopped is a failure of the batch.
RowResult ResultOf(int status)
{
    if (IsInterrupted() && (status == kAborted || status > 128))
        return RowResult::Aborted;
    return status == kSuccess || status == kLossesFound ? RowResult::Converted : RowResult::Failed;
}

// The lines of the standard error as one, without the tool's name.
std::string MessageOf(std::string_view errors)
{
    constexpr std::string_view kTool = "XPJConvert: ";
    std::string message;
    while (!errors.empty()) {
        const std::size_t end = std::min(errors.find('\n'), errors.size());
        std::string_view line = errors.substr(0, end);
        if (line.starts_with(kTool))
            line.remove_prefix(kTool.size());
        message.append(message.empty() ? "" : " ").append(line);
        errors.remove_prefix(std::min(end + 1, errors.size()));
    }
    return message;
}

// How a process has ended that gave no result.
std::string EndText(int waitStatus)
{
    if (!WIFSIGNALED(waitStatus))
        return fmt::format("the conversion ended with status {}", WEXITSTATUS(waitStatus));
    const int number = WTERMSIG(waitStatus);
    // NOLINTNEXTLINE(concurrency-mt-unsafe): whoever starts processes has no threads
    const char* const name = ::strsignal(number);
    return fmt::format("the conversion was ended by signal {} ({})", number, name);
}

} // namespace

ConversionProcess::ConversionProcess(Task task) : task_(std::move(task)) {}

bool ConversionProcess::Start(const ChildSignal& childSignal, Lifeline& lifeline)
{
    if (printed_.Descriptor() < 0 || errors_.Descriptor() < 0 || result_.Descriptor() < 0) {
        errno = EMFILE;
        return false;
    }
    hadTemporary_ = FileExists(task_.outputPath + kTemporarySuffix);
    FlushPrinted(); // or the child prints it again
    begin_ = std::chrono::steady_clock::now();
    id_ = ::fork();
    if (id_ != 0)
        return id_ > 0;
    lifeline.Hold();
    childSignal.Restore();
    Convert();
}

void ConversionProcess::Convert()
{
    printed_.Replace(STDOUT_FILENO);
    errors_.Replace(STDERR_FILENO);
    ChildResult result;
    std::string report;
    result.status = RunGuarded([&] {
        const ConvertedDocument converted =
            ConvertDocument(task_.options, task_.document, task_.outputPath);
        result.counts = CountOutcomes(converted.outcome.account);
        report = converted.outcome.reportPath;
        if (report.empty() && !task_.options.reports.empty())
            report = task_.options.reports.front();
        return converted.status;
    });
    FlushPrinted();
    WriteAll(result_.Descriptor(), {reinterpret_cast<const char*>(&result), sizeof result});
    WriteAll(result_.Descriptor(), report);
    ::_exit(0); // what is to be destroyed belongs to the parent
}

BatchRow ConversionProcess::RowOf(int waitStatus, const rusage& usage) const
{
    const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - begin_;
    BatchRow row{.input = task_.document.path,
                 .output = task_.outputPath,
                 .message = MessageOf(Errors()),
                 .seconds = spent.count(),
                 .cpuSeconds = SecondsOf(usage.ru_utime) + SecondsOf(usage.ru_stime),
                 .peakMemory = static_cast<std::uint64_t>(usage.ru_maxrss) * 1024,
                 .bytesIn = SizeOf(task_.document.path)};
    const std::string text = result_.Read();
    if (!WIFEXITED(waitStatus) || text.size() < sizeof(ChildResult)) {
        RemoveIncomplete();
        row.status = WIFSIGNALED(waitStatus) ? 128 + WTERMSIG(waitStatus) : kUnexpectedError;
        row.result = ResultOf(row.status);
        row.message.append(row.message.empty() ? "" : " ").append(EndText(waitStatus));
        return row;
    }
    ChildResult result;
    std::memcpy(&result, text.data(), sizeof result);
    row.status = result.status;
    row.result = ResultOf(result.status);
    row.counts = result.counts;
    row.report = text.substr(sizeof result);
    if (row.result == RowResult::Converted && !task_.options.dryRun)
        row.bytesOut = SizeOf(task_.outputPath);
    return row;
}

// What a process leaves that could not clear up.
void ConversionProcess::RemoveIncomplete() const
{
    if (!hadTemporary_)
        ::unlink((task_.outputPath + kTemporarySuffix).c_str());
}

} // namespace XPJ
