// The printer that the program writes on.
#pragma once

#include "base/glyph_string.h"

#include <string>

namespace quillet {

/// A page at a time, text by text, in the current font. Coordinates are twips from the top left
/// corner of the page's printable area. A failure is thrown as `RunTimeError`; a job that is not
/// brought to its end by `EndDoc` never reaches the paper.
class Printer {
  public:
    virtual ~Printer() = default;

    /// Where the next text begins: its top left corner.
    virtual float CurrentX() const = 0;
    virtual void CurrentX(float x) = 0;
    virtual float CurrentY() const = 0;
    virtual void CurrentY(float y) = 0;

    /// The size of the printable area.
    virtual float ScaleWidth() = 0;
    virtual float ScaleHeight() = 0;

    /// The number of the current page, from 1.
    virtual int Page() const = 0;

    /// The current font; the size is in points. It is kept from job to job.
    virtual void FontName(const std::string& name) = 0;
    virtual void FontSize(double points) = 0;

    /// The room that a text without line breaks takes in the current font.
    virtual float TextWidth(GlyphView text) = 0;
    virtual float TextHeight(GlyphView text) = 0;

    /// Draws the text and moves `CurrentX` behind it.
    virtual void Print(GlyphView text) = 0;

    /// Moves to the left edge one line height below.
    virtual void NewLine() = 0;

    virtual void NewPage() = 0;

    /// Hands the job to the printer; the next text begins another one.
    virtual void EndDoc() = 0;
};

} // namespace quillet
