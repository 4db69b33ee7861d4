#include "report/page/page.h"

#include "report/page/page_asset.h"
#include "report/page/page_timelines.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <vector>

#include <utf8.h>

namespace XPJ {

namespace {

// What in a script element could end it, or change how it is read, and how JSON writes it as well.
// Both line separators end a line in a script.
struct Escape {
    std::string_view text;
    std::string_view json;
};
constexpr Escape kEscapes[] = {
    {"<", "\\u003c"},
    {"\xE2\x80\xA8", "\\u2028"},
    {"\xE2\x80\xA9", "\\u2029"},
};

// JSON has these only in strings, where an escape means the same.
void AppendEmbeddable(std::string& page, std::string_view json)
{
    constexpr std::string_view kFirstBytes = "<\xE2";
    while (!json.empty()) {
        const auto* escape = std::ranges::find_if(
            kEscapes, [&](const Escape& candidate) { return json.starts_with(candidate.text); });
        if (escape != std::end(kEscapes)) {
            page += escape->json;
            json.remove_prefix(escape->text.size());
        } else {
            const std::size_t plain = std::min(json.find_first_of(kFirstBytes, 1), json.size());
            page += json.substr(0, plain);
            json.remove_prefix(plain);
        }
    }
}

void AppendData(std::string& page, std::string_view id, std::string_view json)
{
    page += "<script type=\"application/json\" id=\"";
    page += id;
    page += "\">";
    AppendEmbeddable(page, json);
    page += "</script>\n";
}

std::string WellFormed(std::string_view text)
{
    constexpr char32_t kReplacement = 0xFFFD;
    std::string valid;
    valid.reserve(text.size());
    utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(valid), kReplacement);
    return valid;
}

} // namespace

std::string PageText(const PageInput& input)
{
    constexpr std::string_view kDataMarker = "<!-- data -->\n";
    const std::string_view asset = kPageAsset;
    const std::size_t marker = asset.find(kDataMarker);

    const std::string account = input.accountJson.empty() ? "null" : WellFormed(input.accountJson);
    std::vector<const Inspection::Project*> projects;
    for (const Inspection::Project* project : {input.first, input.second})
        if (project)
            projects.push_back(project);
    const std::string timelines = PageTimelinesJson(input.title, projects, input.differences);
    std::string page;
    page.reserve(asset.size() + account.size() + timelines.size() + 1024);
    page += asset.substr(0, marker);
    AppendData(page, "account", account);
    AppendData(page, "timelines", timelines);
    page += asset.substr(marker + kDataMarker.size());
    return page;
}

} // namespace XPJ
