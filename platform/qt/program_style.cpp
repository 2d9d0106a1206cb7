#include "platform/qt/program_style.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QProxyStyle>

namespace quillet {
namespace {

// An icon of a style, fetched whenever it is shown.
class LateIcon : public QIconEngine {
  public:
    LateIcon(const QStyle& style, QStyle::StandardPixmap picture)
        : style_(style),
          picture_(picture) {}

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return scaledPixmap(size, mode, state, 1);
    }

    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state,
                         qreal scale) override {
        return icon().pixmap(size / scale, scale, mode, state);
    }

    void paint(QPainter* painter, const QRect& area, QIcon::Mode mode,
               QIcon::State state) override {
        icon().paint(painter, area, Qt::AlignCenter, mode, state);
    }

    QIconEngine* clone() const override { return new LateIcon(*this); }

  private:
    QIcon icon() const { return style_.standardIcon(picture_); }

    const QStyle& style_;
    QStyle::StandardPixmap picture_;
};

class ProgramStyle : public QProxyStyle {
  public:
    using QProxyStyle::QProxyStyle;

    QIcon standardIcon(StandardPixmap picture, const QStyleOption* option,
                       const QWidget* widget) const override {
        if (picture == SP_ToolBarHorizontalExtensionButton)
            return QIcon(new LateIcon(*baseStyle(), picture));
        return QProxyStyle::standardIcon(picture, option, widget);
    }
};

} // namespace

void deferToolbarExtension() {
    QApplication::setStyle(new ProgramStyle(QApplication::style()));
}

} // namespace quillet
