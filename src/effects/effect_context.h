// What a translator of an effect, a transition or a title needs of the conversion around it, in
// both directions.
#pragma once

#include "core/account.h"
#include "core/ticks.h"
#include "tree/object.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace XPJ {

// Width and height in pixels, width of a pixel over its height.
struct FrameSize {
    int width = 0;
    int height = 0;
    double pixelAspect = 1.0;
};

// From a `FrameRect` and a `PixelAspectRatio`; an aspect that is no ratio is 1.
//   ParseFrameSize("0,0,720,480", "10,11")
FrameSize ParseFrameSize(std::string_view rect, std::string_view aspect);

class LookFiles;

struct EffectContext {
    Document& document; // the result's; new nodes are made in it
    Account& account;
    ItemLocation location = {};
    std::function<std::string()> time = {}; // of the location, where it is computed for issues only
    Ticks frameTicks = kNtscFrameTicks;     // the unit in which the item's keyframes count
    Ticks sampleTicks = kSampleTicks48k;    // of the item's audio
    FrameSize sequenceFrame = {};
    FrameSize clipFrame = {};
    // Size of the file's frame over that which the camera recorded, where its raw footage is
    // decoded to another one.
    double decodedWidthRatio = 1.0;
    double decodedHeightRatio = 1.0;
    LookFiles* lookFiles = nullptr; // null: looks that name a file count as missing
    // Settings::openInterchange: the two directions are inverses of each other. Never of an audio
    // hand-off.
    bool openInterchange = false;
    // Of an export.
    bool isHandOff = false; // the document is an audio hand-off
    bool exportTransformEffect = false;
    bool isRepeated = false; // the item is written once more: its remarks are there already

    // The factors between coordinates of the clip and of the sequence; 1 for an unknown size.
    double HorizontalRatio() const;
    double VerticalRatio() const;
    // Pixel aspect of the clip over that of the sequence, exactly 1 when they are about equal.
    double AspectRatio() const;

    // Enters an issue at the location of the item.
    //   context.AddIssue(ImportIssue::EffectNotTranslated, "Sepia")
    void AddIssue(ImportIssue kind, std::string_view subject = {}) const;
    // `about`: the component that it is about, if it is one.
    void AddIssue(ExportIssue kind, std::string_view subject = {}, ConstHandle about = {}) const;
    // The same for what the report doesn't list.
    //   context.AddRemark(RemarkKind::FilterRange, {.name = "Blur"})
    void AddRemark(RemarkKind kind, const RemarkSubject& subject = {}) const;
    // The same for an `effect`, under the name and the id that it has.
    //   context.AddRemark(RemarkKind::EffectParameterLost, effect, "Softness")
    // `onlyWhen`: the condition under which it would have been translated.
    void AddIssue(ImportIssue kind, ConstHandle effect, std::string_view onlyWhen = {}) const;
    // The two issues of a look whose file can't be opened, with one remark for both.
    void AddMissingLook(ConstHandle effect, std::string_view path) const;
    void AddRemark(RemarkKind kind, ConstHandle effect, std::string_view detail = {},
                   std::size_t count = 1) const;
};

} // namespace XPJ
