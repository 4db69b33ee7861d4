#include "import/outline.h"
#include "import/outline_parts.h"

#include <set>

#include <fmt/format.h>

namespace XPJ {
namespace {

constexpr std::int64_t kFrame25 = 10160640000;
constexpr std::size_t kLineWidth = 100;

// Reals of a record that never differ: of numbers, points, audio levels and speeds.
constexpr std::string_view kPlainTails[] = {
    ",0,0,0,0.166667,0,0.166667",
    ",0,0,0.,0.,0.,0.,5,4,0.,0.,0.,0.",
    ",0,0,0.0,0.166666666666666657414808,0.0,0.166666666666666657414808",
    ",0,0,0.,0.,0.,0.",
};

// "20:0.75" of a record; one with other reals behind its value keeps them.
std::string RecordText(std::string_view record, std::int64_t frameTicks)
{
    const std::size_t comma = std::min(record.find(','), record.size());
    std::string_view value = record.substr(std::min(comma + 1, record.size()));
    for (const std::string_view tail : kPlainTails)
        if (value.ends_with(tail)) {
            value.remove_suffix(tail.size());
            break;
        }
    return fmt::format("{}:{}", Frames(Count(record.substr(0, comma)), frameTicks), value);
}

// `words` behind `indent`, on as many lines as they take.
std::string Wrapped(const std::string& indent, const std::vector<std::string>& words)
{
    std::string text;
    std::string line = indent;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (line.size() > indent.size() && line.size() + words[i].size() > kLineWidth) {
            text += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
            line = indent;
        }
        line += words[i] + (i + 1 < words.size() ? ", " : "");
    }
    return line.size() > indent.size() ? text + line + "\n" : text;
}

class Effects {
public:
    Effects(std::string_view text, std::string_view skipped, std::string_view names)
        : project_(text), skipped_("," + std::string(skipped) + ","),
          names_(names.empty() ? std::string() : "," + std::string(names) + ",")
    {
    }

    std::string Text()
    {
        VisitItems(project_, [this](const Element& item, const Element&, std::size_t) {
            const Element& master = project_.At(item, "MasterClip");
            AddSequence(SequenceOfMaster(project_, master));
            AddMaster(master);
        });
        return std::move(text_);
    }

private:
    std::string Value(const Element& object, std::string_view path) const
    {
        return project_.Value(object, path);
    }

    void AddMaster(const Element& master)
    {
        if (master.IsNone() || !seen_.insert(&master).second)
            return;
        const Element& chain = project_.At(master, "VideoComponentChain");
        if (project_.List(chain, "Component").empty())
            return;
        const std::int64_t rate = Count(Value(project_.At(master, "Clip"), "FrameRate"));
        AddChain(fmt::format("Master \"{}\"", master.Child("Name").text), chain,
                 rate > 0 ? rate : kFrame25);
    }

    void AddSequence(const Element& sequence)
    {
        if (sequence.IsNone() || !seen_.insert(&sequence).second)
            return;
        const auto [video, audio, frameTicks] = GroupsOf(project_, sequence);
        std::vector<const Element*> shown;
        for (const auto& [group, kind] : {std::pair{&video, 'V'}, {&audio, 'A'}}) {
            int number = 0;
            for (const Element* const track : project_.List(*group, "Track")) {
                const std::string location = fmt::format("{}{}", kind, ++number);
                AddFader(location, *track, frameTicks);
                int position = 0;
                for (const Element* const item : project_.List(*track, "TrackItem")) {
                    AddItem(fmt::format("{}.{}", location, ++position), *item, frameTicks);
                    shown.push_back(item);
                }
            }
            if (kind == 'A')
                AddFader("Master", project_.At(*group, "MasterTrack"), frameTicks);
        }
        for (const Element* const item : shown) {
            AddMaster(project_.At(*item, "SubClip/MasterClip"));
            AddSequence(project_.At(*item, "SubClip/Clip/Source/Sequence"));
        }
    }

    // Faders at their default are not shown.
    void AddFader(const std::string& location, const Element& track, std::int64_t frameTicks)
    {
        for (const Element* const component :
             project_.List(project_.At(track, "ComponentOwner/Components"), "Component"))
            for (const Element* const param : project_.List(*component, "Param"))
                if (const std::string text = ParamText(*param, {}, frameTicks);
                    Value(*param, "Name") == "Volume" && text != "Volume=1.dB")
                    text_ += location + " fader " + text + "\n";
    }

    void AddItem(const std::string& location, const Element& item, std::int64_t frameTicks)
    {
        AddChain(
            fmt::format("{} \"{}\"", location, project_.At(item, "SubClip").Child("Name").text),
            project_.At(item, "ComponentOwner/Components"), frameTicks);
        const Element& panner = project_.At(item, "Panner");
        for (const Element* const param : project_.List(panner, "Param"))
            text_ += "    " + panner.name + " " + ParamText(*param, {}, frameTicks) + "\n";
    }

