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

    QStringList chooseFiles(FileSelectionMode /*mode*/, const QStringList& /*names*/,
                            const QStringList& /*types*/) override {
        return {};
    }

    void javaScriptAlert(const QUrl& origin, const QString& text) override {
        if (mayAsk())
            QWebEnginePage::javaScriptAlert(origin, text);
    }

    // Also asked when a page does not want to be left.
    bool javaScriptConfirm(const QUrl& origin, const QString& text) override {
        return !mayAsk() || QWebEnginePage::javaScriptConfirm(origin, text);
    }

    bool javaScriptPrompt(const QUrl& origin, const QString& text, const QString& initial,
                          QString* result) override {
        return mayAsk() && QWebEnginePage::javaScriptPrompt(origin, text, initial, result);
    }

  private:
    // Without an end to its questions a page could keep its window from being closed.
    bool mayAsk() { return ++questions_ <= 5; }

    int questions_ = 0;
};

void confine(QWebEngineSettings& settings) {
    using Settings = QWebEngineSettings;
    for (const auto attribute :
         {Settings::LocalContentCanAccessFileUrls, Settings::LocalContentCanAccessRemoteUrls,
          Settings::JavascriptCanAccessClipboard, Settings::PluginsEnabled,
          Settings::ScreenCaptureEnabled, Settings::AllowGeolocationOnInsecureOrigins})
        settings.setAttribute(attribute, false);
    // A frame of a page could start other programs else.
    settings.setUnknownUrlSchemePolicy(Settings::DisallowUnknownUrlSchemes);
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
