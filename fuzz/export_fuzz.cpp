// Any bytes that read as a project document become a whole `xmeml` document, or a result code.
#include "dialects/dialects.h"
#include "document_check.h"
#include "export/export_driver.h"
#include "project/reader.h"
#include "tree/reading.h"
#include "xmeml/writer.h"

#include <cstdlib>
#include <sstream>
#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace XPJ;
    std::istringstream input(std::string(reinterpret_cast<const char*>(data), size));
    Document read;
    ObjectHandle root;
    if (ReadProjectDocument(input, read, root) != kReadDone)
        return 0;

    struct Way {
        bool handOff;
        bool isOpen; // restated for other programs
    };
    for (const auto [handOff, isOpen] : {Way{false, false}, Way{true, false}, Way{false, true}}) {
        RVX::ExportOptions options;
        options.projectTitle = "Vela Project";
        options.vl2snMode = handOff;
        options.settings.openInterchange = isOpen;
        SilentProgress progress;
        Document document;
        Account account;
        ObjectHandle xmeml;
        try {
            if (RVX::TranslateProjectDocument(root, options, progress, document, account, xmeml) !=
                kSuccess)
                continue;
        } catch (const std::runtime_error&) {
            continue; // a frame length of zero: the operation gives kUnexpectedError
        }
        AssumptionList assumptions;
        if (isOpen)
            RestateForOthers(document, xmeml, {}, assumptions);
        std::ostringstream text;
        if (WriteFCPXML(xmeml, progress, handOff, text) != kWriteDone)
            std::abort();
        CheckWellFormed(text.str());
    }
    return 0;
}
