#include "platform/Images.h"

#include "platform/Log.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QImageReader>
#include <QPainter>
#include <QPalette>

namespace marquill {

namespace {

// Paints an outline drawing in the palette's colours, looked up on every painting, so that it follows the
// theme.
class SymbolEngine : public QIconEngine {
  public:
    explicit SymbolEngine(QIcon drawing) : _drawing(std::move(drawing)) {}

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return scaledPixmap(size, mode, state, 1);
    }

    // `size` is in device pixels.
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/, qreal scale) override {
        QPixmap pixmap = _drawing.pixmap(size / scale, scale);
        if (pixmap.isNull()) {
            return pixmap;
        }
        QPainter painter(&pixmap);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(pixmap.rect(), colour(mode));
        painter.end();
        pixmap.setDevicePixelRatio(scale);
        return pixmap;
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const qreal scale = painter->device()->devicePixelRatioF();
        painter->drawPixmap(rect, scaledPixmap(rect.size() * scale, mode, state, scale));
    }

    QIconEngine* clone() const override { return new SymbolEngine(*this); }
    bool isNull() override { return _drawing.isNull(); }

  private:
    static QColor colour(QIcon::Mode mode) {
        const QPalette palette = QGuiApplication::palette();
        switch (mode) {
            case QIcon::Disabled:
                return palette.color(QPalette::Disabled, QPalette::ButtonText);
            case QIcon::Selected:
                return palette.color(QPalette::HighlightedText);
            default:
                return palette.color(QPalette::ButtonText);
        }
    }

    QIcon _drawing;
};

}  // namespace

QPixmap imagePixmap(const QString& name, const QString& type, int scale) {
    const QString mark = scale > 1 ? u"@%1x"_s.arg(scale) : QString();
    QImageReader reader(u":/images/%1%2.%3"_s.arg(name, mark, type));
    const QImage image = reader.read();
    if (image.isNull()) {
        qCWarning(logPlatform) << "cannot load the image" << reader.fileName() << reader.errorString();
        return {};
    }
    QPixmap pixmap = QPixmap::fromImage(image);
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

QIcon image(const QString& name, const QString& type) {
    QIcon icon;
    for (const int scale : {1, 2}) {
        const QPixmap pixmap = imagePixmap(name, type, scale);
        if (pixmap.isNull()) {
            return {};
        }
        icon.addPixmap(pixmap);
        // As it is: the style would blend it with the selection's colour.
        icon.addPixmap(pixmap, QIcon::Selected);
    }
    return icon;
}

QIcon symbol(const QString& name) {
    const QIcon drawing = image(name);
    return drawing.isNull() ? QIcon() : QIcon(new SymbolEngine(drawing));
}

QIcon applicationIcon() {
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
        icon.addPixmap(imagePixmap(u"marquill-%1"_s.arg(size)));
    }
    return icon;
}

}  // namespace marquill
