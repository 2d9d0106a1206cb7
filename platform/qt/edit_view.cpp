#include "platform/qt/edit_view.h"

#include "platform/qt/box_accessible.h"
#include "platform/qt/entry.h"
#include "platform/qt/key_translation.h"
#include "platform/qt/line_painter.h"
#include "platform/qt/qt_services.h"
#include "platform/qt/x11_keyboard.h"
#include "window/context_menu.h"
#include "window/frm_quillet.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleHints>
#include <QTimerEvent>

#include <algorithm>
#include <cstdlib>

namespace quillet {
namespace {

// Room for what glyphs draw outside their own box, at the edges as between the lines.
constexpr int margin = 4;

// Comes before the repaint that is pending, and after all changes of one event.
const auto settleEvent = static_cast<QEvent::Type>(QEvent::registerEventType());

KeyStroke strokeOf(const QKeyEvent& event) {
    const bool isLatin = isLatinLayout(event.nativeModifiers());
    return translateKey(event, isLatin ? Layout::Latin : Layout::Other);
}

} // namespace

EditView::EditView(frmQuillet& form, QWidget* parent)
    : QAbstractScrollArea(parent),
      form_(form),
      box_(form.txtMain),
      keyboard_(form),
      font_(form.txtMain),
      shownSelection_(form.txtMain.selection()),
      mouse_(*this, form.txtMain) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled, false); // dead keys are keys here
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setCursor(Qt::IBeamCursor);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    box_.setObserver(this);
    takePlace();
}

EditView::~EditView() {
    box_.setObserver(nullptr);
}

void EditView::scrollLines(int lines) {
    verticalScrollBar()->setValue(topLine() + lines);
}

void EditView::showDropPlace(std::optional<Position> place) {
    if (dropPlace_)
        viewport()->update(caretRectAt(*dropPlace_));
    dropPlace_ = place;
    if (dropPlace_)
        viewport()->update(caretRectAt(*dropPlace_));
}

bool EditView::event(QEvent* event) {
    if (event->type() == settleEvent) {
        enter([this] { settle(); });
        return true;
    }
    // Keys with Ctrl come here and not to the menu bar: the keyboard's tables decide on them.
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (!key->modifiers().testFlag(Qt::AltModifier))
            event->accept();
        return true;
    }
    return QAbstractScrollArea::event(event);
}

void EditView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange)
        viewport()->update();
    QAbstractScrollArea::changeEvent(event);
}

void EditView::paintEvent(QPaintEvent* event) {
    enter([&] { paint(event->rect()); });
}

void EditView::paint(const QRect& area) {
    const QPalette& colors = palette();
    const auto group = isActiveWindow() ? QPalette::Active : QPalette::Inactive;
    QPainter painter(viewport());
    painter.fillRect(area, colors.color(group, QPalette::Base));
    LinePainter lines(painter, box_, font_, colors, group, area);
    const Position first = std::max(lineAt(area.top() - margin), 0);
    const Position last = std::min(lineAt(area.bottom() + margin), box_.lines().lineCount() - 1);
    for (Position line = first; line <= last; ++line)
        lines.paint(line, QPointF(margin, yOfLine(line)));
    const QColor caretColor = colors.color(group, QPalette::Text);
    if (caretOn_ && hasFocus())
        painter.fillRect(caretRect(), caretColor);
    if (dropPlace_)
        painter.fillRect(caretRectAt(*dropPlace_), caretColor);
}

void EditView::resizeEvent(QResizeEvent* /*event*/) {
    enter([this] { wrap(); });
}

void EditView::scrollContentsBy(int /*dx*/, int dy) {
    shownCaret_.translate(0, dy * font_.lineHeight());
    if (std::abs(dy) <= visibleLines())
        viewport()->scroll(0, dy * font_.lineHeight());
    else
        viewport()->update();
    viewport()->update(shownCaret_); // outside the lines none is painted
}

void EditView::timerEvent(QTimerEvent* event) {
    if (event->timerId() == idleTimer_.timerId())
        enter([this] { catchUp(); });
    if (event->timerId() != blinkTimer_.timerId())
        return;
    caretOn_ = !caretOn_;
    viewport()->update(caretRect());
}

