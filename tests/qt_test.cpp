// What the toolkit's side translates, paints and catches, without a display.
#include "base/run_time_error.h"
#include "comm/frm_web.h"
#include "platform/qt/entry.h"
#include "platform/qt/form_window.h"
#include "platform/qt/glyph_font.h"
#include "platform/qt/glyph_line_edit.h"
#include "platform/qt/glyph_text.h"
#include "platform/qt/icons.h"
#include "platform/qt/key_translation.h"
#include "platform/qt/main_window.h"
#include "platform/qt/qt_forms.h"
#include "platform/qt/qt_services.h"
#include "platform/qt/text_codec.h"
#include "tests/shell.h"
#include "tests/test_window.h"
#include "window/frm_splash.h"
#include "window/image_list.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QFile>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QRawFont>
#include <QScreen>
#include <QShortcutEvent>
#include <QStringEncoder>
#include <QTimer>
#include <QtEndian>

#include <functional>
#include <iterator>
#include <random>
#include <vector>

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
    constexpr int noCharacter = -1;
    const struct {
        const char* name;
        QKeyEvent event;
        int keyCode;
        int character;
        Layout layout = Layout::Latin;
    } rows[] = {
        {"letter", keyEvent(Qt::Key_K, none, "k", 45), 'K', 'k'},
        {"letter of another Latin layout", keyEvent(Qt::Key_A, none, "a", 24), 'A', 'a'},
        {"shifted digit", keyEvent(Qt::Key_At, shift, "@", 11), '2', '@'},
        {"shifted punctuation", keyEvent(Qt::Key_Less, shift, "<", 59), 188, '<'},
        {"its release without Shift", keyEvent(Qt::Key_Comma, none, ",", 59), 188, ','},
        {"no scan code", keyEvent(Qt::Key_Question, shift, "?"), 191, '?'},
        {"Devanagari", keyEvent(0x0915, none, QString(QChar(0x0915)), 45), 'K', 'k'},
        {"Devanagari with Shift", keyEvent(0x0916, shift, QString(QChar(0x0916)), 45), 'K', 'K'},
        {"Devanagari with caps lock", keyEvent(0x915, none, QString(QChar(0x915)), 45, 0, 2), 'K',
         'K'},
        {"Devanagari with Ctrl", keyEvent(0x0938, ctrl, QString(QChar(0x0938)), 39), 'S', 19},
        {"punctuation of a Greek layout", keyEvent(Qt::Key_Semicolon, none, ";", 24), 'Q', 'q',
         Layout::Other},
        {"a keypad digit there", keyEvent(Qt::Key_5, Qt::KeypadModifier, "5", 84, 0xFFB5), 101, '5',
         Layout::Other},
        {"Alt after Shift", keyEvent(Qt::Key_Meta, shift, "", 64, 0xFFE7), 18, noCharacter},
        {"Shift that switches the layout", keyEvent(Qt::Key_unknown, none, "", 50, 0xFE08), 16,
         noCharacter},
        {"dead key", keyEvent(Qt::Key_Dead_Acute, none, "", 48), 222, '\''},
        {"euro sign", keyEvent(Qt::Key_E, none, QString(QChar(0x20AC)), 26), 'E', 0x80},
        {"keypad digit", keyEvent(Qt::Key_5, Qt::KeypadModifier, "5", 84, 0xFFB5), 101, '5'},
        {"keypad without NumLock", keyEvent(Qt::Key_Left, Qt::KeypadModifier, "", 83, 0xFF96), 37,
         noCharacter},
        {"keypad Enter", keyEvent(Qt::Key_Enter, Qt::KeypadModifier, "\r", 104, 0xFF8D), 13, 13},
        {"F12", keyEvent(Qt::Key_F12, none, "", 96), 123, noCharacter},
        {"Delete", keyEvent(Qt::Key_Delete, none, "\x7F", 119), 46, noCharacter},
        {"Shift+Tab", keyEvent(Qt::Key_Backtab, shift, "", 23), 9, 9},
        {"Escape", keyEvent(Qt::Key_Escape, none, "\x1B", 9), 27, 27},
        {"Ctrl+letter", keyEvent(Qt::Key_Z, ctrl, "\x1A", 52), 'Z', 26},
        {"Ctrl+Backspace", keyEvent(Qt::Key_Backspace, ctrl, "\x08", 22), 8, 127},
        {"Alt+letter", keyEvent(Qt::Key_F, Qt::AltModifier, "f", 41), 'F', noCharacter},
        {"unknown", keyEvent(Qt::Key_VolumeUp, none, "", 123), 255, noCharacter},
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

TEST(TextCodec, CarriesEveryByteAndMarksTheRest) {
    GlyphString bytes;
    for (int code = 0; code < 256; ++code)
        bytes.push_back(static_cast<char>(code));
    EXPECT_EQ(glyphText(displayText(bytes)), bytes);
    EXPECT_EQ(displayText("\x99\x83"), QString::fromUtf8("™ƒ"));
    EXPECT_EQ(glyphText(QString::fromUtf8("aक😀é")), "a??\xE9");
}

// How much of the picture is painted, in percent.
int painted(const QImage& image) {
    int pixels = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            pixels += image.pixelColor(x, y).alpha() > 128 ? 1 : 0;
    return image.isNull() ? 0 : 100 * pixels / (image.width() * image.height());
}

TEST(Icons, GiveEveryImageOfTheListAPictureOfItsOwnInEverySize) {
    for (const int size : {16, 24, 32, 36, 48, 72}) {
        std::vector<QImage> images;
        for (const ImageRow& row : imageList) {
            SCOPED_TRACE(testing::Message() << row.key << " at " << size);
            const QIcon icon = toolbarIcon(row.key);
            EXPECT_TRUE(icon.availableSizes().contains(QSize(size, size)));
            const QImage image = icon.pixmap(QSize(size, size), 1).toImage();
            EXPECT_EQ(image.size(), QSize(size, size));
            EXPECT_GT(painted(image), 20);
            for (std::size_t other = 0; other < images.size(); ++other)
                EXPECT_FALSE(image == images[other]) << "as " << imageList[other].key;
            images.push_back(image);
        }
    }
    EXPECT_TRUE(toolbarIcon("none").isNull());
}

TEST(Icons, FillTheirPlacesInTheForms) {
    const struct {
        const char* key;
        QSize size;
        int painted;
    } rows[] = {{"Product", {64, 64}, 70}, {"Splash", {360, 282}, 100}};
    for (const auto& row : rows) {
        const QPixmap shown = picture(row.key, row.size);
        EXPECT_EQ(shown.size(), row.size) << row.key;
        EXPECT_GE(painted(shown.toImage()), row.painted) << row.key;
    }
    for (const QSize size : productIcon().availableSizes())
        EXPECT_GT(painted(productIcon().pixmap(size, 1).toImage()), 70) << size.width();
    EXPECT_GE(productIcon().availableSizes().size(), 5);
    EXPECT_TRUE(picture("none", {64, 64}).isNull());
}

// Strikes a key in the next message box, and if that leaves it open clicks `button`.
void answerNext(Qt::Key key, QMessageBox::StandardButton button) {
    QTimer::singleShot(0, [=] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(box, &press);
        if (box->isVisible() && !box->close())
            box->button(button)->click();
    });
}

