#include "effects/parameters.h"

#include "effects/effect_text.h"
#include "effects/keyframes.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>

namespace XPJ {
namespace {

// "Key=value" of every property, by key, each with a blank behind it.
std::string Fields(ObjectHandle node)
{
    std::set<std::string> fields;
    for (const Property* field = node.FirstProperty(); field; field = field->next)
        fields.insert(std::string(field->NameView()) + "=" + std::string(field->Value()));
    std::string text(node.GetName().View());
    for (const std::string& field : fields)
        text += " " + field;
    return text;
}

std::string Start(std::string_view value)
{
    return "-91445760000000000," + std::string(value) + ",0,0,0.,0.,0.,0.";
}

using K = ParamKind;

struct BuilderRow {
    ParamKind kind;
    const char* element;
    std::string_view classId;
    const char* control;
    const char* lower; // empty: the field is absent
    const char* upper;
    const char* value;
    ParamFields given;
};

constexpr const char* kVideo = "VideoComponentParam";
constexpr const char* kAudio = "AudioComponentParam";
constexpr const char* kBlack = "18374686479671623680";
constexpr const char* kMaxColour = "18446744073709551615";

// What a kind fixes is given with another value, which must not get through.
// clang-format off
constexpr BuilderRow kBuilderRows[] = {
    {K::Scalar, kVideo, kScalarClass, "2", "0.", "600.", "1.",
     {.value = "1.", .lower = "0.", .upper = "600."}},
    {K::WideScalar, kVideo, kScalarClass, "3", "-32768.", "32767.", "100",
     {.value = "100", .lower = "9", .upper = "9"}},
    {K::Slider, kVideo, kSliderClass, "8", "0.", "1.", "0.", {.lower = "0.", .upper = "1."}},
    {K::CheckBox, kVideo, kSwitchClass, "4", "false", "true", "true", {.value = "true"}},
    {K::CheckBox16, kVideo, kSwitchClass, "16", "false", "true", "false", {}},
    {K::Separator11, kVideo, kSwitchClass, "11", "false", "false", "false", {.value = "true"}},
    {K::Separator12, kVideo, kSwitchClass, "12", "false", "false", "false", {.upper = "true"}},
    {K::Colour, kVideo, kColourClass, "5", "0", kMaxColour, kBlack, {.control = 9}},
    {K::Choice, kVideo, kChoiceClass, "10", "0", "24", "18",
     {.value = "18", .lower = "0", .upper = "24", .control = 10}},
    {K::Point, "PointComponentParam", kPointClass, "6", "", "", "0,0", {.value = "0.25:1"}},
    {K::Audio, kAudio, kAudioClass, "2", "", "", "0.5", {.value = "0.5", .units = "dB"}},
    {K::AudioBypass, kAudio, kAudioSwitchClass, "4", "", "", "false", {.value = "true"}},
    {K::Speed, "TimeComponentParam", kSpeedClass, "21", "0", "12.5", "",
     {.value = "5", .upper = "12.5"}},
};
// clang-format on

std::string ExpectedStart(const BuilderRow& row)
{
    if (row.kind == K::Point)
        return "-91445760000000000,0.25:1,0,0,0.,0.,0.,0.,5,4,0.,0.,0.,0.";
    if (row.kind == K::Speed)
        return "-91445760000000000,0.000000000000000000000000,0,0,0,0,0,0";
    return Start(row.value);
}

std::string ExpectedFields(const BuilderRow& row)
{
    const bool audio = row.element == kAudio;
    std::ostringstream text;
    text << row.element;
    if (*row.value)
        text << " CurrentValue=" << row.value;
    text << " DiscontinuousInterpolate=" << (row.kind == K::Choice ? "true" : "false");
    text << (audio ? " IsInverted=false " : " ") << "IsLocked=false IsTimeVarying=false";
    if (*row.lower)
        text << " LowerBound=" << row.lower;
    text << " Name=Some name ParameterControlType=" << row.control
         << " ParameterID=12 RangeLocked=false StartKeyframe=" << ExpectedStart(row);
    if (audio)
        text << " Timestamp=0 UnitsString=" << row.given.units;
    if (*row.upper)
        text << " UpperBound=" << row.upper;
    text << " classid=" << row.classId;
    return text.str();
}

TEST(Parameters, EveryBuilder)
{
    Document document;
    for (const BuilderRow& row : kBuilderRows) {
        ParamFields fields = row.given;
        fields.name = "Some name";
        fields.id = 12;
        const ObjectHandle param = MakeParam(document, row.kind, fields);
        EXPECT_EQ(Fields(param), ExpectedFields(row));
    }
}

TEST(Parameters, OneReadingForAllFieldsAndAnyCaseForSwitches)
{
    Document document;
    const ObjectHandle param = MakeParam(document, K::Scalar, {.name = "O", .value = "62,5"});
    EXPECT_EQ(param.GetProperty("CurrentValue"), "62");
    EXPECT_EQ(param.GetProperty("StartKeyframe"), Start("62"));
    for (const auto& [stated, bypass] :
         {std::pair{"TRUE", "true"}, {"True", "true"}, {"FALSE", "false"}, {"1", "false"}}) {
        const ObjectHandle effect = document.NewObject("effect");
        effect.SetProperty("velaBypass", stated);
        CopyBypass(effect, param);
        EXPECT_EQ(param.GetProperty("Bypass"), bypass) << stated;
    }
}

TEST(Parameters, KeyframesMakeEveryKindTimeVarying)
{
    Document document;
    for (const BuilderRow& row : kBuilderRows) {
        const ObjectHandle param = MakeParam(document, row.kind, {.name = "Speed", .id = -1});
        EXPECT_EQ(param.GetProperty("ParameterID"), "-1");
        SetKeyframes(param, "");
        EXPECT_FALSE(param.HasProperty("Keyframes"));
        EXPECT_EQ(param.GetProperty("IsTimeVarying"), "false");
        SetKeyframes(param, "0,1.,0,0,0,0.166667,0,0.166667;");
        EXPECT_EQ(param.GetProperty("IsTimeVarying"), "true");
        EXPECT_EQ(param.GetProperty("Keyframes"), "0,1.,0,0,0,0.166667,0,0.166667;");
    }
}

TEST(Parameters, NoIdNoField)
{
    Document document;
    EXPECT_FALSE(
        MakeParam(document, ParamKind::Audio, {.name = "Level"}).HasProperty("ParameterID"));
    EXPECT_EQ(MakeCheckBox(document, " ", 4, true).GetProperty("CurrentValue"), "true");
}

TEST(Parameters, Blobs)
{
    Document document;
    const std::string common = "DiscontinuousInterpolate=false IsLocked=false IsTimeVarying=false "
                               "KeyframeSetSize=0 Name=";
    EXPECT_EQ(Fields(MakeEmptyBlob(document)),
              "ArbVideoComponentParam " + common +
                  " ParameterControlType=9 ParameterID=-1 "
                  "StartKeyframePosition=91445760000000000 UnitsString=");
    EXPECT_EQ(Fields(MakeBlob(document, "File Path", "1", "10", std::string_view("\0\0\0", 3))),
              "ArbVideoComponentParam " + common +
                  "File Path ParameterControlType=10 ParameterID=1 "
                  "StartKeyframePosition=-91445760000000000 StartKeyframeValue=AAAA "
                  "StartKeyframeValueChecksum=4287466893 UnitsString=");
}

TEST(Parameters, CopiedProjectFieldsComeBackUnchanged)
{
    Document document;
    const ObjectHandle parameter = ReadParameter(
        document, "<parameterid>4</parameterid><name>Scale</name>"
                  "<value>-91445760000000000,100.0,0,0,0.,0.,0.,0.</value>"
                  "<ParameterControlType>2</ParameterControlType><LowerBound>0.</LowerBound>"
                  "<UpperUIBound>200</UpperUIBound><Keyframes>1,2.,0,0,0,0,0,0;</Keyframes>"
                  "<authoringApp>VelaPro</authoringApp>");
    const ObjectHandle param =
        CopyProjectParam(document, parameter, "VideoComponentParam", kScalarClass);
    EXPECT_EQ(Fields(param), "VideoComponentParam IsTimeVarying=true Keyframes=1,2.,0,0,0,0,0,0; "
                             "LowerBound=0. Name=Scale ParameterControlType=2 ParameterID=4 "
                             "StartKeyframe=-91445760000000000,100.0,0,0,0.,0.,0.,0. "
                             "UpperUIBound=200 classid=" +
                                 std::string(kScalarClass));

    const ObjectHandle back = ExportProjectParam(document, param);
    for (const char* const key : {"parameterid", "name", "ParameterControlType", "LowerBound",
                                  "UpperBound", "UpperUIBound", "Keyframes"})
        EXPECT_EQ(back.GetProperty(std::string_view(key)),
                  parameter.GetProperty(std::string_view(key)))
            << key;
    EXPECT_EQ(PlainValue(back), PlainValue(parameter));
}

TEST(Parameters, CopiesFillInWhatTheirDocumentDoesNotCarry)
{
    const struct {
        std::string_view classId;
        const char* control;
    } rows[] = {
        {kSwitchClass, "4"}, {kPointClass, "6"},  {kScalarClass, "2"},
        {kSliderClass, "8"}, {kChoiceClass, "7"}, {kColourClass, ""},
    };
    Document document;
    const ObjectHandle bare = ReadParameter(document, "<parameterid>9</parameterid>");
    for (const auto& row : rows) {
        const ObjectHandle param =
            CopyProjectParam(document, bare, "VideoComponentParam", row.classId);
        EXPECT_EQ(param.GetProperty("ParameterControlType"), row.control) << row.classId;
        EXPECT_EQ(param.GetProperty("IsTimeVarying"), "false");
        EXPECT_EQ(param.GetProperty("DiscontinuousInterpolate"),
                  row.classId == kChoiceClass ? "true" : "");
        EXPECT_FALSE(param.HasProperty("CurrentValue"));
        EXPECT_FALSE(param.HasProperty("Keyframes"));
    }
}

TEST(Parameters, BlobsLeaveWithTheirHash)
{
    Document document;
    const ObjectHandle param = document.NewObject("ArbVideoComponentParam");
    param.SetProperty("ParameterID", "1");
    param.SetProperty("Name", "SourceText");
    param.SetProperty("ParameterControlType", "9");
    param.SetProperty("IsTimeVarying", "false");
    const ObjectHandle blob = document.NewObject("StartKeyframeValue");
    blob.SetProperty("value", "AAAA");
    blob.SetProperty("BinaryHash", "h");
    param.AddChild(blob);
    EXPECT_EQ(Fields(ExportProjectParam(document, param)),
              "parameter ParameterControlType=9 hash=h name=SourceText parameterid=1 value=AAAA");
}

TEST(Parameters, MarksOfAnEffect)
{
    Document document;
    const ObjectHandle plain = document.NewObject("VideoFilterComponent");
    CopyBypass(ReadEffect(document, ""), plain);
    CopyExpanded(ReadEffect(document, ""), plain);
    EXPECT_EQ(Fields(plain), "VideoFilterComponent Bypass=false");

    const ObjectHandle marked = document.NewObject("VideoFilterComponent");
    const ObjectHandle effect =
        ReadEffect(document, "<velaBypass>true</velaBypass><velaExpanded>false</velaExpanded>");
    CopyBypass(effect, marked);
    CopyExpanded(effect, marked);
    EXPECT_EQ(Fields(marked), "VideoFilterComponent Bypass=true ECP.Filter.Expanded=false");
}

ObjectHandle ReadParam(Document& document, std::string_view start, std::string_view current)
{
    const ObjectHandle param = document.NewObject("VideoComponentParam");
    if (!start.empty())
        param.SetProperty("StartKeyframe", start);
    if (!current.empty())
        param.SetProperty("CurrentValue", current);
    return param;
}

TEST(Parameters, StillValuesOfAProject)
{
    Document document;
    const ObjectHandle both = ReadParam(document, Start("40."), "50");
    EXPECT_EQ(StartNumber(both, 1), 40);
    EXPECT_EQ(StartInteger(both, 1), 40);
    EXPECT_EQ(CurrentNumber(both, 1), 50);
    const ObjectHandle current = ReadParam(document, "", "50");
    EXPECT_EQ(StartNumber(current, 1), 50);
    const ObjectHandle start = ReadParam(document, Start("40."), "");
    EXPECT_EQ(CurrentNumber(start, 1), 40);
    for (const ObjectHandle& none :
         {ReadParam(document, "", ""), ObjectHandle(),
          ReadParam(document, "-91445760000000000", ""), ReadParam(document, ",,", "")}) {
        EXPECT_EQ(StartNumber(none, 1.5), 1.5);
        EXPECT_EQ(CurrentNumber(none, 1.5), 1.5);
        EXPECT_EQ(StartInteger(none, 3), 3);
        EXPECT_TRUE(StartSwitch(none, true));
        EXPECT_EQ(StartPoint(none, {0.5, 0.5}), (Point{0.5, 0.5}));
    }
}

TEST(Parameters, SwitchesOfAProject)
{
    Document document;
    const struct {
        const char* value;
        bool expected;
    } rows[] = {{"true", true}, {"TRUE", true}, {"1.", true}, {"false", false}, {"0.", false}};
    for (const auto& row : rows)
        EXPECT_EQ(StartSwitch(ReadParam(document, Start(row.value), ""), !row.expected),
                  row.expected)
            << row.value;
}

TEST(Parameters, PointsOfAProject)
{
    Document document;
    const struct {
        std::string start;
        const char* current;
        Point expected;
    } rows[] = {
        {PointStartKeyframeText("0.25:0.75"), "0,0", {0.25, 0.75}},
        {"-91445760000000000,0.25,0.75,0,0", "0,0", {0.25, 0.75}},
        {"-91445760000000000,0.25", "", {0.25, 0}},
        {"-91445760000000000,:0.75", "", {0, 0.75}},
        {"", "0,0", {0.5, 0.5}},
        {"", "0.1:0.2", {0.1, 0.2}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(StartPoint(ReadParam(document, row.start, row.current), {0.5, 0.5}), row.expected)
            << row.start;
}

TEST(Parameters, TheLastParamOfAnIdWins)
{
    Document document;
    const ObjectHandle params = document.NewObject("Params");
    for (const char* const name : {"one", "two"}) {
        const ObjectHandle param = MakeParam(document, ParamKind::Scalar, {.name = name, .id = 3});
        params.AddChild("Param", param);
    }
    EXPECT_EQ(FindParam(params, "3").GetProperty("Name"), "two");
    EXPECT_FALSE(FindParam(params, "2"));
}

TEST(Parameters, ParametersOfADocument)
{
    Document document;
    const ObjectHandle effect = document.NewObject("effect");
    AddParameter(document, effect,
                 {.id = "scale", .name = "Scale", .min = "0", .max = "1000", .value = "100"});
    const ObjectHandle center = AddParameter(document, effect, {.id = "center", .name = "Center"});
    AddPointValue(document, center, {-0.25, 1.0 / 3});
    EXPECT_EQ(Fields(FindParameter(effect, "scale")),
              "parameter name=Scale parameterid=scale value=100 valuemax=1000 valuemin=0");
    EXPECT_EQ(Fields(center), "parameter name=Center parameterid=center");
    EXPECT_EQ(Fields(center.GetChild("value")), "value horiz=-0.25 vert=0.333333");
}

} // namespace
} // namespace XPJ
