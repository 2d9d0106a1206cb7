// What the toolkit's side translates, paints and catches, without a display.
#include "comm/frm_web.h"
#include "platform/qt/entry.h"
#include "platform/qt/form_window.h"
#include "platform/qt/glyph_font.h"
#include "platform/qt/glyph_line_edit.h"
#include "platform/qt/glyph_text.h"
#include "platform/qt/icons.h"
#include "platform/qt/key_translation.h"
#include "platform/qt/main_window.h"
#include "platform/qt/program_style.h"
#include "platform/qt/qt_forms.h"
#include "platform/qt/qt_services.h"
#include "platform/qt/text_codec.h"
#include "tests/shell.h"
#include "tests/test_window.h"
#include "window/image_list.h"

#include <gtest/gtest.h>

#include <QtWidgets>

#include <functional>
#include <random>
#include <set>

#include <sys/resource.h>

namespace quillet {
namespace {

QKeyEvent keyEvent(int key, Qt::KeyboardModifiers modifiers, const QString& text,
                   quint32 scanCode = 0, quint32 keysym = 0, quint32 native = 0) {
    return {QEvent::KeyPress, key, modifiers, scanCode, keysym, native, text};
}

TEST(KeyTranslation, GivesCodesAndCharactersWhateverTheLayout) {
    const Qt::KeyboardModifiers none = Qt::NoModifier;
    const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
    const Qt::KeyboardModifiers ctrl = Qt::ControlModifier;
    const Qt::KeyboardModifiers keypad = Qt::KeypadModifier;
    constexpr int noCharacter = -1;
    const struct {
        const char* name;
        QKeyEvent event;
        int keyCode;
        int character;
        Layout layout = Layout::Latin;
    } rows[] = {
        {"shifted punctuation", keyEvent(Qt::Key_Less, shift, "<", 59), 188, '<'},
        {"its release without Shift", keyEvent(Qt::Key_Comma, none, ",", 59), 188, ','},
        {"no scan code", keyEvent(Qt::Key_Question, shift, "?"), 191, '?'},
        {"Devanagari with Shift", keyEvent(0x0916, shift, "ख", 45), 'K', 'K'},
        {"Devanagari with caps lock", keyEvent(0x915, none, "क", 45, 0, 2), 'K', 'K'},
        {"Devanagari with Ctrl", keyEvent(0x0938, ctrl, "स", 39), 'S', 19},
        {"Greek", keyEvent(Qt::Key_Semicolon, none, ";", 24), 'Q', 'q', Layout::Other},
        {"Greek keypad", keyEvent(Qt::Key_5, keypad, "5", 84, 0xFFB5), 101, '5', Layout::Other},
        {"Alt after Shift", keyEvent(Qt::Key_Meta, shift, "", 64, 0xFFE7), 18, noCharacter},
        {"layout switch", keyEvent(Qt::Key_unknown, none, "", 50, 0xFE08), 16, noCharacter},
        {"dead key", keyEvent(Qt::Key_Dead_Acute, none, "", 48), 222, '\''},
        {"euro sign", keyEvent(Qt::Key_E, none, "€", 26), 'E', 0x80},
        {"keypad digit", keyEvent(Qt::Key_5, keypad, "5", 84, 0xFFB5), 101, '5'},
        {"no NumLock", keyEvent(Qt::Key_Left, keypad, "", 83, 0xFF96), 37, noCharacter},
        {"Ctrl+Backspace", keyEvent(Qt::Key_Backspace, ctrl, "\x08", 22), 8, 127},
        {"Alt+letter", keyEvent(Qt::Key_F, Qt::AltModifier, "f", 41), 'F', noCharacter},
    };
    for (const auto& row : rows) {
        const KeyStroke stroke = translateKey(row.event, row.layout);
        EXPECT_EQ(stroke.keyCode, row.keyCode) << row.name;
        EXPECT_EQ(stroke.character.value_or(noCharacter), row.character) << row.name;
    }
    for (const Qt::KeyboardModifiers stored : {none, ctrl}) { // assistive programs change it
        const QKeyEvent release(QEvent::KeyRelease, Qt::Key_Control, stored, 37, 0, 0);
        const QKeyEvent press = keyEvent(Qt::Key_Control, stored, "", 37);
        EXPECT_EQ(translateKey(press, Layout::Latin).shift, modifier::ctrl);
        EXPECT_EQ(translateKey(release, Layout::Latin).shift, 0);
    }
}

TEST(Icons, GiveEveryImageAPictureOfItsOwnInEverySize) {
    for (const int size : {16, 24, 32, 36, 48, 72}) {
        std::set<QByteArray> images;
        for (const ImageRow& row : imageList) {
            const QImage image = toolbarIcon(row.key).pixmap(QSize(size, size), 1).toImage();
            const QString drawn = QStringLiteral(PICTURES "/%1-%2.png").arg(row.key).arg(size);
            EXPECT_EQ(image, QImage(drawn).convertToFormat(image.format())) << row.key;
            EXPECT_EQ(image.size(), QSize(size, size)) << row.key;
            images.emplace(reinterpret_cast<const char*>(image.bits()), image.sizeInBytes());
        }
        EXPECT_EQ(images.size(), std::size(imageList)) << "at " << size;
    }
}

TEST(ProgramStyle, KeepsTheLookOfTheToolbarsExtension) {
    const auto look = [](bool enabled) {
        QToolBar bar;
        for (const char* text : {"first", "second", "third"})
            bar.addAction(text);
        bar.setEnabled(enabled);
        bar.resize(bar.sizeHint() / 2);
        bar.show();
        QApplication::processEvents();
        const auto* extension = bar.findChild<QToolButton*>("qt_toolbar_ext_button");
        EXPECT_TRUE(extension != nullptr && extension->isVisible());
        return bar.grab().toImage();
    };
    const QImage enabled = look(true);
    const QImage disabled = look(false);
    deferToolbarExtension();
    EXPECT_EQ(look(true), enabled);
    EXPECT_EQ(look(false), disabled);
}

struct OpenFontsOffered {
    OpenFontsOffered() { offerOpenFonts(); }
};

struct View : ::testing::Test {
    OpenFontsOffered before; // any window
    TestWindow form;
    MainWindow window{form};

