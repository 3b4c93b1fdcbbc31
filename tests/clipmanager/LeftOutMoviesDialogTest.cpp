// The window of the movies that are in no list.
#include "clipmanager/LeftOutMoviesDialog.h"
#include "clipstore/ClipFolder.h"
#include "clipstore/ClipStore.h"
#include "movie/MovieBuilder.h"
#include "platform/EmptyHint.h"
#include "platform/FakeDialogs.h"
#include "platform/TableView.h"
#include "platform/WindowDescription.h"

#include <QAbstractButton>
#include <QAbstractItemModelTester>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace marquill;

namespace {

QByteArray bareMovie() {
    return MovieBuilder{.userData = std::nullopt}.headerLast();
}

// The window over a folder, and what it asked of its owner.
class Window {
  public:
    explicit Window(const QString& folder) : dialog(LeftOutMoviesDialog::create(folder, nullptr).value()) {
        dialog->listMovies = [this](const QStringList& paths) { listed += paths; };
        dialog->importMovies = [this, folder](const QStringList& paths) {
            imported += paths;
            return MovieImport::importMovies(paths, folder);
        };
        dialog->window()->show();
    }

    template <class Widget>
    Widget* find(const QString& name) const {
        return dialog->window()->findChild<Widget*>(name);
    }
    TableView* table() const { return find<TableView>(u"_movieTable"_s); }
    QPushButton* button(const QString& name) const { return find<QPushButton>(name); }
    bool isAtRest() const {
        return QTest::qWaitFor([this] { return !dialog->isBusy(); }, 60'000);
    }
    QStringList column(int column) const {
        QStringList texts;
        for (int row = 0; row < table()->model()->rowCount(); ++row) {
            texts.append(table()->model()->index(row, column).data().toString());
        }
        return texts;
    }
    void select(const QString& name) const {
        const auto found = table()->model()->match(table()->model()->index(0, 0), Qt::DisplayRole, name, 1,
                                                   Qt::MatchExactly);
        QCOMPARE(found.size(), 1);
        table()->selectRow(found.front().row());
    }
    QString hint() const {
        const auto* hint = table()->viewport()->findChild<EmptyHint*>();
        return hint->isVisibleTo(table()->viewport()) ? hint->text() : QString();
    }

    std::unique_ptr<LeftOutMoviesDialog> dialog;
    QStringList listed;
    QStringList imported;
};

}  // namespace

class LeftOutMoviesDialogTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void cleanup() { WindowDescription::useFolder(u":/windows"_s); }

    void moviesAreShownWithTheirReasons() {
        const ClipFolder folder;
        folder.make(u"bare.mov"_s, bareMovie());
        folder.make(u"broken.mov"_s, "no movie at all");
        folder.make(u"clip.mov"_s, MovieBuilder{}.headerLast());
        const Window window(folder.path());
        const QAbstractItemModelTester tester(window.table()->model());
        QVERIFY(window.isAtRest());
        QStringList names = window.column(0);
        names.sort();
        QCOMPARE(names, (QStringList{u"bare.mov"_s, u"broken.mov"_s}));
        const int broken = static_cast<int>(window.column(0).indexOf(u"broken.mov"_s));
        QVERIFY(window.column(1).at(broken).startsWith(u"It cannot be opened: "_s));
        QCOMPARE(window.find<QLabel>(u"_movieCount"_s)->text(), u"2 movies"_s);
        QVERIFY(!window.find<QProgressBar>(u"_progressInd"_s)->isVisible());
        QCOMPARE(window.hint(), QString());
    }

