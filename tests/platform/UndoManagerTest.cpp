// Undo steps, their order, names and targets.
#include "platform/UndoManager.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace marquill;

namespace {

// A number whose changes can be undone, the way the program's operations are written.
class Counter : public QObject {
  public:
    explicit Counter(UndoManager& undo) : _undo(undo) {}

    int value = 0;

    void setValue(int newValue, const QString& action) {
        const int old = value;
        value = newValue;
        _undo.registerUndo(this, [this, old, action] { setValue(old, action); });
        _undo.setActionName(action);
    }

    void append(QString& text, QChar letter) {
        text.append(letter);
        _undo.registerUndo(this, [&text] { text.append(u'-'); });
        _undo.registerUndo(this, [&text, letter] { text.append(letter.toLower()); });
    }

  private:
    UndoManager& _undo;
};

}  // namespace

class UndoManagerTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void undoAndRedoRunTheSameOperation() {
        UndoManager undo;
        Counter counter(undo);
        counter.setValue(5, u"change Number"_s);
        QCOMPARE(undo.undoActionName(), u"change Number"_s);
        undo.undo();
        QCOMPARE(counter.value, 0);
        QVERIFY(!undo.canUndo());
        QCOMPARE(undo.redoActionName(), u"change Number"_s);
        undo.redo();
        QCOMPARE(counter.value, 5);
        QVERIFY(!undo.canRedo());
        QCOMPARE(undo.undoActionName(), u"change Number"_s);
    }

    void whatOneTurnRegistersIsOneStep() {
        UndoManager undo;
        Counter counter(undo);
        counter.setValue(1, u"one"_s);
        counter.setValue(2, u"two"_s);
        QCoreApplication::processEvents();
        counter.setValue(3, u"three"_s);
        undo.undo();
        QCOMPARE(counter.value, 2);
        QCOMPARE(undo.undoActionName(), u"two"_s);
        undo.undo();
        QCOMPARE(counter.value, 0);
        undo.redo();
        QCOMPARE(counter.value, 2);
        undo.redo();
        QCOMPARE(counter.value, 3);
    }

    void aStepIsTakenBackInReverseOrder() {
        UndoManager undo;
        Counter counter(undo);
        QString text;
        counter.append(text, u'A');
        undo.undo();
        QCOMPARE(text, u"Aa-"_s);
    }

    void aNewChangeDropsWhatCouldBeRedone() {
        UndoManager undo;
        Counter counter(undo);
        counter.setValue(1, u"one"_s);
        undo.undo();
        counter.setValue(2, u"two"_s);
        QVERIFY(!undo.canRedo());
    }

    void anEmptyNameSetWhileUndoingTakesTheNameAway() {
        UndoManager undo;
        QObject target;
        undo.registerUndo(&target, [&undo, &target] {
            undo.registerUndo(&target, [] {});
            undo.setActionName(QString());
        });
        undo.setActionName(u"add Label"_s);
        undo.undo();
        QVERIFY(undo.canRedo());
        QCOMPARE(undo.redoActionName(), QString());
    }

    void aStepThatSetsNoNameKeepsTheOneItReverses() {
        UndoManager undo;
        QObject target;
        undo.registerUndo(&target, [&undo, &target] { undo.registerUndo(&target, [] {}); });
        undo.setActionName(u"delete Set"_s);
        undo.undo();
        QCOMPARE(undo.redoActionName(), u"delete Set"_s);
    }

    void entriesOfOneTargetCanBeDropped() {
        UndoManager undo;
        Counter left(undo);
        Counter right(undo);
        left.setValue(1, u"left"_s);
        right.setValue(1, u"right"_s);
        QCoreApplication::processEvents();
        left.setValue(2, u"left"_s);
        undo.removeAllActions(&left);
        undo.undo();
        QCOMPARE(left.value, 2);
        QCOMPARE(right.value, 0);
        QVERIFY(!undo.canUndo());
    }

    void entriesOfADestroyedTargetGoWithIt() {
        UndoManager undo;
        auto counter = std::make_unique<Counter>(undo);
        counter->setValue(1, u"one"_s);
        counter.reset();
        QVERIFY(!undo.canUndo());
        undo.undo();
    }

    void everyChangeIsTold() {
        UndoManager undo;
        Counter counter(undo);
        QSignalSpy changed(&undo, &UndoManager::changed);
        counter.setValue(1, u"one"_s);
        QVERIFY(changed.count() > 0);
        changed.clear();
        undo.undo();
        QVERIFY(changed.count() > 0);
    }
};

QTEST_GUILESS_MAIN(UndoManagerTest)
#include "UndoManagerTest.moc"
