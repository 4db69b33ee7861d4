#include "frame/export_target.h"
#include "core/paths.h"
#include "platform/platform.h"

namespace XPJ {

namespace {

constexpr std::string_view kHandOffMark = "__Vl2Sn__";

} // namespace

ExportTarget ExportTargetOf(std::string_view path)
{
    ExportTarget target;
    std::string_view name = FileNameOf(path);
    const std::size_t mark = name.find(kHandOffMark);
    target.vl2snMode = mark != name.npos;
    if (target.vl2snMode)
        name.remove_prefix(mark + kHandOffMark.size());
    target.path = std::string(FolderOf(path)).append(name);
    target.title = name.substr(0, name.rfind('.'));
    if (target.title.empty())
        target.title = GetMessage(Message::kOrrinVelaProProject);
    return target;
}

} // namespace XPJ
