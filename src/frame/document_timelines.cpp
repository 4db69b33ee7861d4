#include "frame/document_timelines.h"

#include "core/paths.h"
#include "frame/formats.h"
#include "inspect/read_timelines.h"
#include "tree/input.h"

namespace XPJ {

DocumentTimelines ReadTimelines(std::string_view bytes, std::string_view folder)
{
    DocumentTimelines timelines;
    Document document;
    ObjectHandle root;
    DocumentDetails details;
    const std::string_view text = DecodeInput(bytes, document, timelines.encoding);
    timelines.result = FormatOfText(text).parse(text, document, root, details);
    timelines.stop = std::move(details.stop);
    if (timelines.result == kSuccess)
        timelines.project = Inspection::TimelinesOfTree(root, folder, details.isHandOff);
    return timelines;
}

DocumentTimelines ReadTimelinesOfFile(const std::string& path)
{
    Document document;
    std::string_view bytes;
    CoreFile file;
    if (file.Open(path, false) && ReadInput(file, document, bytes))
        return ReadTimelines(bytes, FolderOf(path));
    DocumentTimelines timelines;
    timelines.result = kInputCouldNotBeOpened;
    timelines.stop.reason = ErrorText(file.Error());
    return timelines;
}

} // namespace XPJ
