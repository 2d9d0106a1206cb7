#include "platform/qt/box_mouse.h"

#include "base/run_time_error.h"
#include "platform/edit_box.h"
#include "platform/qt/edit_view.h"
#include "platform/qt/entry.h"
#include "platform/qt/text_codec.h"

#include <QApplication>
#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QTimerEvent>

#include <algorithm>

namespace quillet {
namespace {

constexpr int scrollInterval = 40; // milliseconds

bool isNear(QPoint one, QPoint other) {
    return (one - other).manhattanLength() < QApplication::startDragDistance();
}

} // namespace

BoxMouse::BoxMouse(EditView& view, EditBox& box) : view_(view), box_(box), pointer_(box) {
    view.viewport()->setAcceptDrops(true);
    view.viewport()->installEventFilter(this);
}

bool BoxMouse::eventFilter(QObject* /*viewport*/, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        press(*static_cast<QMouseEvent*>(event));
        return false; // for the focus
    case QEvent::MouseButtonDblClick:
        doubleClick(*static_cast<QMouseEvent*>(event));
        return true;
    case QEvent::MouseMove:
        move(*static_cast<QMouseEvent*>(event));
        return true;
    case QEvent::MouseButtonRelease:
        release(*static_cast<QMouseEvent*>(event));
        return true;
    case QEvent::DragEnter:
    case QEvent::DragMove:
        dragOver(*static_cast<QDropEvent*>(event));
        return true;
    case QEvent::DragLeave:
        view_.showDropPlace(std::nullopt);
        return true;
    case QEvent::Drop:
        drop(*static_cast<QDropEvent*>(event));
        return true;
    default:
        return false;
    }
}

void BoxMouse::timerEvent(QTimerEvent* /*event*/) {
    scrollAlong();
}

// A press soon after a double click, and near it, is the third one.
void BoxMouse::press(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton)
        return;
    const QPoint point = event.position().toPoint();
    const bool isThird = doubleClick_.isValid() && isNear(point, pressedAt_) &&
                         !doubleClick_.hasExpired(QApplication::doubleClickInterval());
    const bool extend = event.modifiers().testFlag(Qt::ShiftModifier);
    doubleClick_.invalidate();
    pressedAt_ = point;
    mayDrag_ = !isThird && !extend && isInSelection(point);
    if (!mayDrag_)
        pressAt(point, isThird ? 3 : 1, extend);
}

void BoxMouse::doubleClick(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton)
        return;
    mayDrag_ = false;
    pressedAt_ = event.position().toPoint();
    doubleClick_.start();
    pressAt(pressedAt_, 2, false);
}

void BoxMouse::move(const QMouseEvent& event) {
    if (!event.buttons().testFlag(Qt::LeftButton))
        return;
    const QPoint point = event.position().toPoint();
    if (mayDrag_) {
        if (!isNear(point, pressedAt_))
            dragSelection();
        return;
    }
    selectTo(point);
    const bool outside = point.y() < 0 || point.y() >= view_.viewport()->height();
    if (!outside)
        scrollTimer_.stop();
    else if (!scrollTimer_.isActive())
        scrollTimer_.start(scrollInterval, this);
}

void BoxMouse::release(const QMouseEvent& event) {
    scrollTimer_.stop();
    if (mayDrag_ && event.button() == Qt::LeftButton)
        pressAt(pressedAt_, 1, false); // it was no drag after all
    mayDrag_ = false;
}

void BoxMouse::pressAt(QPoint point, int clicks, bool extend) {
    enter([&] { pointer_.press(view_.placeAt(point), clicks, extend); });
}

void BoxMouse::selectTo(QPoint point) {
    enter([&] { pointer_.drag(view_.placeAt(point)); });
}

// The further outside the pointer is, the faster.
void BoxMouse::scrollAlong() {
    const QPoint point = view_.viewport()->mapFromGlobal(QCursor::pos());
    const int below = std::max(0, point.y() - view_.viewport()->height());
    const int beyond = point.y() < 0 ? point.y() : below;
    view_.scrollLines(beyond / view_.lineHeight() + (beyond < 0 ? -1 : 1));
    selectTo(point);
}

void BoxMouse::dragSelection() {
    mayDrag_ = false;
    auto* data = new QMimeData;
    data->setText(displayText(box_.SelText()));
    auto* drag = new QDrag(&view_);
    drag->setMimeData(data);
    const Qt::DropAction action = drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
    const bool isTaken = action == Qt::MoveAction && drag->target() != view_.viewport();
    if (isTaken)
        enter([this] { box_.SelText(""); });
}

void BoxMouse::dragOver(QDropEvent& event) {
    if (!isText(*event.mimeData()))
        return;
    event.acceptProposedAction();
    view_.showDropPlace(view_.placeAt(event.position().toPoint()));
}

void BoxMouse::drop(QDropEvent& event) {
    const Position place = view_.placeAt(event.position().toPoint());
    const bool moves = event.source() == &view_ && event.dropAction() == Qt::MoveAction;
    view_.showDropPlace(std::nullopt);
    event.acceptProposedAction();
    enter([&] {
        resumeNext([&] { // what there is no room for is refused, as a key is
            if (moves)
                box_.moveSelectionTo(place);
            else
                box_.dropText(glyphText(event.mimeData()->text()), place);
        });
    });
}

bool BoxMouse::isInSelection(QPoint point) const {
    const Position place = view_.placeAt(point);
    const Selection& selection = box_.selection();
    return place > selection.start() && place < selection.end();
}

} // namespace quillet
