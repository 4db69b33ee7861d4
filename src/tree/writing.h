// What all writers say of how writing went.
#pragma once

namespace XPJ {

enum WriteResult : int {
    kWriteDone = 0,
    kWriteCancelled = -2,
};

} // namespace XPJ
