// The window with a web browser, in a process of its own.
#pragma once

#include <QProcess>

#include <functional>

namespace quillet {

class frmWeb;

/// A crash of the browser ends that process alone, and nobody who stays away from the web pays for
/// it. The process goes with the last writer to its standard input, so it cannot be left over.
class BrowserProcess : public QProcess {
  public:
    /// Runs `closed` when the window is gone, whether the user has closed it, it has crashed or
    /// could not be opened.
    BrowserProcess(const frmWeb& form, const std::function<void()>& closed);
    ~BrowserProcess() override;

    void bringForward() { write("\n"); }
};

} // namespace quillet
