// Builders of what a master clip plays: media, their streams, and the sources that refer to media
// or to sequences. Durations and boundaries are in ticks, rates in ticks a frame or a sample.
#pragma once

#include "core/frame_format.h"
#include "core/media_type.h"
#include "core/ticks.h"
#include "tree/object.h"

#include <limits>
#include <string_view>
#include <vector>

namespace XPJ {

// Length of video without an end: 12 hours.
constexpr Ticks kEndlessDuration = 10973491200000000;
// Frame length of video that has none of its own.
constexpr Ticks kAnyFrameTicks = std::numeric_limits<Ticks>::max();

struct MediaFields {
    std::string_view importer = "1fa18bfa-255c-44b1-ad73-56bcd99fceaf";
    std::string_view path;
    std::string_view title;
    bool infinite = false; // the video has no end
};
// A new Media without streams.
ObjectHandle MakeMedia(Document& document, const MediaFields& fields);

// Stills that the host draws, or that have layers, differ from recorded footage in codec, alpha
// and the lack of a time base.
enum class VideoKind { Recorded, Generated };

struct VideoStreamFields {
    VideoKind kind = VideoKind::Recorded;
    Ticks frameTicks = 0;
    Ticks duration = 0;
    FrameFormat frame;
    std::string_view fieldType = "0";
    bool isStill = false;
};
ObjectHandle MakeVideoStream(Document& document, const VideoStreamFields& fields);

// `kind` is a ChannelKind.
ObjectHandle MakeAudioStream(Document& document, Ticks sampleTicks, Ticks duration, int kind,
                             int channels);

struct SourceFields {
    MediaType type = MediaType::Video;
    Ticks rate = 0;
    Ticks duration = 0;
    // The part of the media that clips are limited to.
    Ticks start = kNoTime;
    Ticks end = kNoTime;
    bool hard = true;
};
// A VideoMediaSource or AudioMediaSource of a Media.
ObjectHandle MakeMediaSource(Document& document, ObjectHandle media, const SourceFields& fields);
// A VideoSequenceSource or AudioSequenceSource of a Sequence.
ObjectHandle MakeSequenceSource(Document& document, ObjectHandle sequence,
                                const SourceFields& fields);
// The sources of one master clip.
struct MediaSources {
    std::vector<ObjectHandle> video;
    std::vector<ObjectHandle> audio;
    std::string_view codec = {}; // of recorded video; empty where it is unknown
    int sharedChannels = 1;      // of the one audio source of a codec that holds all channels

    bool IsEmpty() const { return video.empty() && audio.empty(); }
    // The Media that the first video source plays, if any.
    ObjectHandle VideoMedia() const
    {
        return video.empty() ? ObjectHandle() : video.front().GetChild("Media");
    }
};

// Ticks a frame of video and a sample of audio.
struct SourceRates {
    Ticks video = kNtscFrameTicks;
    Ticks audio = kSampleTicks48k;
};
// One of each type, for a master that shows the whole of a Sequence.
MediaSources MakeSourcesOfSequence(Document& document, ObjectHandle sequence,
                                   const SourceRates& rates, Ticks duration);

} // namespace XPJ
