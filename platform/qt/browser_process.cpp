#include "platform/qt/browser_process.h"

#include "comm/frm_web.h"
#include "platform/qt/program_parts.h"
#include "platform/qt/text_codec.h"

#include <QDir>

namespace quillet {
namespace {

QString inTwips(float length) {
    return QString::number(length);
}

} // namespace

BrowserProcess::BrowserProcess(const frmWeb& form, const std::function<void()>& closed) {
    connect(this, &QProcess::finished, this, closed);
    // Queued, for it may come while this is made and nobody could close it yet.
    const auto failed = [closed](ProcessError error) {
        if (error == FailedToStart)
            closed();
    };
    connect(this, &QProcess::errorOccurred, this, failed, Qt::QueuedConnection);
    setProcessChannelMode(ForwardedErrorChannel);
    setStandardOutputFile(nullDevice());
    const QString helper = "quillet-browser";
    const WebBrowser& browser = form.wBrowser;
    start(QDir(folderWith(helper, QUILLET_HELPERS)).filePath(helper),
          {fromUtf8(form.Caption()), inTwips(browser.Left), inTwips(browser.Top),
           inTwips(browser.Width), inTwips(browser.Height), fromUtf8(browser.address)});
}

BrowserProcess::~BrowserProcess() {
    constexpr int patience = 1000; // milliseconds
    disconnect();
    closeWriteChannel();
    if (!waitForFinished(patience))
        kill();
}

} // namespace quillet
