// The dialog "Recover Takes": what it lists, recovers and discards.
#include "platform/FakeDialogs.h"
#include "platform/Files.h"
#include "platform/PropertyListReader.h"
#include "recording/RecoverTakesDialog.h"
#include "recording/TakeJournalFormat.h"

#include <QDialog>
#include <QDir>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

using namespace marquill;

namespace {

// 2026-11-21 09:00:00 UTC.
const Date start{std::chrono::duration<double>(1795251600.0)};

}  // namespace

class RecoverTakesDialogTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _root;
    std::unique_ptr<FakeDialogs> _dialogs;
    std::unique_ptr<RecoverTakesDialog> _dialog;
    QStringList _recovered;
    int _changes = 0;

    QString journals() const { return joinPath(_root->path(), u"takes"_s); }
    QString chosen() const { return joinPath(_root->path(), u"Rescued"_s); }
    QStringList journalNames() const { return QDir(journals()).entryList(QDir::Files, QDir::Name); }
    QStringList clipNames() const { return QDir(chosen()).entryList(QDir::Files, QDir::Name); }

    template <class Widget>
    Widget* field(const QString& name) const {
        return _dialog->window()->findChild<Widget*>(name);
    }
    QTreeWidget& list() const { return *field<QTreeWidget>(u"_takeList"_s); }
    void press(const QString& button) const { QTest::mouseClick(field<QPushButton>(button), Qt::LeftButton); }

    void leave(const QString& name, double startsAfter, const QByteArray& lines) const {
        const TakeRecord take{.name = name,
                              .scene = u"12A"_s,
                              .folder = u"/pulled/card"_s,
                              .start = dateByAdding(start, startsAfter),
                              .elapsed = 0,
                              .markers = {},
                              .comment = {}};
        QVERIFY(writeNewFile(joinPath(journals(), name + u".journal"_s),
                             TakeJournalFormat::startLine(take) + lines));
    }

  private Q_SLOTS:
    void init() {
        _root = std::make_unique<QTemporaryDir>();
        _dialogs = std::make_unique<FakeDialogs>();
        QVERIFY(QDir().mkdir(journals()));
        QVERIFY(QDir().mkdir(chosen()));
        leave(u"Pier"_s, 100, "{\"stop\":3725.9}\n");
        leave(u"Harbour"_s, 0, "{\"marker\":{},\"at\":1}\n{\"marker\":{},\"at\":2}\n{\"alive\":4}\n");
        auto dialog = RecoverTakesDialog::create(journals(), nullptr);
        QVERIFY(dialog);
        _dialog = *std::move(dialog);
        _recovered.clear();
        _changes = 0;
        connect(_dialog.get(), &RecoverTakesDialog::takeRecovered, this,
                [this](const TakeRecovery::RecoveredTake& take) {
                    _recovered.append(take.clip.clipName().value_or(QString()) + u" in "_s + take.folder);
                });
        connect(_dialog.get(), &RecoverTakesDialog::takesChanged, this, [this] { ++_changes; });
        _dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(_dialog->window()));
    }

    void cleanup() {
        _dialog.reset();
        _dialogs.reset();
    }

    void takesAreListedEarliestFirstAndAllSelected() {
        QStringList rows;
        for (int row = 0; row < list().topLevelItemCount(); ++row) {
            const QTreeWidgetItem& item = *list().topLevelItem(row);
            QVERIFY(item.isSelected());
            QStringList texts;
            for (int column = 0; column < list().columnCount(); ++column) {
                texts.append(item.text(column));
            }
            rows.append(texts.join(u" | "_s));
        }
        QCOMPARE(
            rows,
            (QStringList{u"Harbour | 12A | %1 | 00:00:04 | 2"_s.arg(localDateText(start)),
                         u"Pier | 12A | %1 | 01:02:05 | 0"_s.arg(localDateText(dateByAdding(start, 100)))}));
    }

    void itStandsInNobodysWay() { QVERIFY(!_dialog->window()->isModal()); }

    void everyControlHasAName() {
        QCOMPARE(list().accessibleName(), u"Takes to recover"_s);
        for (const QPushButton* button : _dialog->window()->findChildren<QPushButton*>()) {
            QVERIFY(!button->text().isEmpty());
        }
    }

    void recoverWritesTheChosenTakesIntoTheChosenFolder() {
        _dialogs->chosen = {chosen()};
        list().topLevelItem(0)->setSelected(false);
        press(u"_recoverButton"_s);
        QCOMPARE(_dialogs->choices.size(), 1);
        QCOMPARE(_dialogs->choices[0].startFolder, u"/pulled/card"_s);
        QCOMPARE(clipNames(), QStringList{u"Pier#01.xml"_s});
        QCOMPARE(journalNames(), QStringList{u"Harbour.journal"_s});
        QCOMPARE(_recovered, QStringList{u"Pier#01.xml in "_s + chosen()});
        QCOMPARE(_changes, 1);
        QCOMPARE(list().topLevelItemCount(), 1);
        const Dictionary clip =
            readDictionaryFile(joinPath(chosen(), u"Pier#01.xml"_s)).value_or(Dictionary());
        QCOMPARE(clip.integer(u"clipDuration"), 3725);
        QCOMPARE(clip.string(u"clipComment"), u"Recovered take"_s);
    }

    void withoutAFolderNothingHappens() {
        press(u"_recoverButton"_s);
        QCOMPARE(_dialogs->choices.size(), 1);
        QCOMPARE(journalNames().size(), 2);
        QCOMPARE(_changes, 0);
    }

    void whatTheFolderRefusesStaysAndIsTold() {
        _dialogs->chosen = {joinPath(_root->path(), u"missing"_s)};
        press(u"_recoverButton"_s);
        QCOMPARE(_dialogs->alerts.size(), 1);
        QCOMPARE(_dialogs->alerts[0].title, u"Couldn't recover all takes"_s);
        QCOMPARE(journalNames().size(), 2);
        QCOMPARE(list().topLevelItemCount(), 2);
        QVERIFY(_recovered.isEmpty());
    }

    void discardAsksFirst() {
        press(u"_discardButton"_s);
        QCOMPARE(_dialogs->alerts.size(), 1);
        QCOMPARE(_dialogs->alerts[0].title, u"Discard 2 takes?"_s);
        QCOMPARE(_dialogs->alerts[0].buttons, (QStringList{u"Cancel"_s, u"Discard"_s}));
        QCOMPARE(journalNames().size(), 2);
        _dialogs->answers = {1};
        press(u"_discardButton"_s);
        QVERIFY(journalNames().isEmpty());
        QVERIFY(clipNames().isEmpty());
        QCOMPARE(_changes, 1);
    }

    void withoutASelectionThereIsNothingToDo() {
        list().clearSelection();
        QVERIFY(!field<QPushButton>(u"_recoverButton"_s)->isEnabled());
        QVERIFY(!field<QPushButton>(u"_discardButton"_s)->isEnabled());
        list().selectAll();
        QVERIFY(field<QPushButton>(u"_recoverButton"_s)->isEnabled());
    }
};

QTEST_MAIN(RecoverTakesDialogTest)
#include "RecoverTakesDialogTest.moc"
