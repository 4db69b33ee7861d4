#include "frame/user_messages.h"
#include "core/conversion_result.h"
#include "platform/platform.h"

namespace XPJ {

namespace {

struct ResultRow {
    int result;
    Message message;
};

constexpr ResultRow kResultMessages[] = {
    {kAborted, Message::kAborted},
    {kNoFCPDataFound, Message::kNoFCPDataFound},
    {kOutOfMemory, Message::kOutOfMemory},
    {kNoXMELM, Message::kNoXMELM},
    {kInputCouldNotBeOpened, Message::kInputCouldNotBeOpened},
};

} // namespace

Message MessageOfResult(int result)
{
    for (const ResultRow& row : kResultMessages)
        if (row.result == result)
            return row.message;
    return Message::kUnexpectedError;
}

void ShowMessage(Message title, const std::string& text, bool showUI)
{
    if (showUI && GetPlatform().HasUserInterface())
        GetPlatform().ShowMessageBox(GetMessage(title), text, GetMessage(Message::kOK));
}

void ReportConversionResult(int result, bool showUI)
{
    if (result != kNoXMELM)
        ShowMessage(Message::kFCPXMLImportFailed, GetMessage(MessageOfResult(result)), showUI);
}

} // namespace XPJ