TEST(QtMessageBox, EscAndTheCloseBoxAnswerOnlyWhereThereIsACancel) {
    QtMessageBox boxes;
    answerNext(Qt::Key_Escape, QMessageBox::Yes);
    EXPECT_EQ(boxes.show({.text = "?", .buttons = Buttons::YesNo}), Answer::Yes);
    answerNext(Qt::Key_Escape, QMessageBox::Yes);
    EXPECT_EQ(boxes.show({.text = "?", .buttons = Buttons::YesNoCancel}), Answer::Cancel);
    answerNext(Qt::Key_Return, QMessageBox::NoButton);
    EXPECT_EQ(boxes.show({.text = "!"}), Answer::Ok);
}

struct View : ::testing::Test {
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

TEST_F(View, PaintsTextAndSelectionAndFollowsTheCaret) {
    const QImage empty = image();
    form.txtMain.Text("abc\tdef\x01");
    const QImage text = image();
    EXPECT_NE(text, empty);
    form.txtMain.FontBold(true);
    EXPECT_NE(image(), text);

    EXPECT_EQ(selectedPixels(), 0);
    form.mnuSelectAll_Click();
    EXPECT_GT(selectedPixels(), 500);

    std::string lines;
    for (int line = 0; line < 500; ++line)
        lines += "line\r\n";
    form.txtMain.Text(lines);
    form.txtMain.SelStart(form.txtMain.length() - 4);
    form.txtMain.SelLength(2);
    EXPECT_GT(selectedPixels(), 50) << "the caret is brought into view";
    form.txtMain.SelStart(0);
    form.txtMain.SelLength(2);
    EXPECT_GT(selectedPixels(), 50);
}

// Random edits leave the same pixels behind as painting the whole window does.
TEST_F(View, RepaintsAllThatAChangeTouches) {
    offerOpenFonts();
    EditBox& box = form.txtMain;
    window.activateWindow();
    box.Text("first\r\n\r\nthird \x01\t\xAD line\r\n" + GlyphString(300, 'w'));
    std::minstd_rand random;
    const auto upTo = [&random](Position most) {
        return std::uniform_int_distribution<Position>(0, most)(random);
    };
    const auto place = [&] { return upTo(box.length()); };
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
        [&] { box.FontName(box.FontName() == krutiDev010 ? "Arial" : krutiDev010); },
    };
    for (int step = 0; step < 500; ++step) {
        const auto edit = static_cast<std::size_t>(upTo(std::size(edits) - 1));
        edits[edit]();
        QApplication::processEvents();
        QApplication::processEvents(); // what the view posts to itself, and then the repaint
        ASSERT_EQ(window.screen()->grabWindow(window.winId()).toImage(), window.grab().toImage())
            << "step " << step << ", edit " << edit;
    }
}

