#include "inspect/neutral_effects.h"

#include "inspect/compare.h"
#include "inspect/timeline_text.h"
#include "inspect_fixture.h"
#include "support/import_text.h"

#include <map>

namespace XPJ::Inspection {
namespace {

// A clip with these children, beside its times.
std::string DocumentOf(const std::string& children)
{
    return R"(<xmeml version="5"><sequence id="s"><name>Cut</name><rate><timebase>25</timebase></rate>
<media><video><format><samplecharacteristics><width>1920</width><height>1080</height>
<pixelaspectratio>square</pixelaspectratio></samplecharacteristics></format><track>
<clipitem id="c"><name>A</name><start>0</start><end>50</end><in>0</in><out>50</out>
<rate><timebase>25</timebase></rate><file id="f"><name>f</name>
<pathurl>file://localhost/f.mov</pathurl><rate><timebase>25</timebase></rate>
<duration>100</duration><media><video><samplecharacteristics><width>1920</width>
<height>1080</height><pixelaspectratio>square</pixelaspectratio></samplecharacteristics></video>
</media></file>)" +
           children + "</clipitem></track></video></media></sequence></xmeml>";
}

// "level 1" as a parameter; behind the value there may be keyframes: "level 1 5=0.5 10=1".
std::string ParameterOf(const std::string& text)
{
    std::istringstream words(text);
    std::string id;
    std::string value;
    words >> id >> value;
    std::string parameter =
        "<parameter><parameterid>" + id + "</parameterid><value>" + value + "</value>";
    for (std::string keyframe; words >> keyframe;) {
        const std::size_t equals = keyframe.find('=');
        parameter += "<keyframe><when>" + keyframe.substr(0, equals) + "</when><value>" +
                     keyframe.substr(equals + 1) + "</value></keyframe>";
    }
    return parameter + "</parameter>";
}

// "crop; left 0; right 5" as a filter, "-crop" as one that is off; "" is none.
std::string FilterOf(std::string text)
{
    if (text.empty())
        return text;
    const bool isOff = text.starts_with('-');
    std::istringstream parts(text.substr(isOff ? 1 : 0));
    std::string id;
    std::getline(parts, id, ';');
    std::string filter = isOff ? "<filter><enabled>FALSE</enabled>" : "<filter>";
    filter += "<effect><name>" + id + "</name><effectid>" + id + "</effectid>";
    for (std::string part; std::getline(parts, part, ';');)
        filter += ParameterOf(part);
    return filter + "</effect></filter>";
}

// The lines of the differences, without the head and the sum.
std::string DifferencesOf(const std::string& a, const std::string& b)
{
    std::string text;
    for (const Difference& difference :
         Compare(Timelines(DocumentOf(a)), Timelines(DocumentOf(b)))) {
        text += std::string(text.empty() ? "" : ", ") + std::string(ChangeText(difference.change)) +
                " " + difference.property;
    }
    return text;
}

TEST(NeutralEffects, AreNoDifference)
{
    const struct {
        const char* a;
        const char* b;
        const char* expected;
    } rows[] = {
        // Effects that do nothing
        {"crop;left 0;right 0;edgefeather 0", "", ""},
        {"crop;left 0;right 3", "", "lost effect"},
        {"crop;left 0", "crop;left 3", "changed Crop: left"},
        {"deformation;aspect 0", "", ""},
        {"deformation;aspect 10", "", "lost effect"},
        {"basic;scale 100;antiflicker 0", "", ""},
        {"basic;scale 99.9", "", "lost effect"},
        {"Gaussian Blur;radius 0;channel 3", "", ""},
        {"Gaussian Blur;radius 0 0=0 10=4", "", "lost effect"},
        {"dropshadow;offset 30;opacity 0", "", ""},
        {"opacity;opacity 90 0=100 10=100", "", ""},
        {"audiolevels;level 1 0=1 10=1", "", ""},
        {"audiolevels;level 1 0=1 10=0.5", "", "lost effect"},
        {"Sepia;amount 0", "", "lost effect"},
        // Switched off
        {"-Gaussian Blur;radius 5", "-Gaussian Blur;radius 6", ""},
        {"-Gaussian Blur;radius 5", "Gaussian Blur;radius 5", "changed effect Gaussian Blur"},
        {"-Gaussian Blur;radius 5", "", "lost effect"},
        {"-dropshadow;offset 10;opacity 50", "", ""},
        {"dropshadow;offset 10;opacity 50", "", "lost effect"},
        // Defaults that are not stated
        {"crop;left 3", "crop;left 3;edgefeather 0", ""},
        {"basic;scale 50;rotation 0", "basic;scale 50", ""},
        {"Color Corrector 3-way;chroma 50", "Color Corrector 3-way;chroma 50;b_mag 0;satwidth 40",
         ""},
        {"Color Corrector 3-way;chroma 50", "Color Corrector 3-way;chroma 50;satwidth 41",
         "added Color Corrector 3-way: satwidth"},
        // Values that are the same
        {"opacity;opacity 85", "opacity;opacity 85 0=85", ""},
        {"opacity;opacity 10 0=85 9=20", "opacity;opacity 20 0=85 9=20", ""},
        {"opacity;opacity 85", "opacity;opacity 85 0=85 9=20",
         "changed Opacity: opacity keyframes"},
        {"audiolevels;level 0.398107", "audiolevels;level 0.398106", ""},
        {"audiolevels;level 0.3981", "audiolevels;level 0.3982", "changed Volume: level"},
        {"Color Corrector 3-way;b_hue 210", "Color Corrector 3-way;b_hue -150", ""},
        {"basic;rotation 210", "basic;rotation -150", "changed Motion: rotation"},
    };
    for (const auto& row : rows) {
        const std::string a = FilterOf(row.a);
        const std::string b = FilterOf(row.b);
        EXPECT_EQ(DifferencesOf(a, b), row.expected) << row.a << ", " << row.b;
        EXPECT_EQ(DifferencesOf(b, a).empty(), std::string(row.expected).empty())
            << row.b << ", " << row.a;
    }
}

TEST(NeutralEffects, NamesThatUsersGave)
{
    const std::string corrector = FilterOf("Color Corrector 3-way;chroma 50");
    const std::string named = Replaced(corrector, "<name>Color Corrector 3-way", "<name>Dusk");
    EXPECT_EQ(DifferencesOf(named, named), "");
    EXPECT_EQ(DifferencesOf(named, corrector), "changed name of effect Color Corrector 3-way");
}

TEST(NeutralEffects, CompositeModes)
{
    const std::string normal = "<compositemode>normal</compositemode>";
    const std::string screen = "<compositemode>screen</compositemode>";
    EXPECT_EQ(DifferencesOf(normal, ""), "");
    EXPECT_EQ(DifferencesOf(screen, normal), "changed composite mode");
}

// What projects do in other ways, and what of it is lost.
TEST(NeutralEffects, BetweenADocumentAndItsProject)
{
    const std::map<std::string, std::string> rows = {
        {"<compositemode>screen</compositemode>", ""},
        {"<compositemode>lumamask</compositemode>", "composite mode"},
        {FilterOf("deformation;aspect -100"), ""},
        {FilterOf("Basic 3D;s 80;ry 0"), ""},
        {FilterOf("Basic 3D;s 80;ry 20"), ""},
        {FilterOf("Color Corrector 3-way;chroma 50"), ""},
        {FilterOf("Sepia;amount 5"), "effect"},
    };
    for (const auto& [children, expected] : rows) {
        const std::string document = DocumentOf(children);
        const std::vector<Difference> found =
            Compare(Timelines(document), Timelines(ImportText(document).project));
        EXPECT_EQ(found.empty() ? "" : found[0].property, expected) << children;
    }
}

} // namespace
} // namespace XPJ::Inspection
