#include "inspect/ignored.h"

#include "core/text.h"

#include <algorithm>

namespace XPJ::Inspection {

namespace {

constexpr int kSubjectCount = static_cast<int>(Subject::BinClip) + 1;
constexpr int kPropertyCount = static_cast<int>(Property::MarkerKind) + 1;

std::vector<std::string_view> Names()
{
    std::vector<std::string_view> names;
    names.reserve(kSubjectCount + kPropertyCount);
    for (int i = 0; i < kSubjectCount; ++i)
        names.push_back(SubjectText(static_cast<Subject>(i)));
    for (int i = 1; i < kPropertyCount; ++i)
        if (const std::string_view name = PropertyText(static_cast<Property>(i));
            std::ranges::find(names, name) == names.end())
            names.push_back(name);
    return names;
}

} // namespace

bool Ignored::Add(std::string_view text)
{
    const std::string_view name = Trimmed(text);
    for (int i = 0; i < kSubjectCount; ++i)
        if (name == SubjectText(static_cast<Subject>(i)))
            subjects_.insert(static_cast<Subject>(i));
    for (int i = 1; i < kPropertyCount; ++i)
        if (name == PropertyText(static_cast<Property>(i)))
            properties_.insert(static_cast<Property>(i));
    const std::vector<std::string_view> names = Names();
    return std::ranges::find(names, name) != names.end();
}

bool Ignored::Has(const Difference& difference) const
{
    return subjects_.contains(difference.subject) || properties_.contains(difference.kind);
}

void Ignored::RemoveFrom(std::vector<Difference>& differences) const
{
    std::erase_if(differences, [this](const Difference& difference) { return Has(difference); });
}

std::string IgnorableNames()
{
    std::string text;
    for (const std::string_view name : Names())
        text.append(text.empty() ? "" : ", ").append(name);
    return text;
}

} // namespace XPJ::Inspection
