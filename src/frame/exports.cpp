// The exported functions: wrappers that let no exception into the host, and see to the user's
// language.
#include "core/conversion_result.h"
#include "frame/console.h"
#include "frame/entry.h"
#include "platform/platform.h"

#include <iostream>

namespace {

template <class Function>
std::int32_t Guarded(std::int32_t failure, Function function) noexcept
{
    try {
        XPJ::UseInstalledCatalog();
        return function();
    } catch (...) {
        return failure;
    }
}

} // namespace

std::int32_t xProjectConverterEntry(std::int32_t selector, void* record) noexcept
{
    return xProjectConverterEntryWithAAFSupport(selector, record, 0);
}

std::int32_t xProjectConverterEntryWithAAFSupport(std::int32_t selector, void* record,
                                                  std::uint8_t supportsAAF) noexcept
{
    return Guarded(kVelaConversionFailed,
                   [&] { return XPJ::RunSelector(selector, record, supportsAAF != 0); });
}

std::int32_t importFCPXML(const char* input, const char* output,
                          const ConverterContext* contextTemplate) noexcept
{
    if (contextTemplate)
        return Guarded(kVelaConversionFailed,
                       [&] { return XPJ::ImportWithTemplate(input, *contextTemplate); });
    return Guarded(XPJ::kUnexpectedError, [&] {
        return XPJ::ConvertFile({.inputPath = input ? input : "",
                                 .outputPath = output ? output : "",
                                 .aafSupport = true},
                                std::cout);
    });
}
