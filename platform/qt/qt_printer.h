// The printer and its dialog, made of Qt.
#pragma once

#include "platform/common_dialog.h"
#include "platform/printer.h"
#include "platform/qt/print_job.h"

#include <memory>
#include <optional>

class QPrinter;

namespace quillet {

class Files;

/// What is printed to a file replaces it as a whole, or not at all.
class QtPrinter : public Printer, public PrinterChooser {
  public:
    explicit QtPrinter(Files& files);
    ~QtPrinter() override;

    /// A choice drops what was left of an unfinished job.
    bool choosePrinter() override;

    float CurrentX() const override { return x_; }
    void CurrentX(float x) override { x_ = x; }
    float CurrentY() const override { return y_; }
    void CurrentY(float y) override { y_ = y; }
    float ScaleWidth() override;
    float ScaleHeight() override;
    int Page() const override { return job_.page(); }
    void FontName(const std::string& name) override;
    void FontSize(double points) override;
    float TextWidth(GlyphView text) override;
    float TextHeight(GlyphView text) override;
    void Print(GlyphView text) override;
    void NewLine() override;
    void NewPage() override;
    void EndDoc() override;

    /// The toolkit's printer: the default one at first, then as the dialog has set it.
    QPrinter& device();

  private:
    void startJob();
    const PrinterFont& font();
    float toTwips(double dots);
    double toDots(float twips);
    bool printToFile(const PrintJob& job);

    Files& files_;
    std::unique_ptr<QPrinter> device_; // made at first use: it asks the system for printers
    QFont wanted_;
    std::optional<PrinterFont> font_; // the wanted one on the device
    PrintJob job_;
    float x_ = 0;
    float y_ = 0;
};

} // namespace quillet
