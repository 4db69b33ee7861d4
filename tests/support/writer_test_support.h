// Trees by hand and text to compare for the tests of the two writers.
#pragma once

#include "core/progress.h"
#include "platform/platform.h"
#include "project/writer.h"
#include "support/count_of.h"
#include "support/test_progress.h"
#include "tree/object.h"

#include <initializer_list>
#include <optional>
#include <sstream>
#include <string>

namespace XPJ {

struct P {
    Name key;
    std::string_view value;
};

struct C {
    Name name;
    ObjectHandle node;
};

// Make(document, "rate", {{"timebase", "25"}})
inline ObjectHandle Make(Document& document, Name name, std::initializer_list<P> properties = {},
                         std::initializer_list<C> children = {})
{
    const ObjectHandle node = document.NewObject(name);
    for (const P& property : properties)
        node.SetProperty(property.key, property.value);
    for (const C& child : children)
        node.AddChild(child.name, child.node);
    return node;
}

// GUIDs that count: 00000000-0000-0000-0000-000000000001 and so on.
class CountingPlatform final : public Platform {
public:
    Guid CreateUniqueGuid() override
    {
        Guid guid{};
        guid.data[15] = ++count_;
        return guid;
    }
    std::string DocumentsFolder() override { return {}; }
    std::optional<std::string> DebugEntry(std::string_view) override { return std::nullopt; }

private:
    std::uint8_t count_ = 0;
    PlatformScope scope_{*this};
};

inline std::string ProjectText(ObjectHandle document, bool sn2vlMode = false)
{
    SilentProgress progress;
    std::ostringstream output;
    EXPECT_EQ(kWriteDone, WriteProjectDocument(document, progress, output, sn2vlMode));
    return output.str();
}

// The text of the first object of a class, with its tags.
inline std::string ObjectText(const std::string& project, const std::string& className)
{
    const std::size_t begin = project.find("\t<" + className + " Object");
    const std::string endTag = "\n\t</" + className + ">\n";
    const std::size_t end = project.find(endTag, begin);
    if (begin == project.npos || end == project.npos)
        return "no " + className + " in:\n" + project;
    return project.substr(begin, end + endTag.size() - begin);
}

// An object of any class with what it leads to, written by itself.
inline std::string WriteAlone(Document& document, ObjectHandle node)
{
    const ObjectHandle holder = Make(document, "AudioTrackInlet", {}, {{"Source", node}});
    const std::string text = ProjectText(Make(document, "Document", {}, {{"Holder", holder}}));
    return ObjectText(text, std::string(node.GetName().View()));
}

} // namespace XPJ
