#include "inspect/read_timelines.h"

namespace XPJ::Inspection {

Project TimelinesOfTree(ConstHandle root, std::string_view folder, bool isHandOff)
{
    return root.GetName() == "VelaData" ? ReadProjectTimelines(root)
                                        : ReadXmemlTimelines(root, folder, isHandOff);
}

} // namespace XPJ::Inspection
