// The work that is measured, ours and that of the peers, on the same bytes.
#pragma once

#include "core/translation_issue.h"
#include "tree/object.h"

#include <pugixml.hpp>

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>

namespace XPJ::Bench {

// Takes text and keeps its length only, so that a writer is measured and not a disk.
class CountingBuffer final : public std::streambuf {
public:
    std::size_t Count() const { return count_; }

protected:
    std::streamsize xsputn(const char*, std::streamsize size) override
    {
        count_ += static_cast<std::size_t>(size);
        return size;
    }
    int_type overflow(int_type unit) override
    {
        ++count_;
        return traits_type::not_eof(unit);
    }

private:
    std::size_t count_ = 0;
};

// All functions end the program with a message when the work itself fails.

// expat with handlers for elements and text that count; gives the number of events.
std::size_t SaxParse(std::string_view text);

void LoadPugixml(std::string_view text, pugi::xml_document& document);
// Gives the bytes written, without indentation of its own.
std::size_t SavePugixml(const pugi::xml_document& document);

// `text` must live as long as the document.
ObjectHandle ReadXmeml(std::string_view text, Document& document);
ObjectHandle ReadXmemlFile(const std::string& path, Document& document);
ObjectHandle Translate(ObjectHandle root, const std::string& path, Document& document);
std::size_t WriteProject(ObjectHandle project);
std::string ProjectText(ObjectHandle project);

// From the file to the project text; gives the bytes written.
std::size_t Import(const std::string& path);

ObjectHandle ReadProjectFile(const std::string& path, Document& document);
// From the project file to the `xmeml` text; gives the bytes written.
std::size_t Export(const std::string& path);

std::string LoadFile(const std::string& path);
void SaveFile(const std::string& path, std::string_view text);

} // namespace XPJ::Bench
