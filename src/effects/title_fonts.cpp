// The families that shipped with the source's system, in four kinds:
//
//   Own       every style has a name of its own
//   Suffixed  the family without blanks, and "-Bold" and so on behind it in a text document
//   Single    one name for all styles
//   Unnamed   no name for text documents; a legacy document has the family without blanks
//
// A name whose end states a weight or a cut ("-W3", "Light") is that of a single face, which a
// legacy document names in full; families with the usual four styles are named by style.
#include "effects/title_fonts.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace XPJ {

namespace {

enum class Names { Own, Suffixed, Single, Unnamed };

struct Family {
    std::string_view family;
    Names names;
    std::array<std::string_view, 4> faces; // by FontStyle
};

constexpr Family Own(std::string_view family, std::string_view regular, std::string_view italic,
                     std::string_view bold, std::string_view boldItalic)
{
    return {family, Names::Own, {regular, italic, bold, boldItalic}};
}

constexpr Family Suffixed(std::string_view family, std::string_view name)
{
    return {family, Names::Suffixed, {name, name, name, name}};
}

constexpr Family Single(std::string_view family, std::string_view name)
{
    return {family, Names::Single, {name, name, name, name}};
}

constexpr Family Unnamed(std::string_view family)
{
    return {family, Names::Unnamed, {}};
}

constexpr std::string_view kUnknownFamily = "Apple Casual";
constexpr std::string_view kUnknownFace = "LucidaGrande";

constexpr Family kFamilies[] = {
    Own("American Typewriter", "AmericanTypewriter-CondensedLight",
        "AmericanTypewriter-CondensedLight", "AmericanTypewriter-Bold",
        "AmericanTypewriter-CondensedLight"),
    Suffixed("Baskerville", "Baskerville"),
    Own("Arial", "ArialMT", "Arial-ItalicMT", "Arial-BoldMT", "Arial-BoldItalicMT"),
    Own("Arial Black", "Arial-Black", "Arial-Black", "Arial-Black", "Arial-Black"),
    Own("Arial Narrow", "ArialNarrow", "ArialNarrow-Italic", "ArialNarrow-Bold",
        "ArialNarrow-BoldItalic"),
    Own("Arial Rounded MT Bold", "ArialRoundedMTBold", "ArialRoundedMTBold", "ArialRoundedMTBold",
        "ArialRoundedMTBold"),
    Suffixed("Cochin", "Cochin"),
    Unnamed("Ayuthaya"),
    Single("Apple Braille", "AppleBraille-Outline6Dot"),
    Unnamed("Apple Symbols"),
    Unnamed("Andale Mono"),
    Unnamed("Apple Casual"),
    Single("Apple Chancery", "Apple-Chancery"),
    Unnamed("BlairMdITC TT"),
    Single("Big Caslon", "BigCaslon-Medium"),
    Unnamed("Brush Script MT"),
    Single("Bordeaux Roman Bold LET", "BordeauxRomanBoldLetPlain"),
    Own("Futura", "Futura-CondensedMedium", "Futura-MediumItalic", "Futura-CondensedExtraBold",
        "Futura-CondensedExtraBold"),
    Suffixed("Chalkboard", "Chalkboard"),
    Suffixed("Comic Sans MS", "ComicSansMS"),
    Suffixed("Euphemia UCAS", "EuphemiaUCAS"),
    Own("Copperplate", "Copperplate-Light", "Copperplate-Light", "Copperplate-Bold",
        "Copperplate-Bold"),
    Own("Courier", "Courier", "Courier-Oblique", "Courier-Bold", "Courier-BoldOblique"),
    Own("Courier New", "CourierNewPSMT", "CourierNewPS-ItalicMT", "CourierNewPS-BoldMT",
        "CourierNewPS-BoldItalicMT"),
    Unnamed("Cracked"),
    Suffixed("Devanagari MT", "DevanagariMT"),
    Suffixed("Didot", "Didot"),
    Unnamed("PortagoITC TT"),
    Unnamed("Geneva"),
    Unnamed("Sathu"),
    Suffixed("Georgia", "Georgia"),
    Own("Gill Sans", "GillSans-Light", "GillSans-LightItalic", "GillSans-SemiBold",
        "GillSans-SemiBoldItalic"),
    Suffixed("Gujarati MT", "GujaratiMT"),
    Single("Gurmukhi MT", "MonotypeGurmukhi"),
    Unnamed("Handwriting - Dakota"),
    Suffixed("Helvetica", "Helvetica"),
    Own("Helvetica Neue", "HelveticaNeue-UltraLight", "HelveticaNeue-UltraLightItalic",
        "HelveticaNeue-Medium", "HelveticaNeue-MediumItalic"),
    Unnamed("Herculanum"),
    Single("Hoefler Text", "HoeflerText-Ornaments"),
    Unnamed("Impact"),
    Unnamed("InaiMathi"),
    Suffixed("Kailasa", "Kailasa"),
    Unnamed("Kokonor"),
    Unnamed("Krungthep"),
    Suffixed("Lucida Grande", "LucidaGrande"),
    Own("Marker Felt", "MarkerFelt-Thin", "MarkerFelt-Thin", "MarkerFelt-Wide", "MarkerFelt-Wide"),
    Unnamed("Microsoft Sans Serif"),
    Unnamed("Monaco"),
    Own("Mshtakan", "Mshtakan", "MshtakanOblique", "MshtakanBold", "MshtakanBoldOblique"),
    Single("Optima", "Optima-Regular"),
    Single("Palatino", "Palatino-Roman"),
    Single("Papyrus", "Papyrus-Condensed"),
    Unnamed("Plantagenet Cherokee"),
    Unnamed("Symbol"),
    Unnamed("Silom"),
    Own("Skia", "Skia-Regular", "Skia-Regular", "Skia-Regular_Bold", "Skia-Regular_Bold"),
    Single("Stone Sans OS ITC TT", "StoneSansOSITCTTBold"),
    Single("Stone Sans Sem OS ITC TT", "StoneSansSemOSITCTTSemi"),
    Single("Stone Sans Sem OS ITCTT", "StoneSansSemOSITCTTSemiIta"),
    Single("Hiragino Kaku Gothic Pro", "HiraKakuPro-W3"),
    Unnamed("Synchro LET"),
    Suffixed("Tahoma", "Tahoma"),
    Suffixed("Thonburi", "Thonburi"),
    Own("Times", "Times-Roman", "Times-Italic", "Times-Bold", "Times-BoldItalic"),
    Own("Times New Roman", "TimesNewRomanPSMT", "TimesNewRomanPS-ItalicMT",
        "TimesNewRomanPS-BoldMT", "TimesNewRomanPS-BoldItalicMT"),
    Suffixed("Trebuchet MS", "TrebuchetMS"),
    Suffixed("Verdana", "Verdana"),
    Unnamed("Webdings"),
    Single("Wingdings", "Wingdings-Regular"),
    Unnamed("Wingdings 2"),
    Unnamed("Wingdings 3"),
    Single("Zapf Dingbats", "ZapfDingbatsITC"),
    Single("Hiragino Maru Gothic ProN", "HiraMaruProN-W4"),
    Single("Hiragino Kaku Gothic ProN", "HiraMaruProN-W4"),
    Single("Hiragino Mincho Pro", "HiraMinPro-W3"),
    Single("Hiragino Kaku Gothic Std", "HiraKakuStd-W8"),
    Single("Hiragino Kaku Gothic StdN", "HiraKakuStd-W8"),
    Single("Apple LiSung", "LiSungLight"),
    Single("BiauKai", "DFKaiShu-SB-Estd-BF"),
    Unnamed("LiSong Pro"),
    Single("#GungSeo", "JCkg"),
    Single("#HeadLineA", "JCHEadA"),
    Single("#PCMyungjo", "JCsmPC"),
    Single("#PilGi", "JCfg"),
    Unnamed("AppleGothic"),
    Suffixed("Al Bayan", "AlBayan"),
    Unnamed("Baghdad"),
    Unnamed("DecoType Naskh"),
    Suffixed("Geeza Pro", "GeezaPro"),
    Unnamed("KufiStandardGK"),
    Single("Raanana", "RaananaBold"),
    Suffixed("Arial Hebrew", "ArialHebrew"),
    Single("Helvetica CY", "HelveticaCYPlain"),
    Unnamed("Hei"),
    Unnamed("Kai"),
    Single("STHeiti", "STXihei"),
    Unnamed("STKaiti"),
    Unnamed("STSong"),
    Single("DFPHeiMedium-B5", "DFHei-Md-HKSCSP-U"),
    Single("DFPKaiW5-GB", "DFPKaiW5"),
    Unnamed("STFangsong"),
    Unnamed("Geneva CY"),
    Own("New Peninim MT", "NewPeninimMT", "NewPeninimMT-Inclined", "NewPeninimMT-Bold",
        "NewPeninimMT-BoldInclined"),
    Suffixed("Corsiva Hebrew", "CorsivaHebrew"),
    Unnamed("Arial Unicode MS"),
    Unnamed("AppleMyungjo"),
    Unnamed("LiHei Pro"),
    Single("Apple LiGothic", "LiGothicMed"),
    Unnamed("Charcoal CY"),
    Unnamed("Osaka"),
    Unnamed("Nadeem"),
    Single("Hiragino Mincho ProN", "HiraMinProN-W3"),
    Single("Hiragino Maru Gothic Pro", "HiraMaruPro-W4"),
    Unnamed("Zapfino"),
};

// Single faces whose record follows from no rule.
struct SingleFace {
    std::string_view family;
    std::string_view fullName;
    std::string_view style;
};

constexpr SingleFace kSingleFaces[] = {
    {"BlairMdITC TT", "BlairMdITCTTMedium", "Medium"},
    {"Brush Script MT", "BrushScriptMT", "Italic"},
};

// Ends of the names of single faces. An end that holds another one comes before it.
struct FaceEnd {
    std::string_view end;
    std::string_view style;
};

constexpr FaceEnd kFaceEnds[] = {
    {"CondensedMedium", "Condensed Medium"},
    {"CondensedLight", "Condensed Light"},
    {"Outline6Dot", "Outline 6 Dot"},
    {"UltraLight", "UltraLight"},
    {"Ornaments", "Ornaments"},
    {"Condensed", "Condensed"},
    {"Chancery", "Chancery"},
    {"SemiIta", "SemiIta"},
    {"Medium", "Medium"},
    {"Light", "Light"},
    {"Plain", "Plain"},
    {"Bold", "Bold"},
    {"Semi", "Semi"},
    {"Thin", "Thin"},
    {"Med", "Medium"},
    {"W3", "W3"},
    {"W4", "W4"},
    {"W8", "W8"},
};

constexpr std::string_view kStyleNames[] = {"Regular", "Italic", "Bold", "BoldItalic"};
constexpr std::uint32_t kStyledCategory = 0x20000000; // of families with the four styles

template <typename Row, std::size_t count>
constexpr const Row* FindRow(const Row (&rows)[count], std::string_view family)
{
    const Row* const found = std::ranges::find(rows, family, &Row::family);
    return found == std::end(rows) ? nullptr : found;
}

std::string_view FaceOf(const Family& family, FontStyle style)
{
    return family.faces[static_cast<std::size_t>(style)];
}

// "#GungSeo" and "Andale Mono" as "GungSeo" and "AndaleMono".
std::string NameFromFamily(std::string_view family)
{
    std::string name(family.substr(family.starts_with('#') ? 1 : 0));
    std::erase(name, ' ');
    return name;
}

// Empty for a family of the four styles.
std::string_view StyleOfSingleFace(std::string_view name)
{
    for (const FaceEnd& row : kFaceEnds)
        if (name.ends_with(row.end))
            return row.style;
    return {};
}

} // namespace

