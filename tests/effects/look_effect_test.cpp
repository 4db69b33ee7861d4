#include "effects/look_effect.h"

#include "core/base64.h"
#include "core/numbers.h"
#include "effects/look_files.h"
#include "effects/parameters.h"
#include "effects/video_effects.h"
#include "grading/look.h"
#include "support/temp_folder.h"

#include <filesystem>

#include <sys/stat.h>

namespace XPJ {
namespace {

constexpr std::string_view kLook =
    "<Gradiva><keyframe><shader><name>__GroupBegin</name></shader></keyframe></Gradiva>";

std::string Field(std::string_view tag, std::string_view text)
{
    return "<" + std::string(tag) + ">" + std::string(text) + "</" + std::string(tag) + ">";
}

// The filter of a look with that name and the text of its other children.
std::string LookFilter(std::string_view name, std::string_view children)
{
    return "<filter><effect>" + Field("name", name) + Field("effectid", "Gradiva") +
           std::string(children) + "</effect></filter>";
}

std::string PathParameter(std::string_view path)
{
    return "<parameter>" + Field("parameterid", "x") + Field("name", "path") +
           Field("value", path) + "</parameter>";
}

class LookEffectTest : public VideoEffectsTest {
protected:
    LookEffectTest()
    {
        folder_.Write("dusk.look", kLook);
        folder_.Write("day & night.LOOK", kLook);
        folder_.Write("dusk", kLook);
        context_.lookFiles = &lookFiles_;
    }

    // The bytes of the grading parameter, checked against their checksum.
    static std::string Bytes(ObjectHandle component)
    {
        const ObjectHandle param = component.GetChild("Param");
        std::string bytes = DecodeBase64(param.GetProperty("StartKeyframeValue"));
        EXPECT_EQ(param.GetProperty("StartKeyframeValueChecksum"),
                  bytes.empty() ? "" : UintToString(BlobChecksum(bytes)));
        return bytes;
    }

