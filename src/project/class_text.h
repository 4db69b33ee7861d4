// How objects of a class are written: the rows of its body one after the other, with the text
// around each value made once.
//
//   Part("Component", 3), Value("Name"), Fixed("Bypass", "false"), End("Component")
// gives three steps:
//   Fixed   \t\t<Component Version="3">\n
//   Value   \t\t\t<Name>, the value, </Name>\n
//   Fixed   \t\t\t<Bypass>false</Bypass>\n\t\t</Component>\n
#pragma once

#include "core/name_id.h"
#include "project/classes.h"

#include <span>
#include <string>
#include <vector>

namespace XPJ {

struct WriteStep {
    // Fixed also for rows of parts; `PropertyList` becomes values.
    RowKind kind;
    const BodyRow* row;
    int level;               // tabs before a line
    NameId name = {};        // of the property, or of the children
    NameId via = {};         // of the child that holds a list's children
    std::string before = {}; // up to the value
    std::string after = {};
};

std::vector<WriteStep> StepsOf(std::span<const BodyRow> rows, int level);

struct ClassText {
    explicit ClassText(const ProjectClass& row);

    const ProjectClass* projectClass;
    std::string beforeId; // "\t<Clip ObjectID=\""
    std::string afterId;  // "\" ClassID=\"", and the class id unless the node states it
    std::string afterClassId;
    std::vector<WriteStep> steps;
    std::string end;
};

} // namespace XPJ
