// A dialog-like form as a native window.
#pragma once

#include <QWidget>

namespace quillet {

class Control;
class Form;

/// Shows the controls of a loaded form at their places and sends clicks back to them.
class FormWindow : public QWidget {
  public:
    explicit FormWindow(Form& form);

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    QWidget* makeWidget(Control& control);
    QWidget* makeLabel(const Control& control);
    QWidget* makeButton(Control& control);
    QWidget* makePicture(const Control& control);
    QWidget* makeDropDownList(Control& control);

    Form& form_;
};

} // namespace quillet
