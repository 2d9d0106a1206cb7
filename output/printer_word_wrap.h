// Prints a text with word wrap, margins and a header on every page.
#pragma once

#include "base/glyph_string.h"

#include <utility>

namespace quillet {

class Printer;
class Screen;

/// One text, one print job, in the printer's font. Lengths are twips and unchecked. Errors of the
/// printer pass, and leave the job unfinished and the pointer an hourglass.
class CPrinterWordWrap {
  public:
    CPrinterWordWrap(Printer& printer, Screen& screen) : printer_(printer), screen_(screen) {}

    void HeaderText(GlyphString sText) { headerText_ = std::move(sText); }
    const GlyphString& HeaderText() const { return headerText_; }
    void MarginLeft(float nMargin) { marginLeft_ = nMargin; }
    float MarginLeft() const { return marginLeft_; }
    void MarginTop(float nMargin) { marginTop_ = nMargin; }
    float MarginTop() const { return marginTop_; }
    void MarginRight(float nMargin) { marginRight_ = nMargin; }
    float MarginRight() const { return marginRight_; }
    void MarginBottom(float nMargin) { marginBottom_ = nMargin; }
    float MarginBottom() const { return marginBottom_; }

    /// Breaks lines before words that would cross the right margin, at line feeds, and nowhere
    /// else. A text of 32,767 glyphs or more deliberately fails with `Overflow` there.
    void PrintText(GlyphView sText);

  private:
    void StartPage(bool bNewPage);
    void placePageLabel();
    void printWord(GlyphView word);
    void passSeparator(char separator);
    void breakLine();
    void moveToTabStop();

    Printer& printer_;
    Screen& screen_;
    GlyphString headerText_ = "CPrinterWordWrap Class";
    float marginLeft_ = 800;
    float marginTop_ = 1000;
    float marginRight_ = 720;
    float marginBottom_ = 600;
};

} // namespace quillet
