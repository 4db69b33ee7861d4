// Documents, a platform and a host for the tests of the frame.
#pragma once

#include "core/text.h"
#include "platform/default_platform.h"
#include "platform/platform.h"
#include "support/fixed_time.h"
#include "support/temp_folder.h"

#include <vela_fcpxml/plugin.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

namespace XPJ {

inline constexpr char kSmallXML[] =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE xmeml>\n<xmeml version=\"4\"><project>"
    "<name>Pilot</name><children><bin><name>Rushes</name></bin></children></project></xmeml>\n";
// An unknown version: one issue.
inline constexpr char kFutureXML[] =
    "<xmeml version=\"9\"><project><name>Pilot</name><children></children></project></xmeml>";
inline constexpr char kHandOffFutureXML[] =
    "<xmeml version=\"9\"><importoptions><sn2vl></sn2vl></importoptions><project>"
    "<name>Pilot</name><children></children></project></xmeml>";
inline constexpr char kSmallProject[] =
    "<VelaData Version=\"3\"><Project ObjectRef=\"1\"/><Project ObjectID=\"1\"></Project>"
    "</VelaData>";
inline constexpr char kFutureProject[] =
    "<VelaData Version=\"4\"><Project ObjectRef=\"1\"/><Project ObjectID=\"1\"></Project>"
    "</VelaData>";

// Reports go to a folder of the test; what would be shown is kept.
class TestPlatform final : public DefaultPlatform {
public:
    explicit TestPlatform(const TempFolder& reports) { SetReportFolder(reports.Path()); }

    std::chrono::system_clock::time_point Now() override { return FixedTime(); }
    bool HasUserInterface() override { return hasUserInterface; }
    void ShowMessageBox(const std::string& title, const std::string& text,
                        const std::string& button) override
    {
        boxes.push_back(title + "|" + text + "|" + button);
    }
    void RunProgressDialog(ProgressOperation& operation, const std::string& label,
                           const std::string& cancelButton) override
    {
        dialogs.push_back(label + "|" + cancelButton);
        if (cancelInDialog)
            operation.Cancel();
    }

    void StartServices() override { ++runningServices; }
    void StopServices() override { runningServices = std::max(runningServices - 1, 0); }

    int runningServices = 0;
    bool hasUserInterface = true;
    bool cancelInDialog = false;
    std::vector<std::string> boxes;
    std::vector<std::string> dialogs;
};

// A host with its suite; `Context()` leads to it. One at a time.
class TestHost {
public:
    explicit TestHost(const std::string& xmlPath, std::string projectText = {})
        : project(std::move(projectText)), path_(ToUTF16(xmlPath))
    {
        current_ = this;
    }
    ~TestHost() { current_ = nullptr; }
    TestHost(const TestHost&) = delete;
    TestHost& operator=(const TestHost&) = delete;

    ConverterContext Context()
    {
        ConverterContext context{};
        context.streamHandle = this;
        context.path = path_.c_str();
        context.buffer = buffer_.data();
        context.bufferSize = static_cast<std::uint32_t>(buffer_.size());
        context.basicSuiteSource = &kSource;
        context.showUI = 1;
        return context;
    }
    void SetBufferSize(std::size_t size) { buffer_.resize(size); }

    std::string project;        // written, or to be read
    std::size_t readOffset = 0; // into `project`
    int calls = 0;              // of the stream functions
    int failAtCall = 0;         // from 1 on; 0: never
    int acquired = 0;           // without releases
    bool givesBasicSuite = true;
    std::int32_t acquireResult = 0;
    bool givesSuite = true;

    static const VelaProjectConverterSuite kSuite;

private:
    static std::int32_t Write(void* stream, std::uint32_t size, const void* bytes)
    {
        auto& host = *static_cast<TestHost*>(stream);
        if (++host.calls == host.failAtCall)
            return 5;
        host.project.append(static_cast<const char*>(bytes), size);
        return 0;
    }
    static std::int32_t Read(void* stream, std::uint8_t* moreData, std::uint32_t* size, void* bytes)
    {
        auto& host = *static_cast<TestHost*>(stream);
        if (++host.calls == host.failAtCall)
            return 5;
        const std::size_t left = host.project.size() - host.readOffset;
        *size = static_cast<std::uint32_t>(std::min<std::size_t>(*size, left));
        std::memcpy(bytes, host.project.data() + host.readOffset, *size);
        host.readOffset += *size;
        *moreData = host.readOffset < host.project.size();
        return 0;
    }
    static const HSBasicSuite* GetBasicSuite()
    {
        return current_->givesBasicSuite ? &kBasicSuite : nullptr;
    }
    static std::int32_t Acquire(const char* name, std::int32_t version, const void** suite)
    {
        if (current_->acquireResult != 0)
            return current_->acquireResult;
        if (std::strcmp(name, "Vela Project Converter Suite") != 0 || version != 1)
            return 1;
        *suite = current_->givesSuite ? &kSuite : nullptr;
        current_->acquired += current_->givesSuite ? 1 : 0;
        return 0;
    }
    static std::int32_t Release(const char*, std::int32_t)
    {
        --current_->acquired;
        return 0;
    }

    static inline TestHost* current_ = nullptr;
    static constexpr HSBasicSuite kBasicSuite{Acquire, Release};
    static constexpr BasicSuiteSource kSource{GetBasicSuite};

    std::u16string path_;
    std::vector<char> buffer_ = std::vector<char>(64);
};

inline constexpr VelaProjectConverterSuite TestHost::kSuite{Write, Read};

} // namespace XPJ
