#include "project/class_text.h"

#include "core/text.h"

#include <cstddef>
#include <string_view>
#include <utility>

#include <fmt/format.h>

namespace XPJ {

namespace {

class StepMaker {
public:
    explicit StepMaker(int level) : level_(level) {}

    std::vector<WriteStep> Make(std::span<const BodyRow> rows)
    {
        AddRows(rows);
        return std::move(steps_);
    }

private:
    void AddRows(std::span<const BodyRow> rows)
    {
        for (const BodyRow& row : rows)
            AddRow(row);
    }

    void AddRow(const BodyRow& row)
    {
        const std::string_view tag = row.tag.View();
        switch (row.kind) {
        case RowKind::Part:
        case RowKind::Member:
        case RowKind::Wrapper:
            AddFixed(row, fmt::format("{}<{} Version=\"{}\">\n", Tabs(), tag, row.version));
            ++level_;
            return;
        case RowKind::End:
            --level_;
            return AddFixed(row, fmt::format("{}</{}>\n", Tabs(), tag));
        case RowKind::Include:
            return AddRows(row.rows);
        case RowKind::Fixed:
            return AddFixed(row, LineOf(row));
        case RowKind::FixedIf:
            return Add(row, row.key, LineOf(row), {});
        case RowKind::FixedUnless:
            return Add(row, row.tag, LineOf(row), {});
        case RowKind::Value:
            return AddValue(row, row.tag, row.key);
        case RowKind::AudioLayout:
            return AddValue(row, row.tag, row.tag);
        case RowKind::PropertyList:
            for (const Name& name : row.list())
                AddValue(row, name, name);
            return;
        case RowKind::Reference:
            return Add(row, row.tag, Open(tag, "ObjectRef"), "\"/>\n");
        case RowKind::ReferenceList:
            return Add(row, row.tag, Open(tag, "Index"), "\"/>\n");
        case RowKind::Pairs:
            return Add(row, row.tag, Open(tag, "Version=\"1\" Index"),
                       fmt::format("\"/>\n{}</{}>\n", Tabs(), tag));
        case RowKind::GuidReference:
        case RowKind::OptionalGuidReference:
            return Add(row, row.tag, Open(tag, "ObjectURef"), "\"/>\n");
        case RowKind::GuidList:
            return Add(row, row.tag, Open(tag, "Index"), "\" />\n");
        case RowKind::Blob:
        case RowKind::SharedBlob:
            return Add(row, row.tag, Open(tag, "Encoding=\"base64\" Checksum"),
                       fmt::format("</{}>\n", tag));
        case RowKind::MarkerRecord:
            return Add(row, row.tag, fmt::format("{}<{}>", Tabs(), tag),
                       fmt::format("</{}>\r\n", tag));
        case RowKind::ReadLeaf:
        case RowKind::ReadPart:
            return;
        }
    }

    std::string Tabs() const { return std::string(static_cast<std::size_t>(level_), '\t'); }

    std::string Open(std::string_view tag, std::string_view attribute) const
    {
        return fmt::format("{}<{} {}=\"", Tabs(), tag, attribute);
    }

    std::string LineOf(const BodyRow& row) const
    {
        const std::string_view tag = row.tag.View();
        return fmt::format("{}<{}>{}</{}>\n", Tabs(), tag, WellFormedText(row.text), tag);
    }

    // Text that follows text is written with it.
    void AddFixed(const BodyRow& row, const std::string& text)
    {
        if (steps_.empty() || steps_.back().kind != RowKind::Fixed)
            steps_.push_back({.kind = RowKind::Fixed, .row = &row, .level = level_});
        steps_.back().before += text;
    }

    void AddValue(const BodyRow& row, Name tag, Name key)
    {
        Add(row, key, fmt::format("{}<{}>", Tabs(), tag.View()),
            fmt::format("</{}>\n", tag.View()));
        if (row.kind == RowKind::PropertyList)
            steps_.back().kind = RowKind::Value;
    }

    void Add(const BodyRow& row, Name name, std::string before, std::string after)
    {
        steps_.push_back({.kind = row.kind,
                          .row = &row,
                          .level = level_,
                          .name = NameId(name),
                          .via = NameId(row.via),
                          .before = std::move(before),
                          .after = std::move(after)});
    }

    int level_;
    std::vector<WriteStep> steps_;
};

} // namespace

std::vector<WriteStep> StepsOf(std::span<const BodyRow> rows, int level)
{
    return StepMaker(level).Make(rows);
}

ClassText::ClassText(const ProjectClass& row)
    : projectClass(&row),
      beforeId(fmt::format("\t<{} {}=\"", row.name,
                           row.identity == Identity::Number ? "ObjectID" : "ObjectUID")),
      afterId(fmt::format("\" ClassID=\"{}", row.classId)),
      afterClassId(fmt::format("\" Version=\"{}\">\n", row.version)), steps(StepsOf(row.body, 2)),
      end(fmt::format("\t</{}>\n", row.name))
{
}

} // namespace XPJ
