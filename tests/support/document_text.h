// Documents as plain elements. What a case sees of an output is its text, read by these few lines
// and by nothing of the converter's own.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace XPJ {

// Texts keep their entities as written.
struct Element {
    std::string name;
    std::vector<std::pair<std::string, std::string>> attributes = {};
    std::string text = {};
    std::vector<Element> children = {};

    std::string_view Attribute(std::string_view key) const;
    // The first child of that name; an element without a name if there is none.
    const Element& Child(std::string_view childName) const;
    bool IsNone() const { return name.empty(); }
};

// The root of a well-formed document.
Element ParseElements(std::string_view document);

// The objects of a project by their ids.
class ProjectText {
public:
    explicit ProjectText(std::string_view text);

    const Element& Root() const { return root_; }
    // What an element refers to, else the element itself.
    const Element& Target(const Element& element) const;
    // "SubClip/Clip": of each name the nearest element below, then what it refers to.
    const Element& At(const Element& object, std::string_view path) const;
    std::string Value(const Element& object, std::string_view path) const;
    // All references of that name in an object, in order.
    std::vector<const Element*> List(const Element& object, std::string_view name) const;

private:
    Element root_;
    std::map<std::string, const Element*, std::less<>> objects_;
};

// A project as cases write it: an object is where it is referred to first, with its class in
// `is`. <Source is="VideoMediaSource">...</Source> becomes <Source ObjectRef="901"/> and an object;
// one with an `ObjectID` or `ObjectUID` of its own keeps it.
std::string FlatProject(std::string_view nested);

} // namespace XPJ