// With every font, a line is as wide as its glyphs in the table of advances, give or take the
// rounding of each.
TEST_F(View, PaintedTextIsAsWideAsTheTableSays) {
    offerOpenFonts();
    const GlyphString words = "fganh Hkk\"kk f'k{kk ns'k dk;Z fo|ky; L=h \xD8k\xAD s";
    for (const char* name : {"Kruti Dev 010", "Kruti Dev 020", "Arial"}) {
        for (const int style : {0, 1, 2, 3}) {
            form.txtMain.FontName(name);
            form.txtMain.FontBold((style & 1) != 0);
            form.txtMain.FontItalic((style & 2) != 0);
            const GlyphFont font(form.txtMain);
            Advance sum = 0;
            for (const char glyph : words)
                sum += font.lineMetrics(100).advances[glyphCode(glyph)];
            const double painted =
                QFontMetricsF(font.font()).horizontalAdvance(font.characters().of(words));
            EXPECT_NEAR(painted, static_cast<double>(sum) / advancePerPixel, 0.5)
                << name << " " << style;
        }
    }
}

TEST(GlyphCharacters, ShowEveryByteInTheOpenFonts) {
    offerOpenFonts();
    const GlyphCharacters kruti{QFont("Kruti Dev 020")};
    const GlyphCharacters latin{QFont("Liberation Sans")};
    GlyphString bytes;
    for (int code = 0; code < 256; ++code)
        bytes.push_back(static_cast<char>(code));
    EXPECT_EQ(kruti.of(bytes.substr(0xAD, 1)), QString(QChar(0xF0AD)));
    EXPECT_EQ(glyphText(kruti.of(bytes)), bytes);
    bytes[0xAD] = '-';
    EXPECT_EQ(latin.of(bytes), displayText(bytes));
    EXPECT_EQ(latin.of("\xAD"), "-");
    EXPECT_TRUE(kruti.isDrawn('\x81') && !latin.isDrawn('\x81') && !kruti.isDrawn('\x1F'));
}

