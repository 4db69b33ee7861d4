#include "frame/stream_buffers.h"
#include "frame_test_support.h"

#include <gtest/gtest.h>

#include <istream>
#include <iterator>
#include <ostream>

namespace XPJ {
namespace {

// Recognisable bytes.
std::string Bytes(std::size_t size)
{
    std::string text(size, ' ');
    for (std::size_t i = 0; i < size; ++i)
        text[i] = static_cast<char>(i * 7 + i / 251);
    return text;
}

TEST(FileWriterBuf, FullBlockStaysUntilOneMoreByte)
{
    const TempFolder folder;
    const std::string path = folder / "a";
    CoreFile file;
    ASSERT_TRUE(file.Open(path, true));
    FileWriterBuf buffer(file);
    std::ostream stream(&buffer);
    stream << Bytes(2048);
    EXPECT_EQ(TempFolder::Read(path), "");
    stream.put('x');
    EXPECT_EQ(TempFolder::Read(path), Bytes(2048));
    stream.flush();
    EXPECT_EQ(TempFolder::Read(path), Bytes(2048) + "x");
}

TEST(FileWriterBuf, TextsOfAnySizeComeInOrder)
{
    const TempFolder folder;
    const std::string path = folder / "a";
    const std::string text = Bytes(300000);
    for (const std::size_t step : {1u, 7u, 2047u, 2048u, 2049u, 4096u, 10000u, 300000u}) {
        CoreFile file;
        ASSERT_TRUE(file.Open(path, true));
        {
            FileWriterBuf buffer(file);
            std::ostream stream(&buffer);
            for (std::size_t i = 0; i < text.size(); i += step) {
                stream << text.substr(i, step);
                // Blocks only, and the last one waits.
                const std::size_t taken = std::min(i + step, text.size());
                if (step >= 2047) {
                    EXPECT_EQ(std::filesystem::file_size(path), (taken - 1) / 2048 * 2048);
                }
            }
        } // the destructor writes the rest
        EXPECT_EQ(TempFolder::Read(path), text) << step;
    }
}

TEST(FileWriterBuf, AFullDiskClosesTheFileAndRaisesNothing)
{
    CoreFile file;
    ASSERT_TRUE(file.Open("/dev/full", true));
    FileWriterBuf buffer(file);
    std::ostream stream(&buffer);
    stream << Bytes(10000) << std::flush << Bytes(10000);
    EXPECT_FALSE(file.IsOpen());
}

TEST(SuiteWriterBuf, HandsOverFullBuffers)
{
    TestHost host("");
    ConverterContext context = host.Context();
    SuiteWriterBuf buffer(context, TestHost::kSuite);
    std::ostream stream(&buffer);
    stream << Bytes(64);
    EXPECT_EQ(host.calls, 0); // waits for one more byte
    stream << "x";
    EXPECT_EQ(host.project, Bytes(64));
    stream << std::flush << std::flush;
    EXPECT_EQ(host.project, Bytes(64) + "x");
    EXPECT_EQ(host.calls, 2); // nothing to hand over is no call

    host.failAtCall = 4;
    stream << Bytes(1000) << std::flush << Bytes(1000) << std::flush;
    EXPECT_EQ(buffer.Status(), 5);
    EXPECT_EQ(host.calls, 4); // no call after a failure
    EXPECT_EQ(host.project, Bytes(64) + "x" + Bytes(64));
    EXPECT_TRUE(stream.good());
}

// Gives another, smaller buffer after the first block.
struct SwappingWriter {
    ConverterContext context{};
    char first[100];
    char second[10];
    std::string text;

    static std::int32_t Write(void* stream, std::uint32_t size, const void* bytes)
    {
        auto& writer = *static_cast<SwappingWriter*>(stream);
        writer.text.append(static_cast<const char*>(bytes), size);
        writer.context.buffer = writer.second;
        writer.context.bufferSize = sizeof(writer.second);
        return 0;
    }
};

TEST(SuiteWriterBuf, AHostMayChangeItsBuffer)
{
    const VelaProjectConverterSuite suite = {SwappingWriter::Write, nullptr};
    SwappingWriter writer;
    writer.context.streamHandle = &writer;
    writer.context.buffer = writer.first;
    writer.context.bufferSize = sizeof(writer.first);
    {
        SuiteWriterBuf buffer(writer.context, suite);
        std::ostream stream(&buffer);
        stream << Bytes(500);
    }
    EXPECT_EQ(writer.text, Bytes(500));
}

// Delivers blocks of the given sizes, the last with `moreData` cleared.
struct ScriptedReader {
    std::vector<std::uint32_t> blocks;
    std::size_t calls = 0;

    static std::int32_t Read(void* stream, std::uint8_t* moreData, std::uint32_t* size, void* bytes)
    {
        auto& reader = *static_cast<ScriptedReader*>(stream);
        *size = reader.blocks.at(reader.calls++);
        *moreData = reader.calls < reader.blocks.size();
        std::memset(bytes, 0xFF, std::min(*size, 16u));
        return 0;
    }
};

TEST(SuiteReaderBuf, ReadsToTheLastBlock)
{
    const VelaProjectConverterSuite suite = {nullptr, ScriptedReader::Read};
    const struct {
        std::vector<std::uint32_t> blocks;
        std::size_t bytes;
        std::size_t calls;
    } rows[] = {
        {{16, 16, 3}, 35, 3}, // no call after the last block
        {{0}, 0, 1},
        {{5, 0, 7}, 5, 2}, // no bytes are the end
        {{5, 100}, 21, 2}, // more than the capacity is cut
    };
    for (const auto& [blocks, bytes, calls] : rows) {
        char memory[16];
        ScriptedReader reader{blocks};
        ConverterContext context{};
        context.streamHandle = &reader;
        context.buffer = memory;
        context.bufferSize = sizeof(memory);
        SuiteReaderBuf buffer(context, suite);
        EXPECT_EQ(reader.calls, 1u); // before it is needed
        std::istream stream(&buffer);
        const std::string text{std::istreambuf_iterator<char>(stream), {}};
        EXPECT_EQ(text, std::string(bytes, '\xFF')); // a byte 0xFF is not the end
        EXPECT_EQ(reader.calls, calls);
        EXPECT_EQ(buffer.Status(), 0);
    }
}

TEST(SuiteReaderBuf, AFailureIsTheEnd)
{
    TestHost host("", Bytes(200));
    host.failAtCall = 3;
    ConverterContext context = host.Context();
    SuiteReaderBuf buffer(context, TestHost::kSuite);
    std::istream stream(&buffer);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_EQ(text, Bytes(128));
    EXPECT_EQ(buffer.Status(), 5);
    EXPECT_EQ(host.calls, 3);
}

TEST(SuiteBuffers, AContextWithoutABufferFailsAtOnce)
{
    const VelaProjectConverterSuite suite = {nullptr, nullptr};
    char memory[1];
    ConverterContext noBuffer{};
    noBuffer.bufferSize = 100;
    ConverterContext noSize{};
    noSize.buffer = memory;
    for (ConverterContext* context : {&noBuffer, &noSize}) {
        SuiteWriterBuf writer(*context, suite);
        std::ostream output(&writer);
        output << "text" << std::flush;
        EXPECT_EQ(writer.Status(), -1);
        SuiteReaderBuf reader(*context, suite);
        std::istream input(&reader);
        EXPECT_EQ(input.get(), std::char_traits<char>::eof());
        EXPECT_EQ(reader.Status(), -1);
    }
}

} // namespace
} // namespace XPJ
