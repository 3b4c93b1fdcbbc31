// Renders the drawings into the pictures that the program loads, at build time:
// RenderArtwork FOLDER png A.svg B.svg … tiff C.svg … icon D.svg
// writes NAME.TYPE and NAME@2x.TYPE into FOLDER, and for an icon hicolor/WxW/apps/NAME.png in the desktop's
// sizes; "ico" and "icns" write NAME.TYPE, the icon of a program on Windows and macOS.
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageWriter>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int iconSizes[] = {16, 22, 24, 32, 48, 64, 128, 256, 512};

QImage rendered(QSvgRenderer& drawing, QSize size) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    painter.end();
    return image.convertToFormat(QImage::Format_ARGB32);
}

bool write(const QString& path, const QImage& image) {
    QImageWriter writer(path);
    if (!QDir().mkpath(QFileInfo(path).path()) || !writer.write(image)) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(path), qPrintable(writer.errorString()));
        return false;
    }
    return true;
}

bool writeIcon(QSvgRenderer& drawing, const QString& folder, const QString& name) {
    return std::ranges::all_of(iconSizes, [&](int size) {
        const QString path = u"%1/hicolor/%2x%2/apps/%3.png"_s.arg(folder).arg(size).arg(name);
        return write(path, rendered(drawing, QSize(size, size)));
    });
}

// The largest size that Windows shows, and one that macOS makes its smaller ones of.
bool writeIconFile(QSvgRenderer& drawing, const QString& path, const QString& type) {
    const int size = type == "ico"_L1 ? 256 : 512;
    return write(path + u'.' + type, rendered(drawing, QSize(size, size)));
}

bool writeImage(QSvgRenderer& drawing, const QString& path, const QString& type) {
    const QSize size = drawing.defaultSize();
    return write(path + u'.' + type, rendered(drawing, size)) &&
           write(path + u"@2x."_s + type, rendered(drawing, 2 * size));
}

bool render(const QString& source, const QString& folder, const QString& type) {
    QSvgRenderer drawing(source);
    if (!drawing.isValid()) {
        std::fprintf(stderr, "%s: not a drawing\n", qPrintable(source));
        return false;
    }
    const QString name = QFileInfo(source).completeBaseName();
    if (type == "ico"_L1 || type == "icns"_L1) {
        return writeIconFile(drawing, folder + u'/' + name, type);
    }
    return type == "icon"_L1 ? writeIcon(drawing, folder, name)
                             : writeImage(drawing, folder + u'/' + name, type);
}

}  // namespace

int main(int argc, char** argv) {
    // No window is shown, so the build needs no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() < 3) {
        std::fprintf(stderr, "RenderArtwork FOLDER (png|tiff|icon|ico|icns) DRAWING…\n");
        return 2;
    }
    QString type;
    for (const QString& argument : arguments.sliced(2)) {
        if (!argument.endsWith(".svg"_L1)) {
            type = argument;
        } else if (!render(argument, arguments[1], type)) {
            return 1;
        }
    }
    return 0;
}
