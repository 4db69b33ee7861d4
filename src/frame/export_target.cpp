#include "frame/export_target.h"
#include "core/paths.h"
#include "platform/platform.h"

namespace XPJ {

namespace {

constexpr std::string_view kHandOffMarker = "__Vl2Sn__";

} // namespace

ExportTarget ExportTargetOf(std::string_view path)
{
    ExportTarget target;
    std::string_view name = FileNameOf(path);
    const std::size_t marker = name.find(kHandOffMarker);
    target.isHandOff = marker != name.npos;
    if (target.isHandOff)
        name.remove_prefix(marker + kHandOffMarker.size());
    target.path = std::string(FolderOf(path)).append(name);
    target.title = name.substr(0, name.rfind('.'));
    if (target.title.empty())
        target.title = GetMessage(Message::kOrrinVelaProProject);
    return target;
}

} // namespace XPJ
