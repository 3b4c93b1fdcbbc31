// The toolkit's alerts and choosers, answered by a hand that comes by as soon as they are open.
#include "platform/Dialogs.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace marquill;

namespace {

// Calls `answer` with the dialog once it is open.
template <class Dialog>
void whenOpen(std::function<void(Dialog&)> answer) {
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, answer = std::move(answer)] {
        if (auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget())) {
            timer->deleteLater();
            answer(*dialog);
        }
    });
    timer->start(1);
}

QStringList buttonTexts(const QMessageBox& box) {
    QStringList texts;
    for (const QAbstractButton* button : box.buttons()) {
        texts.append(button->text());
    }
    return texts;
}

}  // namespace

class DialogsTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void anAlertShowsItsTextsAsTheyAre() {
        QString title;
        QString text;
        QStringList buttons;
        whenOpen<QMessageBox>([&](QMessageBox& box) {
            title = box.text();
            text = box.informativeText();
            buttons = buttonTexts(box);
            box.defaultButton()->click();
        });
        const int pressed =
            Dialogs::current().alert(nullptr, {.title = u"Error <1> & more"_s, .text = u"a < b & c > d"_s});
        QCOMPARE(pressed, 0);
        QVERIFY(title.contains(u"Error &lt;1&gt; &amp; more"_s));
        QCOMPARE(text, u"a < b & c > d"_s);
        QCOMPARE(buttons, QStringList{u"OK"_s});
    }

    void anAlertTellsTheButtonThatWasPressed_data() {
        QTest::addColumn<int>("index");
        QTest::newRow("first") << 0;
        QTest::newRow("second") << 1;
        QTest::newRow("third") << 2;
    }
    void anAlertTellsTheButtonThatWasPressed() {
        QFETCH(const int, index);
        QString defaultButton;
        whenOpen<QMessageBox>([&](QMessageBox& box) {
            defaultButton = box.defaultButton()->text();
            for (QAbstractButton* button : box.buttons()) {
                if (button->text() == QStringList({u"Keep"_s, u"Cancel"_s, u"Delete"_s})[index]) {
                    button->click();
                    return;
                }
            }
        });
        QCOMPARE(Dialogs::current().alert(nullptr, {.title = u"Delete?"_s,
                                                    .text = u"Really?"_s,
                                                    .buttons = {u"Keep"_s, u"Cancel"_s, u"Delete"_s}}),
                 index);
        QCOMPARE(defaultButton, u"Keep"_s);
    }

    void escapePressesTheCancelButton() {
        whenOpen<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        QCOMPARE(Dialogs::current().alert(nullptr, {.title = u"Delete?"_s,
                                                    .text = u"Really?"_s,
                                                    .buttons = {u"Keep"_s, u"Delete"_s, u"Cancel"_s},
                                                    .cancelButton = 2}),
                 2);
    }

    void aChooserTakesSeveralFoldersAtOnce() {
        const QTemporaryDir place;
        QVERIFY(QDir(place.path()).mkdir(u"a"_s) && QDir(place.path()).mkdir(u"b"_s));
        QString start;
        bool several = true;
        whenOpen<QFileDialog>([&](QFileDialog& chooser) {
            start = chooser.directory().path();
            for (const QAbstractItemView* list :
                 chooser.findChildren<QAbstractItemView*>(QRegularExpression(u"^(listView|treeView)$"_s))) {
                several = several && list->selectionMode() == QAbstractItemView::ExtendedSelection;
            }
            chooser.reject();
        });
        const FileChoice choice{.title = u"Add Folder"_s, .startFolder = place.path(), .suffixes = {}};
        QVERIFY(Dialogs::current().chooseFolders(nullptr, choice).isEmpty());
        QCOMPARE(start, place.path());
        QVERIFY(several);
        whenOpen<QFileDialog>([&](QFileDialog& chooser) {
            chooser.selectFile(u"a"_s);
            static_cast<QDialog&>(chooser).done(QDialog::Accepted);
        });
        QCOMPARE(Dialogs::current().chooseFolders(nullptr, choice), QStringList{place.filePath(u"a"_s)});
    }

    void aChooserBeginsAtHomeRatherThanWhereTheProgramWasStarted() {
        const QTemporaryDir place;
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(place.path()));
        QStringList starts;
        for (const QString& start : {place.path(), QString()}) {
            whenOpen<QFileDialog>([&](QFileDialog& chooser) {
                starts.append(chooser.directory().path());
                chooser.reject();
            });
            Dialogs::current().chooseFolder(nullptr,
                                            {.title = u"Add"_s, .startFolder = start, .suffixes = {}});
        }
        QDir::setCurrent(before);
        QCOMPARE(starts, (QStringList{place.path(), QDir::homePath()}));
    }

    void oneFolderIsChosenUnderItsTitle() {
        const QTemporaryDir place;
        QVERIFY(QDir(place.path()).mkdir(u"card"_s));
        const FileChoice choice{
            .title = u"Choose root folder with P2 clips"_s, .startFolder = place.path(), .suffixes = {}};
        QString title;
        whenOpen<QFileDialog>([&](QFileDialog& chooser) {
            title = chooser.windowTitle();
            chooser.reject();
        });
        QCOMPARE(Dialogs::current().chooseFolder(nullptr, choice), std::nullopt);
        QCOMPARE(title, choice.title);
        whenOpen<QFileDialog>([&](QFileDialog& chooser) {
            chooser.selectFile(u"card"_s);
            static_cast<QDialog&>(chooser).done(QDialog::Accepted);
        });
        QCOMPARE(Dialogs::current().chooseFolder(nullptr, choice), std::optional(place.filePath(u"card"_s)));
    }

    void oneFileOfTheSuffixIsChosen() {
        const QTemporaryDir place;
        const QString path = place.filePath(u"take.mov"_s);
        QVERIFY(QFile(path).open(QIODevice::WriteOnly));
        const FileChoice choice{.title = {}, .startFolder = place.path(), .suffixes = {u"mov"_s}};
        QStringList filters;
        bool isSingle = false;
        whenOpen<QFileDialog>([&](QFileDialog& chooser) {
            filters = chooser.nameFilters();
            isSingle = chooser.fileMode() == QFileDialog::ExistingFile;
            chooser.selectFile(u"take.mov"_s);
            static_cast<QDialog&>(chooser).done(QDialog::Accepted);
        });
        QCOMPARE(Dialogs::current().chooseFile(nullptr, choice), std::optional(path));
        QCOMPARE(filters, QStringList(u"*.mov"_s));
        QVERIFY(isSingle);
    }

    void aSaveChooserBearsThePromptAndTheProposedName() {
        const QTemporaryDir place;
        QString prompt;
        QString proposed;
        whenOpen<QFileDialog>([&](QFileDialog& chooser) {
            prompt = chooser.labelText(QFileDialog::Accept);
            proposed = chooser.selectedFiles().value(0);
            static_cast<QDialog&>(chooser).done(QDialog::Accepted);
        });
        const FileChoice choice{.title = u"Export"_s,
                                .startFolder = place.path(),
                                .suffixes = {u"xml"_s},
                                .fileName = u"Day 3.xml"_s,
                                .prompt = u"Export"_s};
        QCOMPARE(Dialogs::current().chooseFileToSave(nullptr, choice), place.filePath(u"Day 3.xml"_s));
        QCOMPARE(prompt, u"Export"_s);
        QCOMPARE(proposed, place.filePath(u"Day 3.xml"_s));
        whenOpen<QFileDialog>([](QFileDialog& chooser) { chooser.reject(); });
        QVERIFY(!Dialogs::current().chooseFileToSave(nullptr, choice));
    }

    void aFileThatTheSuffixLeadsToIsNotTakenUnasked_data() {
        QTest::addColumn<bool>("replaces");
        QTest::newRow("replace") << true;
        QTest::newRow("keep") << false;
    }
    void aFileThatTheSuffixLeadsToIsNotTakenUnasked() {
        QFETCH(const bool, replaces);
        const QTemporaryDir place;
        QFile old(place.filePath(u"list.XML.xml"_s));
        QVERIFY(old.open(QIODevice::WriteOnly));
        QString question;
        whenOpen<QMessageBox>([&](QMessageBox& box) {
            question = box.text();
            if (!replaces) {
                whenOpen<QFileDialog>([](QFileDialog& chooser) { chooser.reject(); });
            }
            box.button(replaces ? QMessageBox::Yes : QMessageBox::No)->click();
        });
        whenOpen<QFileDialog>(
            [](QFileDialog& chooser) { static_cast<QDialog&>(chooser).done(QDialog::Accepted); });
        const FileChoice choice{.title = u"Export"_s,
                                .startFolder = place.path(),
                                .suffixes = {u"xml"_s},
                                .fileName = u"list.XML"_s};
        const std::optional<QString> chosen = Dialogs::current().chooseFileToSave(nullptr, choice);
        QVERIFY(question.contains(u"list.XML.xml already exists"_s));
        QCOMPARE(chosen.has_value(), replaces);
    }

    void installedDialogsAreUsedUntilTheyAreTakenAway() {
        Dialogs& toolkit = Dialogs::current();
        struct : Dialogs {
            int alert(QWidget*, const Alert&) override { return 7; }
            QStringList chooseFolders(QWidget*, const FileChoice&) override { return {}; }
            std::optional<QString> chooseFolder(QWidget*, const FileChoice&) override { return {}; }
            std::optional<QString> chooseFile(QWidget*, const FileChoice&) override { return {}; }
            QStringList chooseFiles(QWidget*, const FileChoice&) override { return {}; }
            std::optional<QString> chooseFileToSave(QWidget*, const FileChoice&) override { return {}; }
        } own;
        Dialogs::install(&own);
        QCOMPARE(&Dialogs::current(), &own);
        QCOMPARE(Dialogs::current().alert(nullptr, {}), 7);
        Dialogs::install(nullptr);
        QCOMPARE(&Dialogs::current(), &toolkit);
    }
};

QTEST_MAIN(DialogsTest)
#include "DialogsTest.moc"