    void SetUp() override {
        window.resize(1000, 700);
        window.show();
    }

    QImage image() {
        QApplication::processEvents();
        return window.findChild<QAbstractScrollArea*>()->viewport()->grab().toImage();
    }

    // How many pixels have the colour of selected text's background.
    qsizetype selectedPixels() {
        const QImage now = image();
        const auto group = window.isActiveWindow() ? QPalette::Active : QPalette::Inactive;
        const QColor highlight = window.palette().color(group, QPalette::Highlight);
        qsizetype count = 0;
        for (int y = 0; y < now.height(); ++y)
            for (int x = 0; x < now.width(); ++x)
                count += now.pixelColor(x, y) == highlight ? 1 : 0;
        return count;
    }
};

TEST_F(View, PaintsTextAndFollowsTheCaret) {
    const QImage empty = image();
    form.txtMain.Text("abc\tdef\x01");
    EXPECT_NE(image(), empty);
    for (int line = 0; line < 500; ++line)
        form.txtMain.SelText("line\r\n");
    for (const Position start : {form.txtMain.length() - 4, 0}) {
        form.txtMain.select({.anchor = start, .caret = start + 2});
        EXPECT_GT(selectedPixels(), 50) << "the caret is brought into view";
    }
}

// Random edits leave the same pixels behind as painting the whole window does.
TEST_F(View, RepaintsAllThatAChangeTouches) {
    EditBox& box = form.txtMain;
    window.activateWindow();
    GlyphString text = "first\r\n\r\nthird \x01\t\xAD line\r\n" + GlyphString(300, 'w');
    for (int line = 0; line < 40; ++line)
        text += "\r\nlow \xEAw \xEBw \xECw \xEDw";
    box.Text(text);
    QScrollBar* bar = window.findChild<QAbstractScrollArea*>()->verticalScrollBar();
    std::minstd_rand random;
    const auto upTo = [&random](Position most) {
        return std::uniform_int_distribution<Position>(0, most)(random);
    };
    const auto place = [&] { return upTo(box.length()); };
    const auto top = [&] { return box.lines().lineStart(bar->value()); };
    const auto settle = [] {
        QApplication::processEvents();
        QApplication::processEvents(); // what the view posts to itself, and then the repaint
    };
    const std::function<void()> edits[] = {
        [&] { box.keyPress('i', 0); },
        [&] { box.keyPress('f', 0); }, // the short i, whose hook reaches over what follows
        [&] { box.keyPress('Z', 0); }, // the reph, which stands over what is before it
        [&] { box.keyPress(' ', 0); },
        [&] { box.keyPress('\r', 0); },
        [&] { box.keyPress('\b', 0); },
        [&] { box.SelText("some words\tand"); },
        [&] { box.SelStart(place()); },
        [&] { box.select({.anchor = place(), .caret = place()}); },
        [&] { box.undo(); },
        [&] { box.redo(); },
        [&] { bar->setValue(bar->value() + upTo(6) - 3); },
        [&] { box.select({.anchor = 0, .caret = top() + 1}); },
        [&] {
            box.SelStart(top());
            settle();
            bar->setValue(bar->value() + 1);
        },
        [&] {
            box.SelStart(0);
            box.SelText("moves what follows");
            box.select({.anchor = place(), .caret = place()});
            settle();
            box.undo();
        },
        [&] { box.SelText(GlyphString(1, static_cast<char>(upTo(255)))); },
        [&] {
            box.FontName(std::array{"Kruti Dev 010", "Kruti Dev 020", "Arial"}[upTo(2)]);
        },
        [&] { box.FontItalic(!box.FontItalic()); },
        [&] { box.FontBold(!box.FontBold()); },
        [&] { box.FontUnderline(!box.FontUnderline()); },
    };
    for (int step = 0; step < 500; ++step) {
        const auto edit = static_cast<std::size_t>(upTo(std::size(edits) - 1));
        edits[edit]();
        settle();
        ASSERT_EQ(window.screen()->grabWindow(window.winId()).toImage(), window.grab().toImage())
            << "step " << step << ", edit " << edit;
    }
}

// Ligatures, and signs that make room for each other.
TEST_F(View, PaintsWordsAsTheFontShapesThem) {
    form.txtMain.Text("gSa esa gqbZ d`ik\r\n");
    form.txtMain.SelStart(form.txtMain.length()); // with the caret elsewhere
    const QImage seen = image();
    const GlyphFont font(form.txtMain);
    QImage wanted(seen.size(), seen.format());
    wanted.fill(window.palette().color(QPalette::Base));
    QPainter painter(&wanted);
    painter.setFont(font.font());
    painter.drawText(QPointF(4, 4 + font.ascent()), font.characters().of("gSa esa gqbZ d`ik"));
    const QRect line(0, 0, seen.width(), font.lineHeight());
    EXPECT_EQ(seen.copy(line), wanted.copy(line));
}

// With every font, a line is as wide as its glyphs in the table of advances, give or take the
// rounding of each.
TEST_F(View, PaintedTextIsAsWideAsTheTableSays) {
    const GlyphString words = "fganh Hkk\"kk f'k{kk ns'k dk;Z fo|ky; L=h \xD8k\xAD s";
    for (const char* name : {"Kruti Dev 010", "Kruti Dev 020", "Arial"}) {
        for (const int style : {0, 1, 2, 3}) {
            form.txtMain.FontName(name);
            form.txtMain.FontBold((style & 1) != 0);
            form.txtMain.FontItalic((style & 2) != 0);
            const GlyphFont font(form.txtMain);
            double sum = 0;
            for (const char glyph : words)
                sum += static_cast<double>(font.lineMetrics(100).advances[glyphCode(glyph)]);
            const QFontMetricsF metrics(font.font());
            EXPECT_NEAR(metrics.horizontalAdvance(font.characters().of(words)),
                        sum / advancePerPixel, 0.5)
                << name << " " << style;
        }
    }
}

TEST(GlyphCharacters, ShowEveryByteInTheOpenFonts) {
    offerOpenFonts();
    const GlyphCharacters kruti{QFont("Kruti Dev 020")};
    const GlyphCharacters latin{QFont("Liberation Sans")};
    GlyphString bytes = allBytes();
    EXPECT_EQ(kruti.of("\xAD"), QString(QChar(0xF0AD)));
    EXPECT_EQ(glyphText(kruti.of(bytes)), bytes);
    bytes[0xAD] = '-';
    EXPECT_EQ(latin.of(allBytes()), displayText(bytes));
    EXPECT_TRUE(kruti.isDrawn('\x81') && !latin.isDrawn('\x81') && !kruti.isDrawn('\x1F'));
}

// A text stands where the table says only if the toolkit's own widths are the same, to the last
// bit.
TEST_F(View, TableHoldsTheToolkitsAdvances) {
    for (const char* name : {"Kruti Dev 010", "Kruti Dev 020", "Arial", "Liberation Mono"})
        for (const double size : {6.0, 7.5, 10.0, 10.5, 13.0, 20.5, 72.0})
            for (const int style : {0, 1, 2, 3}) {
                form.txtMain.FontName(name);
                form.txtMain.FontSize(size);
                form.txtMain.FontBold((style & 1) != 0);
                form.txtMain.FontItalic((style & 2) != 0);
                const GlyphFont font(form.txtMain);
                const auto advances = font.lineMetrics(100).advances;
                const QRawFont raw = QRawFont::fromFont(font.font());
                for (std::size_t code = 0; code < advances.size(); ++code) {
                    const QChar shown = font.characters().measured(static_cast<char>(code));
                    const auto widths =
                        raw.advancesForGlyphIndexes(raw.glyphIndexesForString(shown));
                    ASSERT_EQ(advances[code], widths.at(0).x() * advancePerPixel)
                        << name << " " << size << " " << style << " " << code;
                }
            }
}

// A font takes the other's place when its name is known: blanks at the end do not count.
TEST(OpenFonts, StandInOnlyWhereTheRealFontIsMissing) {
    offerOpenFonts();
    const auto shown = [] { return QRawFont::fromFont(exactFont(krutiDev010, 12)).familyName(); };
    EXPECT_EQ(shown().toLower(), "quillet devanagari");
    QFile file(":/fonts/QuilletDevanagariSerif-Regular.otf");
    ASSERT_TRUE(file.open(QFile::ReadOnly));
    const QString name = "Quillet Devanagari Serif";
    QStringEncoder utf16(QStringEncoder::Utf16BE);
    const QByteArray real = utf16(QString(krutiDev010).leftJustified(name.size()));
    const int id = QFontDatabase::addApplicationFontFromData(
        file.readAll().replace(QByteArray(utf16(name)), real));
    EXPECT_EQ(shown().trimmed().toLower(), "kruti dev 010");
    QFontDatabase::removeApplicationFont(id);
    EXPECT_EQ(shown().toLower(), "quillet devanagari");
}

TEST_F(View, ShowsTheSelectionWhileADialogHasTheFocus) {
    QWidget dialog;
    dialog.show();
    dialog.activateWindow();
    QApplication::processEvents();
    ASSERT_FALSE(window.isActiveWindow());
    form.txtMain.Text("abc abc");
    QPalette dark(Qt::black);
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Inactive, QPalette::Highlight, Qt::darkRed);
    window.setPalette(dark);
    form.txtMain.select({.anchor = 4, .caret = 7});
    EXPECT_GT(selectedPixels(), 100);
    EXPECT_EQ(image().pixelColor(500, 300), QColor(Qt::black)) << "the desktop's colours";
}

TEST(FormWindow, ChoosesAnEntryAlsoWhenItIsTheOneShown) {
    TestWindow form;
    form.txtMain.Text("zzzz");
    form.txtMain.SelStart(4);
    frmSpl& chars = form.specialCharacters();
    chars.load();
    FormWindow window(chars);
    auto* list = window.findChild<QComboBox*>("cmbSpecial");
    EXPECT_EQ(glyphText(list->itemText(16)), " \x83");
    for (int times = 0; times < 2; ++times)
        Q_EMIT list->activated(16);
    EXPECT_EQ(form.txtMain.Text(), "z\x83") << "two for two, and then two for one again";
}

struct GlyphLine : ::testing::Test {
    static QFont devanagari() {
        offerOpenFonts();
        return QFont("Kruti Dev 010");
    }

