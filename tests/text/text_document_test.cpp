#include "text/text_document.h"

#include "support/rows.h"

#include "text/blob_text.h"
#include "text/text_services.h"

#include <limits>
#include <thread>

#include <pthread.h>

#include <gtest/gtest.h>

namespace XPJ::GVE {
namespace {

constexpr std::string_view kArial36 =
    R"("mStyleParam":{"mFontName":"ArialMT","mFontSize":36.0,"mFillRed":1.0,)"
    R"("mFillGreen":1.0,"mFillBlue":1.0,"mFillVisible":true,"mStrokeRed":0.0,"mStrokeGreen":0.0,)"
    R"("mStrokeBlue":0.0,"mStrokeVisible":false,"mStrokeWidth":0.0,"mKerning":0.0,)"
    R"("mTracking":0.0,"mTsumi":0.0,"mBaselineShift":0.0,"mFillOverStroke":true})";

TEST(TextDocument, ExactText)
{
    Document document;
    document.SetFontName("ArialMT");
    document.SetFontSize(36);
    document.SetAlignment(kCenterAlign);
    EXPECT_EQ(document.AddRun("Hi"), 0);
    const std::string blob = document.serialize();
    const std::string expected =
        R"({"SerializerWrappedObject":{"mVersion":1,"mTextParam":{"mWidth":0,"mHeight":0,)"
        R"("mAlignment":2,"mLeading":0.0,"mTabWidth":400.0,"mTextRuns":[{"mText":"Hi",)" +
        std::string(kArial36) + R"(}],"mDefaultRun":{"mText":"",)" + std::string(kArial36) +
        R"(},"mIsVerticalText":false,"mShadowColor":0,"mShadowVisible":false,)"
        R"("mShadowOpacity":100.0,"mShadowAngle":135.0,"mShadowOffset":10.0,"mShadowBlur":0.0,)"
        R"("mIndic":false,"mRTL":false,"mLigatures":false,"mHindiDigits":false}}})";
    EXPECT_EQ(AsciiOf(blob), expected);
    EXPECT_EQ(blob, BlobOf(expected));
}

// Each key with a value of its own kind, as it is written back.
TEST(TextDocument, EveryKeyIsReadAndWritten)
{
    const std::string defaults = Document().serialize();
    for (const auto& row : ReadRows("text/parameters.txt", 1)) {
        const std::string& parameter = row[0];
        const Document document(TextBlob(parameter));
        const std::string text = AsciiOf(document.serialize());
        EXPECT_NE(text.find(parameter), std::string::npos) << parameter << " in " << text;
        EXPECT_NE(document.serialize(), defaults) << parameter;
        EXPECT_EQ(Document(document.serialize()).Parameters(), document.Parameters()) << parameter;
    }

    for (const auto& row : ReadRows("text/style_keys.txt", 1)) {
        const std::string& key = row[0];
        const std::string object = '{' + key + '}';
        for (const std::string& parameters :
             {R"("mDefaultRun":)" + object, R"("mDefaultRun":{"mStyleParam":)" + object + '}',
              R"("mTextRuns":[)" + object + ']',
              R"("mTextRuns":[{"mStyleParam":)" + object + "}]"}) {
            const Document document(TextBlob(parameters));
            const std::string text = AsciiOf(document.serialize());
            EXPECT_NE(text.find(key), std::string::npos) << parameters << " in " << text;
            EXPECT_EQ(Document(document.serialize()).Parameters(), document.Parameters());
        }
    }
}

TEST(TextDocument, KeysThatAreMissingKeepTheirDefaults)
{
    const std::string defaults = Document().serialize();
    for (const char* const parameters :
         {"", R"("mShadowAngle":"90")", R"("mWidth":null,"mRTL":1,"mTextRuns":{},"mStyleSheet":7)",
          R"("mDefaultRun":[],"Unknown":{"mWidth":5})", R"("mDefaultRun":{"mText":5})",
          R"("mTextRuns":["a",null,[]],"mStyleSheet":[{},{"mParamValues":{}}])"})
        EXPECT_EQ(AsciiOf(Document(TextBlob(parameters)).serialize()), AsciiOf(defaults))
            << parameters;

    // A style sheet's values end early; wrong kinds among them are passed over.
    const Document sheet(TextBlob(R"("mStyleSheet":[{"mParamValues":["A","B",0.5]}])"));
    StyleParam style;
    style.fontName = "A";
    style.fillRed = {0.5};
    EXPECT_EQ(sheet.Parameters().styleSheet, std::vector<StyleParam>{style});
}

TEST(TextDocument, NumbersOfEitherKindAndRange)
{
    for (const auto& row : ReadRows("text/numbers.txt", 2)) {
        const std::string text = AsciiOf(Document(TextBlob(row[0])).serialize());
        EXPECT_NE(text.find(row[1]), std::string::npos) << row[0] << " in " << text;
    }
}

TEST(TextDocument, ColorsPackedOrByChannel)
{
    const struct {
        const char* style;
        std::uint32_t fill, stroke;
    } kCases[] = {
        {R"("mFillColor":255,"mStrokeColor":16711680)", 0x0000ff, 0xff0000},
        {R"("mFillRed":255,"mFillGreen":0.0,"mFillBlue":128)", 0x8000ff, 0},
        {R"("mFillRed":-3,"mFillGreen":1e9,"mFillBlue":1)", 0xffff00, 0},
        {R"("mFillColor":255,"mFillRed":0)", 0x000000, 0},
        {R"("mFillColor":"red")", 0xffffff, 0},
        {R"("mFillColor":4278190080)", 0x000000, 0},
    };
    for (const auto& row : kCases) {
        const Document document(
            TextBlob(R"("mTextRuns":[{"mText":"x",)" + std::string(row.style) + "}]"));
        EXPECT_EQ(FillColor(document.Style()).value, row.fill) << row.style;
        EXPECT_EQ(StrokeColor(document.Style()).value, row.stroke) << row.style;
        EXPECT_EQ(Document(document.serialize()).Parameters(), document.Parameters()) << row.style;
    }
    // Every byte comes back.
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        Document document;
        document.SetFillColor(byte << 16 | 0x00ff00);
        document.SetStrokeColor(byte);
        const Document back(document.serialize());
        EXPECT_EQ(FillColor(back.Style()).value, byte << 16 | 0x00ff00);
        EXPECT_EQ(StrokeColor(back.Style()).value, byte);
    }
}

TEST(TextDocument, WhatIsNoDocumentIsTheDefault)
{
    const std::string good = TextBlob(R"("mWidth":7)");
    ASSERT_EQ(Document(good).Parameters().width, 7);

    const std::string json = AsciiOf(good);
    const std::string nested =
        R"("mDefaultRun":{"mFillOverStroke":)" + std::string(70, '[') + std::string(70, ']') + '}';
    const struct {
        const char* fault;
        std::string blob;
    } kCases[] = {
        {"no count", good.substr(0, 7)},
        {"no text", good.substr(0, 8)},
        {"odd length", good.substr(0, good.size() - 1)},
        {"count beyond the bytes", BlobOf(json, static_cast<std::int64_t>(2 * json.size() + 2))},
        {"odd count", BlobOf(json, static_cast<std::int64_t>(2 * json.size() - 1))},
        {"largest count", BlobOf(json, std::numeric_limits<std::int64_t>::max())},
        {"all bits of the count", std::string(8, '\xff') + good.substr(8)},
        {"count of zero", BlobOf(json, 0)},
        {"cut off", BlobOf(json.substr(0, json.size() - 1))},
        {"more behind", BlobOf(json + '}')},
        {"no object", BlobOf("[]")},
        {"no frame", BlobOf(R"({"mVersion":1,"mTextParam":{"mWidth":7}})")},
        {"a frame of another kind", BlobOf(R"({"SerializerWrappedObject":[7]})")},
        {"an empty frame", BlobOf(R"({"SerializerWrappedObject":{}})")},
        {"deeper than 64", TextBlob(R"("mWidth":7,)" + nested)},
        {"a number beyond a double", TextBlob(R"("mWidth":7,"mTabWidth":1e999)")},
        {"half an escaped pair", TextBlob(R"("mWidth":7,"a":"\ud800")")},
        {"a raw control", TextBlob("\"mWidth\":7,\"a\":\"\t\"")},
    };
    for (const auto& row : kCases)
        EXPECT_EQ(Document(row.blob).Parameters(), TextParameters()) << row.fault;

    // Bytes behind the count are no fault.
    EXPECT_EQ(Document(good + "xyz").Parameters().width, 7);
}

// 64 levels are read, and come back; a value so deep that it couldn't be written is passed over.
TEST(TextDocument, DepthOfWhatIsRead)
{
    for (const int levels : {1, 58, 59, 60}) {
        const auto brackets = static_cast<std::size_t>(levels);
        const std::string value = std::string(brackets, '[') + std::string(brackets, ']');
        const Document document(TextBlob(R"("mWidth":7,"mTextRuns":[{"mText":"x",)"
                                         R"("mFillOverStroke":)" +
                                         value + "}]"));
        EXPECT_EQ(document.Parameters().width, levels <= 59 ? 7 : 0) << levels;
        if (levels <= 59) {
            EXPECT_EQ(document.Style().fillOverStroke.json, levels <= 58 ? value : "true");
        }
        EXPECT_EQ(Document(document.serialize()).Parameters(), document.Parameters());
    }
}

// The host's worker threads may have little stack.
TEST(TextDocument, ADeepBlobDoesNotNeedTheStack)
{
    static const std::string blob =
        TextBlob("\"a\":" + std::string(2'000'000, '[') + std::string(2'000'000, ']'));
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, 256 * 1024), 0);
    pthread_t thread;
    static bool isDefault = false;
    const auto read = [](void*) -> void* {
        isDefault = Document(blob).Parameters() == TextParameters();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, read, nullptr), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
    EXPECT_TRUE(isDefault);
}

