// The user's input while a command works for a long time.
#pragma once

#include <QEvent>
#include <QObject>
#include <QPointer>

#include <memory>
#include <utility>
#include <vector>

namespace quillet {

/// While this lives, events may be processed and nothing that the user does gets into the running
/// command: the mouse does nothing, windows stay open as below a modal one, and keys come to their
/// window when the command is done.
class BusyInput : public QObject {
  public:
    BusyInput();
    ~BusyInput() override;

  protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

  private:
    std::vector<std::pair<QPointer<QObject>, std::shared_ptr<QEvent>>> keys_; // by window
};

} // namespace quillet
