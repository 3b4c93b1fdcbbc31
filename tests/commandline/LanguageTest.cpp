// What the program says in other languages, as a shell sees it: chosen by an option or by the environment.
#include "commandline/CommandRun.h"
#include "platform/Files.h"

#include <QTemporaryDir>
#include <QTest>

using namespace marquill;

namespace {

constexpr auto noFolder = "There is no file or folder of that name. Was it moved or deleted?";
constexpr auto keinOrdner =
    "Es gibt keine Datei und keinen Ordner dieses Namens. Wurde etwas verschoben oder gelöscht?";
constexpr auto aucunDossier = "Il n’y a ni fichier ni dossier de ce nom.";

using Variables = QList<std::pair<QString, QString>>;

// What `marquill list` says of a folder that is not there, with only these of the variables that name a
// language.
QByteArray complaintIn(const Variables& variables, const QStringList& options = {}) {
    QProcessEnvironment environment = shellEnvironment();
    for (const QString& name : {u"LANGUAGE"_s, u"LC_ALL"_s, u"LC_MESSAGES"_s, u"LANG"_s}) {
        environment.remove(name);
    }
    for (const auto& [name, value] : variables) {
        environment.insert(name, value);
    }
    return run(options + QStringList{u"list"_s, u"/nowhere/at/all"_s}, {}, {}, environment).errors;
}

}  // namespace

class LanguageTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void theDefaultIsEnglish() {
        QCOMPARE(complaintIn({}), QByteArray("marquill: /nowhere/at/all: ") + noFolder + '\n');
    }

    void theEnvironmentChoosesTheLanguage_data() {
        QTest::addColumn<Variables>("variables");
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("LANG") << Variables{{u"LANG"_s, u"de_DE.UTF-8"_s}} << QByteArray(keinOrdner);
        QTest::newRow("of another country")
            << Variables{{u"LANG"_s, u"fr_CA.UTF-8"_s}} << QByteArray(aucunDossier);
        QTest::newRow("LC_MESSAGES before LANG")
            << Variables{{u"LANG"_s, u"de_DE.UTF-8"_s}, {u"LC_MESSAGES"_s, u"fr_FR.UTF-8"_s}}
            << QByteArray(aucunDossier);
        QTest::newRow("LC_ALL before all others")
            << Variables{{u"LC_ALL"_s, u"de_AT.UTF-8"_s}, {u"LC_MESSAGES"_s, u"fr_FR.UTF-8"_s}}
            << QByteArray(keinOrdner);
        QTest::newRow("the first of LANGUAGE that is spoken")
            << Variables{{u"LANG"_s, u"nl_NL.UTF-8"_s}, {u"LANGUAGE"_s, u"nl:fr:de"_s}}
            << QByteArray(aucunDossier);
        QTest::newRow("English before another that is spoken")
            << Variables{{u"LANG"_s, u"en_GB.UTF-8"_s}, {u"LANGUAGE"_s, u"en_GB:de"_s}}
            << QByteArray(noFolder);
        QTest::newRow("one that nobody has translated to")
            << Variables{{u"LANG"_s, u"nl_NL.UTF-8"_s}} << QByteArray(noFolder);
        QTest::newRow("none is wanted")
            << Variables{{u"LC_ALL"_s, u"C.UTF-8"_s}, {u"LANGUAGE"_s, u"de"_s}} << QByteArray(noFolder);
    }
    void theEnvironmentChoosesTheLanguage() {
        QFETCH(Variables, variables);
        QFETCH(QByteArray, text);
        const QByteArray complaint = complaintIn(variables);
        QVERIFY2(complaint.contains(text), complaint.constData());
    }

    void theOptionChoosesBeforeTheEnvironment() {
        const Variables french{{u"LANG"_s, u"fr_FR.UTF-8"_s}};
        QVERIFY(complaintIn(french, {u"--language"_s, u"de"_s}).contains(keinOrdner));
        QVERIFY(complaintIn(french, {u"--language=en"_s}).contains(noFolder));
    }

    void aLanguageThatIsNotSpokenIsWrongUse() {
        const Outcome outcome = run({u"--language"_s, u"nl"_s, u"list"_s, u"/"_s});
        QCOMPARE(outcome.status, 2);
        QVERIFY(outcome.errors.contains("--language"));
    }

    void helpIsTranslatedWithTheWordsOfItsFrame() {
        const Outcome help = run({u"--language=de"_s, u"connect"_s, u"--help"_s});
        QCOMPARE(help.status, 0);
        for (const char* text : {"Aufruf: ", "Platzhalter nach dem Datum mit ihren Medien verknüpfen",
                                 "Der Aufnahmeordner", "Diese Hilfe zeigen"}) {
            QVERIFY2(help.output.contains(text), qPrintable(help.output + "\nlacks " + text));
        }
    }

    // Programs read it: what it says must not depend on whose machine it is.
    void jsonStaysEnglish() {
        const QTemporaryDir folder;
        const QString clip = joinPath(folder.path(), u"Harbour#01.xml"_s);
        QVERIFY(writeFile(clip,
                          "<plist version=\"1.0\"><dict><key>clipName</key>"
                          "<string>Harbour#01.xml</string></dict></plist>"));
        const Outcome english = run({u"show"_s, u"--json"_s, clip});
        QCOMPARE(english.status, 0);
        QCOMPARE(run({u"--language=de"_s, u"show"_s, u"--json"_s, clip}).output, english.output);
        QVERIFY(english.output.contains("N/A, externally recorded"));
        QVERIFY(run({u"--language=de"_s, u"show"_s, clip}).output.contains("extern aufgenommen"));
    }
};

QTEST_GUILESS_MAIN(LanguageTest)

#include "LanguageTest.moc"
