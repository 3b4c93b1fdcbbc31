// marquill import and export: movies in, documents out.
#include "clipmanager/TableExport.h"
#include "clipmanager/TextExport.h"
#include "clipmanager/XmemlExport.h"
#include "clipstore/ClipStore.h"
#include "commandline/CommandRun.h"
#include "movie/MovieTools.h"
#include "platform/Files.h"

#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace marquill;

class ExportCommandTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _place;
    QString _folder;
    QString _output;
    QString _expected;
    QString _settings;

    QString path(const QString& name) const { return joinPath(_place->path(), name); }
    QByteArray written() const { return readFile(_output).value_or("unreadable"); }
    QByteArray expected() const { return readFile(_expected).value_or("missing"); }
    std::vector<ClipInfo> clips() const { return ClipStore::readClipInfoForFolder(_folder); }

    Outcome exportAs(const QString& format, const QStringList& more = {}) const {
        return run(QStringList{u"--settings"_s, _settings, u"export"_s, _folder, u"--format"_s, format,
                               u"--output"_s, _output} +
                   more);
    }

    void makeClip(const QString& comment) const {
        const QString movie = path(u"Interview#03.mov"_s);
        QVERIFY(writeFile(movie, smallMovie()));
        QCOMPARE(run({u"import"_s, _folder, movie}).status, 0);
        std::optional<ClipInfo> clip = ClipStore::infoForClip(joinPath(_folder, u"Interview#03.xml"_s));
        QVERIFY(clip);
        clip->setClipLabel(u"Nice"_s);
        clip->setClipComment(comment);
        QCOMPARE(ClipStore::updateClipInfo(clip, _folder), 0);
    }

  private Q_SLOTS:
    void init() {
        _place = std::make_unique<QTemporaryDir>();
        _folder = path(u"Day 1"_s);
        _output = path(u"clips.document"_s);
        _expected = path(u"expected.document"_s);
        _settings = path(u"settings.plist"_s);
        QVERIFY(makeFolders(_folder));
        QVERIFY(writeFile(_settings,
                          "<plist><dict><key>PrefDict</key><dict><key>LabelArray</key><array>"
                          "<string>Good</string><string>Nice</string></array></dict></dict></plist>"));
    }

    void importedMoviesBecomePlaceholders() {
        const QString movie = path(u"Interview#03.mov"_s);
        const QString other = path(u"Plain.MOV"_s);
        QVERIFY(writeFile(movie, smallMovie()));
        QVERIFY(writeFile(other, smallMovie()));
        const Outcome imported =
            run({u"import"_s, u"Day 1"_s, u"Interview#03.mov"_s, other}, {}, _place->path());
        QCOMPARE(imported.errors, QByteArray());
        QCOMPARE(imported.status, 0);
        QCOMPARE(imported.output,
                 _folder.toUtf8() + "/Interview#03.xml\n" + _folder.toUtf8() + "/Plain.xml\n");
        const std::optional<ClipInfo> clip = ClipStore::infoForClip(joinPath(_folder, u"Interview#03.xml"_s));
        const Result<ClipInfo> inTheWindow = ClipStore::proxyClipFromMovieURL(movie);
        QVERIFY(clip && inTheWindow);
        QCOMPARE(clip->clipPath(), std::optional(movie));
        QCOMPARE(clip->record().keys(), inTheWindow->record().keys());
    }

    void oneThatCannotBeImportedDoesNotStopTheOthers() {
        const QString movie = path(u"Good.mov"_s);
        const QString broken = path(u"Broken.mov"_s);
        QVERIFY(writeFile(movie, smallMovie()));
        QVERIFY(writeFile(broken, "no movie"));
        const Outcome imported = run({u"import"_s, _folder, broken, movie, path(u"gone.mov"_s)});
        QCOMPARE(imported.status, 1);
        QCOMPARE(imported.output, _folder.toUtf8() + "/Good.xml\n");
        QVERIFY2(imported.errors.startsWith("marquill: " + broken.toUtf8() + ": "), imported.errors);
        QVERIFY2(imported.errors.contains("\nmarquill: " + path(u"gone.mov"_s).toUtf8() + ": "),
                 imported.errors);
        QVERIFY2(imported.errors.endsWith(
                     "marquill: Could not load one or more Clips: 2 of 3 were not imported.\n"),
                 imported.errors);
    }

    void aPlaceholderThatIsThereIsNotOverwritten() {
        makeClip(u"dear"_s);
        const QByteArray before = readFile(joinPath(_folder, u"Interview#03.xml"_s)).value_or(QByteArray());
        QCOMPARE(run({u"import"_s, _folder, path(u"Interview#03.mov"_s)}).status, 1);
        QCOMPARE(readFile(joinPath(_folder, u"Interview#03.xml"_s)).value_or(QByteArray()), before);
    }

    void importIntoAMissingFolderSaysSo() {
        const QString gone = path(u"gone"_s);
        const Outcome imported = run({u"import"_s, gone, path(u"Good.mov"_s)});
        QCOMPARE(imported.status, 1);
        QVERIFY2(imported.errors.startsWith("marquill: " + gone.toUtf8() + ": "), imported.errors);
    }

    void xmemlTakesTheLabelsOfTheSettings() {
        makeClip(u"windy, ä"_s);
        QCOMPARE(exportAs(u"xmeml"_s).errors, QByteArray());
        QVERIFY(XmemlExport::doExportAsXMLAtPath(_expected, clips(), _folder, {u"Good"_s, u"Nice"_s}));
        QCOMPARE(written(), expected());
        QVERIFY2(written().contains("windy, ä"), written());
    }

    void labelsCanBeNamed() {
        makeClip(u"windy"_s);
        // One that is in no list becomes the first of them.
        QCOMPARE(exportAs(u"xmeml"_s, {u"--labels"_s, u"Best,Worst"_s}).status, 0);
        QVERIFY2(written().contains("<label2>Best</label2>"), written());
        QVERIFY(XmemlExport::doExportAsXMLAtPath(_expected, clips(), _folder, {u"Best"_s, u"Worst"_s}));
        QCOMPARE(written(), expected());
        QCOMPARE(exportAs(u"xmeml"_s).status, 0);
        QVERIFY2(written().contains("<label2>Nice</label2>"), written());
    }

    void textAndTables() {
        makeClip(u"windy"_s);
        QCOMPARE(exportAs(u"text"_s).errors, QByteArray());
        QVERIFY(TextExport::doExportAsTextAtPath(_expected, clips()));
        QCOMPARE(written(), expected());
        QCOMPARE(exportAs(u"tab"_s).status, 0);
        QVERIFY(TableExport::doExportAsTableAtPath(_expected, u"\t"_s, clips()));
        QCOMPARE(written(), expected());
        QCOMPARE(exportAs(u"comma"_s).status, 0);
        QVERIFY(TableExport::doExportAsTableAtPath(_expected, u","_s, clips()));
        QCOMPARE(written(), expected());
        QVERIFY2(written().contains("Interview"), written());
    }

    void aTextThatIsNotAsciiFailsInTheWindowsWords() {
        makeClip(u"ä"_s);
        QVERIFY(writeFile(_output, "before"));
        const Outcome exported = exportAs(u"text"_s);
        QCOMPARE(exported.status, 1);
        QVERIFY2(exported.errors.endsWith("marquill: Export failed: Couldn't write text file.\n"),
                 exported.errors);
        QCOMPARE(written(), QByteArray("before"));
    }

    void whatCannotBeWrittenFailsInTheWindowsWords() {
        makeClip(u"windy"_s);
        const Outcome exported =
            run({u"export"_s, _folder, u"--format"_s, u"xmeml"_s, u"--output"_s, path(u"gone/clips.xml"_s)});
        QCOMPARE(exported.status, 1);
        QVERIFY2(exported.errors.startsWith("marquill: " + path(u"gone"_s).toUtf8()), exported.errors);
        QVERIFY2(exported.errors.endsWith("marquill: Export failed: Couldn't write xml file.\n"),
                 exported.errors);
    }

    void anEmptyFolderIsTold() {
        const Outcome exported = exportAs(u"text"_s);
        QCOMPARE(exported.status, 1);
        QCOMPARE(exported.errors,
                 QByteArray("marquill: No Clips to export: There are no clips to export in the "
                            "selected folder.\n"));
        QVERIFY(!fileExists(_output));
    }

    void wrongUseEndsWithTwo() {
        QCOMPARE(exportAs(u"pdf"_s).status, 2);
        QCOMPARE(run({u"export"_s, _folder, u"--format"_s, u"text"_s}).status, 2);
        QCOMPARE(run({u"import"_s, _folder}).status, 2);
    }
};

QTEST_GUILESS_MAIN(ExportCommandTest)
#include "ExportCommandTest.moc"
