/* The functions that a host calls, and the records that it passes, to convert between Final Cut Pro
 * XML documents
 * (`xmeml`, versions 1 to 5) and Vela project documents.
 *
 * Plain C99 and C++11, and all later ones; records have the natural alignment of 64-bit platforms.
 * The library exports the three functions at the end of this file and nothing else. All calls come
 * on one thread, one at a time; the two stream functions of the host's suite are called on a worker
 * thread while the calling thread waits. docs/hosting.md describes all of it.
 */
#ifndef VELA_FCPXML_PLUGIN_H
#define VELA_FCPXML_PLUGIN_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* A unit of UTF-16. In C it is the type that <uchar.h>, if there is one, calls char16_t. */
#ifdef __cplusplus
typedef char16_t VelaChar16;
#else
typedef uint_least16_t VelaChar16;
#endif

/* Selectors of the entry functions. Any other selector gives kVelaUnknownSelector. */
enum {
    kVelaSelectorStartUp = 0,  /* record: VelaFileTypeTable; fills it and starts the services */
    kVelaSelectorImport = 2,   /* record: ConverterContext; XML file to project stream */
    kVelaSelectorExport = 4,   /* record: ConverterContext; project stream to XML file */
    kVelaSelectorShutDown = 7, /* record unused; stops the services */
};

/* Results of the entry functions. */
enum {
    kVelaDone = 0,
    kVelaAborted = 1, /* by the user */
    kVelaUnknownSelector = 3,
    kVelaStreamFailed = -1,       /* a stream function of the host gave a status other than 0 */
    kVelaNoTable = -2,            /* start-up with a null record */
    kVelaNoContext = -1000,       /* import or export with a null record */
    kVelaNoSuiteSource = -2000,   /* basicSuiteSource is null */
    kVelaNoBasicSuite = -3000,    /* its function gave null */
    kVelaSuiteRefused = -4000,    /* AcquireSuite gave a status other than 0 */
    kVelaSuiteMissing = -5000,    /* AcquireSuite gave a null suite */
    kVelaFileNotCreated = -6000,  /* export: the XML file can't be created */
    kVelaConversionFailed = -7000 /* no FCP XML document, or the conversion failed */
};

/* A file type as the host's dialogs show it. Texts are zero-terminated and cut at the field's end;
 * units behind the zero keep what they held. */
typedef struct FileTypeRecord {
    uint8_t canImport; /* 1: can be read by kVelaSelectorImport */
    uint8_t canExport; /* 1: can be written by kVelaSelectorExport */
    VelaChar16 filterName[30];
    VelaChar16 extension[30]; /* wildcard, "*.xml" */
    VelaChar16 description[30];
} FileTypeRecord;

/* Record of kVelaSelectorStartUp; the host clears it first. Two records are filled; of the third,
 * the end mark, only `canImport` is written, with 0. `canExport` of the first isn't written. */
typedef struct VelaFileTypeTable {
    FileTypeRecord records[3];
} VelaFileTypeTable;

/* The host's services: each function gives 0 for success. */
typedef struct HSBasicSuite {
    int32_t (*AcquireSuite)(const char* name, int32_t version, const void** suite);
    int32_t (*ReleaseSuite)(const char* name, int32_t version);
} HSBasicSuite;

typedef struct BasicSuiteSource {
    const HSBasicSuite* (*GetBasicSuite)(void);
} BasicSuiteSource;

/* The suite that carries project documents. A status other than 0 ends the transfer, and the
 * conversion then ends with kVelaStreamFailed. */
#define VELA_PROJECT_CONVERTER_SUITE "Vela Project Converter Suite"
#define VELA_PROJECT_CONVERTER_SUITE_VERSION 1

typedef struct VelaProjectConverterSuite {
    /* Takes `byteCount` bytes of the project document out of `buffer`. */
    int32_t (*WriteProjectData)(void* streamHandle, uint32_t byteCount, const void* buffer);
    /* Puts the next bytes of the project document into `buffer`. `size` comes in as the capacity
     * and goes out as the bytes delivered; 0 bytes are the end. `moreData` comes in as 1; cleared,
     * it marks the last block. */
    int32_t (*ReadProjectData)(void* streamHandle, uint8_t* moreData, uint32_t* size, void* buffer);
} VelaProjectConverterSuite;

/* Record of kVelaSelectorImport and kVelaSelectorExport. The host owns it and all it points to. */
typedef struct ConverterContext {
    void* streamHandle;     /* passed to the stream functions, otherwise unused */
    const VelaChar16* path; /* zero-terminated: the XML file to read, or to create */
    void* buffer;           /* transfer buffer of the stream functions */
    uint32_t bufferSize;    /* in bytes, at least 1 */
    uint32_t reserved0;
    const BasicSuiteSource* basicSuiteSource;
    uint8_t reserved1[14];
    uint8_t showUI;        /* not 0: message boxes and the progress dialog may be shown */
    char sequenceGuid[36]; /* export: the sequence to export, not terminated; anything that is no
                              GUID, or the zero GUID, means the whole project */
    uint8_t reserved2[5];
} ConverterContext;