TEST(TextDocument, SettersOfDefaultAndOtherRuns)
{
    Document document;
    document.SetFontName("First");
    const int first = document.AddRun("one\r");
    document.SetFontName("Second");
    document.SetFontSize(0.5);
    document.SetStrokeWidth(3);
    document.SetStrokeVisible(true);
    document.SetFillVisible(false);
    const int second = document.AddRun("two");
    document.SetFontSize(99, first);
    document.SetText("2", second);
    EXPECT_EQ(document.Text(), "one\r2");
    const std::vector<TextRun>& runs = document.Parameters().runs;
    ASSERT_EQ(runs.size(), 2u);
    EXPECT_EQ(runs[0].style.fontName, "First");
    EXPECT_EQ(runs[0].style.fontSize, 99);
    EXPECT_EQ(runs[1].style.fontSize, 0.5);
    EXPECT_FALSE(runs[1].style.fillVisible);
    EXPECT_TRUE(runs[1].style.strokeVisible);
    EXPECT_EQ(runs[1].style, document.Parameters().defaultRun.style);

    // Nothing of this changes the document.
    const std::string before = document.serialize();
    for (const int run :
         {-2, 2, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        document.SetText("?", run);
        document.SetFontName("?", run);
        document.SetFontSize(1, run);
        document.SetFillColor(1, run);
        document.SetFillVisible(true, run);
        document.SetStrokeColor(1, run);
        document.SetStrokeVisible(false, run);
        document.SetStrokeWidth(1, run);
    }
    for (const double none :
         {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        document.SetFontSize(none);
        document.SetStrokeWidth(none, first);
    }
    document.SetAlignment(-1);
    document.SetAlignment(kAlignments);
    EXPECT_EQ(document.serialize(), before);

    Document empty;
    EXPECT_EQ(empty.Text(), "");
    empty.SetText("default", Document::kDefaultRun);
    EXPECT_EQ(empty.Text(), "default");
}

TEST(TextDocument, TextOfAllKinds)
{
    const struct {
        std::string_view text;
        std::u16string_view written;
    } kCases[] = {
        {"a\"b\\c/", u"a\\\"b\\\\c/"},
        {"\b\f\n\r\t", u"\\b\\f\\n\\r\\t"},
        {std::string_view("\0\x1f\x7f", 3), u"\\u0000\\u001f\x7f"},
        {"\u5b57\u5e55 \u05d0\u202e", u"\u5b57\u5e55 \u05d0\u202e"},
        {"\xf0\x9f\x8e\xac", u"\xd83c\xdfac"},
        {"\xef\xbf\xbf", u"\xffff"},
    };
    for (const auto& row : kCases) {
        Document document;
        document.AddRun(row.text);
        const std::string blob = document.serialize();
        const std::u16string text = UnitsOf(blob);
        EXPECT_NE(text.find(u"\"mText\":\"" + std::u16string(row.written) + u'"'),
                  std::u16string::npos)
            << row.text;
        EXPECT_EQ(static_cast<unsigned char>(blob[0]) | static_cast<unsigned char>(blob[1]) << 8,
                  static_cast<int>(2 * text.size()));
        EXPECT_EQ(Document(blob).Text(), row.text);
    }

    // Ill-formed text leaves as U+FFFD, lone surrogates of a blob come in as that.
    Document broken;
    broken.AddRun("a\xff");
    EXPECT_EQ(Document(broken.serialize()).Text(), "a\xef\xbf\xbd");
    std::string blob = TextBlob(R"("mTextRuns":[{"mText":"@"}])");
    blob.replace(blob.find('@'), 2, std::string("\x00\xd8", 2));
    EXPECT_EQ(Document(blob).Text(), "\xef\xbf\xbd");
}

TEST(TextDocument, ManyRunsAndKeysGrowFlat)
{
    std::string parameters = R"("mTextRuns":[)";
    for (int i = 0; i < 20'000; ++i)
        parameters += R"({"mText":"line"},)";
    parameters.back() = ']';
    for (int i = 0; i < 100'000; ++i)
        parameters += ",\"key" + std::to_string(i) + "\":1";
    const Document document(TextBlob(parameters));
    EXPECT_EQ(document.Text().size(), 80'000u);
    EXPECT_EQ(Document(document.serialize()).Parameters(), document.Parameters());
}

TEST(TextDocument, AlignmentNames)
{
    EXPECT_EQ(AlignmentName(kLeftAlign), "Left Align");
    EXPECT_EQ(AlignmentName(kRightAlign), "Right Align");
    EXPECT_EQ(AlignmentName(kCenterAlign), "Center Align");
    EXPECT_EQ(AlignmentName(6), "Justify All");
    EXPECT_EQ(AlignmentName(7), "");
    EXPECT_EQ(AlignmentName(-1), "");
}

TEST(TextServices, StartsAreCounted)
{
    const int before = RunningTextServices();
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([] {
            for (int j = 0; j < 100; ++j)
                StartTextServices();
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(RunningTextServices(), before + 400);
    for (int i = 0; i < before + 401; ++i)
        StopTextServices();
    EXPECT_EQ(RunningTextServices(), 0);
}

} // namespace
} // namespace XPJ::GVE
