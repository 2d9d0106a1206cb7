#include "platform/qt/glyph_line_edit.h"

#include "platform/qt/text_codec.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>

namespace quillet {

GlyphLineEdit::GlyphLineEdit(const QFont& font, QWidget* parent)
    : QLineEdit(parent),
      characters_(font) {
    connect(QGuiApplication::clipboard(), &QClipboard::changed, this,
            [this](QClipboard::Mode mode) { translateCopy(mode); });
}

GlyphString GlyphLineEdit::glyphs() const {
    return glyphText(text());
}

void GlyphLineEdit::setGlyphs(GlyphView glyphs) {
    if (const QString shown = characters_.editable(glyphs); shown != text())
        setText(shown);
}

// Control characters are left to the toolkit: among them are those of keys that type nothing.
void GlyphLineEdit::keyPressEvent(QKeyEvent* event) {
    const QString typed = event->text();
    if (event->matches(QKeySequence::Paste)) {
        pasteFrom(QClipboard::Clipboard);
        return;
    }
    if (typed.isEmpty() || typed[0].category() == QChar::Other_Control) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    QKeyEvent translated(event->type(), event->key(), event->modifiers(), own(typed),
                         event->isAutoRepeat(), static_cast<quint16>(event->count()));
    QLineEdit::keyPressEvent(&translated);
    event->setAccepted(translated.isAccepted());
}

void GlyphLineEdit::inputMethodEvent(QInputMethodEvent* event) {
    event->setCommitString(own(event->commitString()), event->replacementStart(),
                           event->replacementLength());
    QLineEdit::inputMethodEvent(event);
}

void GlyphLineEdit::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::MiddleButton) {
        QLineEdit::mouseReleaseEvent(event);
    } else if (QGuiApplication::clipboard()->supportsSelection()) {
        deselect();
        pasteFrom(QClipboard::Selection);
    }
}

void GlyphLineEdit::dropEvent(QDropEvent* event) {
    QMimeData translated;
    translated.setText(own(event->mimeData()->text()));
    QDropEvent drop(event->position(), event->possibleActions(), &translated, event->buttons(),
                    event->modifiers());
    QLineEdit::dropEvent(&drop);
    event->setDropAction(drop.dropAction());
    event->setAccepted(drop.isAccepted());
}

void GlyphLineEdit::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction* action : menu->actions()) {
        if (!action->text().startsWith(QLineEdit::tr("&Paste")))
            continue;
        action->disconnect(this);
        connect(action, &QAction::triggered, this, [this] { pasteFrom(QClipboard::Clipboard); });
    }
    menu->popup(event->globalPos());
}

QString GlyphLineEdit::own(const QString& text) const {
    return characters_.editable(glyphText(text));
}

void GlyphLineEdit::pasteFrom(QClipboard::Mode mode) {
    insert(own(QGuiApplication::clipboard()->text(mode)));
}

// The toolkit has just put the selected characters there as they stand in the line.
void GlyphLineEdit::translateCopy(QClipboard::Mode mode) const {
    QClipboard* clipboard = QGuiApplication::clipboard();
    const QString theirs = quillet::displayText(glyphText(selectedText()));
    if (theirs != selectedText() && clipboard->text(mode) == selectedText())
        clipboard->setText(theirs, mode);
}

} // namespace quillet