void EditView::keyPressEvent(QKeyEvent* event) {
    enter([&] { keyboard_.press(strokeOf(*event)); });
    askToSettle(); // a key that moves nothing brings the caret into view as well
    showNow();
}

void EditView::keyReleaseEvent(QKeyEvent* event) {
    if (!event->isAutoRepeat())
        enter([&] { keyboard_.release(strokeOf(*event)); });
    showNow();
}

void EditView::focusInEvent(QFocusEvent* event) {
    const bool fromMenu =
        event->reason() == Qt::PopupFocusReason || event->reason() == Qt::MenuBarFocusReason;
    keyboard_.focusGained(fromMenu ? FocusFrom::Menu : FocusFrom::Elsewhere);
    restartBlinking();
    viewport()->update(caretRect());
}

void EditView::focusOutEvent(QFocusEvent* /*event*/) {
    blinkTimer_.stop();
    viewport()->update(caretRect());
    enter([this] { keyboard_.focusLost(); });
}

void EditView::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this); // it may outlive this call, and end with the view
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const ContextRow& row : contextMenu()) {
        if (row.command == nullptr) {
            menu->addSeparator();
            continue;
        }
        QAction* action = menu->addAction(row.caption);
        action->setEnabled(row.isEnabled(box_));
        connect(action, &QAction::triggered, this,
                [this, &row] { enter([&] { (form_.*row.command)(); }); });
    }
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    menu->popup(byKey ? viewport()->mapToGlobal(caretRect().bottomLeft()) : event->globalPos());
}

void EditView::textChanged(const TextChange& change) {
    if (change.lines.before == 1 && change.lines.after == 1)
        updateInLine(change);
    else
        linesChanged(change.lines);
    if (!shownSelection_.isEmpty())
        viewport()->update(); // what was selected may stand elsewhere now
    askToSettle();
    tellTextChange(*this, change);
}

// What is on the screen stays there when lines above it come or go.
void EditView::linesChanged(const LineChange& change) {
    const Position top = topLine();
    const Position grown = change.after - change.before;
    updateScrollBar();
    if (grown != 0 && change.first + change.before <= top)
        verticalScrollBar()->setValue(top + grown);
    updateLines(change.first, grown == 0 ? change.first + change.after - 1 : maxTextLength);
}

void EditView::textLoaded() {
    updateScrollBar();
    viewport()->update();
    shownSelection_ = {.anchor = -1, .caret = -1}; // the new one is told even if it looks the same
    askToSettle();
}

void EditView::selectionChanged() {
    askToSettle();
}

void EditView::fontChanged() {
    font_ = GlyphFont(box_);
    wrap();
    viewport()->update();
}

void EditView::pointerChanged() {
    const bool waits = box_.MousePointer() == Pointer::Hourglass;
    viewport()->setCursor(waits ? Qt::WaitCursor : Qt::IBeamCursor);
}

void EditView::takePlace() {
    setGeometry(QtScreen::pixels(box_.Left()), QtScreen::pixels(box_.Top()),
                QtScreen::pixels(box_.Width()), QtScreen::pixels(box_.Height()));
}

// Wraps the text for the present font and width, and keeps the text at the top where it is.
void EditView::wrap() {
    const LineMetrics metrics = font_.lineMetrics(viewport()->width() - 2 * margin);
    const LineMetrics& old = box_.lines().metrics();
    if (metrics.width != old.width || metrics.advances != old.advances) {
        const Position top = box_.lines().lineStart(topLine());
        box_.setMetrics(metrics);
        updateScrollBar();
        verticalScrollBar()->setValue(box_.lineOf(top));
    }
    box_.setPageLines(std::max(1, visibleLines() - 1));
    updateScrollBar();
    askToSettle();
}

void EditView::askToSettle() {
    if (settlePending_)
        return;
    settlePending_ = true;
    QCoreApplication::postEvent(this, new QEvent(settleEvent));
}

