// Ends a program once it has painted.
#pragma once

#include <QEvent>
#include <QGuiApplication>
#include <QTimer>
#include <QWidget>

#include <unistd.h>

namespace quillet {

/// Ends the process as soon as what `widget` has painted first is on the screen.
class FirstPaint : public QObject {
  public:
    explicit FirstPaint(QWidget* widget) { widget->installEventFilter(this); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            QTimer::singleShot(0, [] {
                QGuiApplication::sync();
                ::_exit(0);
            });
        return false;
    }
};

} // namespace quillet
