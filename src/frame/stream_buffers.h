// The stream buffers of a conversion: for plain files, and for a host's stream functions. None
// throws: failures are kept in `Status` or in the closed file, and are checked when the operation
// has ended.
#pragma once

#include "platform/files.h"

#include <vela_fcpxml/plugin.h>

#include <array>
#include <cstdint>
#include <streambuf>
#include <vector>

namespace XPJ {

// Writes whole blocks of 2048 bytes; the rest at a sync. The file outlives the buffer.
class FileWriterBuf final : public std::streambuf {
public:
    explicit FileWriterBuf(CoreFile& file);
    ~FileWriterBuf() override;

protected:
    int_type overflow(int_type c) override;
    std::streamsize xsputn(const char* text, std::streamsize size) override;
    int sync() override;

private:
    std::size_t Count() const { return static_cast<std::size_t>(pptr() - pbase()); }
    void WriteBlock();

    static constexpr std::size_t kBlockSize = 2048;

    CoreFile& file_;
    std::array<char, kBlockSize> buffer_;
};

// Reads a file in blocks. The file outlives the buffer.
class FileReaderBuf final : public std::streambuf {
public:
    explicit FileReaderBuf(CoreFile& file) : file_(file) {}

protected:
    int_type underflow() override;

private:
    static constexpr std::size_t kBlockSize = std::size_t{64} * 1024;

    CoreFile& file_;
    std::vector<char> buffer_ = std::vector<char>(kBlockSize);
};

// Fills the host's transfer buffer and passes it on when it is full. After a failure bytes are
// dropped.
class SuiteWriterBuf final : public std::streambuf {
public:
    SuiteWriterBuf(ConverterContext& context, const VelaProjectConverterSuite& suite);
    ~SuiteWriterBuf() override;

    // The host's first result other than 0; -1 for a context without a buffer.
    std::int32_t Status() const { return status_; }

protected:
    int_type overflow(int_type c) override;
    std::streamsize xsputn(const char* text, std::streamsize size) override;
    int sync() override;

private:
    void Flush();

    ConverterContext& context_;
    const VelaProjectConverterSuite& suite_;
    std::int32_t status_ = 0;
};

// Reads the first block on construction, before it is needed.
class SuiteReaderBuf final : public std::streambuf {
public:
    SuiteReaderBuf(ConverterContext& context, const VelaProjectConverterSuite& suite);

    // The host's first result other than 0; -1 for a context without a buffer.
    std::int32_t Status() const { return status_; }

protected:
    int_type underflow() override;

private:
    void Refill();

    ConverterContext& context_;
    const VelaProjectConverterSuite& suite_;
    std::int32_t status_ = 0;
    std::uint8_t moreData_ = 1;
};

} // namespace XPJ
