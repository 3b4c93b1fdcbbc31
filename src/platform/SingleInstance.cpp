// One line of JSON each way: the later start sends {"paths": […], "activationToken": "…"}, the first answers
// "taken".
#include "platform/SingleInstance.h"

#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/StateFolder.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <QThread>

namespace marquill {

namespace {

constexpr qint64 longestMessage = 16 << 20;  // bytes; a command line is shorter
constexpr std::chrono::milliseconds betweenTries{20};
const QByteArray taken = "taken\n";

QByteArray messageOf(const ProgramStart& start) {
    const QJsonObject object{{u"paths"_s, QJsonArray::fromStringList(start.paths)},
                             {u"activationToken"_s, start.activationToken}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

std::optional<ProgramStart> startOf(const QByteArray& message) {
    const QJsonDocument document = QJsonDocument::fromJson(message);
    if (!document.isObject()) {
        return std::nullopt;
    }
    ProgramStart start;
    for (const QJsonValue& path : document[u"paths"_s].toArray()) {
        start.paths.append(path.toString());
    }
    start.activationToken = document[u"activationToken"_s].toString();
    return start;
}

int milliseconds(const QDeadlineTimer& deadline) {
    return static_cast<int>(deadline.remainingTime());
}

}  // namespace

SingleInstance::SingleInstance(const QString& folder, const QString& name) : _folder(folder), _name(name) {
    connect(&_server, &QLocalServer::newConnection, this, &SingleInstance::accept);
}

SingleInstance::~SingleInstance() {
    if (_lock) {
        _server.close();
        // Before the lock is given up: later, the file could be the next owner's.
        removeLockFile();
    }
}

void SingleInstance::removeLockFile() const {
    if (const Result<void> removed = FileSystem::current().removeFile(lockPath()); !removed) {
        qCDebug(logPlatform).noquote() << removed.error().description();
    }
}

SingleInstance::Outcome SingleInstance::begin(const ProgramStart& start, std::chrono::milliseconds patience) {
    const QDeadlineTimer deadline(patience);
    while (true) {
        if (const Result<void> made = makeLockFile(); !made) {
            qCWarning(logPlatform).noquote() << made.error().description();
            return Outcome::alone;
        }
        Result<std::unique_ptr<FileLock>> lock = FileLock::take(lockPath());
        if (lock) {
            _lock = *std::move(lock);
            return listen() ? Outcome::first : Outcome::alone;
        }
        // It is gone again when its owner ended just now.
        const ErrorCode code = lock.error().code;
        if (code != ErrorCode::alreadyExists && code != ErrorCode::notFound) {
            qCWarning(logPlatform).noquote() << lock.error().description();
            return Outcome::alone;
        }
        if (handOn(start, std::chrono::milliseconds(deadline.remainingTime()))) {
            return Outcome::handedOn;
        }
        if (deadline.hasExpired()) {
            qCWarning(logPlatform)
                << "the program that runs already does not answer; this one runs beside it";
            return Outcome::alone;
        }
        QThread::msleep(static_cast<unsigned long>(betweenTries.count()));
    }
}

Result<void> SingleInstance::makeLockFile() const {
    if (const Result<void> made = makeFolders(_folder); !made) {
        return made;
    }
    const auto file = FileSystem::current().open(lockPath(), OpenMode::createNew);
    if (!file && file.error().code != ErrorCode::alreadyExists) {
        return std::unexpected(file.error());
    }
    return {};
}

// With the lock, a socket of that name is one that its owner left behind.
bool SingleInstance::listen() {
    QLocalServer::removeServer(serverName());
    _server.setSocketOptions(QLocalServer::UserAccessOption);
    if (_server.listen(serverName())) {
        return true;
    }
    qCWarning(logPlatform).noquote() << "later starts cannot be heard of:" << _server.errorString();
    removeLockFile();
    _lock.reset();
    return false;
}

bool SingleInstance::handOn(const ProgramStart& start, std::chrono::milliseconds patience) const {
    const QDeadlineTimer deadline(patience);
    QLocalSocket socket;
    socket.connectToServer(serverName());
    if (!socket.waitForConnected(milliseconds(deadline))) {
        return false;
    }
    socket.write(messageOf(start));
    while (!socket.canReadLine()) {
        if (!socket.waitForReadyRead(milliseconds(deadline))) {
            return false;
        }
    }
    return socket.readLine() == taken;
}

void SingleInstance::accept() {
    while (QLocalSocket* socket = _server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { read(*socket); });
        read(*socket);
    }
}

void SingleInstance::read(QLocalSocket& socket) {
    if (!socket.canReadLine()) {
        if (socket.bytesAvailable() > longestMessage) {
            socket.abort();
        }
        return;
    }
    const std::optional<ProgramStart> start = startOf(socket.readLine());
    if (!start) {
        qCWarning(logPlatform) << "a later start sent what nobody understands";
        socket.abort();
        return;
    }
    socket.write(taken);
    socket.flush();
    // Later: whoever hears of it may show a dialog, and the other program is waiting.
    QMetaObject::invokeMethod(this, [this, start] { Q_EMIT startedAgain(*start); }, Qt::QueuedConnection);
}

QString SingleInstance::lockPath() const {
    return joinPath(_folder, _name + u".lock"_s);
}

QString SingleInstance::serverName() const {
#ifdef Q_OS_WINDOWS
    // Pipes have names of their own, no paths.
    return u"marquill-"_s + _name;
#else
    return joinPath(_folder, _name + u".socket"_s);
#endif
}

QString runtimeFolder() {
    const QString session = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return QDir::isAbsolutePath(session) && folderExists(session) ? joinPath(session, u"marquill"_s)
                                                                  : usersStateFolder();
}

}  // namespace marquill
