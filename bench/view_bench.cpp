// What the window costs inside the process: from an event to its painted consequences, beside the
// toolkit's own text box.
#include "bench/documents.h"
#include "bench/memory.h"
#include "bench/samples.h"
#include "platform/posix/posix_files.h"
#include "platform/qt/main_window.h"
#include "tests/fake_desktop.h"
#include "window/frm_quillet.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QKeyEvent>
#include <QPlainTextEdit>

#include <cstdlib>

namespace quillet {
namespace {

constexpr std::size_t megabyte = 1'000'000;

std::size_t documentSize(const benchmark::State& state) {
    return static_cast<std::size_t>(state.range(0)) * megabyte;
}

// The real main window with real files, and everything else left out.
struct OurWindow {
    FakeDesktop desktop;
    PosixFiles files;
    frmQuillet form{desktop.services(files)};
    MainWindow window{form};

    OurWindow() { form.show(); }
    QAbstractScrollArea& view() { return *window.findChild<QAbstractScrollArea*>(); }
    void load(GlyphView text) { form.txtMain.load(TextBuffer(text)); }
    bool isAtRest() const { return form.txtMain.lines().isSettled(); }
};

struct TextBoxWindow {
    QPlainTextEdit window;

    QAbstractScrollArea& view() { return window; }
    bool isAtRest() const { return true; }
    void load(GlyphView text) {
        window.setPlainText(QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size())));
    }
};

// A shown window and the times until it has painted.
template <class Window>
class Stage : public QObject, public Window {
  public:
    Stage() {
        this->window.resize(1280, 860);
        this->window.show();
        this->view().viewport()->installEventFilter(this);
        rest();
    }

    Clock::duration timeToPaint(const std::function<void()>& work) {
        painted_ = false;
        const auto start = Clock::now();
        work();
        while (!painted_)
            QCoreApplication::sendPostedEvents();
        return Clock::now() - start;
    }

    void send(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
        QKeyEvent event(type, key, modifiers, text);
        QCoreApplication::sendEvent(&this->view(), &event);
    }

    // From a key that types something to its lines, and on through its release.
    Clock::duration strike() {
        const auto pressed =
            timeToPaint([&] { send(QEvent::KeyPress, Qt::Key_K, Qt::NoModifier, "k"); });
        const auto start = Clock::now();
        send(QEvent::KeyRelease, Qt::Key_K, Qt::NoModifier, "k");
        QCoreApplication::sendPostedEvents();
        return pressed + (Clock::now() - start);
    }

    Clock::duration jump(int key) {
        return timeToPaint([&] { send(QEvent::KeyPress, key, Qt::ControlModifier, {}); });
    }

    // A tenth of a second after 100 MB were opened.
    void comeToRest() {
        do
            rest();
        while (!this->isAtRest());
    }

    // What the window does when no event waits.
    static void rest() { QCoreApplication::processEvents(); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        painted_ = painted_ || event->type() == QEvent::Paint;
        return false;
    }

  private:
    bool painted_ = false;
};

enum class Place : std::uint8_t { Start, Middle, AfterJump };

template <class Window>
void keyToLines(benchmark::State& state, Place place) {
    Stage<Window> stage;
    stage.load(prose(documentSize(state)));
    if constexpr (std::is_same_v<Window, OurWindow>)
        if (place == Place::Middle)
            stage.form.txtMain.SelStart(stage.form.txtMain.length() / 2);
    stage.timeToPaint([&] { stage.view().viewport()->update(); });
    stage.comeToRest();
    Samples samples(state);
    bool atEnd = false;
    for ([[maybe_unused]] auto _ : state) {
        if (place == Place::AfterJump) {
            atEnd = !atEnd;
            stage.jump(atEnd ? Qt::Key_End : Qt::Key_Home);
            stage.rest();
        }
        samples.add(stage.strike());
        stage.rest();
    }
}

void keyAtTheStart(benchmark::State& state) {
    keyToLines<OurWindow>(state, Place::Start);
}

