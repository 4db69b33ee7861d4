// Any bytes that read as an `xmeml` document become a whole project document, or a result code.
#include "document_check.h"

#include "core/base64.h"
#include "dialects/dialects.h"
#include "import/import_driver.h"
#include "project/writer.h"
#include "tree/reading.h"
#include "xmeml/reader.h"

#include <cstdlib>
#include <sstream>

namespace {

// Title documents are XML of their own, whatever words they hold.
void CheckTitles(std::string_view project)
{
    using namespace XPJ;
    constexpr std::string_view kPrefs = "<ImporterPrefs Encoding=\"base64\"";
    for (std::size_t at = project.find(kPrefs); at != project.npos;
         at = project.find(kPrefs, at + 1)) {
        const std::size_t begin = project.find('>', at) + 1;
        const std::string prefs =
            DecodeBase64(project.substr(begin, project.find('<', begin) - begin));
        if (prefs.starts_with("<?xml"))
            CheckWellFormed(prefs);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace XPJ;
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    Document read;
    ObjectHandle root;
    if (ParseFCPXML(input, read, root) != kReadDone)
        return 0;

    // Documents as their writers mean them, and to the letter.
    const bool isOpen = (size & 4) != 0;
    AssumptionList assumptions;
    if (isOpen)
        RestateAsMeant(read, root, assumptions);

    ImportOptions options;
    options.inputPath = "/documents/input.xml";
    // The routes of titles in turn.
    options.settings.convertTitles = size % 2 != 0;
    options.settings.openInterchange = isOpen;
    options.settings.titlesAsMasterEffects = size % 4 == 3;
    SilentProgress progress;
    Document document;
    Account account;
    ObjectHandle project;
    const int result = ImportDocument(root, options, progress, document, account, project);
    if (static_cast<bool>(project) != (result == kSuccess))
        std::abort();
    if (result != kSuccess)
        return 0;

    std::ostringstream text;
    if (WriteProjectDocument(project, progress, text, options.sn2vlMode) != kWriteDone)
        std::abort();
    CheckProjectText(text.str());
    CheckTitles(text.str());
    return 0;
}
