#include "support/document_text.h"

#include <algorithm>

#include <fmt/format.h>

namespace XPJ {
namespace {

constexpr int kFirstFreeId = 901;
const Element kNone;

class Parser {
public:
    explicit Parser(std::string_view text) : rest_(text) {}

    Element Root()
    {
        while (rest_.starts_with("<?") || rest_.starts_with("<!") || rest_.starts_with("\n"))
            Skip(rest_.starts_with("\n") ? 1 : rest_.find('>') + 1);
        return ParseElement();
    }

private:
    void Skip(std::size_t size) { rest_.remove_prefix(std::min(size, rest_.size())); }

    std::string Until(std::string_view ends)
    {
        const std::size_t size = std::min(rest_.find_first_of(ends), rest_.size());
        std::string text(rest_.substr(0, size));
        Skip(size);
        return text;
    }

    Element ParseElement()
    {
        Skip(1);
        Element element{.name = Until(" />")};
        while (rest_.starts_with(' ')) {
            Skip(1);
            std::string key = Until("=/>");
            if (!rest_.starts_with('='))
                continue;
            Skip(2);
            element.attributes.emplace_back(std::move(key), Until("\""));
            Skip(1);
        }
        const bool isEmpty = rest_.starts_with('/');
        Skip(isEmpty ? 2 : 1);
        if (!isEmpty)
            ParseContent(element);
        return element;
    }

    void ParseContent(Element& element)
    {
        for (;;) {
            element.text += Until("<");
            if (rest_.empty() || rest_.starts_with("</"))
                break;
            element.children.push_back(ParseElement());
        }
        Skip(rest_.find('>') + 1);
        if (!element.children.empty())
            element.text.clear();
    }

    std::string_view rest_;
};

class Flattener {
public:
    std::string Flatten(std::string_view nested)
    {
        const Element root = Parser(nested).Root();
        std::string text;
        for (const Element& child : root.children)
            text += Write(child, 1);
        return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + Opened(root) + ">\n" + text +
               objects_ + "</" + root.name + ">\n";
    }

private:
    static std::string Opened(const Element& element)
    {
        std::string text = "<" + element.name;
        for (const auto& [key, value] : element.attributes)
            text += fmt::format(" {}=\"{}\"", key, value);
        return text;
    }

    std::string Write(const Element& element, std::size_t depth)
    {
        const std::string indent(depth, '\t');
        if (!element.Attribute("is").empty())
            return indent + WriteObject(element) + "\n";
        std::string text = indent + Opened(element);
        if (element.children.empty() && element.text.empty())
            return text + "/>\n";
        if (element.children.empty())
            return text + ">" + element.text + "</" + element.name + ">\n";
        text += ">\n";
        for (const Element& child : element.children)
            text += Write(child, depth + 1);
        return text + indent + "</" + element.name + ">\n";
    }

    // The object behind those that it refers to; gives the reference.
    std::string WriteObject(const Element& element)
    {
        Element object{.name = std::string(element.Attribute("is")), .children = element.children};
        std::string reference = "<" + element.name;
        for (const auto& [key, value] : element.attributes)
            if (key == "ObjectID" || key == "ObjectUID")
                object.attributes.emplace_back(key, value);
            else if (key != "is")
                reference += fmt::format(" {}=\"{}\"", key, value);
        if (object.attributes.empty())
            object.attributes.emplace_back("ObjectID", fmt::format("{}", nextId_++));
        const auto& [key, id] = object.attributes.front();
        reference +=
            fmt::format(" {}=\"{}\"/>", key == "ObjectID" ? "ObjectRef" : "ObjectURef", id);
        objects_ += Write(object, 1);
        return reference;
    }

    std::string objects_;
    int nextId_ = kFirstFreeId;
};

} // namespace

std::string_view Element::Attribute(std::string_view key) const
{
    const auto found =
        std::ranges::find(attributes, key, &std::pair<std::string, std::string>::first);
    return found == attributes.end() ? std::string_view() : found->second;
}

const Element& Element::Child(std::string_view childName) const
{
    const auto found = std::ranges::find(children, childName, &Element::name);
    return found == children.end() ? kNone : *found;
}

Element ParseElements(std::string_view document)
{
    return Parser(document).Root();
}

ProjectText::ProjectText(std::string_view text) : root_(ParseElements(text))
{
    for (const Element& object : root_.children)
        for (const auto& [key, value] : object.attributes)
            if (key == "ObjectID" || key == "ObjectUID")
                objects_.emplace(value, &object);
}

const Element& ProjectText::Target(const Element& element) const
{
    for (const auto& [key, value] : element.attributes)
        if (key == "ObjectRef" || key == "ObjectURef")
            if (const auto found = objects_.find(value); found != objects_.end())
                return *found->second;
    return element;
}

const Element& ProjectText::At(const Element& object, std::string_view path) const
{
    const std::string_view name = path.substr(0, path.find('/'));
    std::vector<const Element*> level{&object};
    while (!level.empty()) {
        std::vector<const Element*> next;
        for (const Element* const element : level) {
            const Element& child = element->Child(name);
            if (!child.IsNone())
                return name == path ? Target(child)
                                    : At(Target(child), path.substr(name.size() + 1));
            for (const Element& inner : element->children)
                next.push_back(&inner);
        }
        level = std::move(next);
    }
    return kNone;
}

std::string ProjectText::Value(const Element& object, std::string_view path) const
{
    return At(object, path).text;
}

std::vector<const Element*> ProjectText::List(const Element& object, std::string_view name) const
{
    std::vector<const Element*> found;
    for (const Element& child : object.children) {
        if (const Element& target = Target(child); child.name == name && &target != &child)
            found.push_back(&target);
        const std::vector<const Element*> inner = List(child, name);
        found.insert(found.end(), inner.begin(), inner.end());
    }
    return found;
}

std::string FlatProject(std::string_view nested)
{
    return Flattener().Flatten(nested);
}

} // namespace XPJ
