#include "platform/qt/icons.h"

#include <QApplication>
#include <QIconEngine>
#include <QImage>
#include <QPainter>
#include <QResource>
#include <QStyle>
#include <QStyleOption>

#include <algorithm>
#include <span>
#include <utility>

namespace quillet {
namespace {

// The widths in pixels that the build draws the pictures in.
constexpr int toolbarWidths[] = {QUILLET_TOOLBAR_WIDTHS};
constexpr int productWidths[] = {QUILLET_PRODUCT_WIDTHS};
constexpr int splashWidths[] = {QUILLET_SPLASH_WIDTHS};

// A picture in several widths, of which only what is shown is read.
class Drawing {
  public:
    Drawing(std::string_view name, std::span<const int> widths)
        : start_(":/icons/" + QString::fromUtf8(name.data(), std::ssize(name)) + "-"),
          widths_(widths) {}

    std::span<const int> widths() const { return widths_; }

    bool exists() const { return pixels(widths_.front()).isValid(); }

    // Fitted to so many pixels from the smallest width that is large enough.
    QPixmap pixmap(QSize size) const {
        const auto enough = std::lower_bound(widths_.begin(), widths_.end(), size.width());
        const int width = enough == widths_.end() ? widths_.back() : *enough;
        const QByteArray bytes = pixels(width).uncompressedData();
        const auto height = static_cast<int>(bytes.size() / bytesPerPixel / width);
        const QImage image(reinterpret_cast<const uchar*>(bytes.data()), width, height,
                           QImage::Format_ARGB32_Premultiplied);
        return QPixmap::fromImage(
            image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).copy());
    }

  private:
    static constexpr int bytesPerPixel = 4;

    QResource pixels(int width) const {
        return QResource(start_ + QString::number(width) + ".pixels");
    }

    QString start_;
    std::span<const int> widths_;
};

class DrawingEngine : public QIconEngine {
  public:
    explicit DrawingEngine(Drawing drawing) : drawing_(std::move(drawing)) {}

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/) override {
        if (shown_.size() != size)
            shown_ = drawing_.pixmap(size);
        const QStyleOption option;
        return QApplication::style()->generatedIconPixmap(mode, shown_, &option);
    }

    void paint(QPainter* painter, const QRect& area, QIcon::Mode mode,
               QIcon::State state) override {
        painter->drawPixmap(area, pixmap(area.size(), mode, state));
    }

    // What a window manager gets, all at once when the program starts: nothing large.
    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        constexpr int enough = 64;
        QList<QSize> sizes;
        for (const int width : drawing_.widths())
            if (width <= enough)
                sizes.append({width, width});
        return sizes;
    }

    QIconEngine* clone() const override { return new DrawingEngine(*this); }

  private:
    Drawing drawing_;
    QPixmap shown_;
};

QIcon iconOf(const Drawing& drawing) {
    return drawing.exists() ? QIcon(new DrawingEngine(drawing)) : QIcon();
}

} // namespace

QIcon toolbarIcon(std::string_view key) {
    return iconOf({key, toolbarWidths});
}

QIcon productIcon() {
    return iconOf({"Product", productWidths});
}

QPixmap picture(std::string_view key, QSize size) {
    const Drawing drawing =
        key == "Splash" ? Drawing(key, splashWidths) : Drawing(key, productWidths);
    if (!drawing.exists())
        return {};
    const double ratio = qGuiApp->devicePixelRatio();
    QPixmap pixmap = drawing.pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

} // namespace quillet
