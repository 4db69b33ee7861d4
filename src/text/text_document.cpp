#include "text/text_document.h"

#include "text/key_table.h"

#include <cmath>
#include <stdexcept>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace XPJ::GVE {

namespace {

// In the order of the written document; `mDefaultRun` and the box are required in a valid one.
constexpr Key<TextParameters> kTextKeys[] = {
    {"mWidth", &TextParameters::width},
    {"mHeight", &TextParameters::height},
    {"mAlignment", &TextParameters::alignment},
    {"mLeading", &TextParameters::leading},
    {"mTabWidth", &TextParameters::tabWidth},
    {"mTextRuns", &TextParameters::runs},
    {"mStyleSheet", &TextParameters::styleSheet},
    {"mDefaultRun", &TextParameters::defaultRun},
    {"mIsVerticalText", &TextParameters::verticalText},
    {"mShadowColor", &TextParameters::shadowColor},
    {"mShadowVisible", &TextParameters::shadowVisible},
    {"mShadowOpacity", &TextParameters::shadowOpacity},
    {"mShadowAngle", &TextParameters::shadowAngle},
    {"mShadowOffset", &TextParameters::shadowOffset},
    {"mShadowBlur", &TextParameters::shadowBlur},
    {"mIndic", &TextParameters::indic},
    {"mRTL", &TextParameters::rightToLeft},
    {"mLigatures", &TextParameters::ligatures},
    {"mHindiDigits", &TextParameters::hindiDigits},
};

constexpr std::string_view kVersion = "mVersion";
constexpr std::string_view kParameters = "mTextParam";

Channel ChannelOf(std::uint32_t color, int shift)
{
    return {(color >> shift & 0xff) / 255.0};
}

void SetNumber(double& field, double value)
{
    if (std::isfinite(value))
        field = value;
}

} // namespace

Document::Document(std::string_view blob)
{
    if (blob.empty())
        return;
    try {
        const Json document = ReadBlob(blob);
        if (const Json* const version = Find(document, kVersion))
            ReadValue(*version, version_);
        if (const Json* const parameters = Find(document, kParameters))
            ReadKeys<TextParameters>(*parameters, kTextKeys, parameters_);
    } catch (const std::runtime_error&) { // NOLINT(bugprone-empty-catch): the default document
    }
}

int Document::AddRun(std::string_view text)
{
    parameters_.runs.push_back({std::string(text), parameters_.defaultRun.style});
    return static_cast<int>(parameters_.runs.size()) - 1;
}

TextRun* Document::FindRun(int run)
{
    if (run == kDefaultRun)
        return &parameters_.defaultRun;
    const auto index = static_cast<std::size_t>(run);
    return run >= 0 && index < parameters_.runs.size() ? &parameters_.runs[index] : nullptr;
}

StyleParam* Document::FindStyle(int run)
{
    TextRun* const found = FindRun(run);
    return found ? &found->style : nullptr;
}

void Document::SetText(std::string_view text, int run)
{
    if (TextRun* const found = FindRun(run))
        found->text = text;
}

void Document::SetAlignment(int alignment)
{
    if (!AlignmentName(alignment).empty())
        parameters_.alignment = alignment;
}

void Document::SetFontName(std::string_view postScriptName, int run)
{
    if (StyleParam* const style = FindStyle(run))
        style->fontName = postScriptName;
}

void Document::SetFontSize(double size, int run)
{
    if (StyleParam* const style = FindStyle(run))
        SetNumber(style->fontSize, size);
}

void Document::SetFillColor(std::uint32_t color, int run)
{
    if (StyleParam* const style = FindStyle(run)) {
        style->fillRed = ChannelOf(color, 0);
        style->fillGreen = ChannelOf(color, 8);
        style->fillBlue = ChannelOf(color, 16);
    }
}

void Document::SetFillVisible(bool visible, int run)
{
    if (StyleParam* const style = FindStyle(run))
        style->fillVisible = visible;
}

void Document::SetStrokeColor(std::uint32_t color, int run)
{
    if (StyleParam* const style = FindStyle(run)) {
        style->strokeRed = ChannelOf(color, 0);
        style->strokeGreen = ChannelOf(color, 8);
        style->strokeBlue = ChannelOf(color, 16);
    }
}

void Document::SetStrokeVisible(bool visible, int run)
{
    if (StyleParam* const style = FindStyle(run))
        style->strokeVisible = visible;
}

void Document::SetStrokeWidth(double width, int run)
{
    if (StyleParam* const style = FindStyle(run))
        SetNumber(style->strokeWidth, width);
}

std::string Document::serialize() const
{
    std::string json = fmt::format("{{\"{}\":{},\"{}\":", kVersion, version_, kParameters);
    AppendKeys<TextParameters>(parameters_, kTextKeys, json);
    json += '}';
    return WriteBlob(json);
}

std::string Document::Text() const
{
    if (parameters_.runs.empty())
        return parameters_.defaultRun.text;
    std::string text;
    for (const TextRun& run : parameters_.runs)
        text += run.text;
    return text;
}

const StyleParam& Document::Style() const
{
    return parameters_.runs.empty() ? parameters_.defaultRun.style : parameters_.runs.front().style;
}

} // namespace XPJ::GVE
