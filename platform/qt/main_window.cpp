#include "platform/qt/main_window.h"

#include "platform/qt/edit_view.h"
#include "platform/qt/entry.h"
#include "platform/qt/icons.h"
#include "platform/qt/qt_services.h"
#include "window/frm_quillet.h"
#include "window/menu_table.h"
#include "window/toolbar_table.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QScreen>
#include <QToolBar>

#include <algorithm>
#include <string_view>
#include <vector>

namespace quillet {
namespace {

constexpr int toolbarIconSize = 24;

// Headings have entries a level deeper behind them.
bool isHeading(const MenuRow& row, const MenuRow* next) {
    return next != nullptr && next->level > row.level;
}

} // namespace

MainWindow::MainWindow(frmQuillet& form) : form_(form) {
    auto* client = new QWidget(this);
    setCentralWidget(client);
    setWindowIcon(productIcon());
    // Until it fills the screen, and when it no longer does. In a narrower window the toolbar would
    // be laid out again for every button that gets room.
    resize(screen()->availableSize() * 3 / 4);
    toolbar_ = new QToolBar(client);
    buildMenus();
    buildToolbar();
    auto* view = new EditView(form, client);
    view->setFocus();
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    placeToolbar();
    enter([this] { form_.resized(); });
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->ignore(); // the form decides, and has its window taken away
    enter([this] { form_.close(); });
}

void MainWindow::buildMenus() {
    const auto rows = menuTable();
    std::vector<QMenu*> open; // the menu at every level
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const MenuRow& row = rows[i];
        const MenuRow* next = i + 1 < rows.size() ? &rows[i + 1] : nullptr;
        open.resize(static_cast<std::size_t>(row.level));
        if (isHeading(row, next)) {
            open.push_back(open.empty() ? menuBar()->addMenu(row.caption)
                                        : open.back()->addMenu(row.caption));
            continue;
        }
        if (std::string_view(row.caption) == "-") {
            open.back()->addSeparator();
            continue;
        }
        QAction* action = open.back()->addAction(row.caption);
        action->setObjectName(row.name);
        if (row.shortcut != 0)
            action->setShortcut(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(row.shortcut)));
        if (row.command != nullptr)
            connect(action, &QAction::triggered, this,
                    [this, &row] { enter([&] { (form_.*row.command)(); }); });
    }
}

void MainWindow::buildToolbar() {
    toolbar_->setObjectName("Toolbar1");
    toolbar_->setIconSize(QSize(toolbarIconSize, toolbarIconSize));
    toolbar_->setMovable(false);
    for (const ToolbarButton& button : toolbarButtons()) {
        if (button.isSeparator()) {
            toolbar_->addSeparator();
            continue;
        }
        QAction* action = toolbar_->addAction(toolbarIcon(button.image), button.tooltip);
        action->setObjectName(button.key);
        connect(action, &QAction::triggered, this,
                [this, &button] { enter([&] { form_.Toolbar1_ButtonClick(button.key); }); });
    }
}

// Along the top edge, and no higher than the room that the form leaves above the box.
void MainWindow::placeToolbar() {
    const int room = QtScreen::pixels(form_.txtMain.Top());
    toolbar_->setGeometry(0, 0, centralWidget()->width(),
                          std::min(toolbar_->sizeHint().height(), room));
}

} // namespace quillet
