// The pieces of which generated documents are made: files, items, filters, transitions.
#pragma once

#include "bench/xml_text.h"

#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace XPJ::Bench {

// The same numbers on every machine, which the distributions of <random> don't promise.
class Dice {
public:
    explicit Dice(std::uint32_t seed) : engine_(seed) {}
    // From 0 to `count` - 1.
    int Below(int count) { return static_cast<int>(engine_() % static_cast<std::uint32_t>(count)); }
    int Between(int low, int high) { return low + Below(high - low + 1); }
    bool OneIn(int count) { return Below(count) == 0; }
    std::string Uuid();

private:
    std::mt19937 engine_;
};

struct Rate {
    int timebase = 25;
    bool ntsc = false;
};

// A file of a camera: video and two channels of audio, or only one of both.
struct MediaFile {
    std::string id;
    std::string name;
    Rate rate;
    int duration = 0;
    int firstFrame = 0; // of its timecode
    std::string reel;
    int width = 1920;
    int height = 1080;
    bool hasVideo = true;
    int audioChannels = 2;
    bool isWritten = false; // in full; from then on it is referred to by id
};

// A clip of the browser; its items on tracks name it by `id`.
struct MasterClip {
    std::string id;
    std::string name;
    std::string uuid;
    std::string scene;
    std::string shot;
    std::string label;
    MediaFile file;
};

// A part of a master clip on a track; -1 is an edge under a transition.
struct Item {
    std::string id;
    int in = -1;
    int out = -1;
    int start = -1;
    int end = -1;
};

// Three items that are moved as one: video and the two channels of its audio.
struct LinkedItems {
    std::string ids[3];
    int position = 1; // in each of their tracks, from 1
};

void WriteRate(XmlText& xml, const Rate& rate);
void WriteTimecode(XmlText& xml, const Rate& rate, int frame, std::string_view reel);
// In full the first time, as a reference from then on.
void WriteFile(XmlText& xml, MediaFile& file, Dice& dice);
void WriteLogging(XmlText& xml, const MasterClip& clip);
void WriteLabelsAndComments(XmlText& xml, const MasterClip& clip);
void WriteMarker(XmlText& xml, std::string_view name, std::string_view comment, int in, int out);
void WriteLinks(XmlText& xml, const LinkedItems& links);
void WriteSourceTrack(XmlText& xml, bool isVideo, int trackIndex);

// What comes before the file in every item of a track.
void WriteItemHead(XmlText& xml, const MasterClip& clip, const Item& item);

// A choice of video filters: motion, blur, color, opacity and speed, some with keyframes.
void WriteVideoFilters(XmlText& xml, Dice& dice, int duration);
void WriteAudioFilters(XmlText& xml, Dice& dice, int duration, int channel);

// A dissolve or cross fade from `start` to `end`, centred on the cut.
void WriteTransition(XmlText& xml, const Rate& rate, bool isVideo, int start, int end);
// A line of text on black.
void WriteTitle(XmlText& xml, const Rate& rate, std::string_view text, int start, int end);

void WriteVideoFormat(XmlText& xml, const Rate& rate);
void WriteAudioFormat(XmlText& xml);
void WriteTrackEnd(XmlText& xml);

} // namespace XPJ::Bench
