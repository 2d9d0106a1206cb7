// The desktop's boxes, dialogs, clipboard and screen, made of Qt.
#pragma once

#include "platform/clipboard.h"
#include "platform/common_dialog.h"
#include "platform/input_box.h"
#include "platform/message_box.h"
#include "platform/screen.h"

namespace quillet {

class QtMessageBox : public MessageBox {
  public:
    Answer show(const Message& message) override;
};

class QtInputBox : public InputBox {
  public:
    std::string ask(const std::string& prompt, const std::string& title) override;
};

class QtFileChooser : public FileChooser {
  public:
    std::optional<std::string> choose(Purpose purpose, const std::vector<FileFilter>& filters,
                                      const std::string& startName) override;
};

class QtClipboard : public Clipboard {
  public:
    void setText(GlyphView text) override;
    GlyphString text() override;
};

class QtScreen : public Screen {
  public:
    Twips width() const override;
    Twips height() const override;
    void MousePointer(Pointer pointer) override;

    /// Lengths in logical pixels, at the dots per inch of the primary screen.
    static double dotsPerInch();
    static int pixels(Twips length);
};

} // namespace quillet