    GlyphLineEdit line{devanagari(), nullptr};
    QClipboard* clipboard = QGuiApplication::clipboard();

    template <class Event>
    void send(Event&& event) {
        QApplication::sendEvent(&line, &event);
    }
    void ctrl(Qt::Key key) { send(keyEvent(key, Qt::ControlModifier, {})); }
    void pasteFromTheMenu() {
        send(QContextMenuEvent(QContextMenuEvent::Keyboard, {}, {}));
        const std::unique_ptr<QMenu> menu(line.findChild<QMenu*>());
        for (QAction* action : menu->actions())
            if (action->text().startsWith("&Paste"))
                action->trigger();
    }
};

TEST_F(GlyphLine, BecomesGlyphsWhateverWayTextComesIn) {
    const QString text = "aक\u00AD™ ";
    QMimeData data;
    data.setText(text);
    QInputMethodEvent composed;
    composed.setCommitString(text);
    const std::function<void()> ways[] = {
        [&] { send(keyEvent(Qt::Key_unknown, Qt::NoModifier, text)); },
        [&] { send(composed); },
        [&] { ctrl(Qt::Key_V); },
        [&] { pasteFromTheMenu(); },
        [&] {
            send(QDragEnterEvent({}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier));
            send(QDropEvent({}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier));
        },
    };
    clipboard->setText(text);
    for (const auto& enter : ways) {
        SCOPED_TRACE(&enter - ways);
        line.clear();
        enter();
        EXPECT_EQ(line.glyphs(), "a?\xAD\x99 ");
        EXPECT_EQ(line.text(), u"\uF061\uF03F\uF0AD\uF099 ");
        line.undo();
        EXPECT_EQ(line.glyphs(), "");
    }
}

TEST_F(GlyphLine, GivesItsTextAwayAsWindows1252) {
    line.setGlyphs("d\xAD\x99 d");
    line.home(false);
    line.cursorWordForward(true);
    for (const Qt::Key key : {Qt::Key_C, Qt::Key_X}) {
        clipboard->clear();
        ctrl(key);
        EXPECT_EQ(clipboard->text(), "d\u00AD™ ");
    }
    EXPECT_EQ(line.glyphs(), "d");
    GlyphLineEdit latin(QFont("Liberation Sans"), nullptr);
    latin.setGlyphs("d\xAD\x99");
    EXPECT_EQ(latin.text(), "d\u00AD™");
    EXPECT_EQ(latin.glyphs(), "d\xAD\x99");
}

// What the window shows of its texts is not cut off, also with a larger font of the desktop.
TEST(FormWindow, FitsItsTextsIntoTheirPlaces) {
    const QFont before = QApplication::font();
    QApplication::setFont(QFont("DejaVu Sans", 12));
    TestWindow form;
    frmAbout about(form.desktop.forms);
    Form* const forms[] = {&form.findWindow(), &form.replaceWindow(), &about};
    for (Form* shown : forms) {
        shown->load();
        FormWindow window(*shown);
        for (const auto* button : window.findChildren<QPushButton*>()) {
            const QFontMetrics metrics(button->font());
            EXPECT_LT(metrics.size(Qt::TextShowMnemonic, button->text()).width(), button->width())
                << button->text().toStdString();
        }
        for (const auto* label : window.findChildren<QLabel*>()) {
            const int height = label->hasHeightForWidth() ? label->heightForWidth(label->width())
                                                          : label->sizeHint().height();
            EXPECT_LE(height, label->height()) << label->text().toStdString();
        }
    }
    QApplication::setFont(before);
}

TEST(FormWindow, AWindowThatWentReachesItsFormNoMore) {
    TestWindow form;
    frmFind& find = form.findWindow();
    find.show();
    FormWindow window(find);
    window.show();
    find.control("cmdcancel").Click = [&] {
        find.unload();
        window.hide();
    };
    for (int clicks = 0; clicks < 2; ++clicks)
        window.findChild<QPushButton*>("cmdcancel")->click();
    window.findChild<QLineEdit*>("txtfind")->setText("x");
    window.close();
    EXPECT_FALSE(find.isVisible());
}

TEST(QtForms, ANewsWindowThatCannotOpenIsClosedAgain) {
    QtForms forms;
    QtScreen screen;
    frmWeb web(forms, screen);
    const FormDesign design{"frmOther", "", FormFrame::Sizable, {1440}, {1440}, {}};
    Form other(forms, design); // without it the program would end
    other.show();
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    const rlimit none{.rlim_cur = 0, .rlim_max = limit.rlim_max};
    for (const rlimit& files : {none, limit}) { // no pipe to the browser, and then no browser
        setrlimit(RLIMIT_NOFILE, &files);
        web.show();
        setrlimit(RLIMIT_NOFILE, &limit);
        EXPECT_TRUE(waitUntil([&] {
            QApplication::processEvents();
            return !web.isVisible();
        })) << files.rlim_cur;
    }
    forms.dropWindows();
}

// The last one, for afterwards the program has ended and no event runs anything.
TEST(ZEntry, ReportsAnUncaughtErrorAndEnds) {
    QString shown;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        shown = box->windowTitle() + "|" + box->text();
        box->accept();
    });
    enter([] { throw RunTimeError(ErrorNumber::InvalidPropertyValue); });
    EXPECT_EQ(shown, "Quillet1.0|Run-time error '380':\n\nInvalid property value");
    bool ran = false;
    enter([&] { ran = true; });
    EXPECT_FALSE(ran);
    EXPECT_THROW(leaveModalLoop(), EndOfProgram);
}

} // namespace
} // namespace quillet

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