// The file of a font under another name, which must not be longer.
QByteArray renamedFont(const QString& path, const QString& family) {
    QFile file(path);
    EXPECT_TRUE(file.open(QFile::ReadOnly));
    QByteArray font = file.readAll();
    const auto number = [&](qsizetype at) {
        return qFromBigEndian<quint16>(font.constData() + at);
    };
    const QByteArray name = QStringEncoder(QStringEncoder::Utf16BE)(family);
    const qsizetype table = qFromBigEndian<quint32>(font.constData() + font.indexOf("name") + 8);
    const qsizetype texts = table + number(table + 4);
    constexpr qsizetype rowSize = 12;
    for (qsizetype row = table + 6; row < table + 6 + rowSize * number(table + 2); row += rowSize) {
        const auto kind = number(row + 6);
        if (kind != 1 && kind != 4) // the family's name and the full one
            continue;
        font.replace(texts + number(row + 10), name.size(), name);
        qToBigEndian(static_cast<quint16>(name.size()), font.data() + row + 8);
    }
    return font;
}

TEST(OpenFonts, StandInOnlyWhereTheRealFontIsMissing) {
    offerOpenFonts();
    const auto shownBy = [] {
        return QRawFont::fromFont(QFont(krutiDev010)).familyName().toLower().toStdString();
    };
    EXPECT_EQ(shownBy(), "quillet devanagari");
    const int real = QFontDatabase::addApplicationFontFromData(
        renamedFont(":/fonts/QuilletDevanagariSerif-Regular.otf", krutiDev010));
    EXPECT_EQ(shownBy(), "kruti dev 010");
    QFontDatabase::removeApplicationFont(real);
    EXPECT_EQ(shownBy(), "quillet devanagari");
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

TEST(FormWindow, TextsAndCaptionsGoBothWays) {
    TestWindow form;
    frmFind& find = form.findWindow();
    find.show();
    FormWindow window(find);
    auto* text = window.findChild<QLineEdit*>("txtfind");
    auto* button = window.findChild<QPushButton*>("cmdfind");
    GlyphString bytes;
    for (int code = 1; code < 256; ++code)
        bytes.push_back(static_cast<char>(code));
    text->setText(displayText(bytes));
    EXPECT_EQ(find.control("txtfind").Text(), bytes);
    text->setText(QString::fromUtf8("aक"));
    EXPECT_EQ(find.control("txtfind").Text(), "a?");
    EXPECT_EQ(glyphText(text->text()), "a?") << "what is shown is what is looked for";
    form.txtMain.Text("a?a?");
    EXPECT_EQ(button->text(), "&Find ");
    button->click();
    EXPECT_EQ(button->text(), "Find Next");
    EXPECT_EQ(form.txtMain.SelText(), "a?");
    EXPECT_GT(window.maximumWidth(), 2000) << "it can be resized";
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
    void typeText(const QString& text) { send(keyEvent(Qt::Key_unknown, Qt::NoModifier, text)); }
    void ctrl(Qt::Key key) { send(keyEvent(key, Qt::ControlModifier, {})); }
};

TEST_F(GlyphLine, BecomesGlyphsWhateverWayTextComesIn) {
    const struct {
        const char* way;
        std::function<void(const QString&)> enter;
    } rows[] = {
        {"typed", [&](const QString& text) { typeText(text); }},
        {"by an input method",
         [&](const QString& text) {
             QInputMethodEvent event;
             event.setCommitString(text);
             send(event);
         }},
        {"pasted",
         [&](const QString& text) {
             clipboard->setText(text);
             ctrl(Qt::Key_V);
         }},
        {"pasted from the menu",
         [&](const QString& text) {
             clipboard->setText(text);
             send(QContextMenuEvent(QContextMenuEvent::Keyboard, {}, {}));
             auto* menu = line.findChild<QMenu*>();
             for (QAction* action : menu->actions())
                 if (action->text().startsWith("&Paste"))
                     action->trigger();
             delete menu;
         }},
        {"dropped",
         [&](const QString& text) {
             QMimeData data;
             data.setText(text);
             send(QDragEnterEvent({}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier));
             send(QDropEvent({}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier));
         }},
    };
    for (const auto& row : rows) {
        line.clear();
        row.enter(QString::fromUtf8("aक\xC2\xAD™ "));
        EXPECT_EQ(line.glyphs(), "a?\xAD\x99 ") << row.way;
        EXPECT_EQ(line.text(), u"\uF061\uF03F\uF0AD\uF099 ") << row.way;
        line.undo();
        EXPECT_EQ(line.glyphs(), "") << row.way;
        line.redo();
        EXPECT_EQ(line.glyphs(), "a?\xAD\x99 ") << row.way;
    }
}

TEST_F(GlyphLine, GivesItsTextAwayAsWindows1252) {
    line.setGlyphs("d\xAD\x99 d");
    line.home(false);
    line.cursorWordForward(true);
    ctrl(Qt::Key_C);
    EXPECT_EQ(clipboard->text(), QString::fromUtf8("d\xC2\xAD™ "));
    clipboard->clear();
    ctrl(Qt::Key_X);
    EXPECT_EQ(clipboard->text(), QString::fromUtf8("d\xC2\xAD™ "));
    EXPECT_EQ(line.glyphs(), "d");
    ctrl(Qt::Key_Z);
    EXPECT_EQ(line.glyphs(), "d\xAD\x99 d");
}

TEST_F(GlyphLine, IsPlainTextInAFontWithoutTheCodes) {
    GlyphLineEdit latin(QFont("Liberation Sans"), nullptr);
    latin.setGlyphs("d\xAD\x99");
    EXPECT_EQ(latin.text(), QString::fromUtf8("d\xC2\xAD™"));
    EXPECT_EQ(latin.glyphs(), "d\xAD\x99");
}

TEST(FormWindow, AnAccessKeyGivesItsButtonTheFocus) {
    TestWindow form;
    frmReplace& replace = form.replaceWindow();
    replace.show();
    FormWindow window(replace);
    window.show();
    auto* button = window.findChild<QPushButton*>("cmdreplaceall");
    QShortcutEvent event(button->shortcut(), 0);
    QApplication::sendEvent(button, &event);
    EXPECT_EQ(window.focusWidget(), button);
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

TEST(FormWindow, TheSplashTicksUntilItGoes) {
    TestWindow form;
    frmSplash splash(form.desktop.forms, form);
    splash.load();
    FormWindow window(splash);
    const auto* timer = window.findChild<QTimer*>();
    EXPECT_EQ(timer->interval(), 1000);
    EXPECT_TRUE(timer->isActive());
}

TEST(FormWindow, TheSplashIsOfOneColourBelowItsPicture) {
    const QPalette before = QApplication::palette();
    QApplication::setPalette(Qt::black);
    TestWindow form;
    frmSplash splash(form.desktop.forms, form);
    splash.load();
    FormWindow window(splash);
    const QImage shown = window.grab().toImage();
    const int bottom = window.height() - 1;
    EXPECT_EQ(shown.pixelColor(9, bottom), shown.pixelColor(9, bottom - 9));
    EXPECT_EQ(window.findChild<QLabel*>()->accessibleName(), QApplication::applicationName());
    QApplication::setPalette(before);
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
