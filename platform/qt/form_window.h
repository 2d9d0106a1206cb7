// A dialog-like form as a native window.
#pragma once

#include <QWidget>

class QLabel;

namespace quillet {

class Control;
class Form;

/// Shows the controls of a loaded form at their places and sends clicks, texts and ticks back to
/// them, for as long as it is visible.
class FormWindow : public QWidget {
  public:
    explicit FormWindow(Form& form);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void buildFrame();
    void buildControls();
    void giveAccessKeys();
    static void fitLabel(QLabel& label);
    static int roomBeside(const QLabel& label);
    QWidget* makeWidget(Control& control);
    QWidget* makeLabel(const Control& control);
    QWidget* makeButton(Control& control);
    QWidget* makePicture(const Control& control);
    QWidget* makeDropDownList(Control& control);
    QWidget* makeTextBox(Control& control);
    void startTimer(Control& control);

    Form& form_;
};

} // namespace quillet
