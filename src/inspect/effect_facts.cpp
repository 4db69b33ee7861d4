#include "inspect/effect_facts.h"

#include "core/numbers.h"
#include "effects/audio_filters.h"
#include "effects/color_corrector.h"
#include "effects/opacity.h"
#include "effects/values.h"
#include "effects/video_effects.h"
#include "inspect/effect_names.h"

#include <algorithm>
#include <map>
#include <set>
#include <span>
#include <tuple>
#include <utility>

namespace XPJ::Inspection {

namespace {

// ---- What the tables of the translations don't state

// A parameter by its name in documents and in projects, with the values at which it changes
// nothing, separated by blanks.
struct NeutralRow {
    std::string_view effect; // its kind
    std::string_view xmeml;
    std::string_view inXmeml; // empty: documents don't have it
    std::string_view project = {};
    std::string_view inProject = {}; // likewise
    bool decides = false;
};

constexpr NeutralRow kNeutralRows[] = {
    {"Motion", "center", "0:0", "Position", "0.5:0.5"},
    {"Motion", "scale", "100", "Scale", "100"},
    {"Motion", "", "", "Scale Width", "100"},
    {"Motion", "", "", "", "true false 1 0"}, // one scale for both sides
    {"Motion", "rotation", "0", "Rotation", "0"},
    {"Motion", "centerOffset", "0:0", "Anchor Point", "0.5:0.5"},
    {"Motion", "antiflicker", "0", "Anti-flicker Filter", "0"},
    {"Distort", "llcorner", "-0.5:0.5"},
    {"Gaussian Blur", "radius", "0", "Blurriness", "0", true},
    {"dropshadow", "opacity", "0", "", "", true},
    {"motionblur", "duration", "0", "", "", true},
};

// What counts where a document doesn't state it.
struct DefaultRow {
    std::string_view parameter;
    std::string_view value;
};

constexpr std::string_view kTitles[] = {"Text", "Outline Text", "Scrolling Text", "Crawl",
                                        "Lower 3rd"};
constexpr DefaultRow kTitleDefaults[] = {
    {"origin", "0:0"}, {"fontalign", "2"}, {"fonttrack", "1"}, {"leading", "0"}, {"aspect", "1"},
};

constexpr std::string_view kMattes[] = {"Four-Point Garbage Matte", "Eight-Point Garbage Matte"};
constexpr DefaultRow kMatteDefaults[] = {{"smooth", "0"}, {"choke", "0"}, {"feather", "0"}};

constexpr std::string_view kCorrector = "Color Corrector 3-way";

// ---- All of it

void AddValues(std::string_view list, std::vector<std::string>& values)
{
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(' '), list.size());
        values.push_back(PlainText(list.substr(0, end)));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
}

// True for a kind of parameter that is a number or a switch in both families.
bool IsPlain(ParamKind kind)
{
    return kind != ParamKind::Point && kind != ParamKind::Color;
}

std::string DefaultInXmeml(const ParamRow& row)
{
    if (!row.xmeml.value.empty())
        return std::string(row.xmeml.value);
    if (row.id == 0 || row.value.empty() || !IsPlain(row.kind))
        return {};
    return row.toXmeml ? NumberText(row.toXmeml(ParseDouble(row.value))) : std::string(row.value);
}

// Switches are off by default.
std::string_view DefaultInProject(const ParamRow& row)
{
    return row.value.empty() && row.kind == ParamKind::CheckBox ? "false" : row.value;
}

class FactTable {
public:
    FactTable()
    {
        for (const EffectRow& row : VideoEffects())
            for (const ParamRow& param : row.params)
                AddVideoParam(row, param);
        for (const AudioFilterRow& row : AudioFilters())
            for (const AudioParamRow& param : row.params) {
                AddNeutral({row.name, Family::Xmeml, param.param.xmeml.id},
                           param.param.xmeml.neutral);
                AddNeutral({row.name, Family::Project, param.param.name}, param.param.neutral);
            }
        for (const NeutralRow& row : kNeutralRows) {
            AddNeutral({row.effect, Family::Xmeml, row.xmeml}, row.inXmeml, row.decides);
            AddNeutral({row.effect, Family::Project, row.project}, row.inProject, row.decides);
        }
        for (const XmemlParam& param : ColorCorrectorConstants())
            AddDefault({kCorrector, Family::Xmeml, param.id}, param.value);
        AddDefaults(kTitles, kTitleDefaults);
        AddDefaults(kMattes, kMatteDefaults);
    }

    const ParameterFacts* Find(std::string_view kind, Family family,
                               std::string_view parameter) const
    {
        const auto found = facts_.find({kind, family, parameter});
        return found == facts_.end() ? nullptr : &found->second;
    }
    bool HasNeutral(std::string_view kind, Family family) const
    {
        return neutral_.contains({kind, family});
    }

private:
    using Key = std::tuple<std::string_view, Family, std::string_view>; // kind, family, parameter

    void AddNeutral(const Key& key, std::string_view values, bool decides = false)
    {
        if (values.empty())
            return;
        ParameterFacts& facts = facts_[key];
        AddValues(values, facts.neutral);
        facts.decides = decides;
        neutral_.emplace(std::get<0>(key), std::get<1>(key));
    }

    void AddDefault(const Key& key, std::string_view value)
    {
        if (!value.empty())
            AddValues(value, facts_[key].missing);
    }

    void AddDefaults(std::span<const std::string_view> effects, std::span<const DefaultRow> rows)
    {
        for (const std::string_view effect : effects)
            for (const DefaultRow& row : rows)
                AddDefault({effect, Family::Xmeml, row.parameter}, row.value);
    }

    // The neutral values of an effect that projects don't have are its defaults, at which it is
    // dropped without an issue.
    void AddVideoParam(const EffectRow& row, const ParamRow& param)
    {
        const std::string_view kind = KindOf(row.name, row.xmeml);
        const Key xmeml{kind, Family::Xmeml, param.xmeml.id};
        const Key project{kind, Family::Project, param.name};
        if (!param.xmeml.id.empty()) {
            AddDefault(xmeml, DefaultInXmeml(param));
            if (row.outcome == Outcome::Dropped)
                AddDefault(xmeml, param.xmeml.neutral);
            else
                AddNeutral(xmeml, param.xmeml.neutral);
            facts_[xmeml].isAngle |= param.kind == ParamKind::WideScalar;
        }
        if (param.id == 0)
            return;
        AddDefault(project, DefaultInProject(param));
        if (!param.neutral.empty())
            AddNeutral(project, param.neutral);
        else if (!param.toXmeml && IsPlain(param.kind))
            AddNeutral(project, param.xmeml.neutral);
        ParameterFacts& facts = facts_[project];
        facts.isAngle |= param.kind == ParamKind::WideScalar;
        facts.isOfItem |= kind == kOpacity.name && param.kind == ParamKind::Choice;
    }

    static std::string_view KindOf(std::string_view name, const XmemlEffect& xmeml)
    {
        return !name.empty() ? name : !xmeml.name.empty() ? xmeml.name : xmeml.id;
    }

    std::map<Key, ParameterFacts> facts_;
    std::set<std::pair<std::string_view, Family>> neutral_;
};

const FactTable& Table()
{
    static const FactTable table;
    return table;
}

} // namespace

const ParameterFacts* FindFacts(std::string_view kind, Family family, std::string_view parameter)
{
    return Table().Find(kind, family, parameter);
}

bool HasNeutralValues(std::string_view kind, Family family)
{
    return Table().HasNeutral(kind, family);
}

} // namespace XPJ::Inspection
