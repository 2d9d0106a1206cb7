// The program beside a bare editor and those that are installed, all as seen on the screen: how
// long they take until their empty page is there and what they hold in memory then, what a file of
// 10 MB takes longer, and the time from a key to its glyph.
#include "bench/documents.h"
#include "bench/memory.h"
#include "bench/side_by_side.h"
#include "bench/typist.h"
#include "platform/posix/posix_files.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <iostream>

namespace quillet {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int rounds = 15;
constexpr int strokes = 400;
constexpr std::size_t fileSize = 10'000'000;
constexpr Area page = {540, 320, 740, 520}; // within the text of every window, right of its caret

// Of the screen's black, of white paper and of its text.
double whiteShare(const Picture& picture) {
    constexpr std::uint32_t white = 0xFFFFFF;
    const auto isWhite = [](std::uint32_t pixel) { return (pixel & white) == white; };
    const auto count = std::count_if(picture.pixels.begin(), picture.pixels.end(), isWhite);
    return static_cast<double>(count) / static_cast<double>(picture.pixels.size());
}

bool isScreen(const Picture& picture) {
    return whiteShare(picture) == 0;
}

bool isEmptyPage(const Picture& picture) {
    return whiteShare(picture) == 1;
}

bool isFullPage(const Picture& picture) {
    const double share = whiteShare(picture);
    return share > 0.5 && share < 1;
}

// They ask nobody for his settings, and share no process.
std::vector<Editor> installed() {
    const std::vector<std::string> plain = {"env", "LC_ALL=C.UTF-8", "GSETTINGS_BACKEND=memory"};
    std::vector<Editor> found;
    for (Editor editor : {
             Editor{"mousepad", {"mousepad", "--disable-server"}, "Untitled 1 - Mousepad"},
             Editor{"featherpad", {"featherpad", "--standalone"}, "Untitled"},
         }) {
        if (output("command -v " + editor.name).empty())
            continue;
        editor.command.insert(editor.command.begin(), plain.begin(), plain.end());
        found.push_back(editor);
    }
    return found;
}

// What the editors are started on.
class Desk {
  public:
    // Glyphs of ASCII only, as every editor takes them without questions.
    Desk() {
        GlyphString text = prose(fileSize);
        std::replace_if(
            text.begin(), text.end(), [](char glyph) { return (glyph & '\x80') != 0; }, 'k');
        PosixFiles().write(path_, std::array{GlyphView(text)});
    }

    double start(const Editor& editor, double& megabytes) const {
        return timeUntil(isEmptyPage, editor, megabytes);
    }

    double open(const Editor& editor) const {
        double megabytes = 0;
        Editor withFile = editor;
        withFile.command.push_back(path_);
        const double whole = timeUntil(isFullPage, withFile, megabytes);
        return whole - start(editor, megabytes);
    }

  private:
    double timeUntil(bool (*shown)(const Picture&), const Editor& editor, double& megabytes) const {
        probe_.waitFor(page, isScreen, "the screen behind " + editor.name);
        const auto start = Clock::now();
        const Process program(editor.command);
        probe_.waitFor(page, shown, "the page of " + editor.name);
        const auto spent = Clock::now() - start;
        megabytes = std::max(megabytes, statusMegabytes("VmHWM:", std::to_string(program.id())));
        return std::chrono::duration<double>(spent).count();
    }

    VirtualScreen screen_;
    KeyProbe probe_;
    std::string path_ = screen_.folder() / "prose.txt";
};

void measureStarts(const std::vector<Editor>& editors) {
    const Desk desk;
    std::vector<double> megabytes(editors.size());
    std::vector<Subject> starting;
    std::vector<Subject> opening;
    for (std::size_t i = 0; i < editors.size(); ++i) {
        starting.push_back({editors[i].name,
                            [&, i] { return desk.start(editors[i], megabytes[i]); },
                            [&, i] { return megabytes[i]; }});
        opening.push_back({editors[i].name, [&, i] { return desk.open(editors[i]); }});
    }
    measureSideBySide("start", starting, rounds);
    measureSideBySide("open", opening, rounds);
}

void measureKeys(const std::vector<Editor>& editors) {
    std::vector<std::unique_ptr<Typist>> typists;
    std::vector<Subject> subjects;
    for (const Editor& editor : editors) {
        Typist& typist = *typists.emplace_back(std::make_unique<Typist>(editor, 0));
        subjects.push_back({editor.name, [&typist] { return typist.strike(); }});
    }
    measureSideBySide("keyToPixels", subjects, strokes);
}

void measureAll() {
    const std::string title = Program().title;
    std::vector<Editor> editors = {{"quillet", {START_MAIN_WINDOW, "--stay"}, title},
                                   {"bare_editor", {BARE_EDITOR}, "Bare editor"}};
    for (const Editor& editor : installed())
        editors.push_back(editor);
    measureStarts(editors);
    measureKeys(editors);
}

} // namespace
} // namespace quillet

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    try {
        quillet::measureAll();
        benchmark::RunSpecifiedBenchmarks();
    } catch (const std::exception& error) {
        std::cerr << "editors_bench: " << error.what() << '\n';
        return 1;
    }
}
