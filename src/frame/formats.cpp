#include "frame/formats.h"

#include "core/conversion_result.h"
#include "platform/files.h"
#include "project/reader.h"
#include "project/writer.h"
#include "tree/input.h"
#include "tree/writing.h"
#include "xmeml/reader.h"
#include "xmeml/sniff.h"
#include "xmeml/writer.h"

#include <algorithm>
#include <istream>

namespace XPJ {

namespace {

int ResultOfRead(int readResult)
{
    switch (readResult) {
    case kReadDone:
        return kSuccess;
    case kReadCancelled:
        return kAborted;
    case kReadNoElement:
        return kNoXMELM;
    case kReadNoInput:
        return kInputCouldNotBeOpened;
    default:
        return kUnexpectedError;
    }
}

int ResultOfWrite(int writeResult)
{
    switch (writeResult) {
    case kWriteDone:
        return kSuccess;
    case kWriteCancelled:
        return kAborted;
    default:
        return kUnexpectedError;
    }
}

// ---- Final Cut Pro XML

ReadingManner MannerOf(bool isOpen)
{
    return isOpen ? ReadingManner::Open : ReadingManner::Letter;
}

int ReadXmeml(const DocumentInput& input, Progress& progress, Document& document,
              ObjectHandle& root, DocumentDetails& details)
{
    XmemlReadNotes found;
    const int result =
        ReadFCPXML(input.path, progress, document, root, &found, MannerOf(input.isOpen));
    details.stop = std::move(found.stop);
    details.encoding = std::move(found.encoding);
    details.ignored = std::move(found.ignored);
    details.isHandOff = found.kind.sn2vlMode;
    return ResultOfRead(result);
}

int ParseXmeml(std::string_view text, bool isOpen, Document& document, ObjectHandle& root,
               DocumentDetails& details)
{
    details.isHandOff = SniffText(text).sn2vlMode;
    return ResultOfRead(ParseFCPXML(text, document, root, &details.stop, MannerOf(isOpen)));
}

int WriteXmeml(ObjectHandle root, const WriteOptions& options, Progress& progress,
               std::ostream& output)
{
    return ResultOfWrite(WriteFCPXML(root, progress, options.handOff, output, options.additions));
}

// ---- Vela project

int ReadProjectFile(const std::string& path, Progress& progress, Document& document,
                    ObjectHandle& root, DocumentDetails& details)
{
    CoreFile file;
    file.StopWhen([&progress] { return progress.IsCancelled(); });
    InputText text;
    if (file.Open(path, false) && text.Read(file))
        return ResultOfRead(ReadProjectText(text, document, root, details));
    details.stop.reason = ErrorText(file.Error());
    return progress.IsCancelled() ? kAborted : kInputCouldNotBeOpened;
}

int ReadProject(const DocumentInput& input, Progress& progress, Document& document,
                ObjectHandle& root, DocumentDetails& details)
{
    return input.stream ? ResultOfRead(ReadProjectDocument(*input.stream, document, root, &details))
                        : ReadProjectFile(input.path, progress, document, root, details);
}

int ParseProject(std::string_view text, bool /*isOpen*/, Document& document, ObjectHandle& root,
                 DocumentDetails& details)
{
    return ResultOfRead(ParseProjectDocument(text, document, root, &details.stop));
}

int WriteProject(ObjectHandle root, const WriteOptions& options, Progress& progress,
                 std::ostream& output)
{
    return ResultOfWrite(WriteProjectDocument(root, progress, output, options.handOff));
}

constexpr Format kFormats[] = {
    {.kind = TreeKind::Xmeml,
     .name = "Final Cut Pro XML",
     .extension = "xml",
     .element = "xmeml",
     .read = ReadXmeml,
     .parse = ParseXmeml,
     .write = WriteXmeml},
    {.kind = TreeKind::Project,
     .name = "Vela project",
     .extension = "vlproj",
     .element = "VelaData",
     .read = ReadProject,
     .parse = ParseProject,
     .write = WriteProject},
};

bool HoldsStartTag(std::string_view text, std::string_view element)
{
    for (std::size_t at = text.find(element); at != text.npos; at = text.find(element, at + 1))
        if (at > 0 && text[at - 1] == '<')
            return true;
    return false;
}

} // namespace

std::span<const Format> AllFormats()
{
    return kFormats;
}

const Format& FormatOf(TreeKind kind)
{
    return *std::ranges::find(kFormats, kind, &Format::kind);
}

const Format* FormatOfExtension(std::string_view extension)
{
    const Format* const found = std::ranges::find(kFormats, extension, &Format::extension);
    return found == std::end(kFormats) ? nullptr : found;
}

const Format* KnownFormatOfText(std::string_view text)
{
    // The prologue and the comments before the document element are short.
    constexpr std::size_t kHead = 65536;
    const std::string_view head = text.substr(0, kHead);
    const auto opens = [head](const Format& format) { return HoldsStartTag(head, format.element); };
    const Format* const found = std::ranges::find_if(kFormats, opens);
    return found == std::end(kFormats) ? nullptr : found;
}

const Format& FormatOfText(std::string_view text)
{
    const Format* const known = KnownFormatOfText(text);
    return known ? *known : kFormats[0];
}

} // namespace XPJ
