#include "platform/qt/browser/browser_window.h"

#include "platform/qt/icons.h"
#include "platform/qt/qt_services.h"

#include <QDesktopServices>
#include <QWebEngineDownloadRequest>
#include <QWebEngineNewWindowRequest>
#include <QWebEnginePage>
#include <QWebEngineSettings>

namespace quillet {
namespace {

bool isOfTheWeb(const QUrl& address) {
    return address.scheme() == "http" || address.scheme() == "https";
}

class Page : public QWebEnginePage {
  public:
    using QWebEnginePage::QWebEnginePage;

  protected:
    bool acceptNavigationRequest(const QUrl& address, NavigationType /*type*/,
                                 bool isMainFrame) override {
        return !isMainFrame || isOfTheWeb(address);
    }
};

void confine(QWebEngineSettings& settings) {
    using Settings = QWebEngineSettings;
    for (const auto attribute :
         {Settings::LocalContentCanAccessFileUrls, Settings::LocalContentCanAccessRemoteUrls,
          Settings::JavascriptCanAccessClipboard, Settings::PluginsEnabled,
          Settings::ScreenCaptureEnabled, Settings::AllowGeolocationOnInsecureOrigins})
        settings.setAttribute(attribute, false);
}

void openOutside(const QWebEngineNewWindowRequest& request) {
    if (request.isUserInitiated() && isOfTheWeb(request.requestedUrl()))
        QDesktopServices::openUrl(request.requestedUrl());
}

} // namespace

BrowserWindow::BrowserWindow(const BrowserDesign& design) {
    setWindowTitle(design.title);
    setWindowIcon(productIcon());
    setCentralWidget(new QWidget(this));
    view_.setParent(centralWidget());
    auto* page = new Page(&profile_, &view_);
    confine(*page->settings());
    connect(&profile_, &QWebEngineProfile::downloadRequested, page,
            [](QWebEngineDownloadRequest* download) { download->cancel(); });
    connect(page, &QWebEnginePage::newWindowRequested, page, openOutside);
    connect(page, &QWebEnginePage::featurePermissionRequested, page,
            [page](const QUrl& origin, QWebEnginePage::Feature feature) {
                page->setFeaturePermission(origin, feature, QWebEnginePage::PermissionDeniedByUser);
            });
    view_.setPage(page);
    view_.setGeometry(QtScreen::pixels(design.left), QtScreen::pixels(design.top),
                      QtScreen::pixels(design.width), QtScreen::pixels(design.height));
    view_.load(QUrl::fromUserInput(design.address));
    view_.setFocus();
}

void BrowserWindow::bringForward() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

} // namespace quillet
