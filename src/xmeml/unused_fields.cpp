#include "xmeml/unused_fields.h"

#include "xmeml/elements.h"

#include <set>
#include <string_view>
#include <utility>

namespace XPJ {

namespace {

using FieldOfTag = std::pair<std::string_view, std::string_view>;

class UnusedFields {
public:
    UnusedFields()
    {
        for (const XmemlElement& element : XmemlElements()) {
            for (const XmemlAttribute& attribute : element.attributes) {
                Add(element.tag, attribute.name, attribute.use);
                if (attribute.list)
                    for (const Name& name : attribute.list())
                        Add(element.tag, name, attribute.use);
            }
            for (const XmemlField& field : element.fields)
                Add(element.tag, field.IsChild() ? field.name : field.property, field.use);
        }
        for (const FieldOfTag& field : used_)
            unused_.erase(field);
    }
    bool Contains(Name tag, Name field) const
    {
        return unused_.contains({tag.View(), field.View()});
    }

private:
    void Add(Name tag, Name field, const FieldUse& use)
    {
        (use.isUsed ? used_ : unused_).insert({tag.View(), field.View()});
    }

    std::set<FieldOfTag> used_;
    std::set<FieldOfTag> unused_;
};

} // namespace

bool IsUnusedField(Name tag, Name field)
{
    static const UnusedFields fields;
    return fields.Contains(tag, field);
}

} // namespace XPJ
