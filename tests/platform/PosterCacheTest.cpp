#include "platform/FaultyFileSystem.h"
#include "platform/Files.h"
#include "platform/Literals.h"
#include "platform/PosterCache.h"

#include <QTemporaryDir>
#include <QTest>

#include <utime.h>

using namespace marquill;

namespace {

FileAttributes movie(quint64 inode = 7) {
    FileAttributes movie;
    movie.type = FileType::regular;
    movie.device = 3;
    movie.inode = inode;
    movie.size = 1000;
    movie.modificationDate = Date(std::chrono::duration<double>(1'795'248'300.25));
    return movie;
}

QImage picture(const QColor& colour = Qt::red) {
    QImage picture(64, 36, QImage::Format_RGB32);
    picture.fill(colour);
    return picture;
}

}  // namespace

class PosterCacheTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<QTemporaryDir> _place;

    QString folder() const { return _place->filePath(u"marquill/posters"_s); }
    QStringList files() const {
        QStringList names = FileSystem::system().list(folder()).value_or(QStringList());
        names.sort();
        return names;
    }

    void setAge(const QString& path, int seconds) const {
        const utimbuf times{.actime = 1'700'000'000 - seconds, .modtime = 1'700'000'000 - seconds};
        QCOMPARE(utime(QFile::encodeName(path).constData(), &times), 0);
    }

  private Q_SLOTS:
    void init() { _place = std::make_unique<QTemporaryDir>(); }

    void whatWasWrittenIsRead() {
        PosterCache cache(folder());
        QVERIFY(!cache.read(movie()));
        QVERIFY(cache.write(movie(), picture()));
        const std::optional<QImage> read = cache.read(movie());
        QVERIFY(read);
        QCOMPARE(read->size(), QSize(64, 36));
        QVERIFY(qAbs(qRed(read->pixel(30, 20)) - 255) < 4);
        // Another program that runs reads it too.
        QVERIFY(PosterCache(folder()).read(movie()));
    }

    void anotherMovieHasAnotherPicture_data() {
        QTest::addColumn<quint64>("device");
        QTest::addColumn<quint64>("inode");
        QTest::addColumn<qint64>("size");
        QTest::addColumn<double>("date");
        QTest::newRow("device") << quint64{4} << quint64{7} << qint64{1000} << 1'795'248'300.25;
        QTest::newRow("inode") << quint64{3} << quint64{8} << qint64{1000} << 1'795'248'300.25;
        QTest::newRow("size") << quint64{3} << quint64{7} << qint64{1001} << 1'795'248'300.25;
        QTest::newRow("date") << quint64{3} << quint64{7} << qint64{1000} << 1'795'248'300.5;
    }
    void anotherMovieHasAnotherPicture() {
        QFETCH(const quint64, device);
        QFETCH(const quint64, inode);
        QFETCH(const qint64, size);
        QFETCH(const double, date);
        PosterCache cache(folder());
        QVERIFY(cache.write(movie(), picture()));
        FileAttributes other = movie();
        other.device = device;
        other.inode = inode;
        other.size = size;
        other.modificationDate = Date(std::chrono::duration<double>(date));
        QVERIFY(!cache.read(other));
        QVERIFY(cache.pathFor(other) != cache.pathFor(movie()));
    }

    void damagedFilesCountAsAbsent_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("no picture");
        QTest::newRow("nothing between its ends") << QByteArray("\xff\xd8\xff\xd9");
    }
    void damagedFilesCountAsAbsent() {
        QFETCH(const QByteArray, bytes);
        PosterCache cache(folder());
        QVERIFY(cache.write(movie(), picture()));
        QVERIFY(writeFile(cache.pathFor(movie()), bytes));
        QVERIFY(!cache.read(movie()));
        QVERIFY(cache.write(movie(), picture()));
        QVERIFY(cache.read(movie()));
    }

    void aPictureThatWasCutOffCountsAsAbsent() {
        PosterCache cache(folder());
        QVERIFY(cache.write(movie(), picture()));
        const QByteArray bytes = *readFile(cache.pathFor(movie()));
        QVERIFY(writeFile(cache.pathFor(movie()), QByteArrayView(bytes).first(bytes.size() / 2)));
        QVERIFY(!cache.read(movie()));
    }

    void theOldestGoWhereThereIsNoRoom() {
        PosterCache cache(folder());
        for (quint64 inode = 1; inode <= 20; ++inode) {
            QVERIFY(cache.write(movie(inode), picture()));
            setAge(cache.pathFor(movie(inode)), static_cast<int>(inode));
        }
        const qint64 each = FileSystem::system().attributes(cache.pathFor(movie(1)), Links::keep)->size;
        PosterCache bounded(folder(), each * 10);
        QVERIFY(bounded.write(movie(99), picture()));
        // Nine of ten stay, the youngest of them: the one written now and 1 to 8.
        QCOMPARE(files().size(), 9);
        QVERIFY(bounded.read(movie(99)));
        QVERIFY(bounded.read(movie(8)));
        QVERIFY(!bounded.read(movie(9)));
    }

    void aFolderThatCannotBeWrittenIsToldAndHurtsNothing() {
        QVERIFY(writeFile(_place->filePath(u"marquill"_s), "a file"));
        PosterCache cache(folder());
        QVERIFY(!cache.write(movie(), picture()));
        QVERIFY(!cache.read(movie()));
        QCOMPARE(*readFile(_place->filePath(u"marquill"_s)), QByteArray("a file"));
    }

    void usersFolderIsInTheCache() {
        qputenv("XDG_CACHE_HOME", QFile::encodeName(_place->path()));
        QCOMPARE(PosterCache::usersFolder(), _place->filePath(u"marquill/posters"_s));
    }
};

QTEST_GUILESS_MAIN(PosterCacheTest)
#include "PosterCacheTest.moc"
