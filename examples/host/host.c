/* A minimal host: loads the converter, provides its suite, and converts one file.
 *
 *   vela_host [options] types
 *   vela_host [options] import clip.xml clip.vlproj
 *   vela_host [options] export clip.vlproj clip.xml [sequence-guid]
 *
 *   --library PATH    the module to load, by default libvela_fcpxml.so
 *   --buffer-size N   bytes of the transfer buffer, by default 65536
 *   --fail-after N    the stream functions fail once N bytes have passed
 *   --show-ui         message boxes and dialogs are allowed
 *   --aaf             calls the entry for hosts with AAF support
 *
 * Prints the converter's code. Exit status: 0 for code 0, 1 for code 1, 2 for code -1, 3 for code
 * 3, and 10 + N for a code of -N000; 64 for wrong usage.
 */
#include <vela_fcpxml/plugin.h>

#include <dlfcn.h>
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { kUsageError = 64, kMaxPathUnits = 4096 };

typedef struct Options {
    const char* library;
    uint32_t bufferSize;
    long failAfter; /* -1: never */
    bool showUI;
    bool aaf;
} Options;

/* ---- The suite ------------------------------------------------------------------------------- */

/* What `streamHandle` points to. */
typedef struct Stream {
    FILE* file;
    long bytesPassed;
    long failAfter;
} Stream;

/* True while the stream may take `count` more bytes. */
static bool Pass(Stream* stream, uint32_t count)
{
    stream->bytesPassed += (long)count;
    return stream->failAfter < 0 || stream->bytesPassed <= stream->failAfter;
}

static int32_t WriteProjectData(void* handle, uint32_t count, const void* bytes)
{
    Stream* stream = handle;
    if (!Pass(stream, count))
        return 1;
    return fwrite(bytes, 1, count, stream->file) == count ? 0 : 1;
}

static int32_t ReadProjectData(void* handle, uint8_t* moreFollows, uint32_t* size, void* bytes)
{
    Stream* stream = handle;
    *size = (uint32_t)fread(bytes, 1, *size, stream->file);
    if (ferror(stream->file) || !Pass(stream, *size))
        return 1;
    *moreFollows = feof(stream->file) ? 0 : 1;
    return 0;
}

static const VelaProjectConverterSuite projectSuite = {WriteProjectData, ReadProjectData};

static int32_t AcquireSuite(const char* name, int32_t version, const void** suite)
{
    if (strcmp(name, VELA_PROJECT_CONVERTER_SUITE) != 0 ||
        version != VELA_PROJECT_CONVERTER_SUITE_VERSION)
        return 1;
    *suite = &projectSuite;
    return 0;
}

static int32_t ReleaseSuite(const char* name, int32_t version)
{
    (void)name;
    (void)version;
    return 0;
}

static const HSBasicSuite basicSuite = {AcquireSuite, ReleaseSuite};

static const HSBasicSuite* GetBasicSuite(void)
{
    return &basicSuite;
}

static const BasicSuiteSource suiteSource = {GetBasicSuite};

/* ---- Text ------------------------------------------------------------------------------------ */

/* UTF-8 to zero-terminated UTF-16, in any locale; false if it doesn't fit or isn't well-formed. */
static bool ToUTF16(const char* text, VelaChar16* units, size_t capacity)
{
    const unsigned char* byte = (const unsigned char*)text;
    size_t count = 0;
    while (*byte) {
        const int following = *byte < 0x80 ? 0 : *byte < 0xE0 ? 1 : *byte < 0xF0 ? 2 : 3;
        uint32_t point = following == 0 ? *byte : *byte & (0x3Fu >> following);
        ++byte;
        for (int i = 0; i < following; ++i, ++byte) {
            if ((*byte & 0xC0) != 0x80)
                return false;
            point = point << 6 | (*byte & 0x3Fu);
        }
        if (count + 3 > capacity)
            return false;
        if (point >= 0x10000) {
            units[count++] = (VelaChar16)(0xD7C0 + (point >> 10));
            units[count++] = (VelaChar16)(0xDC00 + (point & 0x3FF));
        } else {
            units[count++] = (VelaChar16)point;
        }
    }
    units[count] = 0;
    return true;
}

static void PrintField(const char* label, const VelaChar16* units)
{
    printf("  %s: ", label);
    for (; *units; ++units)
        putchar(*units < 128 ? (int)*units : '?');
    putchar('\n');
}

/* ---- Calls ----------------------------------------------------------------------------------- */

typedef struct Converter {
    void* library;
    VelaEntryFunction entry;
    VelaEntryWithAAFSupportFunction entryWithAAFSupport;
} Converter;

static bool Load(Converter* converter, const char* path)
{
    converter->library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (!converter->library) {
        fprintf(stderr, "%s\n", dlerror()); /* NOLINT(concurrency-mt-unsafe): one thread */
        return false;
    }
    *(void**)&converter->entry = dlsym(converter->library, "xProjectConverterEntry");
    *(void**)&converter->entryWithAAFSupport =
        dlsym(converter->library, "xProjectConverterEntryWithAAFSupport");
    return converter->entry && converter->entryWithAAFSupport;
}

