// A line of glyph codes that is typed as Windows-1252 text.
#pragma once

#include "platform/qt/glyph_text.h"

#include <QClipboard>
#include <QLineEdit>

namespace quillet {

/// Shows glyph codes as the box does. Within the line they are the characters of its font, so
/// that undo and caret count as they are shown; what comes in becomes such characters, and what
/// goes to the clipboard Windows-1252 ones.
class GlyphLineEdit : public QLineEdit {
  public:
    GlyphLineEdit(const QFont& font, QWidget* parent);

    GlyphString glyphs() const;
    void setGlyphs(GlyphView glyphs);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    QString own(const QString& text) const;
    void pasteFrom(QClipboard::Mode mode);
    void translateCopy(QClipboard::Mode mode) const;

    GlyphCharacters characters_;
};

} // namespace quillet
