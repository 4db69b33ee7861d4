#include "inspect/read_timelines.h"

#include "core/paths.h"
#include "project/reader.h"
#include "tree/input.h"
#include "xmeml/reader.h"
#include "xmeml/sniff.h"

namespace XPJ::Inspection {

namespace {

// The document elements, with the first character behind the name.
bool Opens(std::string_view text, std::string_view element)
{
    for (std::size_t at = text.find(element); at != text.npos; at = text.find(element, at + 1))
        if (at > 0 && text[at - 1] == '<')
            return true;
    return false;
}

// Prologue and comments in front of the document element are short.
constexpr std::size_t kHead = 65536;

bool IsProject(std::string_view text)
{
    const std::string_view head = text.substr(0, kHead);
    return Opens(head, "VelaData") && !Opens(head, "xmeml");
}

int ReadTree(std::string_view text, Document& document, ObjectHandle& root, ReadStop& stop)
{
    return IsProject(text) ? ParseProjectDocument(text, document, root, &stop)
                           : ParseFCPXML(text, document, root, &stop);
}

} // namespace

Project ReadTimelines(ObjectHandle root, std::string_view folder, bool isHandOff)
{
    return root.GetName() == "VelaData" ? ReadProjectTimelines(root)
                                        : ReadXmemlTimelines(root, folder, isHandOff);
}

ReadOutcome ReadTimelines(std::string_view bytes, std::string_view folder)
{
    ReadOutcome outcome;
    Document document;
    ObjectHandle root;
    const std::string_view text = DecodeInput(bytes, document, outcome.encoding);
    outcome.result = ReadTree(text, document, root, outcome.stop);
    if (outcome.result == kReadDone)
        outcome.project = ReadTimelines(root, folder, SniffText(text).sn2vlMode);
    return outcome;
}

ReadOutcome ReadTimelinesOfFile(const std::string& path)
{
    Document document;
    std::string_view bytes;
    CoreFile file;
    if (file.Open(path, false) && ReadInput(file, document, bytes))
        return ReadTimelines(bytes, FolderOf(path));
    ReadOutcome outcome;
    outcome.result = kReadNoInput;
    outcome.stop.reason = ErrorText(file.Error());
    return outcome;
}

} // namespace XPJ::Inspection
