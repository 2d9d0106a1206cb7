#include "platform/qt/form_window.h"

#include "platform/form.h"
#include "platform/qt/entry.h"
#include "platform/qt/icons.h"
#include "platform/qt/qt_services.h"
#include "platform/qt/text_codec.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>

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
    const FormDesign& design = form.design();
    setFixedSize(QtScreen::pixels(design.width), QtScreen::pixels(design.height));
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowCloseButtonHint);
    setWindowIcon(productIcon());
    move(screen()->availableGeometry().center() - rect().center());
    QWidget* previous = nullptr;
    for (Control& control : form.controls()) {
        const ControlDesign& row = control.design();
        QWidget* widget = makeWidget(control);
        widget->setObjectName(row.name);
        widget->setFont(fontOf(row.font, font()));
        widget->setGeometry(QtScreen::pixels(row.left), QtScreen::pixels(row.top),
                            QtScreen::pixels(row.width), QtScreen::pixels(row.height));
        if (previous != nullptr)
            setTabOrder(previous, widget);
        previous = widget;
    }
}

void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore(); // the form decides, and has its window taken away
    enter([this] { form_.close(); });
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
    }
    return new QWidget(this);
}

QWidget* FormWindow::makeLabel(const Control& control) {
    auto* label = new QLabel(fromUtf8(control.Caption()), this);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setWordWrap(true);
    return label;
}

QWidget* FormWindow::makeButton(Control& control) {
    auto* button = new FormButton(fromUtf8(control.Caption()), this);
    connect(button, &QPushButton::clicked, this,
            [&control] { enter([&control] { control.click(); }); });
    return button;
}

QWidget* FormWindow::makePicture(const Control& control) {
    auto* label = new QLabel(this);
    const ControlDesign& row = control.design();
    label->setPixmap(picture(row.caption, QtScreen::pixels(row.height)));
    return label;
}

QWidget* FormWindow::makeDropDownList(Control& control) {
    auto* list = new QComboBox(this);
    for (const std::string& entry : control.List)
        list->addItem(displayText(entry));
    list->setPlaceholderText(displayText(control.Caption()));
    list->setCurrentIndex(control.ListIndex);
    connect(list, &QComboBox::activated, this,
            [&control](int index) { enter([&control, index] { control.choose(index); }); });
    return list;
}

} // namespace quillet