static int32_t Call(const Converter* converter, const Options* options, int32_t selector,
                    void* record)
{
    return options->aaf ? converter->entryWithAAFSupport(selector, record, 1)
                        : converter->entry(selector, record);
}

static void PrintTypes(const VelaFileTypeTable* table)
{
    for (size_t i = 0; i < 3; ++i) {
        const FileTypeRecord* const record = &table->records[i];
        if (!record->canImport && !record->canExport)
            break;
        printf("type %zu:%s%s\n", i, record->canImport ? " import" : "",
               record->canExport ? " export" : "");
        PrintField("name", record->filterName);
        PrintField("extension", record->extension);
        PrintField("description", record->description);
    }
}

/* One conversion; `project` is read or written through the suite. */
static int32_t Convert(const Converter* converter, const Options* options, int32_t selector,
                       const char* xmlPath, FILE* project, const char* sequenceGuid)
{
    VelaChar16 path[kMaxPathUnits];
    if (!ToUTF16(xmlPath, path, kMaxPathUnits))
        return kVelaConversionFailed;

    Stream stream = {project, 0, options->failAfter};
    ConverterContext context = {0};
    context.streamHandle = &stream;
    context.path = path;
    context.bufferSize = options->bufferSize;
    context.buffer = malloc(options->bufferSize > 0 ? options->bufferSize : 1);
    context.basicSuiteSource = &suiteSource;
    context.showUI = options->showUI ? 1 : 0;
    for (size_t i = 0; i < sizeof(context.sequenceGuid) && sequenceGuid[i]; ++i)
        context.sequenceGuid[i] = sequenceGuid[i];

    const int32_t code = Call(converter, options, selector, &context);
    free(context.buffer);
    return code;
}

static int32_t ConvertFiles(const Converter* converter, const Options* options, char** arguments,
                            int count)
{
    const bool import = strcmp(arguments[0], "import") == 0;
    const char* const projectPath = import ? arguments[2] : arguments[1];
    const char* const xmlPath = import ? arguments[1] : arguments[2];
    FILE* const project = fopen(projectPath, import ? "wb" : "rb");
    if (!project) {
        perror(projectPath);
        return kVelaStreamFailed;
    }
    int32_t code = Convert(converter, options, import ? kVelaSelectorImport : kVelaSelectorExport,
                           xmlPath, project, count > 3 ? arguments[3] : "");
    if (fclose(project) != 0 && code == kVelaDone)
        code = kVelaStreamFailed;
    if (import && code != kVelaDone)
        remove(projectPath); /* half a project is none */
    return code;
}

static int ExitStatus(int32_t code)
{
    if (code == kVelaStreamFailed)
        return 2;
    return code <= -1000 ? 10 - code / 1000 : code;
}

/* ---- Command line ---------------------------------------------------------------------------- */

/* Gives the index of the first argument that is no option, 0 for a bad option. */
static int ReadOptions(int count, char** arguments, Options* options)
{
    int i = 1;
    for (; i < count && strncmp(arguments[i], "--", 2) == 0; ++i) {
        const char* const name = arguments[i];
        if (strcmp(name, "--show-ui") == 0) {
            options->showUI = true;
        } else if (strcmp(name, "--aaf") == 0) {
            options->aaf = true;
        } else if (i + 1 >= count) {
            return 0;
        } else if (strcmp(name, "--library") == 0) {
            options->library = arguments[++i];
        } else if (strcmp(name, "--buffer-size") == 0) {
            options->bufferSize = (uint32_t)strtoul(arguments[++i], NULL, 10);
        } else if (strcmp(name, "--fail-after") == 0) {
            options->failAfter = strtol(arguments[++i], NULL, 10);
        } else {
            return 0;
        }
    }
    return i;
}

static bool IsUsable(char** arguments, int count)
{
    if (count < 1)
        return false;
    if (strcmp(arguments[0], "types") == 0)
        return count == 1;
    if (strcmp(arguments[0], "import") == 0)
        return count == 3;
    return strcmp(arguments[0], "export") == 0 && (count == 3 || count == 4);
}

int main(int argc, char** argv)
{
    Options options = {"libvela_fcpxml.so", 65536, -1, false, false};
    const int first = ReadOptions(argc, argv, &options);
    char** const arguments = argv + first;
    const int count = argc - first;
    if (first == 0 || !IsUsable(arguments, count)) {
        fprintf(stderr,
                "usage: %s [options] types | import XML PROJECT | export PROJECT XML [GUID]\n",
                argv[0]);
        return kUsageError;
    }

    Converter converter;
    if (!Load(&converter, options.library))
        return kUsageError;

    VelaFileTypeTable table = {0};
    int32_t code = Call(&converter, &options, kVelaSelectorStartUp, &table);
    if (code == kVelaDone) {
        if (strcmp(arguments[0], "types") == 0)
            PrintTypes(&table);
        else
            code = ConvertFiles(&converter, &options, arguments, count);
        Call(&converter, &options, kVelaSelectorShutDown, NULL);
    }
    dlclose(converter.library);

    printf("code %d\n", (int)code);
    return ExitStatus(code);
}
