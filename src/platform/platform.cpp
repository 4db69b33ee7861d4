#include "platform/platform.h"
#include "core/text.h"
#include "platform/default_platform.h"

namespace XPJ {

namespace {

DefaultPlatform& FirstPlatform()
{
    static DefaultPlatform platform;
    return platform;
}

Platform*& CurrentPlatform()
{
    static Platform* current = &FirstPlatform();
    return current;
}

} // namespace

Platform& GetPlatform()
{
    return *CurrentPlatform();
}

void UseInstalledCatalog()
{
    FirstPlatform().UseCatalog(InstalledCatalog());
}

PlatformScope::PlatformScope(Platform& platform) : previous_(CurrentPlatform())
{
    CurrentPlatform() = &platform;
}

PlatformScope::~PlatformScope()
{
    CurrentPlatform() = previous_;
}

std::string GetMessage(Message message)
{
    const std::string_view key = MessageKey(message);
    return key.empty() ? std::string() : ToUTF8(GetPlatform().Localize(key));
}

std::string GetMessage(Message message, std::initializer_list<std::string_view> arguments)
{
    return FormatMessage(GetMessage(message), arguments);
}

std::string NewGuidText()
{
    return AsString(GetPlatform().CreateUniqueGuid());
}

bool DebugFlag(std::string_view key)
{
    const std::optional<std::string> value = GetPlatform().DebugEntry(key);
    return value && !value->empty() && *value != "0" && !EqualsIgnoreCase(*value, "false");
}

} // namespace XPJ