    void AddChain(const std::string& owner, const Element& chain, std::int64_t frameTicks)
    {
        text_ += owner;
        for (const std::string_view flag : {"DefaultOpacity", "DefaultMotion"})
            if (Value(chain, flag) == "false")
                text_.append(" ").append(flag.substr(7));
        if (chain.name == "AudioComponentChain")
            text_ += fmt::format(" type {} rate {}", chain.Child("ChannelType").text,
                                 chain.Child("FrameRate").text);
        text_ += fmt::format(" next {}\n", Value(chain, "NextComponentID"));
        for (const Element* const component : project_.List(chain, "Component"))
            AddComponent(*component, frameTicks);
    }

    void AddComponent(const Element& component, std::int64_t frameTicks)
    {
        const bool isAudio = component.name == "AudioFilterComponent";
        const std::string match = Value(component, isAudio ? "FilterMatchName" : "MatchName");
        text_ += fmt::format("  {} {}", Value(component, "ID"), match);
        for (const std::string_view key : {"DisplayName", "InstanceName"})
            if (const std::string name = Value(component, key); !name.empty())
                text_ += fmt::format(" \"{}\"", name);
        for (const auto& [key, text] : {std::pair{"Intrinsic", " intrinsic"},
                                        {"Bypass", " bypassed"},
                                        {"ECP.Filter.Expanded", " expanded"}})
            if (Value(component, key) == "true")
                text_ += text;
        if (const std::string type = Value(component, "VideoFilterType"); type == "1")
            text_ += " of type 1";
        for (const Element& dependency : project_.At(component, "PluginDependencyMap").children)
            text_ += fmt::format(" needs {} {}", dependency.Child("Tag").text,
                                 dependency.Child("Path").text);
        if (skipped_.find("," + match + ",") != skipped_.npos) {
            text_ += fmt::format(" with {} parameters\n", project_.List(component, "Param").size());
            return;
        }
        text_ += "\n";
        std::vector<std::string> params;
        for (const Element* const param : project_.List(component, "Param"))
            if (const std::string name = Value(*param, "Name");
                (!isAudio || name != "Bypass") &&
                (names_.empty() || names_.find("," + name + ",") != names_.npos))
                params.push_back(ParamText(*param, match, frameTicks));
        text_ += Wrapped("    ", params);
    }

    // "Level=0.5dB {0:0.25 10:1.}"; behind the start value that of now, where they differ.
    std::string ParamText(const Element& param, std::string_view match,
                          std::int64_t frameTicks) const
    {
        const std::string name = Value(param, "Name");
        if (param.name == "ArbVideoComponentParam")
            return name + "=" + BlobText(match, name, Value(param, "StartKeyframeValue"));
        const std::string start = Value(param, "StartKeyframe");
        const std::string record = RecordText(start, 0);
        const std::string now = Value(param, "CurrentValue");
        const std::string value = record.substr(std::min(record.find(':') + 1, record.size()));
        std::string text = name + "=" + value + Value(param, "UnitsString");
        if (now != value && !now.empty() && param.name != "PointComponentParam")
            text += " now " + now;
        if (Value(param, "IsInverted") == "true")
            text += " inverted";
        std::string keyframes = Value(param, "Keyframes");
        if ((Value(param, "IsTimeVarying") == "true") == keyframes.empty())
            text += " FLAGS";
        std::string list;
        while (!keyframes.empty()) {
            const std::size_t end = std::min(keyframes.find(';'), keyframes.size() - 1);
            list += (list.empty() ? " {" : " ") + RecordText(keyframes.substr(0, end), frameTicks);
            keyframes.erase(0, end + 1);
        }
        return list.empty() ? text : text + list + "}";
    }

    ProjectText project_;
    std::string skipped_;
    std::string names_;
    std::string text_;
    std::set<const Element*> seen_;
};

} // namespace

std::string EffectsOutline(std::string_view project, std::string_view skipped,
                           std::string_view names)
{
    return Effects(project, skipped, names).Text();
}

std::string ParametersOutline(std::string_view text, std::string_view names)
{
    const ProjectText project(text);
    const std::string list = "," + std::string(names) + ",";
    std::string result;
    for (const Element& object : project.Root().children) {
        const std::string match =
            project.Value(object, "MatchName") + project.Value(object, "FilterMatchName");
        if (!object.name.ends_with("FilterComponent") ||
            (!names.empty() && list.find("," + match + ",") == list.npos))
            continue;
        result += match + "\n";
        for (const Element* const param : project.List(object, "Param")) {
            const auto value = [&](std::string_view key) { return project.Value(*param, key); };
            result += fmt::format("  {} \"{}\" {} {} control {}, {}..{}, ui {}..{}, {}{}{}\n",
                                  value("ParameterID"), value("Name"), param->name,
                                  param->Attribute("ClassID").substr(0, 8),
                                  value("ParameterControlType"), value("LowerBound"),
                                  value("UpperBound"), value("LowerUIBound"), value("UpperUIBound"),
                                  value("StartKeyframe"), value("StartKeyframePosition"),
                                  value("DiscontinuousInterpolate") == "true" ? " in steps" : "");
        }
    }
    return result;
}

} // namespace XPJ
