#include "platform/ProgressSheet.h"

#include "platform/DelayedCalls.h"
#include "platform/Log.h"
#include "platform/WindowDescription.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include <atomic>
#include <optional>

namespace marquill {

namespace {

enum class Phase { working, committed, cancelled };

int percentOf(qint64 done, qint64 total) {
    return total > 0 ? static_cast<int>(done * 100 / total) : 0;
}

}  // namespace

// What the main thread and the work share.
struct ProgressSheet::Run {
    std::atomic<Phase> phase = Phase::working;
    std::atomic<int> percent = 0;
    std::function<void(int percent)> show;  ///< on the main thread, while anybody wants it

    /// Whether the phase was, and is no more, the one in which all is still open.
    bool leaveWorkingFor(Phase next) {
        Phase expected = Phase::working;
        return phase.compare_exchange_strong(expected, next);
    }
};

bool ProgressSheet::Progress::report(qint64 done, qint64 total) const {
    const int percent = percentOf(done, total);
    // Only what can be seen is told: a hundred posts, not one for each step.
    if (_run->percent.exchange(percent) != percent) {
        _run->show(percent);
    }
    return _run->phase != Phase::cancelled;
}

bool ProgressSheet::Progress::commit() const {
    const bool may = _run->leaveWorkingFor(Phase::committed);
    if (may) {
        _run->show(100);
    }
    return may;
}

ProgressSheet::~ProgressSheet() {
    cancel();
    end();
}

bool ProgressSheet::run(QWidget& window, const QString& text, Work work, Done done) {
    if (isRunning()) {
        return false;
    }
    begin(window, text);
    _work.start([this, run = _run, work = std::move(work), done = std::move(done)](const auto& post) {
        run->show = [this, post](int percent) { post([this, percent] { showProgress(percent); }); };
        Result<void> result = work(Progress(run));
        post([this, result = std::move(result), done] {
            _work.cancel();  // It is over: what hears of that may start the next.
            end();
            done(result);
        });
    });
    return true;
}

void ProgressSheet::begin(QWidget& window, const QString& text) {
    _percent = 0;
    _run = std::make_shared<Run>();
    DelayedCalls::performAfterDelay(this, secondsBeforeSheet, [this, window = QPointer(&window), text] {
        if (window && isRunning()) {
            showSheet(*window, text);
        }
    });
}

bool ProgressSheet::follow(QWidget& window, const QString& text) {
    if (isRunning()) {
        return false;
    }
    begin(window, text);
    _run->phase = Phase::committed;
    return true;
}

void ProgressSheet::followed(qint64 done, qint64 total) {
    if (done < total) {
        showProgress(percentOf(done, total));
    } else {
        end();
    }
}

void ProgressSheet::cancel() {
    if (_run && _run->leaveWorkingFor(Phase::cancelled)) {
        _work.cancel();
        end();
    }
}

void ProgressSheet::waitForEnd() {
    if (isRunning()) {
        _waiting.exec();
    }
}

void ProgressSheet::end() {
    DelayedCalls::cancelAll(this);
    _run.reset();
    _waiting.quit();
    if (_sheet) {
        _sheet->disconnect(this);
        _sheet->hide();
        _sheet->deleteLater();
        _sheet.clear();
    }
}

void ProgressSheet::showSheet(QWidget& window, const QString& text) {
    if (const Result<void> loaded = loadSheet(); !loaded) {
        // The work goes on without being seen.
        qCWarning(logPlatform).noquote() << loaded.error().description();
        return;
    }
    _sheet->setParent(&window, Qt::Dialog);
    _sheet->setWindowModality(Qt::WindowModal);
    _textLabel->setText(text);
    showProgress(_percent);
    connect(_cancelButton, &QPushButton::clicked, this, &ProgressSheet::cancel);
    // Escape and the close button, which hide it by themselves: past the commit it stays hidden.
    connect(_sheet, &QDialog::rejected, this, &ProgressSheet::cancel);
    _sheet->show();
}

Result<void> ProgressSheet::loadSheet() {
    Result<std::unique_ptr<QWidget>> loaded = WindowDescription::load(u"ProgressSheet"_s);
    if (!loaded) {
        return std::unexpected(loaded.error());
    }
    Outlets outlets(**loaded);
    outlets.connect(_textLabel, u"_textLabel"_s);
    outlets.connect(_progressBar, u"_progressBar"_s);
    outlets.connect(_cancelButton, u"_cancelButton"_s);
    auto* const dialog = qobject_cast<QDialog*>(loaded->get());
    if (!dialog) {
        return failure(ErrorCode::malformed, tr("the window description holds no dialog"));
    }
    if (Result<void> found = outlets.check(); !found) {
        return found;
    }
    std::ignore = loaded->release();
    _sheet = dialog;
    return {};
}

void ProgressSheet::showProgress(int percent) {
    _percent = percent;
    if (_sheet) {
        _progressBar->setValue(percent);
        _cancelButton->setEnabled(_run && _run->phase == Phase::working);
    }
}

}  // namespace marquill
