// How writing went, as all writers report it.
#pragma once

namespace XPJ {

enum WriteResult : int {
    kWriteDone = 0,
    kWriteCancelled = -2,
};

} // namespace XPJ
