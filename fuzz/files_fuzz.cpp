// Documents opened and saved, under any name and with any bytes, and the filters of the dialogs.
#include "fuzz/input.h"
#include "platform/posix/posix_files.h"
#include "tests/shell.h"
#include "tests/test_window.h"

#include <array>

namespace quillet::fuzz {
namespace {

// A name within the folder, whatever it is made of.
std::string nameFrom(Input& input) {
    std::string name(input.text(input.byte() % 32));
    for (char& byte : name)
        if (byte == '/')
            byte = '?';
    return name;
}

void openAndSave(GlyphView bytes, const std::string& name) {
    TestWindow form;
    form.desktop.disk["/d/" + name] = bytes;
    form.desktop.choices = {"/d/" + name};
    form.txtMain.Text("before");
    form.mnuOpen_Click();
    check(form.txtMain.Text() == bytes, "every byte is opened");
    check(form.txtMain.SelStart() == 0 && !form.txtMain.canUndo(), "with nothing before it");
    form.txtMain.SelStart(form.txtMain.length() / 2);
    form.txtMain.catchUp(); // text on both sides of the caret
    form.mnuSave_Click();
    check(form.desktop.disk["/d/" + name] == GlyphString(bytes) + GlyphString(lineBreak),
          "and saved, with a line break");
}

void writeAndRead(GlyphView bytes, const std::string& name) {
    static const TempFolder folder;
    const std::string path = folder.path / name;
    PosixFiles files;
    try {
        files.write(path, std::array{bytes});
    } catch (const RunTimeError&) {
        return; // no name for a file
    }
    check(files.exists(path), "what was written is there");
    const TextBuffer read = files.read(path);
    check(read.copy(0, static_cast<Position>(read.size())) == bytes, "as it was written");
    fs::remove(path);
}

void run(Input input) {
    const std::string name = nameFrom(input);
    for (const FileFilter& filter : parseFilters(input.text(input.byte())))
        check(!filter.patterns.empty(), "every filter has a pattern");
    const GlyphView bytes = input.rest();
    openAndSave(bytes, name);
    writeAndRead(bytes, name);
}

} // namespace
} // namespace quillet::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quillet::fuzz::run({data, size});
    return 0;
}
