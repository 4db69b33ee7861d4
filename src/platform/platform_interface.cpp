#include "platform/platform_interface.h"

#include "core/messages.h"
#include "core/text.h"

namespace XPJ {

std::u16string Platform::Localize(std::string_view key)
{
    return ToUTF16(DefaultText(key));
}

void Platform::ShowMessageBox(const std::string&, const std::string&, const std::string&) {}

void Platform::RunProgressDialog(ProgressOperation&, const std::string&, const std::string&) {}

} // namespace XPJ
