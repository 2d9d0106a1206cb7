#include "platform/qt/form_window.h"

#include "platform/form.h"
#include "platform/qt/entry.h"
#include "platform/qt/glyph_text.h"
#include "platform/qt/icons.h"
#include "platform/qt/qt_services.h"
#include "platform/qt/text_codec.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
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

// The places of one-line labels are narrow for some desktops' fonts: there the text gets smaller
// rather than cut off.
QFont fittingFont(QFont font, const QString& text, int width) {
    constexpr double smallest = 6;
    constexpr double step = 0.5;
    const int options = Qt::TextSingleLine | Qt::TextShowMnemonic;
    while (font.pointSizeF() > smallest && QFontMetrics(font).size(options, text).width() > width)
        font.setPointSizeF(font.pointSizeF() - step);
    return font;
}

QRect areaOf(const ControlDesign& design) {
    return {QtScreen::pixels(design.left), QtScreen::pixels(design.top),
            QtScreen::pixels(design.width), QtScreen::pixels(design.height)};
}

// Enter presses it as Space does, while it has the focus.
class FormButton : public QPushButton {
  public:
    using QPushButton::QPushButton;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            click();
        else
            QPushButton::keyPressEvent(event);
    }
};

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
    giveAccessKeys();
}

void FormWindow::fitLabel(QLabel& label) {
    const int lineHeight = QFontMetrics(label.font()).height();
    label.setWordWrap(label.height() >= 2 * lineHeight);
    if (label.wordWrap())
        return;
    const QFont fitting = fittingFont(label.font(), label.text(), label.width());
    if (fitting == label.font() && label.height() >= lineHeight)
        return;
    const int width = std::max(label.width(), roomBeside(label));
    label.setFont(fittingFont(label.font(), label.text(), width));
    label.resize(width, std::max(label.height(), lineHeight));
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

// A label's access key leads to the text box beside it.
void FormWindow::giveAccessKeys() {
    for (auto* label : findChildren<QLabel*>())
        for (auto* box : findChildren<QLineEdit*>())
            if (box->y() == label->y())
                label->setBuddy(box);
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
        if (shown)
            shown->setText(fromUtf8(control.Caption()));
    };
    return button;
}

QWidget* FormWindow::makePicture(const Control& control) {
    auto* label = new QLabel(this);
    label->setPixmap(picture(control.Caption(), areaOf(control.design()).size()));
    return label;
}

QWidget* FormWindow::makeDropDownList(Control& control) {
    auto* list = new QComboBox(this);
    const GlyphCharacters characters(fontOf(control.design().font, font()));
    for (const std::string& entry : control.List)
        list->addItem(characters.of(entry));
    list->setPlaceholderText(characters.of(control.Caption()));
    list->setCurrentIndex(control.ListIndex);
    connect(list, &QComboBox::activated, this,
            [&control](int index) { enter([&control, index] { control.choose(index); }); });
    return list;
}

QWidget* FormWindow::makeTextBox(Control& control) {
    auto* box = new QLineEdit(displayText(control.Text()), this);
    box->setMaxLength(maxTextLength);
    control.Changed = [&control, shown = QPointer(box)] {
        const QString text = displayText(control.Text());
        if (shown && shown->text() != text)
            shown->setText(text);
    };
    connect(box, &QLineEdit::textChanged, this,
            [&control](const QString& text) { enter([&] { control.Text(glyphText(text)); }); });
    return box;
}

void FormWindow::startTimer(Control& control) {
    auto* timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, [&control] { enter([&control] { control.click(); }); });
    timer->start(control.design().interval);
}

} // namespace quillet