/* The layout, checked when this is compiled. */
#if defined(__cplusplus)
#define VELA_FCPXML_CHECK(condition) static_assert(condition, #condition)
#elif defined(__STDC_VERSION__) && __STDC_VERSION__ >= 201112L
#define VELA_FCPXML_CHECK(condition) _Static_assert(condition, #condition)
#else /* a parameter's array of negative size is an error */
#define VELA_FCPXML_CHECK(condition) extern void VelaLayoutCheck(char check[(condition) ? 1 : -1])
#endif

VELA_FCPXML_CHECK(sizeof(FileTypeRecord) == 182);
VELA_FCPXML_CHECK(offsetof(FileTypeRecord, canImport) == 0);
VELA_FCPXML_CHECK(offsetof(FileTypeRecord, canExport) == 1);
VELA_FCPXML_CHECK(offsetof(FileTypeRecord, filterName) == 2);
VELA_FCPXML_CHECK(offsetof(FileTypeRecord, extension) == 62);
VELA_FCPXML_CHECK(offsetof(FileTypeRecord, description) == 122);
VELA_FCPXML_CHECK(sizeof(VelaFileTypeTable) == 546);
VELA_FCPXML_CHECK(sizeof(HSBasicSuite) == 16);
VELA_FCPXML_CHECK(offsetof(HSBasicSuite, AcquireSuite) == 0);
VELA_FCPXML_CHECK(offsetof(HSBasicSuite, ReleaseSuite) == 8);
VELA_FCPXML_CHECK(sizeof(BasicSuiteSource) == 8);
VELA_FCPXML_CHECK(sizeof(VelaProjectConverterSuite) == 16);
VELA_FCPXML_CHECK(offsetof(VelaProjectConverterSuite, WriteProjectData) == 0);
VELA_FCPXML_CHECK(offsetof(VelaProjectConverterSuite, ReadProjectData) == 8);
VELA_FCPXML_CHECK(sizeof(ConverterContext) == 96);
VELA_FCPXML_CHECK(offsetof(ConverterContext, streamHandle) == 0);
VELA_FCPXML_CHECK(offsetof(ConverterContext, path) == 8);
VELA_FCPXML_CHECK(offsetof(ConverterContext, buffer) == 16);
VELA_FCPXML_CHECK(offsetof(ConverterContext, bufferSize) == 24);
VELA_FCPXML_CHECK(offsetof(ConverterContext, reserved0) == 28);
VELA_FCPXML_CHECK(offsetof(ConverterContext, basicSuiteSource) == 32);
VELA_FCPXML_CHECK(offsetof(ConverterContext, reserved1) == 40);
VELA_FCPXML_CHECK(offsetof(ConverterContext, showUI) == 54);
VELA_FCPXML_CHECK(offsetof(ConverterContext, sequenceGuid) == 55);
VELA_FCPXML_CHECK(offsetof(ConverterContext, reserved2) == 91);

#undef VELA_FCPXML_CHECK

#if defined(__GNUC__)
#define VELA_FCPXML_EXPORT __attribute__((visibility("default")))
#else
#define VELA_FCPXML_EXPORT
#endif

#if defined(__cplusplus)
#define VELA_FCPXML_NOEXCEPT noexcept
#else
#define VELA_FCPXML_NOEXCEPT
#endif

/* The entry for hosts without AAF support: the next one with `supportsAAF` 0. */
VELA_FCPXML_EXPORT int32_t xProjectConverterEntry(int32_t selector,
                                                  void* record) VELA_FCPXML_NOEXCEPT;

/* Only kVelaSelectorImport uses `supportsAAF`. */
VELA_FCPXML_EXPORT int32_t xProjectConverterEntryWithAAFSupport(
    int32_t selector, void* record, uint8_t supportsAAF) VELA_FCPXML_NOEXCEPT;

/* Imports one file; both paths are UTF-8, zero-terminated, and null counts as empty.
 *
 * With a context template (96 bytes, copied): as kVelaSelectorImport with `input` in place of the
 * template's path; `output` isn't used. Without one no host is needed: the project document goes
 * into the file `output` (empty: into the current folder, under the name of `input` with the
 * extension
 * ".vlproj"), progress and issues go to the standard output, and the result is one of
 *   0 done, 1 aborted, 2 nothing to translate, 3 out of memory, 4 no document element,
 *   5 the input can't be opened, 6 any other failure; no output is left under its name then. */
VELA_FCPXML_EXPORT int32_t importFCPXML(const char* input, const char* output,
                                        const ConverterContext* contextTemplate)
    VELA_FCPXML_NOEXCEPT;

/* For hosts that look the functions up at run time. */
typedef int32_t (*VelaEntryFunction)(int32_t selector, void* record);
typedef int32_t (*VelaEntryWithAAFSupportFunction)(int32_t selector, void* record,
                                                   uint8_t supportsAAF);
typedef int32_t (*VelaImportFunction)(const char* input, const char* output,
                                      const ConverterContext* contextTemplate);

#ifdef __cplusplus
}
#endif

#endif
