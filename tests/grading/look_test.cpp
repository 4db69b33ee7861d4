#include "grading/look.h"

#include "grading/look_messages.h"
#include "support/golden.h"
#include "support/rows.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace XPJ {
namespace {

constexpr std::string_view kGuid = "01234567-89ab-cdef-0123-456789abcdef";

// The lines that a look without anything of its own has, around `body`.
std::string Written(std::string_view body, std::string_view name = "n")
{
    return "<Gradiva>\n  <name>\"" + std::string(name) + "\"</name>\n  <guid>\"" +
           std::string(kGuid) + "\"</guid>\n  <version>\"1\"</version>\n" + std::string(body) +
           "  <properties>\n  </properties>\n</Gradiva>\n";
}

std::string Stated(std::string_view body)
{
    return "<Gradiva><guid>" + std::string(kGuid) + "</guid>" + std::string(body) + "</Gradiva>";
}

// What a look is written as, twice; or "MESSAGE @line:column".
std::string Rewritten(std::string_view text, std::string_view name = "n")
{
    CZvError error;
    const std::optional<CGrading> grading = ReadLookDocument(text, name, &error);
    if (!grading) {
        EXPECT_EQ(error.file, name);
        return error.message + " @" + std::to_string(error.line) + ":" +
               std::to_string(error.column);
    }
    const std::string written = Serialize(*grading);
    const std::optional<CGrading> again = ReadLookDocument(written, name, &error);
    EXPECT_TRUE(again) << error.message << " in\n" << written;
    if (again) {
        EXPECT_EQ(Serialize(*again), written);
    }
    return written;
}

std::string Keyframe(std::string_view layers)
{
    return "  <keyframe>\n    <time>\"0\"</time>\n    <tween>\"0\"</tween>\n"
           "    <easein>\"0\"</easein>\n    <easeout>\"0\"</easeout>\n"
           "    <selectedlayer>\"0\"</selectedlayer>\n" +
           std::string(layers) + "  </keyframe>\n";
}

std::string Layer(std::string_view name, std::string_view fields = "",
                  std::string_view parameters = "")
{
    return "    <shader>\n      <name>\"" + std::string(name) + "\"</name>\n" +
           std::string(fields) + "      <parameters>\n" + std::string(parameters) +
           "      </parameters>\n    </shader>\n";
}

std::string ColorLayer()
{
    return Layer("__VlColor", "      <visible>\"1\"</visible>\n      <opacity>\"1\"</opacity>\n");
}

// One without an id has that of its bytes: MD5 of "<Gradiva/>".
TEST(Look, AnIdIsMadeOfTheBytes)
{
    EXPECT_EQ(Rewritten("<Gradiva/>"), "<Gradiva>\n  <name>\"n\"</name>\n"
                                       "  <guid>\"76008b1c-9282-ca43-f65f-068e644e9be9\"</guid>\n"
                                       "  <version>\"1\"</version>\n  <properties>\n"
                                       "  </properties>\n</Gradiva>\n");
}

class LookCase : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(LookCase, IsWrittenInOneOrder)
{
    const std::string differences =
        CheckGoldenCase(GetParam(), [](const GoldenSection& input, const GoldenSection&) {
            return Rewritten(input.text);
        });
    EXPECT_TRUE(differences.empty()) << GetParam().string() << "\n" << differences;
}

INSTANTIATE_TEST_SUITE_P(Golden, LookCase, testing::ValuesIn(GoldenCases("grading")),
                         GoldenCaseName);

TEST(Look, NamesFromOutsideCanBeStored)
{
    EXPECT_EQ(Rewritten(Stated(""), "a \"<b>\".look"), Written("", "a '(b>'.look"));
    // Without any name, one of the animation alone would come back as the grading's.
    EXPECT_EQ(Rewritten(Stated("<name/><name>b</name>"), ""), Written("", "b"));
    EXPECT_EQ(Rewritten(Stated(""), "").find("<name>"), std::string::npos);
}

TEST(Look, OldStyleGainsTheColorLayer)
{
    const struct {
        std::string layers;
        std::string written;
    } rows[] = {
        {"<shader><name>__groupbegin</name></shader>", Layer("__groupbegin")},
        {"<shader><name>Wheels</name></shader>", ColorLayer() + Layer("Wheels")},
        {"<shader><name>A</name></shader><shader><name>__VLCOLORPLACEHOLDER</name></shader>"
         "<shader><name>B</name></shader>",
         Layer("A") + ColorLayer() + Layer("B")},
        {"<shader><name>A</name></shader><shader><name>__vlcolor</name></shader>",
         Layer("A") + Layer("__vlcolor")},
        {"<time>0</time>", ColorLayer()},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Rewritten(Stated("<keyframe>" + row.layers + "</keyframe>")),
                  Written(Keyframe(row.written)))
            << row.layers;
    // The first keyframe decides for all.
    const std::string grouped = "<keyframe><shader><name>__GroupBegin</name></shader></keyframe>";
    const std::string old = "<keyframe><shader><name>A</name></shader></keyframe>";
    EXPECT_EQ(Rewritten(Stated(grouped + old)),
              Written(Keyframe(Layer("__GroupBegin")) + Keyframe(Layer("A"))));
    EXPECT_EQ(Rewritten(Stated(old + old)),
              Written(Keyframe(ColorLayer() + Layer("A")) + Keyframe(ColorLayer() + Layer("A"))));
}

TEST(Look, BodyWithoutRoot)
{
    const auto layers = [](std::string_view text) {
        std::string names;
        const std::optional<CGrading> grading = ReadLookDocument(text, "n");
        if (!grading)
            return std::string("null");
        for (const GradingKeyframe& keyframe : grading->animation.keyframes) {
            names += "|";
            for (const CZvShaderParamStorage& layer : keyframe.storage.layers)
                names += layer.name + ",";
        }
        return names;
    };
    constexpr std::string_view kA = "<shader><name>__GroupBegin</name></shader>";
    constexpr std::string_view kB = "<shader><name>B</name></shader>";
    const std::string keyframe = "<keyframe>" + std::string(kA) + "</keyframe>";
    EXPECT_EQ(layers(keyframe + keyframe), "|__GroupBegin,|__GroupBegin,");
    EXPECT_EQ(layers(std::string(kA) + "\n" + std::string(kB)), "|__GroupBegin,B,");
    EXPECT_EQ(layers(keyframe + std::string(kB) + keyframe + std::string(kB)),
              "|__GroupBegin,|B,B,|__GroupBegin,");
    EXPECT_EQ(layers("<look><data>1</data></look>"), "null");
}

TEST(Look, StatesWhyItCannotBeRead)
{
    for (const auto& row : ReadRows("grading/look_faults.txt", 2))
        EXPECT_EQ(Rewritten(row[0]), row[1]) << row[0];
}

TEST(Look, MessagesAreDistinct)
{
    std::set<std::string_view> keys;
    for (int number = 0; number < kLookMessageCount; ++number) {
        const std::string_view key = LookMessageKey(static_cast<LookMessage>(number));
        EXPECT_EQ(key.substr(0, 11), "$$$/Errors/") << number;
        EXPECT_TRUE(keys.insert(key.substr(0, key.find('='))).second) << key;
    }
    EXPECT_EQ(LookMessageKey(static_cast<LookMessage>(kLookMessageCount)), "");
}

// Whatever is cut off: the look reads, or a message states why not.
TEST(Look, MayEndAnywhere)
{
    const std::string whole =
        Written(Keyframe(Layer("__GroupBegin", "", "        <A>\"1\"</A>\n")));
    ASSERT_TRUE(ReadLookDocument(whole, "n"));
    for (std::size_t size = 0; size < whole.size() - 1; ++size) {
        CZvError error;
        EXPECT_FALSE(ReadLookDocument(std::string_view(whole).substr(0, size), "n", &error));
        EXPECT_NE(error.message, "") << size;
    }
}

// What is written has a root and a keyframe around it, and must be as deep as a look may be.
TEST(Look, DeepParametersOfALooseLayerComeBack)
{
    const auto shader = [](int levels) {
        std::string text = "<shader><name>__GroupBegin</name><parameters>";
        for (int i = 0; i < levels; ++i)
            text += "<a>";
        for (int i = 0; i < levels; ++i)
            text += "</a>";
        return text + "</parameters></shader>";
    };
    EXPECT_EQ(Rewritten(shader(60)).substr(0, 9), "<Gradiva>");
    EXPECT_EQ(Rewritten(shader(61)).substr(0, 13), "Expected </a>");
}

TEST(Look, LongValuesComeBackInFull)
{
    const std::string value(10'000'000, 'x');
    const std::optional<CGrading> grading =
        ReadLookDocument("<Gradiva><name>\"" + value + "\"</name></Gradiva>", "n");
    ASSERT_TRUE(grading);
    EXPECT_EQ(grading->name, value);
}

} // namespace
} // namespace XPJ
