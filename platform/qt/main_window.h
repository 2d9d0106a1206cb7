// The native window of frmQuillet.
#pragma once

#include <QMainWindow>

class QToolBar;

namespace quillet {

class frmQuillet;

/// Menu bar, toolbar and box, made from the tables. The toolbar and the box stand in the client
/// area at the places that the form gives them.
class MainWindow : public QMainWindow {
  public:
    explicit MainWindow(frmQuillet& form);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void buildMenus();
    void buildToolbar();
    void placeToolbar();

    frmQuillet& form_;
    QToolBar* toolbar_;
};

} // namespace quillet
