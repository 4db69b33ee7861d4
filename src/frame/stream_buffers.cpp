#include "frame/stream_buffers.h"

#include <algorithm>

namespace XPJ {

namespace {

constexpr std::int32_t kNoBuffer = -1;

bool HasBuffer(const ConverterContext& context)
{
    return context.buffer && context.bufferSize > 0;
}

} // namespace

FileWriterBuf::FileWriterBuf(CoreFile& file) : file_(file)
{
    setp(buffer_.data(), buffer_.data() + buffer_.size());
}

FileWriterBuf::~FileWriterBuf()
{
    WriteBlock();
}

void FileWriterBuf::WriteBlock()
{
    std::size_t written = 0;
    if (Count() > 0)
        file_.Write(pbase(), Count(), written);
    setp(buffer_.data(), buffer_.data() + buffer_.size());
}

FileWriterBuf::int_type FileWriterBuf::overflow(int_type c)
{
    WriteBlock();
    if (!traits_type::eq_int_type(c, traits_type::eof()))
        sputc(traits_type::to_char_type(c));
    return traits_type::not_eof(c);
}

// Bytes of a long text that belong to whole blocks go to the file in one write.
std::streamsize FileWriterBuf::xsputn(const char* text, std::streamsize size)
{
    const std::size_t room = kBlockSize - Count();
    std::size_t left = static_cast<std::size_t>(size);
    if (left > room) {
        std::copy_n(text, room, pptr());
        pbump(static_cast<int>(room));
        text += room;
        left -= room;
        WriteBlock();
        // A full last block stays in the buffer.
        const std::size_t direct = (left - 1) / kBlockSize * kBlockSize;
        std::size_t written = 0;
        if (direct > 0)
            file_.Write(text, direct, written);
        text += direct;
        left -= direct;
    }
    std::copy_n(text, left, pptr());
    pbump(static_cast<int>(left));
    return size;
}

int FileWriterBuf::sync()
{
    WriteBlock();
    return file_.IsOpen() ? 0 : -1;
}

FileReaderBuf::int_type FileReaderBuf::underflow()
{
    std::size_t count = 0;
    if (gptr() == egptr() && file_.Read(buffer_.data(), buffer_.size(), count))
        setg(buffer_.data(), buffer_.data(), buffer_.data() + count);
    return gptr() == egptr() ? traits_type::eof() : traits_type::to_int_type(*gptr());
}

SuiteWriterBuf::SuiteWriterBuf(ConverterContext& context, const VelaProjectConverterSuite& suite)
    : context_(context), suite_(suite)
{
    if (!HasBuffer(context_))
        status_ = kNoBuffer;
    Flush();
}

SuiteWriterBuf::~SuiteWriterBuf()
{
    Flush();
}

// Leaves the host's buffer empty, or no buffer at all after a failure. The context is read again,
// since a host may provide another buffer after each block.
void SuiteWriterBuf::Flush()
{
    const auto count = std::min(static_cast<std::size_t>(pptr() - pbase()),
                                static_cast<std::size_t>(context_.bufferSize));
    if (status_ == 0 && count > 0)
        status_ = suite_.WriteProjectData(context_.streamHandle, static_cast<std::uint32_t>(count),
                                          context_.buffer);
    if (status_ == 0 && !HasBuffer(context_))
        status_ = kNoBuffer;
    char* const buffer = status_ == 0 ? static_cast<char*>(context_.buffer) : nullptr;
    setp(buffer, buffer ? buffer + context_.bufferSize : nullptr);
}

SuiteWriterBuf::int_type SuiteWriterBuf::overflow(int_type c)
{
    Flush();
    if (status_ == 0 && !traits_type::eq_int_type(c, traits_type::eof()))
        sputc(traits_type::to_char_type(c));
    return traits_type::not_eof(c);
}

std::streamsize SuiteWriterBuf::xsputn(const char* text, std::streamsize size)
{
    return status_ == 0 ? std::streambuf::xsputn(text, size) : size;
}

int SuiteWriterBuf::sync()
{
    Flush();
    return 0;
}

SuiteReaderBuf::SuiteReaderBuf(ConverterContext& context, const VelaProjectConverterSuite& suite)
    : context_(context), suite_(suite)
{
    if (!HasBuffer(context_))
        status_ = kNoBuffer;
    Refill();
}

void SuiteReaderBuf::Refill()
{
    std::uint32_t count = 0;
    if (moreData_ && status_ == 0) {
        count = context_.bufferSize;
        status_ =
            suite_.ReadProjectData(context_.streamHandle, &moreData_, &count, context_.buffer);
        count = status_ == 0 ? std::min(count, context_.bufferSize) : 0;
    }
    char* const buffer = static_cast<char*>(context_.buffer);
    setg(buffer, buffer, count > 0 ? buffer + count : buffer);
}

SuiteReaderBuf::int_type SuiteReaderBuf::underflow()
{
    if (gptr() == egptr())
        Refill();
    return gptr() == egptr() ? traits_type::eof() : traits_type::to_int_type(*gptr());
}

} // namespace XPJ
