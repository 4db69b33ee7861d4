#include "xpjconvert/guard.h"

#include "core/conversion_result.h"
#include "xpjconvert/print.h"

#include <exception>
#include <new>

namespace XPJ {

int RunGuarded(const std::function<int()>& run)
{
    try {
        return run();
    } catch (const std::bad_alloc&) {
        PrintError("XPJConvert: The converter ran out of memory.\n");
        return kOutOfMemory;
    } catch (const std::exception& error) {
        PrintError("XPJConvert: An unexpected error occurred. (");
        PrintError(error.what());
        PrintError(")\n");
    }
    return kUnexpectedError;
}

} // namespace XPJ
