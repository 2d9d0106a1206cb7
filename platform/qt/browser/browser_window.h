// A window around a web browser that keeps to itself.
#pragma once

#include "base/twips.h"

#include <QMainWindow>
#include <QString>
#include <QWebEngineProfile>
#include <QWebEngineView>

namespace quillet {

struct BrowserDesign {
    QString title;
    Twips left, top, width, height;
    QString address;
};

/// Pages get no files, no devices and nothing that lasts; new windows go to the system's browser,
/// and downloads nowhere.
class BrowserWindow : public QMainWindow {
  public:
    explicit BrowserWindow(const BrowserDesign& design);

    void bringForward();

  private:
    QWebEngineProfile profile_; // one without a name stays off the record
    QWebEngineView view_;       // with its page, which must go before the profile
};

} // namespace quillet
