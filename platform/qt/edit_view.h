// The editing box on the screen.
#pragma once

#include "platform/edit_box.h"
#include "platform/pointer_selection.h"
#include "platform/qt/glyph_font.h"
#include "window/box_keyboard.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QElapsedTimer>

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
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool focusNextPrevChild(bool /*next*/) override { return false; } // Tab is a character

  private:
    void textChanged(const LineChange& lines) override;
    void selectionChanged() override;
    void fontChanged() override;
    void geometryChanged() override { takePlace(); }

    void takePlace();
    void wrap();
    void askToSettle();
    void settle();
    void showCaret();
    void pressAt(QPoint point, int clicks, bool extend);
    void dragTo(QPoint point);
    void scrollByDrag();
    void restartBlinking();
    void updateScrollBar();
    void updateLines(Position first, Position last);
    void updateSelection(const Selection& selection);
    Position topLine() const;
    Position visibleLines() const;
    Position lineAt(int y) const;
    Position placeAt(QPoint point) const;
    int yOfLine(Position line) const;
    QRect caretRect() const;

    frmQuillet& form_;
    EditBox& box_;
    BoxKeyboard keyboard_;
    PointerSelection pointer_;
    GlyphFont font_;
    Selection shownSelection_;
    QBasicTimer blinkTimer_;
    QBasicTimer scrollTimer_;   // runs while a drag is beyond the upper or lower edge
    QElapsedTimer doubleClick_; // since the last one
    QPoint doubleClickAt_;
    bool caretOn_ = false;
    bool settlePending_ = false;
};

} // namespace quillet
