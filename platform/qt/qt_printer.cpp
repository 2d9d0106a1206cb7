#include "platform/qt/qt_printer.h"

#include "base/run_time_error.h"
#include "base/twips.h"
#include "platform/files.h"
#include "platform/qt/entry.h"
#include "platform/qt/text_codec.h"

#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QPageRanges>
#include <QPrintDialog>
#include <QPrinter>
#include <QRadioButton>
#include <QTemporaryDir>

#include <array>
#include <utility>

namespace quillet {
namespace {

// The toolkit's own checks the typed pages before it has read them, so that it refuses all of them.
class PrintDialog : public QPrintDialog {
  public:
    using QPrintDialog::QPrintDialog;

    void accept() override {
        const auto* isTyped = findChild<QRadioButton*>("pagesRadioButton");
        const auto* pages = findChild<QLineEdit*>("pagesLineEdit");
        if (isTyped != nullptr && isTyped->isChecked() && pages != nullptr)
            printer()->setPageRanges(QPageRanges::fromString(pages->text()));
        QPrintDialog::accept();
    }
};

} // namespace

QtPrinter::QtPrinter(Files& files) : files_(files) {}

QtPrinter::~QtPrinter() = default;

bool QtPrinter::choosePrinter() {
    // The dialog keeps these to itself until it is asked for more.
    device().setPrintRange(QPrinter::AllPages);
    device().setCopyCount(1);
    device().setPageOrder(QPrinter::FirstPageFirst);
    PrintDialog dialog(&device(), QApplication::activeWindow());
    const bool chosen = dialog.exec() == QDialog::Accepted;
    leaveModalLoop();
    if (chosen)
        startJob();
    return chosen;
}

float QtPrinter::ScaleWidth() {
    return toTwips(device().pageRect(QPrinter::DevicePixel).width());
}

float QtPrinter::ScaleHeight() {
    return toTwips(device().pageRect(QPrinter::DevicePixel).height());
}

void QtPrinter::FontName(const std::string& name) {
    wanted_ = exactFont(fromUtf8(name), wanted_.pointSizeF());
    font_.reset();
}

void QtPrinter::FontSize(double points) {
    wanted_ = exactFont(wanted_.family(), points);
    font_.reset();
}

float QtPrinter::TextWidth(GlyphView text) {
    return toTwips(font().width(text));
}

float QtPrinter::TextHeight(GlyphView /*text*/) {
    return toTwips(font().lineHeight());
}

void QtPrinter::Print(GlyphView text) {
    if (text.find_first_not_of(' ') != GlyphView::npos)
        job_.add({toDots(x_), toDots(y_)}, font(), text);
    x_ += TextWidth(text);
}

void QtPrinter::NewLine() {
    x_ = 0;
    y_ += toTwips(font().lineHeight());
}

void QtPrinter::NewPage() {
    job_.startPage();
    x_ = 0;
    y_ = 0;
}

void QtPrinter::EndDoc() {
    const PrintJob whole = std::exchange(job_, {});
    startJob();
    const bool isFile = !device().outputFileName().isEmpty();
    if (!(isFile ? printToFile(whole) : whole.print(device())))
        throw RunTimeError(ErrorNumber::PrinterError);
}

QPrinter& QtPrinter::device() {
    if (device_ == nullptr) {
        device_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
        device_->setDocName("Quillet");
        device_->setCreator("Quillet");
    }
    return *device_;
}

void QtPrinter::startJob() {
    job_ = {};
    font_.reset(); // it may be another printer
    x_ = 0;
    y_ = 0;
}

const PrinterFont& QtPrinter::font() {
    if (!font_)
        font_.emplace(wanted_, &device());
    return *font_;
}

float QtPrinter::toTwips(double dots) {
    return static_cast<float>(fromPixels(dots, device().resolution()).value);
}

double QtPrinter::toDots(float twips) {
    return toPixels({twips}, device().resolution());
}

// Through a file of its own, since the toolkit does not tell when the disk is full.
bool QtPrinter::printToFile(const PrintJob& job) {
    const QTemporaryDir folder;
    if (!folder.isValid()) // without a name the printer would print on paper
        return false;
    const QString name = device().outputFileName();
    device().setOutputFileName(folder.filePath("printed.pdf"));
    const bool printed = job.print(device());
    QFile file(device().outputFileName());
    device().setOutputFileName(name);
    if (!printed)
        return false;
    if (!file.exists()) // no page was chosen
        return true;
    const QByteArray content = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    if (!content.trimmed().endsWith("%%EOF"))
        return false;
    const GlyphView whole(content.constData(), static_cast<std::size_t>(content.size()));
    files_.write(name.toStdString(), std::array{whole});
    return true;
}

} // namespace quillet
