#include "frame/document_timelines.h"

#include "core/paths.h"
#include "dialects/dialects.h"
#include "frame/formats.h"
#include "inspect/read_timelines.h"
#include "tree/input.h"

#include <set>

namespace XPJ {

DocumentTimelines ReadTimelines(std::string_view bytes, std::string_view folder,
                                DocumentReading reading)
{
    const bool asMeant = reading == DocumentReading::AsMeant;
    DocumentTimelines timelines;
    Document document;
    ObjectHandle root;
    DocumentDetails details;
    std::string decoded;
    const std::string_view text = DecodeDocument(bytes, decoded, timelines.encoding);
    const Format& format = FormatOfText(text);
    timelines.result = format.parse(text, asMeant, document, root, details);
    timelines.stop = std::move(details.stop);
    timelines.isHandOff = details.isHandOff;
    if (timelines.result != kSuccess)
        return timelines;
    // The audio hand-off is a contract of two programs.
    const bool isOpen = asMeant && !details.isHandOff;
    if (isOpen && format.kind == TreeKind::Xmeml) {
        AssumptionList assumptions;
        RestateAsMeant(document, root, assumptions);
    }
    timelines.project = Inspection::TimelinesOfTree(root, {folder, details.isHandOff, isOpen});
    return timelines;
}

DocumentFile::DocumentFile(std::string file) : path(std::move(file)), folder(FolderOf(path)) {}

DocumentTimelines ReadTimelinesOfFile(const DocumentFile& file, DocumentReading reading)
{
    InputText text;
    CoreFile source;
    if (source.Open(file.path, false) && text.Read(source))
        return ReadTimelines(text.Bytes(), file.folder, reading);
    DocumentTimelines timelines;
    timelines.result = kInputCouldNotBeOpened;
    timelines.stop.reason = ErrorText(source.Error());
    return timelines;
}

ComparedTimelines ReadForComparison(const DocumentFile& first, const DocumentFile& second,
                                    DocumentReading reading)
{
    ComparedTimelines both{ReadTimelinesOfFile(first, reading),
                           ReadTimelinesOfFile(second, reading)};
    if (both.first.isHandOff == both.second.isHandOff || reading == DocumentReading::ToTheLetter)
        return both;
    return ReadForComparison(first, second, DocumentReading::ToTheLetter);
}

void KeepSequencesOf(const Inspection::Project& other, Inspection::Project& project)
{
    std::set<std::string_view> names;
    for (const Inspection::Sequence& sequence : other.sequences)
        names.insert(sequence.name);
    project.entries.clear();
    std::erase_if(project.sequences, [&names](const Inspection::Sequence& sequence) {
        return !names.contains(sequence.name);
    });
    for (Inspection::Sequence& sequence : project.sequences)
        for (Inspection::Track& track : sequence.tracks)
            for (Inspection::Item& item : track.items)
                item.sequence = Inspection::kNothing;
}

} // namespace XPJ