std::string PostScriptName(std::string_view family, FontStyle style)
{
    const Family* const row = FindRow(kFamilies, family);
    if (!row || row->names == Names::Unnamed)
        return std::string(kUnknownFace);
    std::string name(FaceOf(*row, style));
    if (row->names == Names::Suffixed && style != FontStyle::Regular)
        name.append("-").append(kStyleNames[static_cast<std::size_t>(style)]);
    return name;
}

TitleFace FaceOfPostScriptName(std::string_view name)
{
    constexpr FontStyle kStyles[] = {FontStyle::Regular, FontStyle::Italic, FontStyle::Bold,
                                     FontStyle::BoldItalic};
    if (name == kUnknownFace) // also of families without a name
        return {"Lucida Grande", FontStyle::Regular};
    for (const Family& row : kFamilies)
        for (const FontStyle style : kStyles)
            if (row.names != Names::Unnamed && PostScriptName(row.family, style) == name)
                return {std::string(row.family), style};
    return {std::string(name), FontStyle::Regular};
}

bool IsKnownFont(std::string_view family, bool isTextDocument)
{
    const Family* const row = FindRow(kFamilies, family);
    return row && !(isTextDocument && row->names == Names::Unnamed);
}

LegacyFontRecord LegacyFont(std::string_view family, FontStyle style)
{
    const Family* row = FindRow(kFamilies, family);
    if (!row)
        row = FindRow(kFamilies, kUnknownFamily);
    LegacyFontRecord record;
    record.family = row->family;
    if (const SingleFace* const face = FindRow(kSingleFaces, row->family)) {
        record.fullName = face->fullName;
        record.style = face->style;
        return record;
    }
    record.fullName = row->names == Names::Unnamed ? NameFromFamily(row->family)
                                                   : FaceOf(*row, FontStyle::Regular);
    record.style = StyleOfSingleFace(record.fullName);
    if (record.style.empty()) {
        if (row->names == Names::Own)
            record.fullName = FaceOf(*row, style);
        record.style = kStyleNames[static_cast<std::size_t>(style)];
        record.category = kStyledCategory;
    }
    return record;
}

} // namespace XPJ
