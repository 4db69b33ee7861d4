#include "platform/settings.h"

#include "platform/platform.h"

namespace XPJ {

Settings ReadSettings()
{
    return {.convertTitles = DebugFlag("FCP.ConvertTitleToGraphicAndType"),
            .titlesAsMasterEffects = DebugFlag("FCP.ConvertTitleToGraphicAndTypeAsMasterEffects"),
            .exportTransform = DebugFlag("FCPXML.ExportTransformEffect"),
            .openInterchange = DebugFlag("FCP.OpenInterchange")};
}

} // namespace XPJ