void keyInTheMiddle(benchmark::State& state) {
    keyToLines<OurWindow>(state, Place::Middle);
}

void keyAfterAJump(benchmark::State& state) {
    keyToLines<OurWindow>(state, Place::AfterJump);
}

void keyInTextBox(benchmark::State& state) {
    keyToLines<TextBoxWindow>(state, Place::Start);
}

void jumpToPaint(benchmark::State& state) {
    Stage<OurWindow> stage;
    stage.load(prose(documentSize(state)));
    stage.strike();
    Samples samples(state);
    bool atEnd = false;
    for ([[maybe_unused]] auto _ : state) {
        atEnd = !atEnd;
        const auto start = Clock::now();
        stage.jump(atEnd ? Qt::Key_End : Qt::Key_Home);
        stage.rest(); // moves the text's gap
        samples.add(Clock::now() - start);
        stage.strike();
        stage.rest();
    }
}

void keyInHugeParagraph(benchmark::State& state) {
    Stage<OurWindow> stage;
    stage.load(GlyphString(documentSize(state), 'd'));
    stage.rest();
    Samples samples(state);
    for ([[maybe_unused]] auto _ : state) {
        samples.add(stage.strike());
        stage.rest(); // one round only: the wrap of the last key is never finished
    }
}

void openToFirstPage(benchmark::State& state) {
    const std::size_t size = documentSize(state);
    const DocumentFile file(prose(size));
    Samples samples(state);
    double most = 0;
    for ([[maybe_unused]] auto _ : state) {
        Stage<OurWindow> stage;
        stage.desktop.choices.emplace_back(file.path());
        resetPeak();
        const double before = statusMegabytes("VmRSS:");
        samples.add(stage.timeToPaint([&] { stage.form.mnuOpen_Click(); }));
        stage.rest();
        most = std::max(most, statusMegabytes("VmHWM:") - before);
    }
    state.counters["peak_per_byte"] = most * megabyte / static_cast<double>(size);
}

void openInTextBox(benchmark::State& state) {
    const GlyphString text = prose(documentSize(state));
    Samples samples(state);
    for ([[maybe_unused]] auto _ : state) {
        Stage<TextBoxWindow> stage;
        samples.add(stage.timeToPaint([&] { stage.load(text); }));
    }
}

// Every second change is of the font, the others of the width.
void rewrap(benchmark::State& state) {
    Stage<OurWindow> stage;
    stage.load(prose(documentSize(state)));
    stage.rest();
    Samples samples(state);
    int round = 0;
    for ([[maybe_unused]] auto _ : state) {
        ++round;
        samples.add(stage.timeToPaint([&] {
            if (round % 2 == 0)
                stage.form.txtMain.FontSize(12 + round % 4);
            else
                stage.form.txtMain.Width({10'000 + 100.0 * (round % 4)});
        }));
        stage.rest();
    }
}

// Rounds, and the sizes of the document in megabytes.
void measure(const char* name, void (*work)(benchmark::State&), int rounds,
             std::initializer_list<int> sizes) {
    auto* measured = benchmark::RegisterBenchmark(name, work);
    measured->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(rounds);
    for (const int size : sizes)
        measured->Arg(size);
}

} // namespace

void measureAll() {
    measure("open to first page", openToFirstPage, 10, {100});
    measure("open in text box", openInTextBox, 1, {10});
    measure("key at the start", keyAtTheStart, 500, {1, 10, 100});
    measure("key in the middle", keyInTheMiddle, 500, {1, 10, 100});
    measure("key after a jump", keyAfterAJump, 100, {1, 10, 100});
    measure("key in text box", keyInTextBox, 100, {1, 10});
    measure("jump from end to end", jumpToPaint, 50, {1, 10, 100});
    measure("wrap again", rewrap, 20, {100});
    measure("key in one paragraph", keyInHugeParagraph, 500, {10});
}

} // namespace quillet

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (std::getenv("QT_QPA_PLATFORM") == nullptr)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    quillet::measureAll();
    benchmark::RunSpecifiedBenchmarks();
}
