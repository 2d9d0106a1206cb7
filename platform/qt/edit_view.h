// The editing box on the screen.
#pragma once

#include "platform/edit_box.h"
#include "platform/qt/box_mouse.h"
#include "platform/qt/glyph_font.h"
#include "window/box_keyboard.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>

#include <optional>

namespace quillet {

class frmQuillet;

/// Paints the main window's box and feeds it with keys and mouse. It holds no text of its own,
/// and all that it asks of the text costs what is on the screen.
class EditView : public QAbstractScrollArea, private EditBoxObserver {
  public:
    EditView(frmQuillet& form, QWidget* parent);
    ~EditView() override;
    EditView(const EditView&) = delete;
    EditView& operator=(const EditView&) = delete;

    EditBox& box() { return box_; }

    /// The place in the text nearest to a point of the viewport, and where the caret stands at a
    /// place; empty where that is out of sight.
    Position placeAt(QPoint point) const;
    QRect caretRectAt(Position place) const;

    int lineHeight() const { return font_.lineHeight(); }
    void scrollLines(int lines);

    /// Shows where text that is dragged over the view would go.
    void showDropPlace(std::optional<Position> place);

  protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void timerEvent(QTimerEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool focusNextPrevChild(bool /*next*/) override { return false; } // Tab is a character

  private:
    void textChanged(const TextChange& change) override;
    void textLoaded() override;
    void linesChanged(const LineChange& change) override;
    void selectionChanged() override;
    void fontChanged() override;
    void geometryChanged() override { takePlace(); }
    void pointerChanged() override;

    void takePlace();
    void paint(const QRect& area);
    void wrap();
    void askToSettle();
    void settle();
    void catchUp();
    void showCaret();
    void restartBlinking();
    void updateScrollBar();
    void updateLines(Position first, Position last);
    void updateInLine(const TextChange& change);
    void showNow();
    void updateSelection(const Selection& selection);
    Position topLine() const;
    Position visibleLines() const;
    Position lineAt(int y) const;
    int yOfLine(Position line) const;
    QRect caretRect() const { return caretRectAt(box_.selection().caret); }

    frmQuillet& form_;
    EditBox& box_;
    BoxKeyboard keyboard_;
    GlyphFont font_;
    Selection shownSelection_;
    QRect shownCaret_;
    QBasicTimer blinkTimer_;
    QBasicTimer idleTimer_; // runs while the box has something to catch up with
    BoxMouse mouse_;
    std::optional<Position> dropPlace_;
    bool caretOn_ = false;
    bool settlePending_ = false;
};

} // namespace quillet
