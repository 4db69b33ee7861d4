#include "export/clip_notes.h"

#include "core/host_properties.h"

namespace XPJ::RVX {

namespace {

struct CommentKey {
    Name property;
    Name element;
};

constexpr CommentKey kCommentKeys[] = {
    {"Master_95_Comment_95_1", "mastercomment1"}, {"Master_95_Comment_95_2", "mastercomment2"},
    {"Master_95_Comment_95_3", "mastercomment3"}, {"Master_95_Comment_95_4", "mastercomment4"},
    {"Clip_95_Comment_95_A", "clipcommenta"},     {"Clip_95_Comment_95_B", "clipcommentb"},
};

// The host's own column has no field in a document, but makes `comments` appear.
constexpr Name kCommentColumn = "Column.PropertyText.Comment";

void WriteLabel(ExportContext& context, ConstHandle properties, Name key, ObjectHandle element)
{
    if (!properties.HasProperty(key))
        return;
    const ObjectHandle labels = context.document.NewObject("labels");
    const std::string_view name = LabelNameOf(properties.GetProperty(key));
    if (!name.empty())
        labels.SetProperty("label2", name);
    element.AddChild(labels);
}

} // namespace

void WriteItemLabel(ExportContext& context, ConstHandle itemProperties, ObjectHandle element)
{
    WriteLabel(context, itemProperties, "Column.PropertyText.Label", element);
}

void WriteClipLabel(ExportContext& context, ConstHandle clipProperties, ObjectHandle element)
{
    if (!element.HasChild("labels"))
        WriteLabel(context, clipProperties, "hfl.clip.label.name", element);
}

void WriteComments(ExportContext& context, ConstHandle itemProperties, ObjectHandle element)
{
    const ObjectHandle comments = context.document.NewObject("comments");
    bool any = itemProperties.HasProperty(kCommentColumn);
    for (const CommentKey& key : kCommentKeys) {
        CopyProperty(itemProperties, key.property, comments, key.element);
        any = any || itemProperties.HasProperty(key.property);
    }
    if (any)
        element.AddChild(comments);
}

} // namespace XPJ::RVX
