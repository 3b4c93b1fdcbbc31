// Every file operation of everything that the program does with files, failing in turn and in every way:
// nothing may be half, lost or doubled, the user or the log is told, and once nothing fails any more it can
// be done.
#include "recording/RecorderPanel.h"
#include "reliability/FaultStages.h"
#include "reliability/OneFault.h"

#include <QTest>

using namespace marquill;

namespace {

QStringList texts;
std::mutex textsMutex;

void noteMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    Q_UNUSED(context)
    if (type == QtFatalMsg) {
        fprintf(stderr, "%s\n", qPrintable(message));
    }
    if (type != QtDebugMsg) {
        Told::tell(message);
    }
}

struct Kind {
    const char* name;
    ErrorCode code;
};
constexpr Kind kinds[] = {{"no space", ErrorCode::noSpace},
                          {"read-only", ErrorCode::readOnly},
                          {"input/output error", ErrorCode::inputOutput},
                          {"permission denied", ErrorCode::permissionDenied},
                          {"vanished", ErrorCode::notFound},
                          {"interrupted", ErrorCode::interrupted}};

struct Tally {
    qsizetype operations = 0;
    int faults = 0;
    int notMet = 0;
    QStringList wrong;
};

// What is wrong after the stage was performed with a fault, and again without; "" when nothing is.
QString outcome(FaultStage& stage, OneFault& files) {
    if (const QString damage = stage.damage(); !damage.isEmpty()) {
        return damage;
    }
    if (!stage.isDone() && Told::texts().isEmpty()) {
        return u"nobody is told"_s;
    }
    files.disarm();
    stage.doAgain();
    if (!stage.isDone()) {
        return u"it cannot be done any more; told was: "_s + Told::texts().join(u" / "_s);
    }
    const QString damage = stage.damage();
    return damage.isEmpty() ? QString() : u"afterwards "_s + damage;
}

void runWithFault(const NamedStage& named, const FileOperation& operation, const Kind& kind, Tally& tally) {
    const Told told;
    OneFault files;
    const std::unique_ptr<FaultStage> stage = named.make();
    Told::clear();
    files.arm(operation, kind.code);
    stage->perform();
    const bool wasMet = files.hasFailed();
    files.disarm();
    tally.faults += wasMet ? 1 : 0;
    tally.notMet += wasMet ? 0 : 1;
    if (const QString wrong = outcome(*stage, files); !wrong.isEmpty()) {
        tally.wrong.append(u"%1, %2: %3"_s.arg(operation.text(), QLatin1StringView(kind.name), wrong));
    }
}

QList<FileOperation> operationsOf(const NamedStage& named) {
    const Told told;
    OneFault files;
    const std::unique_ptr<FaultStage> stage = named.make();
    files.disarm();
    stage->perform();
    const QList<FileOperation> operations = files.operations();
    if (!stage->isDone() || !stage->damage().isEmpty()) {
        return {};
    }
    return operations;
}

}  // namespace

Told::Told() {
    clear();
    qInstallMessageHandler(noteMessage);
}

Told::~Told() {
    qInstallMessageHandler(nullptr);
}

void Told::tell(const QString& text) {
    const std::scoped_lock lock(textsMutex);
    ::texts.append(text);
}

QStringList Told::texts() {
    const std::scoped_lock lock(textsMutex);
    return ::texts;
}

void Told::clear() {
    const std::scoped_lock lock(textsMutex);
    ::texts.clear();
}

class FaultInjectionTest : public QObject {
    Q_OBJECT

    std::vector<NamedStage> _stages;

  private Q_SLOTS:
    void initTestCase() {
        registerRecorderWidgets();
        for (const auto& stages : {clipTableStages(), takeStages(), documentStages(), folderStages()}) {
            _stages.insert(_stages.end(), stages.begin(), stages.end());
        }
    }

    void anyOperationMayFail_data() {
        QTest::addColumn<int>("index");
        for (std::size_t index = 0; index < _stages.size(); ++index) {
            QTest::newRow(qPrintable(_stages[index].name)) << static_cast<int>(index);
        }
    }
    void anyOperationMayFail() {
        QFETCH(const int, index);
        const NamedStage& stage = _stages[static_cast<std::size_t>(index)];
        const QList<FileOperation> operations = operationsOf(stage);
        QVERIFY2(!operations.isEmpty(), "it does not succeed without a fault");
        Tally tally;
        tally.operations = operations.size();
        for (const FileOperation& operation : operations) {
            for (const Kind& kind : kinds) {
                runWithFault(stage, operation, kind, tally);
            }
        }
        qInfo("%lld operations, %d faults, %d not met", static_cast<long long>(tally.operations),
              tally.faults, tally.notMet);
        QVERIFY2(tally.wrong.isEmpty(),
                 qPrintable(u"%1 wrong:\n"_s.arg(tally.wrong.size()) + tally.wrong.join(u'\n')));
        QVERIFY(tally.faults > 0);
    }
};

QTEST_MAIN(FaultInjectionTest)
#include "FaultInjectionTest.moc"
