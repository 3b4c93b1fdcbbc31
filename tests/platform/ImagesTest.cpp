#include "platform/Images.h"

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QRegularExpression>
#include <QTest>

using namespace marquill;

namespace {

QColor middleColour(const QImage& image) {
    return image.pixelColor(image.width() / 2, image.height() / 2);
}

// The share of the picture that is painted, from 0 to 1.
double coverage(const QImage& image) {
    double sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            sum += image.pixelColor(x, y).alphaF();
        }
    }
    return sum / (image.width() * image.height());
}

}  // namespace

class ImagesTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void everyImageIsThereInBothScales_data();
    void everyImageIsThereInBothScales();
    void statesDifferInShapeNotOnlyInColour_data();
    void statesDifferInShapeNotOnlyInColour();
    void iconTakesThePictureOfTheScreensScale();
    void selectedRowsShowThePictureAsItIs();
    void aMissingImageIsLoggedAndEmpty();
    void symbolsTakeTheThemesTextColour();
    void symbolsAreCrispAt200Percent();
    void applicationIconHasEverySize();
};

void ImagesTest::everyImageIsThereInBothScales_data() {
    QTest::addColumn<QString>("type");
    QTest::addColumn<QSize>("size");
    for (const char* name : {"NotConnected", "QT_Connected", "QT_NotFound", "Red_Connected", "Red_NotFound",
                             "P2_Connected", "P2_NotFound"}) {
        QTest::newRow(name) << u"png"_s << QSize(16, 16);
    }
    for (const char* name : {"Stars_1", "Stars_2", "Stars_3", "Stars_4", "Stars_5"}) {
        QTest::newRow(name) << u"png"_s << QSize(80, 16);
    }
    QTest::newRow("RecordingSymbol") << u"png"_s << QSize(14, 14);
    for (const char* name : {"record-0N", "record-1H"}) {
        QTest::newRow(name) << u"tiff"_s << QSize(64, 64);
    }
    for (const char* name : {"StopButton-Normal", "StopButton-Hilighted-Blue"}) {
        QTest::newRow(name) << u"tiff"_s << QSize(24, 24);
    }
    for (const char* name : {"AddFolder", "RemoveFolder", "DeleteClips"}) {
        QTest::newRow(name) << u"png"_s << QSize(24, 24);
    }
}

void ImagesTest::everyImageIsThereInBothScales() {
    QFETCH(const QString, type);
    QFETCH(const QSize, size);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    QVERIFY(QFile::exists(u":/images/%1.%2"_s.arg(name, type)));
    for (const int scale : {1, 2}) {
        const QPixmap pixmap = imagePixmap(name, type, scale);
        QCOMPARE(pixmap.size(), size * scale);
        QCOMPARE(pixmap.deviceIndependentSize(), QSizeF(size));
        QVERIFY2(coverage(pixmap.toImage()) > 0.03, "blank");
        QVERIFY2(coverage(pixmap.toImage()) < 0.97, "no transparent surroundings");
    }
    QCOMPARE(image(name, type).availableSizes().first(), size);
}

void ImagesTest::statesDifferInShapeNotOnlyInColour_data() {
    QTest::addColumn<QString>("other");
    QTest::addColumn<QString>("type");
    QTest::newRow("QT_Connected") << u"QT_NotFound"_s << u"png"_s;
    QTest::newRow("Red_Connected") << u"Red_NotFound"_s << u"png"_s;
    QTest::newRow("P2_Connected") << u"P2_NotFound"_s << u"png"_s;
    QTest::newRow("QT_NotFound") << u"NotConnected"_s << u"png"_s;
    QTest::newRow("record-0N") << u"record-1H"_s << u"tiff"_s;
    QTest::newRow("StopButton-Normal") << u"StopButton-Hilighted-Blue"_s << u"tiff"_s;
}

