// Window frames: measured from the bottom edge, kept in the user defaults, and never out of reach.
#include "platform/Literals.h"
#include "platform/UserDefaults.h"
#include "platform/WindowFrame.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

using namespace marquill;

namespace {

const QString name = u"kTestWindowFrame"_s;

int screenHeight() {
    return QGuiApplication::primaryScreen()->geometry().height();
}

}  // namespace

class WindowFrameTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _folder;

    static bool restoresText(QWidget& window, const Value& saved) {
        UserDefaults::standard().setValue(name, saved);
        return restoreWindowFrame(window, name);
    }

  private Q_SLOTS:
    void init() {
        _folder = std::make_unique<QTemporaryDir>();
        UserDefaults::useFile(_folder->filePath(u"settings.plist"_s));
    }

    void yIsTheBottomEdgeFromTheBottomOfTheScreen() {
        QWidget window;
        window.setGeometry(100, 50, 300, 200);
        QCOMPARE(windowFrame(window), (WindowFrame{100, double(screenHeight() - 250), 300, 200}));
    }

    void whatIsDrawnAroundAWindowDoesNotCount() {
        QWidget window;
        window.setGeometry(100, 50, 300, 200);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(window.frameGeometry() != window.geometry());
        const QRect contents = window.geometry();
        const WindowFrame frame = windowFrame(window);
        QCOMPARE(frame.x, double(contents.x()));
        QCOMPARE(frame.y, double(screenHeight() - contents.bottom() - 1));
        window.move(0, 0);
        setWindowFrame(window, frame);
        QCOMPARE(window.geometry(), contents);
    }

    void aFramePutsTheWindowWhereItWas() {
        QWidget window;
        setWindowFrame(window, {.x = 40, .y = 100, .width = 320, .height = 240});
        QCOMPARE(window.geometry(), QRect(40, screenHeight() - 100 - 240, 320, 240));
    }

    void growingKeepsTheBottomEdge() {
        QWidget window;
        setWindowFrame(window, {.x = 40, .y = 100, .width = 320, .height = 240});
        setWindowFrame(window, {.x = 40, .y = 100, .width = 320, .height = 300});
        QCOMPARE(window.geometry().bottom() + 1, screenHeight() - 100);
    }

    void aFrameSurvivesSavingAndRestoring() {
        QWidget window;
        window.setGeometry(17, 23, 311, 203);
        saveWindowFrame(window, name);
        QCOMPARE(UserDefaults::standard().value(name)->string(),
                 u"17 %1 311 203"_s.arg(screenHeight() - 226));
        QWidget other;
        QVERIFY(restoreWindowFrame(other, name));
        QCOMPARE(other.geometry(), window.geometry());
    }

    void aFrameOnNoScreenComesOntoThePrimaryOneWithItsSize_data() {
        QTest::addColumn<WindowFrame>("frame");
        QTest::newRow("right") << WindowFrame{5000, 100, 300, 200};
        QTest::newRow("left") << WindowFrame{-5000, 100, 300, 200};
        QTest::newRow("above") << WindowFrame{100, 5000, 300, 200};
        QTest::newRow("below") << WindowFrame{100, -5000, 300, 200};
        // The title bar is what a hand gets hold of: seeing the bottom alone is of no use.
        QTest::newRow("only its bottom is seen") << WindowFrame{100, double(screenHeight() - 20), 300, 200};
        QTest::newRow("only a sliver is seen") << WindowFrame{-290, 100, 300, 200};
    }
    void aFrameOnNoScreenComesOntoThePrimaryOneWithItsSize() {
        QFETCH(const WindowFrame, frame);
        QWidget window;
        setWindowFrame(window, frame);
        QCOMPARE(window.pos(), QGuiApplication::primaryScreen()->availableGeometry().topLeft());
        QCOMPARE(window.size(), QSize(300, 200));
    }

    void aFramePartlyOffTheScreenStays() {
        QWidget window;
        setWindowFrame(window, {.x = -200, .y = -100, .width = 300, .height = 200});
        QCOMPARE(window.x(), -200);
        QCOMPARE(window.y(), screenHeight() - 100);
    }

    void aWindowsOwnLimitsHold() {
        QWidget window;
        window.setMaximumSize(284, 340);
        setWindowFrame(window, {.x = 10, .y = 10, .width = 900, .height = 900});
        QCOMPARE(window.geometry(), QRect(10, screenHeight() - 10 - 340, 284, 340));
    }

    void whatIsNoFrameMovesNothing_data() {
        QTest::addColumn<Value>("saved");
        QTest::newRow("nothing") << Value();
        QTest::newRow("a number") << Value(12);
        QTest::newRow("an empty text") << Value(u""_s);
        QTest::newRow("three numbers") << Value(u"1 2 3"_s);
        QTest::newRow("words") << Value(u"a b c d"_s);
        QTest::newRow("no size") << Value(u"10 10 0 0"_s);
        QTest::newRow("negative") << Value(u"10 10 -5 20"_s);
        QTest::newRow("infinite") << Value(u"10 inf 20 20"_s);
        QTest::newRow("not a number") << Value(u"nan 10 20 20"_s);
        QTest::newRow("beyond every screen") << Value(u"1e300 10 20 20"_s);
        QTest::newRow("larger than every screen") << Value(u"10 10 1e12 1e12"_s);
    }
    void whatIsNoFrameMovesNothing() {
        QFETCH(const Value, saved);
        QWidget window;
        window.setGeometry(17, 23, 311, 203);
        QVERIFY(!restoresText(window, saved));
        QCOMPARE(window.geometry(), QRect(17, 23, 311, 203));
    }
};

QTEST_MAIN(WindowFrameTest)
#include "WindowFrameTest.moc"
