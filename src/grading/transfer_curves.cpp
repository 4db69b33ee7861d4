#include "grading/transfer_curves.h"

#include "core/text.h"

#include <algorithm>
#include <iterator>

namespace XPJ {

const TransferCurve* FindTransferCurve(std::string_view name)
{
    const auto* const curve = std::ranges::find_if(
        kTransferCurves, [name](const auto& row) { return EqualsIgnoreCase(row.name, name); });
    return curve == std::end(kTransferCurves) ? nullptr : curve;
}

} // namespace XPJ
