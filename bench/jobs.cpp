#include "bench/jobs.h"

#include "export/export_driver.h"
#include "import/import_driver.h"
#include "project/reader.h"
#include "project/writer.h"
#include "tree/reading.h"
#include "xmeml/reader.h"
#include "xmeml/writer.h"

#include <expat.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace XPJ::Bench {

namespace {

void Require(bool isDone, const char* what)
{
    if (isDone)
        return;
    std::fprintf(stderr, "bench: %s failed\n", what);
    std::_Exit(1);
}

void CountElement(void* count, const XML_Char*, const XML_Char**)
{
    ++*static_cast<std::size_t*>(count);
}

void CountEnd(void* count, const XML_Char*)
{
    ++*static_cast<std::size_t*>(count);
}

void CountText(void* count, const XML_Char*, int)
{
    ++*static_cast<std::size_t*>(count);
}

class CountingWriter final : public pugi::xml_writer {
public:
    void write(const void*, std::size_t size) override { count += size; }
    std::size_t count = 0;
};

} // namespace

std::size_t SaxParse(std::string_view text)
{
    std::size_t events = 0;
    XML_Parser parser = XML_ParserCreate(nullptr);
    XML_SetUserData(parser, &events);
    XML_SetElementHandler(parser, CountElement, CountEnd);
    XML_SetCharacterDataHandler(parser, CountText);
    // All at once is expat's best case: blocks cost it a fifth more.
    Require(XML_Parse(parser, text.data(), static_cast<int>(text.size()), 1) == XML_STATUS_OK,
            "expat");
    XML_ParserFree(parser);
    return events;
}

void LoadPugixml(std::string_view text, pugi::xml_document& document)
{
    Require(static_cast<bool>(document.load_buffer(text.data(), text.size(), pugi::parse_default,
                                                   pugi::encoding_utf8)),
            "pugixml load");
}

std::size_t SavePugixml(const pugi::xml_document& document)
{
    CountingWriter writer;
    document.save(writer, "\t", pugi::format_default, pugi::encoding_utf8);
    return writer.count;
}

ObjectHandle ReadXmeml(std::string_view text, Document& document)
{
    ObjectHandle root;
    Require(ParseFCPXML(text, document, root) == kReadDone, "reading");
    return root;
}

ObjectHandle ReadXmemlFile(const std::string& path, Document& document)
{
    SilentProgress progress;
    ObjectHandle root;
    Require(ReadFCPXML(path, progress, document, root) == kReadDone, "reading");
    return root;
}

ObjectHandle Translate(ObjectHandle root, const std::string& path, Document& document)
{
    SilentProgress progress;
    Account account;
    ObjectHandle project;
    Require(ImportDocument(root, {.inputPath = path}, progress, document, account, project) == 0,
            "translation");
    return project;
}

namespace {

void WriteProjectTo(ObjectHandle project, std::ostream& output)
{
    SilentProgress progress;
    Require(WriteProjectDocument(project, progress, output, false) == kWriteDone, "writing");
}

} // namespace

std::size_t WriteProject(ObjectHandle project)
{
    CountingBuffer buffer;
    std::ostream output(&buffer);
    WriteProjectTo(project, output);
    return buffer.Count();
}

std::string ProjectText(ObjectHandle project)
{
    std::ostringstream output;
    WriteProjectTo(project, output);
    return std::move(output).str();
}

std::size_t Import(const std::string& path)
{
    Document input;
    Document output;
    const ObjectHandle root = ReadXmemlFile(path, input);
    return WriteProject(Translate(root, path, output));
}

ObjectHandle ReadProjectFile(const std::string& path, Document& document)
{
    std::ifstream file(path, std::ios::binary);
    ObjectHandle root;
    Require(ReadProjectDocument(file, document, root) == kReadDone, "reading the project");
    return root;
}

std::size_t Export(const std::string& path)
{
    Document input;
    Document output;
    SilentProgress progress;
    Account account;
    ObjectHandle xmeml;
    RVX::ExportOptions options;
    Require(RVX::TranslateProjectDocument(ReadProjectFile(path, input), options, progress, output,
                                          account, xmeml) == 0,
            "export");
    CountingBuffer buffer;
    std::ostream stream(&buffer);
    Require(WriteFCPXML(xmeml, progress, false, stream) == kWriteDone, "writing");
    return buffer.Count();
}

std::string LoadFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    file.seekg(0, std::ios::end);
    const std::streamoff size = file.tellg();
    Require(size > 0, "opening the document");
    std::string text(static_cast<std::size_t>(size), '\0');
    file.seekg(0);
    file.read(text.data(), size);
    return text;
}

void SaveFile(const std::string& path, std::string_view text)
{
    std::ofstream file(path, std::ios::binary);
    file << text;
    file.close();
    Require(static_cast<bool>(file), "writing the document");
}

} // namespace XPJ::Bench
