#include "platform/qt/box_accessible.h"

#include "platform/qt/edit_view.h"
#include "platform/qt/entry.h"
#include "platform/qt/form_window.h"
#include "platform/qt/text_codec.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include <algorithm>
#include <utility>

namespace quillet {
namespace {

// Who sends more than 128 MiB at once is cut off from the bus. A glyph takes up to three bytes.
constexpr Position longestPiece = 0x1000000;

// The bus carries no NUL, and an empty place would shift what stands behind it.
QString spokenText(GlyphView text) {
    return displayText(text).replace(QChar::Null, QChar::ReplacementCharacter);
}

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
        const Position count = std::clamp(inText(end) - from, 0, longestPiece);
        QString text;
        enter([&] { text = spokenText(box().textAt(from, count)); });
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
            area.setWidth(right.left() - left.left());
        return area.translated(view_.viewport()->mapToGlobal(QPoint()));
    }

    // The glyph at the point, where the nearest place for the caret may be behind it.
    int offsetAtPoint(const QPoint& point) const override {
        const QPoint at = view_.viewport()->mapFromGlobal(point);
        Position place = view_.placeAt(at);
        const Position lineStart = box().lines().lineStart(box().lineOf(place));
        while (place > lineStart && view_.caretRectAt(place).left() > at.x())
            --place;
        return place;
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
        case QAccessible::WordBoundary: {
            const Selection word = box().wordAt(place); // at a line break the one before it
            return word.end() > place ? word : unitAt(place, QAccessible::CharBoundary);
        }
        case QAccessible::LineBoundary: {
            const Position line = box().lineOf(place);
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
    if (auto* view = dynamic_cast<EditView*>(object))
        return new BoxAccessible(*view);
    if (auto* window = dynamic_cast<FormWindow*>(object))
        return new QAccessibleWidget(window, QAccessible::Dialog);
    return nullptr;
}

} // namespace

void installBoxAccessible() {
    QAccessible::installFactory(makeAccessible);
}

void tellTextChange(EditView& view, const TextChange& change) {
    const std::size_t longest = std::max(change.removed.size(), change.inserted.size());
    if (!QAccessible::isActive() || longest > longestPiece)
        return;
    QAccessibleTextUpdateEvent event(&view, change.at, spokenText(change.removed),
                                     spokenText(change.inserted));
    QAccessible::updateAccessibility(&event);
}

void tellSelection(EditView& view, const Selection& before) {
    const Selection& now = view.box().selection();
    if (!QAccessible::isActive())
        return;
    if (now.caret != before.caret) {
        QAccessibleTextCursorEvent event(&view, now.caret);
        QAccessible::updateAccessibility(&event);
    }
    if (!now.isEmpty() || !before.isEmpty()) {
        QAccessibleTextSelectionEvent event(&view, now.start(), now.end());
        event.setCursorPosition(now.caret);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace quillet
