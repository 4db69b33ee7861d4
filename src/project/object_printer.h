// Objects of a project document as text.
#pragma once

#include "project/object_list.h"
#include "tree/text_out.h"

#include <cstdint>
#include <iosfwd>
#include <span>
#include <string_view>
#include <vector>

namespace XPJ {

// Prints objects into a text of its own, so that several threads print at once.
class ObjectPrinter {
public:
    explicit ObjectPrinter(const ObjectList& objects) : objects_(objects) {}

    void PrintHead(ObjectHandle document, bool sn2vlMode);
    void Print(std::span<const ObjectHandle> objects);
    // Hands over what was printed.
    void WriteTo(std::ostream& output);

private:
    void WriteObject(ObjectHandle node);
    void WriteBody(std::span<const BodyRow> rows, ObjectHandle node);
    void WriteRow(const BodyRow& row, ObjectHandle node);
    void WriteReferences(const BodyRow& row, ObjectHandle node);
    void WritePair(const BodyRow& row, ObjectHandle child, std::uint64_t index,
                   std::uint32_t number);
    void WriteGuidReference(const BodyRow& row, ObjectHandle node);
    void WriteGuidList(const BodyRow& row, ObjectHandle node);
    void WriteBlob(const BodyRow& row, ObjectHandle node);
    void WriteAudioLayout(const BodyRow& row, ObjectHandle node);
    void WriteMarkerRecord(const BodyRow& row, ObjectHandle node);
    void WriteLine(Name tag, std::string_view value);
    void WriteValue(Name tag, std::string_view value, ObjectHandle node);

    const ObjectList& objects_;
    TextOut out_;
    std::vector<ObjectHandle> withoutId_; // have an empty ID
    int level_ = 1;
};

} // namespace XPJ
