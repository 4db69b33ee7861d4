#include "project/unused_fields.h"

#include "project/classes.h"

#include <set>
#include <string_view>

namespace XPJ {

namespace {

class UnusedFields {
public:
    UnusedFields()
    {
        for (const ProjectClass& row : ProjectClasses()) {
            Add(Name::OfStatic(row.name), row.use);
            AddRows(row.body);
        }
        for (const std::string_view field : used_)
            unused_.erase(field);
    }
    bool Contains(Name field) const { return unused_.contains(field.View()); }
    bool IsKnown(std::string_view tag) const
    {
        return used_.contains(tag) || unused_.contains(tag);
    }

private:
    void AddRows(std::span<const BodyRow> rows)
    {
        for (const BodyRow& row : rows) {
            Add(row.key, row.use);
            Add(row.tag, row.use);
            if (row.list)
                for (const Name& name : row.list())
                    Add(name, row.use);
            AddRows(row.rows);
        }
    }
    void Add(Name field, const FieldUse& use)
    {
        (use.isUsed ? used_ : unused_).insert(field.View());
    }

    std::set<std::string_view> used_;
    std::set<std::string_view> unused_;
};

const UnusedFields& AllFields()
{
    static const UnusedFields fields;
    return fields;
}

} // namespace

bool IsUnusedProjectField(Name field)
{
    return AllFields().Contains(field);
}

bool IsKnownProjectTag(std::string_view tag)
{
    return AllFields().IsKnown(tag);
}

} // namespace XPJ
