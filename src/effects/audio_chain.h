// The audio effects of a clip: `filter`s of an item in `xmeml`, a chain in a project, which begins
// with the volume.
#pragma once

#include "effects/audio_filters.h"
#include "effects/effect_context.h"
#include "tree/object.h"

#include <cstdint>

namespace XPJ {

// ---- To a project

// What the audio of an item is, beside what the context states of the item.
struct ItemAudio {
    int channelType = 0;          // 0 mono, 1 stereo, 2 5.1, 3 adaptive
    std::int64_t delayFrames = 0; // `mediadelay` of the item, with which its levels move
    bool stereoSource = false;    // its file holds stereo
};

// A new AudioComponentChain from the `filter`s of an item. The volume of the clip, which every clip
// has, is first with `ID` 1; further levels and the filters follow in document order.
ObjectHandle BuildAudioChain(const EffectContext& context, const ItemAudio& audio,
                             ConstHandle item);

// The AudioFilterComponent of one `effect`. Null for what is not translated or lacks a parameter,
// which is reported, and for what is not a part of a chain, such as the pan.
ObjectHandle TranslateAudioFilter(const EffectContext& context, const ItemAudio& audio,
                                  ConstHandle effect);

// True for an audio effect of documents that changes nothing.
bool IsNeutralAudioFilter(ConstHandle effect);
// On a pan that an item or a track can't have, unless it is in the center.
void RemarkOnPan(const EffectContext& context, RemarkKind kind, ConstHandle owner);

// ---- To `xmeml`. Keyframes count in `frameTicks` of the context.

// True for the chain of a track that has more than fader and meter.
bool HasAudioFilters(ConstHandle chain);

// Puts a `filter` on `element` for every component of a clip's chain; what documents have no term
// for is reported.
void AudioChainToXmeml(const EffectContext& context, ConstHandle chain, ObjectHandle element);
// The same for the chain of a track, without its fader and its meter.
void TrackFiltersToXmeml(const EffectContext& context, ConstHandle chain, ObjectHandle element);

// Reports the components that documents have no term for, for a chain that can't be written.
void ReportAudioChain(const EffectContext& context, ConstHandle chain, ExportIssue kind);

// What became of a chain that the document has no term for.
struct WrittenChain {
    RemarkKind loss;         // of a component
    bool isWritten = false;  // elsewhere: those that documents have a term for
    bool isReported = false; // by an issue: the others
};
// Remarks for the components of such a chain, but for fader, meter and a volume that changes
// nothing.
void ReportAudioEffects(const EffectContext& context, ConstHandle chain,
                        const WrittenChain& written);

// The `Gain` of a clip that states one: a `filter` even where the gain changes nothing; its effect
// is then without a name. Bars and tone have a gain of their own, which projects do not state.
void GainToXmeml(const EffectContext& context, ConstHandle clip, bool isBarsAndTone,
                 ObjectHandle element);

// Attaches the `parameter` of a row, with value and keyframes of a project's parameter; nothing for
// one without a value, unless the row has one.
void AddAudioParameter(const EffectContext& context, const AudioParamRow& row, ConstHandle param,
                       ObjectHandle effect);

} // namespace XPJ