    TempFolder folder_;
    LookFiles lookFiles_{document_, folder_.Path()};
};

TEST_F(LookEffectTest, ComponentOfALookFile)
{
    const ObjectHandle component = FilterOf(LookFilter(
        "Warm", "<velaBypass>true</velaBypass><velaExpanded>true</velaExpanded>" +
                    PathParameter("dusk.look") +
                    "<dependency><tag>a</tag><path>/b</path></dependency><dependency/>"));
    ASSERT_TRUE(component);
    EXPECT_EQ(TakeIssues(), "");
    const struct {
        Name key;
        std::string_view value;
    } fields[] = {
        {"MatchName", "KX.ORRN Gradiva"}, {"DisplayName", "Gradiva"}, {"InstanceName", "Warm"},
        {"VideoFilterType", "2"},         {"Intrinsic", "false"},     {"Bypass", "true"},
        {"ECP.Filter.Expanded", "true"},
    };
    for (const auto& field : fields)
        EXPECT_EQ(component.GetProperty(field.key), field.value) << field.key.View();
    const ObjectHandle dependency = component.GetChild("Dependency");
    EXPECT_EQ(dependency.GetProperty("Tag"), "a");
    EXPECT_EQ(dependency.GetProperty("Path"), "/b");

    const ObjectHandle param = component.GetChild("Param");
    EXPECT_EQ(param.GetName(), "ArbVideoComponentParam");
    const struct {
        Name key;
        std::string_view value;
    } paramFields[] = {
        {"ParameterID", "1"},           {"StartKeyframePosition", "-91445760000000000"},
        {"ParameterControlType", "10"}, {"IsTimeVarying", "false"},
        {"Name", "File Path"},
    };
    for (const auto& field : paramFields)
        EXPECT_EQ(param.GetProperty(field.key), field.value) << field.key.View();
    EXPECT_EQ(Bytes(component), Serialize(*ReadLookDocument(kLook, "Warm")));
}

TEST_F(LookEffectTest, FilesAreToldByTheirExtension)
{
    const std::string cube = "LUT_1D_SIZE 2\n0 0 0\n1 1 1\n";
    folder_.Write("my.cube", cube);
    folder_.Write("table.look", cube);
    folder_.Write("ten.look", "<Gradiva/>");
    folder_.Write("twelve.look", "<Gradiva/>\n\n");
    folder_.Write("empty.cube", "");
    const struct {
        std::string_view path;
        std::string_view name; // of the effect
        std::string instanceName;
        bool hasValue;
    } rows[] = {
        {"dusk.look", "", "dusk.look", true},
        {"dusk.look", "Gradiva", "dusk.look", true},
        {"dusk.look", "gradiva", "gradiva", true},
        {"./day%20&amp;%20night.LOOK", "", "day &amp; night.LOOK", true},
        {"dusk", "", "dusk", false}, // a look, but not called so
        {"my.cube", "", "my.cube", true},
        {"table.look", "", "table.look", false},
        {"ten.look", "", "ten.look", false},
        {"twelve.look", "", "twelve.look", true},
        {"empty.cube", "", "empty.cube", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path);
        const ObjectHandle component = FilterOf(LookFilter(row.name, PathParameter(row.path)));
        ASSERT_TRUE(component);
        EXPECT_EQ(component.GetProperty("InstanceName"), row.instanceName);
        EXPECT_EQ(!Bytes(component).empty(), row.hasValue);
        EXPECT_EQ(TakeIssues(), "");
    }
    const ObjectHandle absolute = FilterOf(
        LookFilter("day & night", PathParameter("file://localhost" + folder_ / "dusk.look")));
    EXPECT_NE(Bytes(absolute).find("<name>\"day & night\"</name>"), std::string::npos);
}

TEST_F(LookEffectTest, WhatCannotBeOpenedIsReported)
{
    std::filesystem::create_directory(folder_ / "folder.look");
    ASSERT_EQ(mkfifo((folder_ / "pipe.look").c_str(), 0600), 0);
    for (const std::string path : {"none.look", "folder.look", "pipe.look", ""}) {
        EXPECT_FALSE(FilterOf(LookFilter("Warm", PathParameter(path)))) << path;
        const std::string issues = TakeIssues();
        const std::string opened = path.empty() ? "" : folder_ / path;
        EXPECT_NE(issues.find("MissingLookLUT sequence=\"Cut\"" +
                              (path.empty() ? "" : " clip=\"" + opened + "\"")),
                  std::string::npos)
            << issues;
        EXPECT_NE(issues.find("EffectNotTranslated sequence=\"Cut\" clip=\"A\" subject=\"Warm\""),
                  std::string::npos)
            << issues;
    }
}

TEST_F(LookEffectTest, AFileIsReadOnce)
{
    const ObjectHandle first = FilterOf(LookFilter("Warm", PathParameter("dusk.look")));
    const ObjectHandle second = FilterOf(LookFilter("Warm", PathParameter("./dusk.look")));
    folder_.Write("dusk.look", "");
    const ObjectHandle third = FilterOf(LookFilter("Warm", PathParameter("dusk.look")));
    EXPECT_EQ(Bytes(third), Bytes(first));
    EXPECT_EQ(Bytes(second), Bytes(first));
    // The same file under another name is another grading.
    EXPECT_EQ(Bytes(FilterOf(LookFilter("Cold", PathParameter("dusk.look")))), "");
}

std::string Returning(std::string_view id, std::string_view name, std::string_view value,
                      std::string_view more = "")
{
    return "<parameter>" + Field("parameterid", id) + Field("name", name) + Field("value", value) +
           std::string(more) + "</parameter>";
}

TEST_F(LookEffectTest, AReturningLookNeedsNoFile)
{
    const std::string bytes("<Gradiva>\n\0\xFF\x80\"", 14);
    const std::string blob = EncodeBase64(bytes);
    const std::string wrapped = blob.substr(0, 8) + "\n  " + blob.substr(8);
    const ObjectHandle component = FilterOf(LookFilter(
        "Gradiva",
        Returning("1", "any", wrapped, "<ParameterControlType>9</ParameterControlType>") +
            Returning("2", "Mix", "-91445760000000000,0.5,0,0,0.,0.,0.,0.",
                      "<ParameterControlType>8</ParameterControlType><LowerBound>0.</LowerBound>"
                      "<UpperBound>1.</UpperBound><LowerUIBound>0.1</LowerUIBound>"
                      "<UpperUIBound>0.9</UpperUIBound><IsTimeVarying>true</IsTimeVarying>"
                      "<Keyframes>0,0.5,0,0,0,0,0,0;</Keyframes>") +
            Returning("3", "Data", blob, "<hash>1</hash>") +
            Returning("4", "Nothing", "/v4=", "<hash>1</hash>")));
    ASSERT_TRUE(component);
    EXPECT_EQ(TakeIssues(), "");
    EXPECT_EQ(component.GetProperty("InstanceName"), "Gradiva");
    EXPECT_EQ(Bytes(component), bytes);
    std::string params;
    for (const ObjectHandle& param : component.GetChildren("Param"))
        for (const Name& key :
             {Name("ParameterID"), Name("Name"), Name("ParameterControlType"), Name("classid"),
              Name("LowerUIBound"), Name("UpperUIBound"), Name("Keyframes")})
            if (param.HasProperty(key))
                params.append(param.GetProperty(key)).append(" ");
    EXPECT_EQ(params, "1 File Path 9 2 Mix 8 " + std::string(kSliderClass) +
                          " 0.1 0.9 0,0.5,0,0,0,0,0,0; 3 Data 9 ");
    // Without a control type, and without a blob at all.
    const auto controls = [&](const std::string& parameters) {
        const ObjectHandle param = FilterOf(LookFilter("a", parameters)).GetChild("Param");
        return std::string(param.GetProperty("ParameterControlType"));
    };
    EXPECT_EQ(controls(Returning("1", "", blob)), "10");
    EXPECT_EQ(controls(Returning("1", "", "")), "");
}

TEST_F(LookEffectTest, ControlsTellTheClass)
{
    const struct {
        int control; // 0: none stated
        std::string_view classId;
        std::string_view element;
    } rows[] = {
        {4, kSwitchClass, "VideoComponentParam"},   {11, kSwitchClass, "VideoComponentParam"},
        {12, kSwitchClass, "VideoComponentParam"},  {16, kSwitchClass, "VideoComponentParam"},
        {8, kSliderClass, "VideoComponentParam"},   {7, kChoiceClass, "VideoComponentParam"},
        {10, kChoiceClass, "VideoComponentParam"},  {6, kPointClass, "PointComponentParam"},
        {2, kScalarClass, "VideoComponentParam"},   {0, kScalarClass, "VideoComponentParam"},
        {-99, kScalarClass, "VideoComponentParam"},
    };
    for (const auto& row : rows) {
        const std::string control =
            row.control == 0 ? "" : Field("ParameterControlType", std::to_string(row.control));
        const ObjectHandle param =
            FilterOf(LookFilter("a", Returning("2", "", "0,1", control))).GetChild("Param");
        EXPECT_EQ(param.GetProperty("classid"), row.classId) << row.control;
        EXPECT_EQ(param.GetName(), row.element) << row.control;
        EXPECT_EQ(param.GetProperty("StartKeyframe"), "0,1");
    }
}

// The grading takes the place of the path; nothing else may have its id.
TEST_F(LookEffectTest, ParametersKeepTheirOrder)
{
    const ObjectHandle component = FilterOf(
        LookFilter("Warm", Returning("5", "A", "0,1") + PathParameter("dusk.look") +
                               Returning("1", "File Path", "AAAA") + Returning("2", "B", "0,1")));
    std::string names;
    for (const ObjectHandle& param : component.GetChildren("Param"))
        names.append(param.GetProperty("ParameterID"))
            .append(param.GetProperty("Name"))
            .append(",");
    EXPECT_EQ(names, "5A,1File Path,2B,");
}

} // namespace
} // namespace XPJ
