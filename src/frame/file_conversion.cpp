#include "frame/file_conversion.h"

#include "core/paths.h"
#include "frame/operation.h"
#include "frame/stream_buffers.h"
#include "platform/atomic_file.h"

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <ostream>
#include <thread>

namespace XPJ {

namespace {

using namespace std::chrono_literals;

constexpr auto kCheckInterval = 50ms;
constexpr int kChecksPerShow = 5; // progress each 250 ms

// An output file with its stream.
class OutputFile {
public:
    OutputFile(const std::string& path, StopCheck wantsStop)
        : file_(path, std::move(wantsStop)), buffer_(file_.File())
    {
    }
    std::ostream& Stream() { return stream_; }
    bool Commit() { return file_.Commit(); }
    bool WasStopped() { return file_.File().Error() == ECANCELED; }
    std::string Reason() const { return file_.Reason(); }

private:
    AtomicFile file_;
    FileWriterBuf buffer_;
    std::ostream stream_{&buffer_};
};

// Whether the watcher wants to stop. Its function is called on its own thread alone; a worker sees
// the last answer.
class StopRequest {
public:
    explicit StopRequest(const ProgressWatch& watch) : watch_(watch) {}
    bool Poll()
    {
        if (!isRequested_ && watch_.wantsStop && watch_.wantsStop())
            isRequested_ = true;
        return isRequested_;
    }
    // For files, whichever thread uses them.
    StopCheck Check()
    {
        return [this, watcher = std::this_thread::get_id()] {
            return std::this_thread::get_id() == watcher ? Poll() : isRequested_.load();
        };
    }

private:
    const ProgressWatch& watch_;
    std::atomic<bool> isRequested_ = false;
};

// False when the operation could not be started.
bool RunToEnd(Operation& operation, const ProgressWatch& watch, StopRequest& stop)
{
    if (!operation.Start())
        return false;
    for (int check = 1; !operation.WaitFor(kCheckInterval); ++check) {
        if (stop.Poll())
            operation.Cancel();
        if (watch.show && check % kChecksPerShow == 0)
            watch.show(operation.GetProgress());
    }
    return true;
}

const std::string& PathToRead(const ConversionRequest& request)
{
    return request.readFrom.empty() ? request.inputPath : request.readFrom;
}

const std::string& PathToWrite(const ConversionRequest& request)
{
    return request.writeTo.empty() ? request.outputPath : request.writeTo;
}

// Devices may be both.
bool ReplacesInput(const ConversionRequest& request)
{
    std::error_code error;
    return std::filesystem::is_regular_file(PathToRead(request), error) &&
           std::filesystem::equivalent(PathToRead(request), PathToWrite(request), error);
}

} // namespace

ConversionOutcome ConvertFiles(const ConversionRequest& request, const ProgressWatch& watch)
{
    ConversionOutcome outcome;
    if (ReplacesInput(request)) {
        outcome.stop.reason = "input and output are the same file";
        return outcome;
    }
    StopRequest stop(watch);
    OutputFile output(PathToWrite(request), stop.Check());
    if (output.WasStopped()) {
        outcome.result = kAborted;
        return outcome;
    }
    Operation operation(request, {.input = nullptr, .output = output.Stream()});
    if (!RunToEnd(operation, watch, stop))
        return outcome;
    outcome = operation.TakeOutcome();
    if (output.WasStopped()) {
        outcome.result = kAborted;
    } else if (outcome.result == kSuccess && !output.Commit()) {
        outcome.outputLost = true;
        outcome.lossReason = output.Reason();
        outcome.result = kUnexpectedError;
    }
    return outcome;
}

std::string DefaultOutputName(const ConversionRequest& request)
{
    const std::string_view name = FileNameOf(request.inputPath);
    const std::size_t end = name.find(std::string(".").append(request.from->extension));
    return std::string(name.substr(0, end)).append(".").append(request.to->extension);
}

} // namespace XPJ
