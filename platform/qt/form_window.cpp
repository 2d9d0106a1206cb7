#include "platform/qt/form_window.h"

#include "platform/form.h"
#include "platform/qt/entry.h"
#include "platform/qt/glyph_line_edit.h"
#include "platform/qt/icons.h"
#include "platform/qt/qt_services.h"
#include "platform/qt/text_codec.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

#include <algorithm>

namespace quillet {
namespace {

QFont fontOf(const ControlFont& design, const QFont& standard) {
    QFont font = standard;
    if (design.family != nullptr)
        font.setFamily(design.family);
    if (design.points > 0)
        font.setPointSizeF(design.points);
    font.setBold(design.bold);
    return font;
}

// The places of texts are narrow for some desktops' fonts: there a text gets smaller rather than
// cut off.
QFont fittingFont(QFont font, const QString& text, QSize room, int options = Qt::TextSingleLine) {
    constexpr double smallest = 6;
    constexpr double step = 0.5;
    const auto fits = [&] {
        const QRect needed =
            QFontMetrics(font).boundingRect(QRect({}, room), options | Qt::TextShowMnemonic, text);
        return needed.width() <= room.width() && needed.height() <= room.height();
    };
    while (font.pointSizeF() > smallest && !fits())
        font.setPointSizeF(font.pointSizeF() - step);
    return font;
}

QRect areaOf(const ControlDesign& design) {
    return {QtScreen::pixels(design.left), QtScreen::pixels(design.top),
            QtScreen::pixels(design.width), QtScreen::pixels(design.height)};
}

// Enter presses it as Space does, while it has the focus; its access key gives it the focus.
class FormButton : public QPushButton {
  public:
    using QPushButton::QPushButton;

  protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::Shortcut)
            setFocus(Qt::ShortcutFocusReason);
        return QPushButton::event(event);
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            click();
        else
            QPushButton::keyPressEvent(event);
    }
};

void fitCaption(QPushButton& button) {
    constexpr QSize frame(8, 4);
    button.setFont(fittingFont(button.font(), button.text(), button.size() - frame));
}

} // namespace

FormWindow::FormWindow(Form& form) : form_(form) {
    setWindowIcon(productIcon());
    buildFrame();
    buildControls();
}

void FormWindow::buildFrame() {
    const FormDesign& design = form_.design();
    resize(QtScreen::pixels(design.width), QtScreen::pixels(design.height));
    if (design.frame == FormFrame::Sizable)
        return;
    setFixedSize(size());
    setWindowFlags(design.frame == FormFrame::Splash
                       ? Qt::WindowFlags(Qt::SplashScreen)
                       : Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                             Qt::WindowCloseButtonHint);
    const bool onWholeScreen = design.frame == FormFrame::Splash;
    const QRect room = onWholeScreen ? screen()->geometry() : screen()->availableGeometry();
    move(room.center() - rect().center());
}

void FormWindow::buildControls() {
    QWidget* previous = nullptr;
    for (Control& control : form_.controls()) {
        const ControlDesign& row = control.design();
        if (row.kind == ControlKind::Timer) {
            startTimer(control);
            continue;
        }
        QWidget* widget = makeWidget(control);
        widget->setObjectName(row.name);
        widget->setFont(fontOf(row.font, font()));
        widget->setGeometry(areaOf(row));
        if (previous != nullptr)
            setTabOrder(previous, widget);
        previous = widget;
    }
    for (auto* label : findChildren<QLabel*>())
        fitLabel(*label);
    for (auto* button : findChildren<QPushButton*>())
        fitCaption(*button);
    giveAccessKeys();
}

void FormWindow::fitLabel(QLabel& label) {
    const int lineHeight = QFontMetrics(label.font()).height();
    label.setWordWrap(label.height() >= 2 * lineHeight);
    if (!label.wordWrap())
        label.resize(std::max(label.width(), roomBeside(label)),
                     std::max(label.height(), lineHeight));
    const int lines = label.wordWrap() ? Qt::TextWordWrap : Qt::TextSingleLine;
    label.setFont(fittingFont(label.font(), label.text(), label.size(), lines));
}

