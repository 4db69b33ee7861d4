#include "frame/document_timelines.h"

#include "core/paths.h"
#include "dialects/dialects.h"
#include "frame/formats.h"
#include "inspect/read_timelines.h"
#include "tree/input.h"

namespace XPJ {

DocumentTimelines ReadTimelines(std::string_view bytes, std::string_view folder,
                                DocumentReading reading)
{
    const bool isOpen = reading == DocumentReading::AsMeant;
    DocumentTimelines timelines;
    Document document;
    ObjectHandle root;
    DocumentDetails details;
    const std::string_view text = DecodeInput(bytes, document, timelines.encoding);
    const Format& format = FormatOfText(text);
    timelines.result = format.parse(text, isOpen, document, root, details);
    timelines.stop = std::move(details.stop);
    timelines.isHandOff = details.isHandOff;
    if (timelines.result != kSuccess)
        return timelines;
    // The audio hand-off is a contract of two programs.
    if (isOpen && format.kind == TreeKind::Xmeml && !details.isHandOff) {
        AssumptionList assumptions;
        RestateAsMeant(document, root, assumptions);
    }
    timelines.project = Inspection::TimelinesOfTree(root, folder, details.isHandOff);
    return timelines;
}

DocumentTimelines ReadTimelinesOfFile(const std::string& path, DocumentReading reading)
{
    Document document;
    std::string_view bytes;
    CoreFile file;
    if (file.Open(path, false) && ReadInput(file, document, bytes))
        return ReadTimelines(bytes, FolderOf(path), reading);
    DocumentTimelines timelines;
    timelines.result = kInputCouldNotBeOpened;
    timelines.stop.reason = ErrorText(file.Error());
    return timelines;
}

ComparedTimelines ReadForComparison(const std::string& first, const std::string& second,
                                    DocumentReading reading)
{
    ComparedTimelines both{ReadTimelinesOfFile(first, reading),
                           ReadTimelinesOfFile(second, reading)};
    if (both.first.isHandOff == both.second.isHandOff || reading == DocumentReading::ToTheLetter)
        return both;
    return ReadForComparison(first, second, DocumentReading::ToTheLetter);
}

} // namespace XPJ
