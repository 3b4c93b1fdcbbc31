// Work that may last: it runs on a thread of its own, and when it is not done after a moment, a sheet on its
// window shows how far it is and can cancel it. The window stays alive all the while. Main thread.
#pragma once

#include "platform/BackgroundWork.h"
#include "platform/Error.h"

#include <QDialog>
#include <QEventLoop>
#include <QPointer>

#include <functional>
#include <memory>

class QLabel;
class QProgressBar;
class QPushButton;

namespace marquill {

class ProgressSheet : public QObject {
    Q_OBJECT

    struct Run;

  public:
    /// How long work may last before it is worth a sheet.
    static constexpr double secondsBeforeSheet = 0.3;

    /// What the work tells and asks. Any thread.
    class Progress {
      public:
        /// `done` of `total` steps are done; false once the work was cancelled: it should end soon, and leave
        /// nothing behind.
        bool report(qint64 done, qint64 total) const;
        /// The work is about to leave something behind. After true it cannot be cancelled any more; false
        /// when it was already, and must leave nothing.
        bool commit() const;

      private:
        friend class ProgressSheet;
        explicit Progress(std::shared_ptr<Run> run) : _run(std::move(run)) {}
        std::shared_ptr<Run> _run;
    };

    using Work = std::function<Result<void>(const Progress&)>;
    using Done = std::function<void(const Result<void>&)>;

    ProgressSheet() = default;
    /// Cancels what may still be cancelled; nobody hears of the end of the work.
    ~ProgressSheet() override;

    /// Starts `work` and calls `done` with what it returned, on a later turn of the event loop; not when it
    /// was cancelled. `text` says what is being done. While work is running it does nothing and returns
    /// false.
    bool run(QWidget& window, const QString& text, Work work, Done done);
    /// Shows in the same way how far work is that goes on elsewhere and cannot be cancelled, until followed()
    /// tells its end. While other work is running it does nothing and returns false.
    bool follow(QWidget& window, const QString& text);
    /// `done` of `total` steps of that work are done; it has ended when all are.
    void followed(qint64 done, qint64 total);
    bool isRunning() const { return _run != nullptr; }
    /// For what cannot go on before: runs the event loop until the work has ended or was cancelled.
    void waitForEnd();
    /// Ends the work, unless it is past its commit.
    void cancel();
    /// The sheet while it is shown, or null.
    QDialog* sheet() const { return _sheet; }

  private:
    void begin(QWidget& window, const QString& text);
    void showSheet(QWidget& window, const QString& text);
    Result<void> loadSheet();
    void showProgress(int percent);
    void end();

    BackgroundWork _work;
    std::shared_ptr<Run> _run;  // that is under way
    QEventLoop _waiting;
    QPointer<QDialog> _sheet;
    int _percent = 0;

    // In the sheet.
    QLabel* _textLabel = nullptr;
    QProgressBar* _progressBar = nullptr;
    QPushButton* _cancelButton = nullptr;
};

}  // namespace marquill