    void anEmptyListSaysWhy() {
        const ClipFolder folder;
        folder.make(u"clip.mov"_s, MovieBuilder{}.headerLast());
        const Window window(folder.path());
        QCOMPARE(window.hint(), u"Reading movies…"_s);
        QVERIFY(window.isAtRest());
        QCOMPARE(window.hint(), u"No movie of this folder is left out"_s);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"/nowhere"_s));
        const Window offline(u"/nowhere"_s);
        QVERIFY(offline.isAtRest());
        QCOMPARE(offline.hint(), u"This folder does not exist or is offline"_s);
    }

    void buttonsOfferWhatTheSelectedMovieAllows_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("canList");
        QTest::addColumn<bool>("canImport");
        QTest::newRow("nothing") << QString() << false << false;
        QTest::newRow("no user data") << u"bare.mov"_s << true << true;
        QTest::newRow("no movie") << u"broken.mov"_s << false << false;
        QTest::newRow("cut record") << u"cut.mov"_s << false << true;
    }
    void buttonsOfferWhatTheSelectedMovieAllows() {
        QFETCH(const QString, name);
        const ClipFolder folder;
        folder.make(u"bare.mov"_s, bareMovie());
        folder.make(u"broken.mov"_s, "no movie at all");
        folder.make(u"cut.mov"_s, MovieBuilder{.userData = atom("KVXN", "<plist>")}.headerLast());
        const Window window(folder.path());
        QVERIFY(window.isAtRest());
        if (!name.isEmpty()) {
            window.select(name);
        }
        QTEST(window.button(u"_listButton"_s)->isEnabled(), "canList");
        QTEST(window.button(u"_importButton"_s)->isEnabled(), "canImport");
        QVERIFY(window.button(u"_closeButton"_s)->isEnabled());
    }

    void listMakesClipsOfTheSelectedMovies() {
        const ClipFolder folder;
        folder.make(u"a.mov"_s, bareMovie());
        folder.make(u"b.mov"_s, bareMovie());
        folder.make(u"broken.mov"_s, "no movie at all");
        FakeDialogs dialogs;
        Window window(folder.path());
        const QAbstractItemModelTester tester(window.table()->model());
        QVERIFY(window.isAtRest());
        window.table()->selectAll();
        window.button(u"_listButton"_s)->click();
        QVERIFY(!window.button(u"_listButton"_s)->isEnabled());
        QVERIFY(window.isAtRest());
        window.listed.sort();
        QCOMPARE(window.listed, (QStringList{folder.path(u"a.mov"_s), folder.path(u"b.mov"_s)}));
        QVERIFY(ClipStore::infoForClip(folder.path(u"a.mov"_s)));
        QVERIFY(ClipStore::infoForClip(folder.path(u"b.mov"_s)));
        QCOMPARE(window.column(0), QStringList{u"broken.mov"_s});
        QCOMPARE(window.find<QLabel>(u"_movieCount"_s)->text(), u"1 movie"_s);
        QVERIFY(dialogs.alerts.isEmpty());
    }

    void aMovieThatCannotBeListedIsNamed() {
        const ClipFolder folder;
        folder.make(u"a.mov"_s, bareMovie());
        FakeDialogs dialogs;
        const Window window(folder.path());
        QVERIFY(window.isAtRest());
        window.select(u"a.mov"_s);
        folder.make(u"a.mov"_s, bareMovie() + "abc");
        window.button(u"_listButton"_s)->click();
        QVERIFY(window.isAtRest());
        QCOMPARE(dialogs.alerts.size(), 1);
        QCOMPARE(dialogs.alerts[0].title, u"Could not list one or more Movies"_s);
        QVERIFY(dialogs.alerts[0].text.startsWith(folder.path(u"a.mov"_s) + u": "_s));
        QVERIFY(window.listed.isEmpty());
        QCOMPARE(window.column(0), QStringList{u"a.mov"_s});
        QVERIFY(window.button(u"_listButton"_s)->isEnabled());
    }

    void importHandsTheMoviesToTheOwner() {
        const ClipFolder folder;
        folder.make(u"a.mov"_s, bareMovie());
        FakeDialogs dialogs;
        const Window window(folder.path());
        QVERIFY(window.isAtRest());
        window.select(u"a.mov"_s);
        window.button(u"_importButton"_s)->click();
        QCOMPARE(window.imported, QStringList{folder.path(u"a.mov"_s)});
        QVERIFY(folder.names().contains(u"a.xml"_s));
        QVERIFY(window.column(0).isEmpty());
        QVERIFY(dialogs.alerts.isEmpty());
    }

    void importsThatFailAreNamedFiveAtMost() {
        const ClipFolder folder;
        for (int number = 1; number <= 7; ++number) {
            folder.make(u"a%1.mov"_s.arg(number), bareMovie());
            folder.makePlaceholder(u"a%1.xml"_s.arg(number), "");
        }
        FakeDialogs dialogs;
        const Window window(folder.path());
        QVERIFY(window.isAtRest());
        window.table()->selectAll();
        window.button(u"_importButton"_s)->click();
        QCOMPARE(dialogs.alerts.size(), 1);
        QCOMPARE(dialogs.alerts[0].title, u"Could not load one or more Clips"_s);
        QCOMPARE(dialogs.alerts[0].text.count(folder.path()), 5);
        QVERIFY(dialogs.alerts[0].text.endsWith(u"And 2 more."_s));
        QCOMPARE(window.column(0).size(), 7);
    }

    void closingStopsTheReading() {
        const ClipFolder folder;
        folder.make(u"a.mov"_s, bareMovie());
        const Window window(folder.path());
        window.button(u"_closeButton"_s)->click();
        QVERIFY(!window.dialog->isBusy());
        QVERIFY(!window.dialog->window()->isVisible());
    }

    void itRunsUntilItIsClosed() {
        const ClipFolder folder;
        const Window window(folder.path());
        window.dialog->window()->hide();
        QTimer::singleShot(0, window.dialog->window(), [&] { window.button(u"_closeButton"_s)->click(); });
        window.dialog->run();
        QVERIFY(!window.dialog->window()->isVisible());
    }

    void everyControlHasANameForAScreenReader() {
        const ClipFolder folder;
        const Window window(folder.path());
        QVERIFY(window.isAtRest());
        QVERIFY(!window.table()->accessibleName().isEmpty());
        for (const QAbstractButton* button : window.dialog->window()->findChildren<QPushButton*>()) {
            QVERIFY(!button->accessibleName().isEmpty());
        }
        QVERIFY(!window.find<QProgressBar>(u"_progressInd"_s)->accessibleName().isEmpty());
    }

    void aMissingDescriptionIsAnError() {
        WindowDescription::useFolder(u"/nowhere"_s);
        QCOMPARE(LeftOutMoviesDialog::create(u"/nowhere"_s, nullptr).error().code, ErrorCode::notFound);
    }
};

QTEST_MAIN(LeftOutMoviesDialogTest)
#include "LeftOutMoviesDialogTest.moc"
