#include "frame/media_path_changes.h"

#include "core/numbers.h"
#include "core/paths.h"
#include "core/text.h"
#include "dialects/parts.h"
#include "xmeml/file_facts.h"
#include "xmeml/files.h"
#include "xmeml/parameter_values.h"

#include <cstddef>
#include <map>
#include <string>
#include <utility>

namespace XPJ {

namespace {

// The effect that names a look file or lookup table.
constexpr std::string_view kLookEffect = "Gradiva";

class PathChanges {
public:
    PathChanges(MediaPaths& paths, std::string_view folder, Progress& progress, Account& account)
        : paths_(paths), folder_(folder), progress_(progress), account_(account)
    {
    }

    void ChangeFile(ObjectHandle node)
    {
        const FileElement file(node);
        const std::string path = UnescapeXML(PathOfFile(file, folder_));
        const MediaPath now = Find(file.Title(), path, FactsOfFile(file));
        if (now.path != path)
            SetPathOfFile(node, now.path);
    }

    void ChangeEffect(ObjectHandle effect)
    {
        for (const ObjectHandle dependency : effect.GetChildren("dependency"))
            ChangeDependency(effect, dependency);
        if (effect.GetProperty("effectid") == kLookEffect)
            for (const ObjectHandle parameter : effect.GetChildren("parameter"))
                if (parameter.GetProperty("name") == "path")
                    ChangeLook(effect, parameter);
    }

private:
    // A URL, as that of a file.
    void ChangeLook(ConstHandle effect, ObjectHandle parameter)
    {
        const std::string path = PathFromUrl(UnescapeXML(PlainValue(parameter)), folder_);
        const MediaPath now = Find(effect.GetProperty("name"), path, {});
        const ObjectHandle value = parameter.GetChild("value");
        if (now.path != path)
            (value ? value : parameter).SetProperty("value", EscapeXML(MakePathUrl(now.path)));
    }

    // A path, which a relative one stays.
    void ChangeDependency(ConstHandle effect, ObjectHandle dependency)
    {
        const std::string path = UnescapeXML(dependency.GetProperty("path"));
        if (path != PathFromUrl(path, "/"))
            return;
        const MediaPath now = Find(effect.GetProperty("name"), path, {});
        if (now.path != path)
            dependency.SetProperty("path", EscapeXML(now.path));
    }

    MediaPath Find(std::string_view name, const std::string& path, const MediaFacts& facts)
    {
        MediaPath now = paths_.Find(path, facts, [this] { return progress_.IsCancelled(); });
        switch (now.search) {
        case MediaSearchResult::NotNeeded:
            if (now.isMapped)
                AddRemarkOnce(RemarkKind::MediaPathMapped, name, path, now.path);
            break;
        case MediaSearchResult::Found:
            AddRemarkOnce(RemarkKind::MediaRelinked, name, path, now.path);
            break;
        case MediaSearchResult::Ambiguous:
        case MediaSearchResult::NotFound:
            if (now.isMapped)
                AddRemarkOnce(RemarkKind::MediaPathMapped, name, path, now.path);
            if (now.search == MediaSearchResult::Ambiguous)
                AddRemarkOnce(RemarkKind::MediaAmbiguous, name, now.path,
                              UintToString(now.candidates));
            else
                AddRemarkOnce(RemarkKind::MediaNotFound, name, now.path, {});
            break;
        }
        return now;
    }

    // Many `file`s may have one path.
    void AddRemarkOnce(RemarkKind kind, std::string_view name, const std::string& path,
                       const std::string& detail)
    {
        const auto [known, isNew] =
            remarks_.try_emplace({kind, path + '\n' + detail}, account_.remarks.size());
        if (!isNew) {
            ++account_.remarks[known->second].count;
            return;
        }
        const std::string subject = EscapeXML(path);
        AddRemark(account_, kind, {.clip = name.empty() ? FileNameOf(subject) : name},
                  {.name = subject, .detail = EscapeXML(detail)});
    }

    MediaPaths& paths_;
    std::string_view folder_;
    Progress& progress_;
    Account& account_;
    std::map<std::pair<RemarkKind, std::string>, std::size_t> remarks_; // in the account
};

} // namespace

void ChangeMediaPaths(MediaPaths& paths, std::string_view folder, ObjectHandle xmeml,
                      Progress& progress, Account& account)
{
    PathChanges changes(paths, folder, progress, account);
    const TreeParts parts = FindParts(xmeml);
    for (const ObjectHandle& file : parts.files)
        if (!progress.IsCancelled())
            changes.ChangeFile(file);
    for (const EffectPart& part : parts.effects)
        if (!progress.IsCancelled())
            changes.ChangeEffect(part.effect);
}

void ChangeMediaPaths(MediaPaths& paths, Inspection::Project& project)
{
    for (Inspection::MediaFile& file : project.mediaFiles)
        file.path = paths.Find(file.path, file.facts).path;
}

} // namespace XPJ
