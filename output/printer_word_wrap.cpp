#include "output/printer_word_wrap.h"

#include "base/int16.h"
#include "base/run_time_error.h"
#include "platform/printer.h"
#include "platform/screen.h"

namespace quillet {
namespace {

bool isSeparator(char glyph) {
    return glyphCode(glyph) <= 0x20;
}

// A place in the text, from 1, that deliberately cannot count beyond 32,767.
class Place {
  public:
    explicit Place(GlyphView text) : text_(text) {}

    bool isInside() const { return static_cast<std::size_t>(at_) <= text_.size(); }
    char glyph() const { return text_[index()]; }
    std::size_t index() const { return static_cast<std::size_t>(at_) - 1; }
    void advance() { at_ = toInt16(at_ + 1); }

  private:
    GlyphView text_;
    std::int16_t at_ = 1;
};

} // namespace

void CPrinterWordWrap::PrintText(GlyphView sText) {
    screen_.MousePointer(Pointer::Hourglass);
    StartPage(false);
    Place place(sText);
    while (place.isInside()) {
        const std::size_t start = place.index();
        while (place.isInside() && !isSeparator(place.glyph()))
            place.advance();
        printWord(sText.substr(start, place.index() - start));
        for (; place.isInside() && isSeparator(place.glyph()); place.advance())
            passSeparator(place.glyph());
    }
    printer_.EndDoc();
    screen_.MousePointer(Pointer::Default);
}

void CPrinterWordWrap::StartPage(bool bNewPage) {
    if (bNewPage)
        printer_.NewPage();
    printer_.CurrentY((marginTop_ - printer_.TextHeight(headerText_)) / 2);
    printer_.CurrentX((printer_.ScaleWidth() - printer_.TextWidth(headerText_)) / 2);
    printer_.Print(headerText_);
    placePageLabel();
    printer_.CurrentX(marginLeft_);
    printer_.CurrentY(marginTop_);
}

// Only its place is taken: pages deliberately carry no number.
void CPrinterWordWrap::placePageLabel() {
    const GlyphString label = "ist " + std::to_string(toInt16(printer_.Page()));
    printer_.CurrentX(printer_.ScaleWidth() - (printer_.TextWidth(label) + marginRight_));
    printer_.CurrentY(printer_.ScaleHeight() - marginBottom_ / 2);
}

// A word too wide for any line leaves the line that it comes to, even an empty one.
void CPrinterWordWrap::printWord(GlyphView word) {
    const float limit = printer_.ScaleWidth() - marginRight_;
    if (printer_.CurrentX() + printer_.TextWidth(word) > limit)
        breakLine();
    printer_.Print(word);
}

void CPrinterWordWrap::passSeparator(char separator) {
    switch (separator) {
    case ' ':
        printer_.Print(" ");
        break;
    case '\n':
        breakLine();
        break;
    case '\t':
        moveToTabStop();
        break;
    default: // a carriage return belongs to its line feed, and the rest has no meaning
        break;
    }
}

// By the top of the new line: the last one may reach into the bottom margin.
void CPrinterWordWrap::breakLine() {
    printer_.NewLine();
    if (printer_.CurrentY() > printer_.ScaleHeight() - marginBottom_)
        StartPage(true);
    else
        printer_.CurrentX(marginLeft_);
}

// The stops deliberately stay where they are when the left margin moves.
void CPrinterWordWrap::moveToTabStop() {
    constexpr float origin = 800;
    constexpr int columnsPerStop = 10;
    const float zero = printer_.TextWidth("0");
    if (zero == 0)
        throw RunTimeError(ErrorNumber::DivisionByZero);
    const std::int16_t column = nearestInt16((printer_.CurrentX() - origin) / zero);
    const std::int16_t stop = toInt16(column + (columnsPerStop - column % columnsPerStop));
    printer_.CurrentX(zero * static_cast<float>(stop) + origin);
}

} // namespace quillet
