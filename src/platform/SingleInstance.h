// Sees to it that one program runs of its kind: the first start runs, and a later one hands what it was given
// to the first and ends. Who is first is settled by a lock that the system drops with its owner, so a program
// that was killed stands in nobody's way, and one that hangs only for a while. Main thread.
#pragma once

#include "platform/FileLock.h"

#include <QLocalServer>
#include <QObject>
#include <QStringList>

#include <chrono>
#include <memory>

namespace marquill {

/// What a start of the program was given.
struct ProgramStart {
    QStringList paths;        ///< full paths to be opened
    QString activationToken;  ///< what entitles the program to come to the front; empty where there is none

    bool operator==(const ProgramStart&) const = default;
};

class SingleInstance : public QObject {
    Q_OBJECT

  public:
    enum class Outcome {
        first,     ///< this program runs, and hears of later starts
        handedOn,  ///< another one runs and has taken what was given; this one is to end
        alone,     ///< another one may run that cannot be reached; this one runs beside it
    };

    /// A first program that is just being started or stopped answers sooner than this.
    static constexpr std::chrono::milliseconds usualPatience{10'000};

    /// Programs with the same `name` in the same `folder` are of one kind. The folder is made where it is
    /// missing; it has to be the user's own.
    SingleInstance(const QString& folder, const QString& name);
    /// The next start will be the first.
    ~SingleInstance() override;

    /// Finds out which one this is, once; waits for another program no longer than `patience`. Where locks or
    /// sockets cannot be had, every program runs alone, and the log tells why.
    Outcome begin(const ProgramStart& start, std::chrono::milliseconds patience = usualPatience);

  Q_SIGNALS:
    /// The program was started again and that start has ended.
    void startedAgain(const ProgramStart& start);

  private:
    Result<void> makeLockFile() const;
    bool listen();
    void removeLockFile() const;
    bool handOn(const ProgramStart& start, std::chrono::milliseconds patience) const;
    void accept();
    void read(QLocalSocket& socket);
    QString lockPath() const;
    QString serverName() const;

    QString _folder;
    QString _name;
    std::unique_ptr<FileLock> _lock;
    QLocalServer _server;
};

/// The folder in which a user's running programs of all kinds find each other: the user's own for this
/// session ($XDG_RUNTIME_DIR), or the state folder where there is none.
QString runtimeFolder();

}  // namespace marquill
