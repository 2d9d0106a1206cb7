#include "platform/qt/busy_input.h"

#include "platform/qt/entry.h"

#include <QCoreApplication>

namespace quillet {

BusyInput::BusyInput() {
    QCoreApplication::instance()->installEventFilter(this);
}

BusyInput::~BusyInput() {
    QCoreApplication::processEvents(); // takes up what has come last
    QCoreApplication::instance()->removeEventFilter(this);
    afterwards([keys = std::move(keys_)] {
        for (const auto& [window, event] : keys)
            if (window)
                QCoreApplication::sendEvent(window, event.get());
    });
}

bool BusyInput::eventFilter(QObject* receiver, QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        event->accept(); // no shortcut takes the key, which follows now
        return true;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        keys_.emplace_back(receiver, event->clone());
        return true;
    case QEvent::Close:
        event->ignore();
        return true;
    default:
        return event->isInputEvent();
    }
}

} // namespace quillet
