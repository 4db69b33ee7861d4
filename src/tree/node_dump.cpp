#include "tree/node_dump.h"

#include <algorithm>
#include <ostream>
#include <vector>

namespace XPJ {

namespace {

constexpr std::size_t kMaxEntries = 64;

} // namespace

void DumpNode(std::ostream& output, ObjectHandle node)
{
    if (!node) {
        output << "NULL object\n";
        return;
    }
    output << " Printing child names of " << node.GetName().View() << "\n";
    std::size_t count = 0;
    const ChildRange children = node.GetChildren();
    for (auto child = children.begin(); child != children.end() && count < kMaxEntries; ++child) {
        output << "  * " << child.EntryName() << "\n";
        ++count;
    }

    std::vector<const Property*> properties;
    for (const Property& property : node.Properties()) {
        if (properties.size() == kMaxEntries)
            break;
        properties.push_back(&property);
    }
    std::sort(properties.begin(), properties.end(),
              [](const Property* a, const Property* b) { return a->NameView() < b->NameView(); });
    output << " Printing attributes of " << node.GetName().View() << "\n";
    for (const Property* property : properties)
        output << "  * " << property->NameView() << ": " << property->Value() << "\n";
}

} // namespace XPJ
