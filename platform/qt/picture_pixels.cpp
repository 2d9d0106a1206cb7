// Writes beside every NAME.png its bare pixels: NAME.pixels.
#include <QFile>
#include <QImage>

namespace {

bool write(const QString& name, const QImage& image) {
    QFile file(name);
    const auto* pixels = reinterpret_cast<const char*>(image.constBits());
    return !image.isNull() && file.open(QFile::WriteOnly) &&
           file.write(pixels, image.sizeInBytes()) == image.sizeInBytes() && file.flush();
}

} // namespace

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const QString name = QFile::decodeName(argv[i]);
        const QImage image(name);
        if (!write(name.chopped(3) + "pixels",
                   image.convertToFormat(QImage::Format_ARGB32_Premultiplied)))
            return 1;
    }
}
