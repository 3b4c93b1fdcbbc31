#include "platform/FaultyFileSystem.h"
#include "platform/Files.h"
#include "platform/Subpaths.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <unistd.h>

using namespace marquill;

class SubpathsTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<QTemporaryDir> _folder;

    QString path(const QString& name) const { return joinPath(_folder->path(), name); }
    void make(const QString& name) const {
        QVERIFY(makeFolders(parentFolder(path(name))));
        QVERIFY(writeFile(path(name), ""));
    }
    QStringList found() const { return subpathsAtPath(_folder->path()).value_or(QStringList(u"failed"_s)); }

  private Q_SLOTS:
    void init() { _folder = std::make_unique<QTemporaryDir>(); }

    void walksAsFindDoes() {
        for (int number = 0; number < 40; ++number) {
            make(u"%1/%2/take%3.mov"_s.arg(number % 3).arg(number % 5).arg(number));
        }
        make(u".hidden/a.mov"_s);
        QProcess find;
        find.start(u"find"_s, {_folder->path(), u"-mindepth"_s, u"1"_s, u"-printf"_s, u"%P\n"_s});
        QVERIFY(find.waitForFinished(60'000));
        const QString told = QString::fromUtf8(find.readAllStandardOutput());
        QCOMPARE(found(), told.split(u'\n', Qt::SkipEmptyParts));
    }

    void linksAreListedAndNotEntered() {
        make(u"card/a.mov"_s);
        QCOMPARE(symlink("..", path(u"card/loop"_s).toUtf8().constData()), 0);
        QStringList paths = found();
        paths.sort();
        QCOMPARE(paths, QStringList({u"card"_s, u"card/a.mov"_s, u"card/loop"_s}));
    }

    void aLinkAsTheFolderItselfIsEntered() {
        make(u"card/a.mov"_s);
        QCOMPARE(symlink("card", path(u"link"_s).toUtf8().constData()), 0);
        QCOMPARE(subpathsAtPath(path(u"link"_s)).value(), QStringList(u"a.mov"_s));
    }

    void aFolderThatCannotBeListedFails() {
        QCOMPARE(subpathsAtPath(path(u"none"_s)).error().code, ErrorCode::notFound);
    }

    void progressEndsTheWalk() {
        make(u"a.mov"_s);
        make(u"b.mov"_s);
        qsizetype told = -1;
        const auto walked = subpathsAtPath(_folder->path(), [&](qsizetype done, qsizetype total) {
            told = done;
            return total != 0 || done < 1;
        });
        QCOMPARE(walked.error().code, ErrorCode::interrupted);
        QCOMPARE(told, 1);
    }
};

QTEST_APPLESS_MAIN(SubpathsTest)
#include "SubpathsTest.moc"
