// Objects of a project document as text.
#pragma once

#include "project/object_list.h"
#include "tree/property_table.h"
#include "tree/text_out.h"

#include <iosfwd>
#include <span>
#include <string>
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
    void WriteSteps(std::span<const WriteStep> steps, ObjectHandle node);
    void WriteStepOf(const WriteStep& step, ObjectHandle node);
    void WriteValue(const WriteStep& step, ObjectHandle node);
    void WriteReferences(const WriteStep& step, ObjectHandle node);
    void WriteGuidReference(const WriteStep& step, ObjectHandle node);
    void WriteGuidList(const WriteStep& step, ObjectHandle node);
    void WriteBlob(const WriteStep& step, ObjectHandle node);
    void WriteAudioLayout(const WriteStep& step, ObjectHandle node);
    std::string MarkerRecordOf(ObjectHandle node) const;

    const ObjectList& objects_;
    TextOut out_;
    PropertyTable properties_;            // of the node that is printed
    std::vector<ObjectHandle> withoutId_; // have an empty ID
};

} // namespace XPJ