void EditView::settle() {
    settlePending_ = false;
    if (shownSelection_ != box_.selection()) {
        updateSelection(shownSelection_);
        tellSelection(*this, shownSelection_);
        shownSelection_ = box_.selection();
        updateSelection(shownSelection_);
    }
    showCaret();
    if (shownCaret_ != caretRect()) { // most releases change nothing and need no repaint
        viewport()->update(shownCaret_);
        shownCaret_ = caretRect();
        viewport()->update(shownCaret_);
    }
    restartBlinking();
    idleTimer_.start(0, this);
}

void EditView::catchUp() {
    if (!box_.catchUp())
        idleTimer_.stop();
    if (!settlePending_)
        shownCaret_ = caretRect(); // which lines that have come above it have moved
}

void EditView::showCaret() {
    const Position line = box_.caretLine();
    const Position top = topLine();
    if (line < top)
        verticalScrollBar()->setValue(line);
    else if (line >= top + visibleLines())
        verticalScrollBar()->setValue(line - visibleLines() + 1);
}

void EditView::restartBlinking() {
    const int period = QGuiApplication::styleHints()->cursorFlashTime();
    if (hasFocus() && period > 0)
        blinkTimer_.start(period / 2, this);
    if (!caretOn_)
        viewport()->update(caretRect());
    caretOn_ = true;
}

void EditView::updateScrollBar() {
    const Position visible = visibleLines();
    verticalScrollBar()->setPageStep(visible);
    verticalScrollBar()->setRange(0, std::max(0, box_.lines().lineCount() - visible));
}

void EditView::updateLines(Position first, Position last) {
    const Position top = topLine();
    const Position from = std::max(first, top - 1);
    const Position to = std::min(last, top + visibleLines());
    if (from <= to)
        viewport()->update(0, yOfLine(from) - margin, viewport()->width(),
                           (to - from + 1) * font_.lineHeight() + 2 * margin);
}

// Only from the change on, and with an insertion only to the end of the line.
void EditView::updateInLine(const TextChange& change) {
    const int reach = LinePainter::reach(font_);
    const Position line = change.lines.first;
    const Position end = box_.lineEnd(line);
    const int left = margin + box_.xOf(change.at) / advancePerPixel - reach;
    const int right = change.removed.empty() ? margin + box_.xOf(end) / advancePerPixel + reach
                                             : viewport()->width();
    viewport()->update(left, yOfLine(line) - margin, right - left, font_.lineHeight() + 2 * margin);
}

// What has been typed is seen at once, before anything else that waits.
void EditView::showNow() {
    QCoreApplication::sendPostedEvents(this, settleEvent);
    QCoreApplication::sendPostedEvents(window(), QEvent::UpdateRequest);
}

void EditView::updateSelection(const Selection& selection) {
    if (selection.isEmpty())
        return;
    const Position end = box_.length();
    const Position first = box_.lines().lineOf(std::min(selection.start(), end));
    const Position last = box_.lines().lineOf(std::min(selection.end(), end));
    updateLines(first, last);
}

Position EditView::topLine() const {
    return verticalScrollBar()->value();
}

// Whole lines only.
Position EditView::visibleLines() const {
    return std::max(1, (viewport()->height() - margin) / font_.lineHeight());
}

Position EditView::lineAt(int y) const {
    return y < margin ? topLine() - 1 : topLine() + (y - margin) / font_.lineHeight();
}

Position EditView::placeAt(QPoint point) const {
    const Position line = std::clamp(lineAt(point.y()), 0, box_.lines().lineCount() - 1);
    return box_.placeAt(line, (point.x() - margin) * advancePerPixel);
}

int EditView::yOfLine(Position line) const {
    return margin + (line - topLine()) * font_.lineHeight();
}

QRect EditView::caretRectAt(Position place) const {
    const Position line = box_.lines().lineOf(place);
    const Position top = topLine();
    if (line < top || line > top + visibleLines())
        return {};
    const int x = margin + box_.xOf(place) / advancePerPixel;
    const int width = style()->pixelMetric(QStyle::PM_TextCursorWidth, nullptr, this);
    const int rightmost = viewport()->width() - width;
    return {std::min(x, rightmost), yOfLine(line), width, font_.lineHeight()};
}

} // namespace quillet
