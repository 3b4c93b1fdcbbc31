// Every window as it looked when somebody last chose so: a change of looks fails here until it is accepted by
// MARQUILL_ACCEPT_LOOKS=1, which stores the new pictures in tests/application/looks.
#include "application/Application.h"
#include "application/EveryWindow.h"
#include "application/PictureComparison.h"
#include "clipstore/ClipStore.h"
#include "connect/ClipTableController.h"
#include "folders/RecordFolderController.h"
#include "platform/FakeDialogs.h"
#include "platform/Theme.h"
#include "platform/UserDefaults.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QLockFile>
#include <QPainter>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

using namespace marquill;

namespace {

// Windows show paths: these are the same at every run, and so one run at a time has them.
const QString shownFolder = u"/tmp/marquill-looks"_s;
const QString recordFolder = shownFolder + u"/Salt Line Day 3"_s;

Application& application() {
    return *static_cast<Application*>(QCoreApplication::instance());
}

QString folderOfPictures() {
    return qEnvironmentVariable("MARQUILL_SOURCE_DIR") + u"/tests/application/looks"_s;
}

bool isAccepted() {
    return qEnvironmentVariableIsSet("MARQUILL_ACCEPT_LOOKS");
}

ClipInfo clip(const QString& name, int minute, int seconds, const QString& scene, int rating) {
    ClipInfo info;
    const Date start =
        Date(std::chrono::seconds(1'726'567'200 + 60 * minute));  // 17 September 2024, 10:00 UTC
    info.setClipName(name);
    info.setClipCreationDate(start);
    info.setClipRecordingStartTime(start);
    info.setClipDuration(seconds);
    info.setClipScene(scene);
    info.setClipRating(rating);
    info.setClipMarkerArray(Array{Dictionary{{u"clipMarkerTitle"_s, u"Action"_s}, {u"clipMarkerIn"_s, 4.0}},
                                  Dictionary{{u"clipMarkerTitle"_s, u"Cut"_s}, {u"clipMarkerIn"_s, 31.5}}});
    return info;
}

bool makeRecordFolder() {
    QDir(shownFolder).removeRecursively();
    bool isMade = QDir().mkpath(recordFolder);
    for (const ClipInfo& info :
         {clip(u"Shot#01.xml"_s, 0, 42, u"12"_s, 3), clip(u"Shot#02.xml"_s, 4, 75, u"12"_s, 5),
          clip(u"Ferry#01.xml"_s, 31, 260, u"14A"_s, 0)}) {
        isMade = isMade && ClipStore::createProxyClip(info, recordFolder);
    }
    return isMade;
}

// What differs between machines or moments is painted over: the caret, and what is told of the volume.
QImage pictureOf(QWidget& window) {
    if (QWidget* focus = window.focusWidget()) {
        focus->clearFocus();
    }
    QImage picture = window.grab().toImage();
    QPainter painter(&picture);
    for (const char* name : {"_spaceWarning", "_cacheFolder"}) {
        if (const auto* widget = window.findChild<QWidget*>(QLatin1StringView(name));
            widget && widget->isVisible()) {
            painter.fillRect(QRect(widget->mapTo(&window, QPoint()), widget->size()), Qt::magenta);
        }
    }
    return picture;
}

// The picture of a window that has come to rest: as it was chosen, or after a second as it is by then.
QImage pictureAtRest(QWidget& window, const QImage& chosen) {
    constexpr int mostTries = 20;
    QImage picture = pictureOf(window);
    for (int tries = 0; tries < mostTries && pictureDifference(chosen, picture).isVisible(); ++tries) {
        QTest::qWait(50);  // for what is laid out when the window is on show
        picture = pictureOf(window);
    }
    return picture;
}

}  // namespace

class LooksTest : public QObject {
    Q_OBJECT

    QLockFile _folderLock{shownFolder + u".lock"_s};
    std::unique_ptr<FakeDialogs> _dialogs;
    std::unique_ptr<EveryWindow> _windows;

    static void compare(QWidget& window, const QString& name) {
        const QString path = joinPath(folderOfPictures(), name + u".png"_s);
        const QImage stored(path);
        const QImage picture = pictureAtRest(window, stored);
        const PictureDifference difference = pictureDifference(stored, picture);
        if (!difference.isVisible()) {
            return;
        }
        if (isAccepted()) {
            QVERIFY(QDir().mkpath(folderOfPictures()));
            QVERIFY(picture.save(path, "PNG", 0));
            return;
        }
        const QString shown = QDir::current().filePath(u"looks/"_s + name);
        QVERIFY(QDir::current().mkpath(u"looks"_s));
        picture.save(shown + u"-now.png"_s);
        difference.cellsShown.save(shown + u"-difference.png"_s);
        QFAIL(qPrintable(
            (difference.isOfOtherSize
                 ? u"%1 is %2 × %3 pixels large, and was %4 × %5."_s.arg(name)
                       .arg(picture.width())
                       .arg(picture.height())
                       .arg(stored.width())
                       .arg(stored.height())
                 : u"%1 looks different in %2 places of 4 × 4 pixels."_s.arg(name).arg(difference.cells)) +
            u" See %1-now.png and -difference.png; if it is meant, accept it with MARQUILL_ACCEPT_LOOKS=1."_s
                .arg(shown)));
    }

  private Q_SLOTS:
    void initTestCase() { QVERIFY(_folderLock.tryLock(600'000)); }
    void init() {
        _dialogs = std::make_unique<FakeDialogs>();
        QVERIFY(makeRecordFolder());
        UserDefaults::useFile(joinPath(shownFolder, u"settings.plist"_s));
        // File systems list in orders of their own.
        UserDefaults::standard().setValue(u"kClipTable"_s, Dictionary{{u"kSortColumn"_s, u"creationdate"_s}});
        application().finishLaunching();
        _windows = std::make_unique<EveryWindow>(recordFolder);
        ClipManager& manager = *ClipManager::getClipManager();
        const FolderRecord folder = FolderRecord::forPath(recordFolder);
        manager.folderList().setFolderArray({folder});
        manager.folderList().setRecordingFolder(folder);
        manager.folderList().selectFolder(recordFolder);
        QTRY_VERIFY(!manager.isReading());
        manager.clipTable().selectClips({manager.clipTable().clipArray().front()});
    }

    void cleanup() {
        _windows.reset();
        QVERIFY(application().shouldTerminate() == Application::TerminateReply::now);
        _dialogs.reset();
        QDir(shownFolder).removeRecursively();
    }

    void windowLooksAsItWasChosen_data() {
        QTest::addColumn<QString>("window");
        QTest::addColumn<Theme::Choice>("theme");
        for (const char* window : EveryWindow::names) {
            const QString name = QString::fromLatin1(window);
            QTest::addRow("%s, dark", window) << name << Theme::Choice::dark;
            QTest::addRow("%s, light", window) << name << Theme::Choice::light;
        }
    }
    void windowLooksAsItWasChosen() {
        QFETCH(const QString, window);
        QFETCH(const Theme::Choice, theme);
        Theme::apply(application(), theme);
        QWidget* widget = _windows->open(window);
        QVERIFY(widget);
        if (qobject_cast<QMainWindow*>(widget)) {
            widget->resize(1280, 800);
            QTRY_COMPARE(widget->findChild<QLabel*>(u"_clipAttributes"_s)->text().trimmed(),
                         u"Clip not connected"_s);
        }
        QString name = window.toLower().replace(u' ', u'-') + (Theme::isDark() ? u"-dark"_s : u"-light"_s);
        if (widget->devicePixelRatio() > 1) {
            name += u"-200"_s;
        }
        compare(*widget, name);
    }

    // What the comparison takes for a change of looks, and what not.
    void movedControlsAndOtherColoursAreSeen() {
        QWidget window;
        window.resize(300, 200);
        QPushButton button(u"Start"_s, &window);
        button.setGeometry(40, 40, 90, 30);
        const QImage before = window.grab().toImage();
        QVERIFY(!pictureDifference(before, window.grab().toImage()).isVisible());
        QImage touched = before;
        touched.setDevicePixelRatio(1);
        QPainter(&touched).fillRect(200, 150, 1, 16, Qt::black);
        QVERIFY(!pictureDifference(before, touched).isVisible());
        button.move(46, 40);
        QVERIFY(pictureDifference(before, window.grab().toImage()).isVisible());
        button.move(40, 40);
        button.setText(u"Stop it"_s);
        QVERIFY(pictureDifference(before, window.grab().toImage()).isVisible());
        button.setText(u"Start"_s);
        button.setStyleSheet(u"background: #803020"_s);
        QVERIFY(pictureDifference(before, window.grab().toImage()).isVisible());
        button.setStyleSheet({});
        window.resize(301, 200);
        QVERIFY(pictureDifference(before, window.grab().toImage()).isOfOtherSize);
    }
};

int main(int argc, char** argv) {
    const QTemporaryDir folder;
    Options options;
    options.settingsFile = joinPath(folder.path(), u"settings.plist"_s);
    Application application(argc, argv, options);
    LooksTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "LooksTest.moc"