// The share of pixels whose brightness, as someone who sees no colours sees it on mid grey, differs clearly.
void ImagesTest::statesDifferInShapeNotOnlyInColour() {
    QFETCH(const QString, other);
    QFETCH(const QString, type);
    const auto inGrey = [&](const QString& name) {
        const QPixmap pixmap = imagePixmap(name, type);
        QImage canvas(pixmap.size(), QImage::Format_RGB32);
        canvas.fill(QColor(30, 32, 36));
        QPainter(&canvas).drawPixmap(0, 0, pixmap);
        return canvas;
    };
    const QImage one = inGrey(QString::fromLatin1(QTest::currentDataTag()));
    const QImage two = inGrey(other);
    int different = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            different += std::abs(qGray(one.pixel(x, y)) - qGray(two.pixel(x, y))) > 40 ? 1 : 0;
        }
    }
    QVERIFY2(different * 10 > one.width() * one.height(), qPrintable(QString::number(different)));
}

void ImagesTest::iconTakesThePictureOfTheScreensScale() {
    const QIcon icon = image(u"record-0N"_s, u"tiff"_s);
    QCOMPARE(icon.pixmap(QSize(64, 64), 1.0).size(), QSize(64, 64));
    const QPixmap fine = icon.pixmap(QSize(64, 64), 2.0);
    QCOMPARE(fine.size(), QSize(128, 128));
    QCOMPARE(fine.toImage().pixel(64, 12), imagePixmap(u"record-0N"_s, u"tiff"_s, 2).toImage().pixel(64, 12));
}

void ImagesTest::selectedRowsShowThePictureAsItIs() {
    const QIcon icon = image(u"QT_Connected"_s);
    for (const qreal scale : {1.0, 2.0}) {
        const QImage normal = icon.pixmap(QSize(16, 16), scale).toImage();
        QCOMPARE(icon.pixmap(QSize(16, 16), scale, QIcon::Selected).toImage(), normal);
    }
}

void ImagesTest::aMissingImageIsLoggedAndEmpty() {
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"cannot load the image .*NoSuchImage\\.png"_s));
    QVERIFY(image(u"NoSuchImage"_s).isNull());
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"cannot load the image"_s));
    QVERIFY(symbol(u"NoSuchImage"_s).isNull());
    // Right name, wrong type.
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"cannot load the image"_s));
    QVERIFY(imagePixmap(u"record-0N"_s).isNull());
}

void ImagesTest::symbolsTakeTheThemesTextColour() {
    const QPalette before = QApplication::palette();
    const QIcon icon = symbol(u"RemoveFolder"_s);
    for (const QColor colour : {QColor(240, 10, 20), QColor(10, 20, 240)}) {
        QPalette palette = before;
        palette.setColor(QPalette::ButtonText, colour);
        QApplication::setPalette(palette);
        // The minus of the drawing runs through (18, 17.5).
        const QColor painted = icon.pixmap(QSize(24, 24), 1.0).toImage().pixelColor(18, 17);
        QCOMPARE(QColor(painted.rgb()), colour);
    }
    QApplication::setPalette(before);
}

void ImagesTest::symbolsAreCrispAt200Percent() {
    const QPixmap fine = symbol(u"AddFolder"_s).pixmap(QSize(24, 24), 2.0);
    QCOMPARE(fine.size(), QSize(48, 48));
    QCOMPARE(fine.devicePixelRatio(), 2.0);
    const QImage drawn = imagePixmap(u"AddFolder"_s, u"png"_s, 2).toImage();
    QVERIFY(std::abs(coverage(fine.toImage()) - coverage(drawn)) < 0.01);
}

void ImagesTest::applicationIconHasEverySize() {
    const QIcon icon = applicationIcon();
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
        const QPixmap pixmap = icon.pixmap(QSize(size, size), 1.0);
        QCOMPARE(pixmap.size(), QSize(size, size));
        QVERIFY(middleColour(pixmap.toImage()).alpha() > 200);
    }
}

QTEST_MAIN(ImagesTest)
#include "ImagesTest.moc"
