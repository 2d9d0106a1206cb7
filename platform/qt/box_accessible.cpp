#include "platform/qt/box_accessible.h"

#include "platform/qt/edit_view.h"
#include "platform/qt/entry.h"
#include "platform/qt/text_codec.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include <algorithm>
#include <utility>

namespace quillet {
namespace {

// Every answer costs what it returns, not what the text holds: the toolkit's own ways of finding
// words and lines would go through the whole text.
class BoxAccessible : public QAccessibleWidget, public QAccessibleTextInterface {
  public:
    explicit BoxAccessible(EditView& view)
        : QAccessibleWidget(&view, QAccessible::EditableText, "Document"),
          view_(view) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.editable = true;
        state.multiLine = true;
        state.selectableText = true;
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    int characterCount() const override { return box().length(); }
    int cursorPosition() const override { return box().selection().caret; }
    int selectionCount() const override { return box().SelLength() == 0 ? 0 : 1; }

    void selection(int /*index*/, int* start, int* end) const override {
        *start = box().SelStart();
        *end = box().SelStart() + box().SelLength();
    }

    void setCursorPosition(int position) override { select(position, position); }
    void addSelection(int start, int end) override { select(start, end); }
    void setSelection(int /*index*/, int start, int end) override { select(start, end); }
    void removeSelection(int /*index*/) override { setCursorPosition(cursorPosition()); }
    void scrollToSubstring(int start, int /*end*/) override { setCursorPosition(start); }

    QString text(int start, int end) const override {
        const Position from = inText(start);
        QString text;
        enter([&] { text = displayText(box().textAt(from, std::max(0, inText(end) - from))); });
        return text;
    }

    QString textAtOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                         int* end) const override {
        return unitText(unitAt(inText(offset), type), start, end);
    }

    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                             int* end) const override {
        const Position from = unitAt(inText(offset), type).start();
        return unitText(from > 0 ? unitAt(from - 1, type) : Selection{}, start, end);
    }

    QString textAfterOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                            int* end) const override {
        return unitText(unitAt(unitAt(inText(offset), type).end(), type), start, end);
    }

    QRect characterRect(int offset) const override {
        const QRect left = view_.caretRectAt(inText(offset));
        const QRect right = view_.caretRectAt(inText(offset + 1));
        QRect area = left;
        if (right.top() == left.top())
            area.setRight(right.left());
        return area.translated(view_.viewport()->mapToGlobal(QPoint()));
    }

    int offsetAtPoint(const QPoint& point) const override {
        return view_.placeAt(view_.viewport()->mapFromGlobal(point));
    }

    QString attributes(int /*offset*/, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
        return QStringLiteral("font-family:\"%1\";font-size:%2pt;")
            .arg(fromUtf8(box().FontName()))
            .arg(box().FontSize());
    }

  private:
    EditBox& box() const { return view_.box(); }
    Position inText(int offset) const { return std::clamp(offset, 0, box().length()); }

    void select(int anchor, int caret) {
        enter([&] { box().select({.anchor = inText(anchor), .caret = inText(caret)}); });
    }

    // The unit that holds the glyph at `place`.
    Selection unitAt(Position place, QAccessible::TextBoundaryType type) const {
        switch (type) {
        case QAccessible::CharBoundary:
            return {.anchor = place, .caret = inText(place + 1)};
        case QAccessible::WordBoundary:
            return box().wordAt(place);
        case QAccessible::LineBoundary: {
            const Position line = box().lines().lineOf(place);
            return {.anchor = box().lines().lineStart(line),
                    .caret = box().lines().lineStart(line + 1)};
        }
        case QAccessible::SentenceBoundary:
        case QAccessible::ParagraphBoundary:
            return box().paragraphAt(place);
        default:
            return {.anchor = 0, .caret = box().length()};
        }
    }

    QString unitText(const Selection& unit, int* start, int* end) const {
        *start = unit.start();
        *end = unit.end();
        return text(unit.start(), unit.end());
    }

    EditView& view_;
};

QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
    auto* view = dynamic_cast<EditView*>(object);
    return view != nullptr ? new BoxAccessible(*view) : nullptr;
}

} // namespace

void installBoxAccessible() {
    QAccessible::installFactory(makeAccessible);
}

void tellTextChange(EditView& view, const TextChange& change) {
    if (!QAccessible::isActive())
        return;
    QAccessibleTextUpdateEvent event(&view, change.at, displayText(change.removed),
                                     displayText(change.inserted));
    QAccessible::updateAccessibility(&event);
}

void tellSelection(EditView& view) {
    if (!QAccessible::isActive())
        return;
    const Selection& selection = view.box().selection();
    if (selection.isEmpty()) {
        QAccessibleTextCursorEvent event(&view, selection.caret);
        QAccessible::updateAccessibility(&event);
    } else {
        QAccessibleTextSelectionEvent event(&view, selection.start(), selection.end());
        event.setCursorPosition(selection.caret);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace quillet
