// The text of a title, as a graphic's blob holds it.
//   Document document;
//   document.SetFontName("ArialMT");           // of the default run, which later runs start from
//   document.AddRun("Hi");
//   const std::string blob = document.serialize();
#pragma once

#include "text/text_parameters.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace XPJ::GVE {

// Used by one thread at a time. Text is UTF-8, sizes are pixels, colors are packed as
// blue << 16 | green << 8 | red. A setter ignores a run that is not there, an alignment without a
// name, and a number that is not finite.
class Document {
public:
    // For the `run` of a setter: the run whose style new runs start from.
    static constexpr int kDefaultRun = -1;

    // The default document for an empty blob, and for one that is none.
    explicit Document(std::string_view blob = {});

    // Its index.
    int AddRun(std::string_view text);
    void SetText(std::string_view text, int run);
    // 0 left, 1 right, 2 center, then the justified ones.
    void SetAlignment(int alignment);
    void SetFontName(std::string_view postScriptName, int run = kDefaultRun);
    void SetFontSize(double size, int run = kDefaultRun);
    void SetFillColor(std::uint32_t color, int run = kDefaultRun);
    void SetFillVisible(bool visible, int run = kDefaultRun);
    void SetStrokeColor(std::uint32_t color, int run = kDefaultRun);
    void SetStrokeVisible(bool visible, int run = kDefaultRun);
    void SetStrokeWidth(double width, int run = kDefaultRun);

    // The blob: a 64-bit count of bytes and the document as UTF-16 JSON.
    std::string serialize() const;

    const TextParameters& Parameters() const { return parameters_; }
    // The texts of all runs in order; that of the default run if there are none. Lines end with a
    // carriage return.
    std::string Text() const;
    // Of the first run, or of the default run if there are none.
    const StyleParam& Style() const;

private:
    TextRun* FindRun(int run);
    StyleParam* FindStyle(int run);

    int version_ = 1;
    TextParameters parameters_;
};

} // namespace XPJ::GVE
