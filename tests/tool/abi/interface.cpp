// What the public header promises, as a library of its own: the three functions, and an object of
// each other type, so that debug information describes it.
#include <vela_fcpxml/plugin.h>

extern "C" {

VELA_FCPXML_EXPORT VelaFileTypeTable fileTypes;
VELA_FCPXML_EXPORT ConverterContext context;
VELA_FCPXML_EXPORT BasicSuiteSource basicSuiteSource;
VELA_FCPXML_EXPORT HSBasicSuite basicSuite;
VELA_FCPXML_EXPORT VelaProjectConverterSuite projectConverterSuite;
VELA_FCPXML_EXPORT decltype(kVelaSelectorImport) selector;
VELA_FCPXML_EXPORT decltype(kVelaDone) result;
VELA_FCPXML_EXPORT VelaEntryFunction entry;
VELA_FCPXML_EXPORT VelaEntryWithAAFSupportFunction entryWithAAFSupport;
VELA_FCPXML_EXPORT VelaImportFunction import;

int32_t xProjectConverterEntry(int32_t /*selector*/, void* /*record*/) noexcept
{
    return kVelaDone;
}

int32_t xProjectConverterEntryWithAAFSupport(int32_t /*selector*/, void* /*record*/,
                                             uint8_t /*supportsAAF*/) noexcept
{
    return kVelaDone;
}

int32_t importFCPXML(const char* /*input*/, const char* /*output*/,
                     const ConverterContext* /*contextTemplate*/) noexcept
{
    return kVelaDone;
}

} // extern "C"
