#include "bench/elements.h"

#include <fmt/format.h>

namespace XPJ::Bench {

std::string Dice::Uuid()
{
    const std::uint32_t a = static_cast<std::uint32_t>(engine_());
    const std::uint32_t b = static_cast<std::uint32_t>(engine_());
    const std::uint32_t c = static_cast<std::uint32_t>(engine_());
    const std::uint32_t d = static_cast<std::uint32_t>(engine_());
    return fmt::format("{:08X}-{:04X}-4{:03X}-{:04X}-{:04X}{:08X}", a, b >> 16, b & 0xfff,
                       0x8000 | (c >> 18), c & 0xffff, d);
}

void WriteRate(XmlText& xml, const Rate& rate)
{
    xml.Block("rate", [&] {
        xml.Flag("ntsc", rate.ntsc);
        xml.Leaf("timebase", rate.timebase);
    });
}

void WriteTimecode(XmlText& xml, const Rate& rate, int frame, std::string_view reel)
{
    const int seconds = frame / rate.timebase;
    xml.Block("timecode", [&] {
        WriteRate(xml, rate);
        xml.Leaf("string", fmt::format("{:02}:{:02}:{:02}:{:02}", seconds / 3600, seconds / 60 % 60,
                                       seconds % 60, frame % rate.timebase));
        xml.Leaf("frame", frame);
        xml.Leaf("source", "source");
        xml.Leaf("displayformat", "NDF");
        if (!reel.empty())
            xml.Block("reel", [&] { xml.Leaf("name", reel); });
    });
}

namespace {

void WriteFileMedia(XmlText& xml, const MediaFile& file)
{
    if (file.hasVideo)
        xml.Block("video", [&] {
            xml.Leaf("duration", file.duration);
            xml.Block("samplecharacteristics", [&] {
                xml.Leaf("width", file.width);
                xml.Leaf("height", file.height);
            });
        });
    for (int channel = 1; channel <= file.audioChannels; ++channel)
        xml.Block("audio", [&] {
            xml.Block("samplecharacteristics", [&] {
                xml.Leaf("samplerate", 48000);
                xml.Leaf("depth", 16);
            });
            xml.Leaf("channelcount", 1);
            xml.Leaf("layout", "mono");
            xml.Block("audiochannel", [&] {
                xml.Leaf("sourcechannel", channel);
                xml.Leaf("channellabel", "discrete");
            });
        });
}

} // namespace

void WriteFile(XmlText& xml, MediaFile& file, Dice& dice)
{
    if (file.isWritten) {
        xml.Reference("file", file.id);
        return;
    }
    file.isWritten = true;
    xml.Block("file", "id", file.id, [&] {
        xml.Leaf("name", file.name);
        xml.Leaf("pathurl",
                 fmt::format("file://localhost/Volumes/Raid%201/Harbour%20Stories/Rushes/{}/{}",
                             file.reel, file.name));
        WriteRate(xml, file.rate);
        xml.Leaf("duration", file.duration);
        xml.Block("metadata", [&] {
            xml.Leaf("storage", "QuickTime");
            xml.Leaf("key", "com.apple.finalcutstudio.media.uuid");
            xml.Leaf("size", 36);
            xml.Leaf("type", "UTF8");
            xml.Leaf("value", dice.Uuid());
        });
        WriteTimecode(xml, file.rate, file.firstFrame, file.reel);
        xml.Block("media", [&] { WriteFileMedia(xml, file); });
    });
}

void WriteLogging(XmlText& xml, const MasterClip& clip)
{
    xml.Block("logginginfo", [&] {
        xml.Leaf("description", clip.name + " &amp; room tone");
        xml.Leaf("scene", clip.scene);
        xml.Leaf("shottake", clip.shot);
        xml.BlankLeaf("lognote");
        xml.Flag("good", clip.label == "Good Take");
    });
}

void WriteLabelsAndComments(XmlText& xml, const MasterClip& clip)
{
    xml.Block("labels", [&] {
        if (clip.label.empty())
            xml.BlankLeaf("label2");
        else
            xml.Leaf("label2", clip.label);
    });
    xml.Block("comments", [&] {
        xml.Leaf("mastercomment1", "slate checked, sound in sync");
        xml.BlankLeaf("mastercomment2");
        xml.BlankLeaf("mastercomment3");
        xml.BlankLeaf("mastercomment4");
    });
}

void WriteMarker(XmlText& xml, std::string_view name, std::string_view comment, int in, int out)
{
    xml.Block("marker", [&] {
        xml.Leaf("name", name);
        xml.Leaf("comment", comment);
        xml.Leaf("in", in);
        xml.Leaf("out", out);
    });
}

void WriteLinks(XmlText& xml, const LinkedItems& links)
{
    for (int i = 0; i < 3; ++i)
        xml.Block("link", [&] {
            xml.Leaf("linkclipref", links.ids[i]);
            xml.Leaf("mediatype", i == 0 ? "video" : "audio");
            xml.Leaf("trackindex", i < 2 ? 1 : 2);
            xml.Leaf("clipindex", links.position);
            if (i > 0)
                xml.Leaf("groupindex", 1);
        });
}

void WriteSourceTrack(XmlText& xml, bool isVideo, int trackIndex)
{
    xml.Block("sourcetrack", [&] {
        xml.Leaf("mediatype", isVideo ? "video" : "audio");
        if (!isVideo)
            xml.Leaf("trackindex", trackIndex);
    });
}

void WriteItemHead(XmlText& xml, const MasterClip& clip, const Item& item)
{
    xml.Leaf("name", clip.name);
    xml.Leaf("duration", clip.file.duration);
    WriteRate(xml, clip.file.rate);
    xml.Leaf("in", item.in);
    xml.Leaf("out", item.out);
    xml.Leaf("start", item.start);
    xml.Leaf("end", item.end);
    xml.Flag("enabled", true);
    xml.Leaf("masterclipid", clip.id);
}

void WriteTransition(XmlText& xml, const Rate& rate, bool isVideo, int start, int end)
{
    xml.Block("transitionitem", [&] {
        WriteRate(xml, rate);
        xml.Leaf("start", start);
        xml.Leaf("end", end);
        xml.Leaf("alignment", "center");
        xml.Block("effect", [&] {
            xml.Leaf("name", isVideo ? "Cross Dissolve" : "Cross Fade (+3dB)");
            xml.Leaf("effectid", isVideo ? "Cross Dissolve" : "KGAudioTransCrossFade3dB");
            if (isVideo)
                xml.Leaf("effectcategory", "Dissolve");
            xml.Leaf("effecttype", "transition");
            xml.Leaf("mediatype", isVideo ? "video" : "audio");
            xml.Leaf("wipecode", 0);
            xml.Leaf("wipeaccuracy", 100);
            xml.Leaf("startratio", 0);
            xml.Leaf("endratio", 1);
            xml.Flag("reverse", false);
        });
    });
}

void WriteVideoFormat(XmlText& xml, const Rate& rate)
{
    xml.Block("format", [&] {
        xml.Block("samplecharacteristics", [&] {
            xml.Leaf("width", 1920);
            xml.Leaf("height", 1080);
            xml.Flag("anamorphic", false);
            xml.Leaf("pixelaspectratio", "Square");
            xml.Leaf("fielddominance", "none");
            WriteRate(xml, rate);
            xml.Leaf("colordepth", 24);
            xml.Block("codec", [&] {
                xml.Leaf("name", "Apple ProRes 422");
                xml.Block("appspecificdata", [&] {
                    xml.Leaf("appname", "Final Cut Pro");
                    xml.Leaf("appmanufacturer", "Apple Inc.");
                    xml.Leaf("appversion", "7.0");
                    xml.Block("data", [&] {
                        xml.Block("qtcodec", [&] {
                            xml.Leaf("codecname", "Apple ProRes 422");
                            xml.Leaf("codectypename", "Apple ProRes 422");
                            xml.Leaf("codectypecode", "apcn");
                            xml.Leaf("codecvendorcode", "appl");
                            xml.Leaf("spatialquality", 1024);
                            xml.Leaf("temporalquality", 0);
                            xml.Leaf("keyframerate", 0);
                            xml.Leaf("datarate", 0);
                        });
                    });
                });
            });
        });
    });
}

void WriteAudioFormat(XmlText& xml)
{
    xml.Block("format", [&] {
        xml.Block("samplecharacteristics", [&] {
            xml.Leaf("depth", 16);
            xml.Leaf("samplerate", 48000);
        });
    });
    xml.Block("outputs", [&] {
        for (int group = 1; group <= 2; ++group)
            xml.Block("group", [&] {
                xml.Leaf("index", group);
                xml.Leaf("numchannels", 1);
                xml.Leaf("downmix", 0);
                xml.Block("channel", [&] { xml.Leaf("index", group); });
            });
    });
}

void WriteTrackEnd(XmlText& xml)
{
    xml.Flag("enabled", true);
    xml.Flag("locked", false);
}

} // namespace XPJ::Bench
