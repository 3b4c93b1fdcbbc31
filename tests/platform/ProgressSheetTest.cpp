// Work under a progress sheet. The work waits at gates that the test opens.
#include "platform/DelayedCalls.h"
#include "platform/Literals.h"
#include "platform/ProgressSheet.h"
#include "platform/WindowDescription.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QSemaphore>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>

using namespace marquill;

class ProgressSheetTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QWidget> _window;
    std::unique_ptr<ProgressSheet> _progress;
    QSemaphore _gate;
    std::atomic<int> _steps = 0;
    std::atomic<bool> _ended = false;
    std::atomic<bool> _committed = false;
    QList<bool> _results;

    /// Starts work of ten steps and a commit, each waiting at the gate.
    bool start() {
        return _progress->run(
            *_window, u"Counting…"_s,
            [this](const ProgressSheet::Progress& progress) -> Result<void> {
                for (int step = 1; step <= 10; ++step) {
                    _gate.acquire();
                    const bool goesOn = progress.report(step, 10);
                    ++_steps;
                    if (!goesOn) {
                        _ended = true;
                        return failure(ErrorCode::interrupted, u"cancelled"_s);
                    }
                }
                _committed = progress.commit();
                _gate.acquire();
                _ended = true;
                return {};
            },
            [this](const Result<void>& result) { _results.append(result.has_value()); });
    }

    void waitForSteps(int count) { QTRY_COMPARE(_steps.load(), count); }
    void showSheet() { DelayedCalls::elapse(_progress.get(), ProgressSheet::secondsBeforeSheet); }

    template <class Widget>
    Widget* field(const QString& name) const {
        return _progress->sheet()->findChild<Widget*>(name);
    }

  private Q_SLOTS:
    void init() {
        _window = std::make_unique<QWidget>();
        _window->show();
        _progress = std::make_unique<ProgressSheet>();
        _gate.acquire(_gate.available());
        _steps = 0;
        _ended = _committed = false;
        _results.clear();
    }

    void cleanup() {
        _gate.release(100);
        _progress.reset();
        WindowDescription::useFolder(u":/windows"_s);
    }

    void shortWorkShowsNoSheet() {
        QVERIFY(start());
        QVERIFY(_progress->isRunning());
        _gate.release(11);
        QTRY_COMPARE(_results, QList<bool>{true});
        QVERIFY(!_progress->isRunning());
        QVERIFY(_committed);
        QCOMPARE(DelayedCalls::pendingCount(_progress.get()), 0);
        QVERIFY(!_progress->sheet());
    }

    void longWorkShowsHowFarItIs() {
        QVERIFY(start());
        _gate.release(3);
        waitForSteps(3);
        showSheet();
        QVERIFY(_progress->sheet() && _progress->sheet()->isVisible());
        QCOMPARE(_progress->sheet()->windowModality(), Qt::WindowModal);
        QCOMPARE(_progress->sheet()->parentWidget(), _window.get());
        QCOMPARE(field<QLabel>(u"_textLabel"_s)->text(), u"Counting…"_s);
        QTRY_COMPARE(field<QProgressBar>(u"_progressBar"_s)->value(), 30);
        _gate.release(4);
        QTRY_COMPARE(field<QProgressBar>(u"_progressBar"_s)->value(), 70);
        _gate.release(4);
        QTRY_COMPARE(_results.size(), 1);
        QVERIFY(!_progress->sheet());
    }

    void cancellingEndsTheWorkAndTellsNobody_data() {
        QTest::addColumn<QString>("way");
        QTest::newRow("button") << u"button"_s;
        QTest::newRow("Escape") << u"Escape"_s;
        QTest::newRow("call") << u"call"_s;
        QTest::newRow("destruction") << u"destruction"_s;
    }
    void cancellingEndsTheWorkAndTellsNobody() {
        QFETCH(const QString, way);
        QVERIFY(start());
        _gate.release(2);
        waitForSteps(2);
        showSheet();
        if (way == "button"_L1) {
            field<QPushButton>(u"_cancelButton"_s)->click();
        } else if (way == "Escape"_L1) {
            QTest::keyClick(_progress->sheet(), Qt::Key_Escape);
        } else if (way == "call"_L1) {
            _progress->cancel();
        } else {
            _gate.release(1);
            _progress.reset();
        }
        QVERIFY(!_progress || (!_progress->isRunning() && !_progress->sheet()));
        _gate.release(1);
        QTRY_VERIFY(_ended.load());
        QCoreApplication::processEvents();
        QVERIFY(!_committed);
        QVERIFY(_steps <= 4);
        QVERIFY(_results.isEmpty());
    }

    void pastItsCommitNothingIsCancelled() {
        QVERIFY(start());
        _gate.release(10);
        QTRY_VERIFY(_committed.load());
        showSheet();
        QVERIFY(!field<QPushButton>(u"_cancelButton"_s)->isEnabled());
        _progress->cancel();
        QTest::keyClick(_progress->sheet(), Qt::Key_Escape);
        QVERIFY(_progress->isRunning());
        _gate.release(1);
        QTRY_COMPARE(_results, QList<bool>{true});
    }

    void oneWorkAtATime() {
        QVERIFY(start());
        QVERIFY(!start());
        _gate.release(11);
        QTRY_COMPARE(_results.size(), 1);
        QVERIFY(start());
        _gate.release(11);
        QTRY_COMPARE(_results.size(), 2);
    }

    void theNextMayStartWhenTheLastIsHeardOf() {
        bool again = false;
        bool second = false;
        const auto work = [](const ProgressSheet::Progress&) { return Result<void>(); };
        _progress->run(*_window, {}, work, [&](const Result<void>&) {
            again = _progress->run(*_window, {}, work, [&](const Result<void>&) { second = true; });
        });
        QTRY_VERIFY(again);
        QTRY_VERIFY(second);
    }

    void workThatGoesOnElsewhereIsShownAndNotCancelled() {
        QVERIFY(_progress->follow(*_window, u"Saving…"_s));
        QVERIFY(_progress->isRunning());
        QVERIFY(!_progress->follow(*_window, {}));
        QVERIFY(!start());
        _progress->followed(1, 4);
        showSheet();
        QCOMPARE(field<QLabel>(u"_textLabel"_s)->text(), u"Saving…"_s);
        QCOMPARE(field<QProgressBar>(u"_progressBar"_s)->value(), 25);
        QVERIFY(!field<QPushButton>(u"_cancelButton"_s)->isEnabled());
        QTest::keyClick(_progress->sheet(), Qt::Key_Escape);
        _progress->cancel();
        _progress->followed(3, 4);
        QVERIFY(_progress->isRunning());
        QTimer::singleShot(0, _progress.get(), [this] { _progress->followed(4, 4); });
        _progress->waitForEnd();
        QVERIFY(!_progress->isRunning());
        QVERIFY(!_progress->sheet());
    }

    void errorsReachTheirReader() {
        std::optional<ErrorCode> code;
        _progress->run(
            *_window, {}, [](const auto&) -> Result<void> { return failure(ErrorCode::noSpace, u"full"_s); },
            [&](const Result<void>& result) { code = result ? ErrorCode{} : result.error().code; });
        QTRY_VERIFY(code);
        QCOMPARE(*code, ErrorCode::noSpace);
    }

    void withoutDescriptionTheWorkGoesOnUnseen() {
        const QTemporaryDir empty;
        WindowDescription::useFolder(empty.path());
        QVERIFY(start());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"ProgressSheet.ui"_s));
        showSheet();
        QVERIFY(!_progress->sheet());
        _gate.release(11);
        QTRY_COMPARE(_results, QList<bool>{true});
    }
};

QTEST_MAIN(ProgressSheetTest)
#include "ProgressSheetTest.moc"