// From the left end of the label to the next control in its row; 0 where there is none.
int FormWindow::roomBeside(const QLabel& label) {
    constexpr int distance = 4;
    int room = 0;
    for (const auto* other : label.parentWidget()->findChildren<QWidget*>()) {
        const int width = other->x() - label.x() - distance;
        if (other->y() == label.y() && width > 0 && (room == 0 || width < room))
            room = width;
    }
    return room;
}

// A label's access key leads to the text box beside it. Such labels get one font, which fits all.
void FormWindow::giveAccessKeys() {
    QFont smallest = font();
    for (auto* label : findChildren<QLabel*>())
        for (auto* box : findChildren<QLineEdit*>())
            if (box->y() == label->y()) {
                label->setBuddy(box);
                if (label->font().pointSizeF() < smallest.pointSizeF())
                    smallest = label->font();
            }
    for (auto* label : findChildren<QLabel*>())
        if (label->buddy() != nullptr)
            label->setFont(smallest);
}

void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore(); // the form decides, and has its window taken away
    if (isVisible())
        enter([this] { form_.close(); });
}

// Nothing of a window that goes reaches its form any more: the controls may be gone before it.
void FormWindow::hideEvent(QHideEvent* event) {
    if (!event->spontaneous()) // which is only minimized
        for (const auto* child : findChildren<QObject*>())
            child->disconnect(this);
    QWidget::hideEvent(event);
}

QWidget* FormWindow::makeWidget(Control& control) {
    switch (control.design().kind) {
    case ControlKind::Label:
        return makeLabel(control);
    case ControlKind::Button:
        return makeButton(control);
    case ControlKind::Picture:
        return makePicture(control);
    case ControlKind::DropDownList:
        return makeDropDownList(control);
    case ControlKind::TextBox:
        return makeTextBox(control);
    case ControlKind::Timer:
        break;
    }
    return new QWidget(this);
}

QWidget* FormWindow::makeLabel(const Control& control) {
    auto* label = new QLabel(fromUtf8(control.Caption()), this);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return label;
}

QWidget* FormWindow::makeButton(Control& control) {
    auto* button = new FormButton(fromUtf8(control.Caption()), this);
    connect(button, &QPushButton::clicked, this,
            [&control] { enter([&control] { control.click(); }); });
    control.Changed = [&control, shown = QPointer(button)] {
        if (!shown)
            return;
        shown->setText(fromUtf8(control.Caption()));
        fitCaption(*shown);
    };
    return button;
}

QWidget* FormWindow::makePicture(const Control& control) {
    auto* label = new QLabel(this);
    const QPixmap shown = picture(control.Caption(), areaOf(control.design()).size());
    label->setPixmap(shown);
    label->setAccessibleName(QApplication::applicationName());
    if (form_.design().frame == FormFrame::Splash) // what it leaves of the window goes on with it
        setPalette(shown.toImage().pixelColor(0, shown.height() - 1));
    return label;
}

QWidget* FormWindow::makeDropDownList(Control& control) {
    auto* list = new QComboBox(this);
    const GlyphCharacters characters(fontOf(control.design().font, font()));
    for (const std::string& entry : control.List) // signs reach over what stands before them
        list->addItem(characters.of(" " + entry));
    list->setPlaceholderText(characters.of(control.Caption()));
    list->setCurrentIndex(control.ListIndex);
    connect(list, &QComboBox::activated, this,
            [&control](int index) { enter([&control, index] { control.choose(index); }); });
    return list;
}

QWidget* FormWindow::makeTextBox(Control& control) {
    auto* box = new GlyphLineEdit(fontOf(control.design().font, font()), this);
    box->setMaxLength(maxTextLength);
    box->setGlyphs(control.Text());
    control.Changed = [&control, shown = QPointer(box)] {
        if (shown)
            shown->setGlyphs(control.Text());
    };
    connect(box, &QLineEdit::textChanged, this,
            [&control, box] { enter([&] { control.Text(box->glyphs()); }); });
    return box;
}

void FormWindow::startTimer(Control& control) {
    auto* timer = new QTimer(this);
    timer->setTimerType(Qt::PreciseTimer); // others may tick too early
    connect(timer, &QTimer::timeout, this, [&control] { enter([&control] { control.click(); }); });
    timer->start(control.design().interval);
}

} // namespace quillet
