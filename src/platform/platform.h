// The current platform, and short cuts to what most callers need of it.
//
// It is replaced between conversions only, never during one: the conversion's worker reads it
// without a lock.
#pragma once

#include "core/messages.h"
#include "platform/platform_interface.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace XPJ {

// The current platform; a `DefaultPlatform` unless replaced.
Platform& GetPlatform();

// From here on the texts of the default platform are in the user's language, as far as a catalog is
// installed. Another platform has texts of its own.
void UseInstalledCatalog();

// Makes a platform current for the scope's life.
class PlatformScope {
public:
    explicit PlatformScope(Platform& platform);
    ~PlatformScope();
    PlatformScope(const PlatformScope&) = delete;
    PlatformScope& operator=(const PlatformScope&) = delete;

private:
    Platform* previous_;
};

// Localised text of a message; the empty string for a number out of range.
std::string GetMessage(Message message);
// With its arguments filled in.
std::string GetMessage(Message message, std::initializer_list<std::string_view> arguments);

// The text of a new GUID.
std::string NewGuidText();
// True when the debug database holds the flag with a value other than "0", "false" or nothing.
bool DebugFlag(std::string_view key);

} // namespace XPJ
