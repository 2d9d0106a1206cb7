// The mouse in the editing box: selecting, dragging and dropping text.
#pragma once

#include "platform/pointer_selection.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>
#include <QPoint>

class QDropEvent;
class QMouseEvent;

namespace quillet {

class EditBox;
class EditView;

/// Watches the viewport of a view. Pressing inside the selection may drag its text, within the
/// box or to other programs; any other press selects.
class BoxMouse : public QObject {
  public:
    BoxMouse(EditView& view, EditBox& box);

  protected:
    bool eventFilter(QObject* viewport, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

  private:
    void press(const QMouseEvent& event);
    void doubleClick(const QMouseEvent& event);
    void move(const QMouseEvent& event);
    void release(const QMouseEvent& event);
    void pressAt(QPoint point, int clicks, bool extend);
    void selectTo(QPoint point);
    void scrollAlong();
    void dragSelection();
    void dragOver(QDropEvent& event);
    void drop(QDropEvent& event);
    bool isInSelection(QPoint point) const;

    EditView& view_;
    EditBox& box_;
    PointerSelection pointer_;
    QPoint pressedAt_;
    bool mayDrag_ = false;      // pressed inside the selection and not moved far since
    QElapsedTimer doubleClick_; // since the last one
    QBasicTimer scrollTimer_;   // runs while the selection is drawn beyond an edge
};

} // namespace quillet
