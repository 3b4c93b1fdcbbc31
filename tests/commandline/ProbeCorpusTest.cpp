#include "movie/MovieTools.h"
#include "platform/Literals.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTest>

using namespace marquill;

namespace {

using Row = QHash<QString, QString>;

struct Outcome {
    int status = -1;
    QByteArray output;
    QByteArray errors;
};

Outcome probe(const QString& path) {
    QProcess process;
    process.start(QStringLiteral(MARQUILL_PROGRAM), {u"probe"_s, path, u"--json"_s});
    if (!process.waitForFinished(60'000) || process.exitStatus() != QProcess::NormalExit) {
        return {};
    }
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

/// The types within `[["XMP_", "\\xa9TIM"]]`, with single backslashes; in the file every quote stands twice.
QJsonArray itemTypes(QString text) {
    text.replace(u"\"\""_s, u"\""_s);
    const qsizetype begin = text.indexOf(u'[');
    text = text.sliced(begin, text.lastIndexOf(u']') + 1 - begin);
    return QJsonDocument::fromJson(text.toUtf8())[0].toArray();
}

/// The others have no header, one that the file's end cuts off, or one without duration and time scale. Some
/// programs guess on there; this one tells what is wrong.
bool isReadable(const Row& row) {
    return !row[u"mvhd_dur"_s].isEmpty() && !row[u"notes"_s].contains(u"moov truncated"_s);
}

}  // namespace

/// `marquill probe` beside what other programs read in movies that are not ours; see the README.md of
/// ../shared/corpus. Skipped where that folder is not there.
class ProbeCorpusTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase();
    void readableMoviesGiveTheFactsOfTheManifest();
    void brokenMoviesFailWithPathOffsetAndCause();

  private:
    QString pathOf(const Row& row) const { return _folder + u'/' + row[u"file"_s]; }
    void compareMovie(const Row& row, const QJsonObject& json);
    void compareUserData(const Row& row, const QJsonValue& userData);
    void compareTracks(const Row& row, const QJsonObject& json);
    void compareFirstVideo(const Row& row, const QJsonObject& video, bool fragmented);

    QString _folder;
    QList<Row> _rows;
};

void ProbeCorpusTest::initTestCase() {
    _folder = qEnvironmentVariable("MARQUILL_SOURCE_DIR", u"."_s) + u"/../shared/corpus/movies"_s;
    const QList<QByteArray> lines = readBytes(_folder + u"/MANIFEST.tsv"_s).split('\n');
    if (lines.size() < 2) {
        QSKIP("../shared/corpus/movies is not there; its movies are left out.");
    }
    const QStringList keys = QString::fromUtf8(lines.first()).split(u'\t');
    for (const QByteArray& line : lines.mid(1)) {
        const QStringList values = QString::fromUtf8(line).split(u'\t');
        if (line.isEmpty()) {
            continue;
        }
        QCOMPARE(values.size(), keys.size());
        Row row;
        for (qsizetype index = 0; index < keys.size(); ++index) {
            row[keys[index]] = values[index];
        }
        _rows.append(row);
    }
    QVERIFY(_rows.size() > 30);
}

void ProbeCorpusTest::readableMoviesGiveTheFactsOfTheManifest() {
    int compared = 0;
    for (const Row& row : _rows) {
        if (!isReadable(row)) {
            continue;
        }
        const Outcome outcome = probe(pathOf(row));
        QVERIFY2(outcome.status == 0, outcome.errors);
        QCOMPARE(outcome.errors, QByteArray());
        compareMovie(row, QJsonDocument::fromJson(outcome.output).object());
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(row[u"file"_s]));
        ++compared;
    }
    qInfo("%d movies compared", compared);
    QVERIFY(compared > 25);
}

void ProbeCorpusTest::compareMovie(const Row& row, const QJsonObject& json) {
    QCOMPARE(json[u"path"].toString(), pathOf(row));
    QCOMPARE(json[u"timeScale"].toInteger(), row[u"mvhd_ts"_s].toLongLong());
    const bool fragmented = row[u"notes"_s].contains(u"fragmented"_s);
    QCOMPARE(json[u"fragmented"].toBool(!fragmented), fragmented);
    if (fragmented) {
        // The header says 0; the duration is that of the fragments behind it.
        QVERIFY(std::abs(json[u"seconds"].toDouble() - row[u"ff_dur"_s].toDouble()) < 0.01);
    } else {
        QCOMPARE(json[u"duration"].toInteger(), row[u"mvhd_dur"_s].toLongLong());
    }
    // A file without media has its header before all media that could follow.
    QCOMPARE(json[u"header"][u"beforeMedia"].toBool(), row[u"order"_s] != u"mdat-first"_s);
    compareUserData(row, json[u"userData"]);
    compareTracks(row, json);
}

void ProbeCorpusTest::compareUserData(const Row& row, const QJsonValue& userData) {
    QCOMPARE(userData.isArray(), row[u"has_udta"_s] == u"yes"_s);
    QCOMPARE(userData.isArray() ? 1 : 0, row[u"n_udta"_s].toInt());
    if (!userData.isArray()) {
        QVERIFY(userData.isNull());
        return;
    }
    QJsonArray types;
    for (const QJsonValue item : userData.toArray()) {
        types.append(item[u"type"]);
    }
    QCOMPARE(types, itemTypes(row[u"udta_items"_s]));
}

void ProbeCorpusTest::compareTracks(const Row& row, const QJsonObject& json) {
    QList<QJsonObject> videos;
    for (const QJsonValue track : json[u"tracks"].toArray()) {
        if (track[u"handler"].toString() == u"vide"_s) {
            videos.append(track.toObject());
        }
    }
    QCOMPARE(videos.size(), row[u"n_visual"_s].toInt());
    QCOMPARE(json[u"visual"].isNull(), videos.isEmpty());
    if (!videos.isEmpty()) {
        compareFirstVideo(row, videos.first(), json[u"fragmented"].toBool());
    }
}

void ProbeCorpusTest::compareFirstVideo(const Row& row, const QJsonObject& video, bool fragmented) {
    QCOMPARE(video[u"codec"].toString(), row[u"first_vis_fourcc"_s]);
    QCOMPARE(video[u"timeScale"].toInteger(), row[u"media_ts"_s].toLongLong());
    QVERIFY(video[u"width"].toInt() > 0 && video[u"height"].toInt() > 0);
    if (fragmented) {
        // The tables of the header are empty; the samples stand in the fragments, as ffprobe counts them.
        const auto packets =
            outputOf(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-select_streams"_s, u"v:0"_s, u"-count_packets"_s,
                                    u"-show_entries"_s, u"stream=nb_read_packets"_s, u"-of"_s,
                                    u"default=nw=1:nk=1"_s, pathOf(row)});
        QVERIFY(packets);
        QCOMPARE(video[u"sampleCount"].toInteger(), packets->trimmed().toLongLong());
        return;
    }
    QCOMPARE(video[u"sampleCount"].toInteger(), row[u"stsz_count"_s].toLongLong());
    QCOMPARE(video[u"duration"].toInteger(), row[u"media_dur"_s].toLongLong());
}

void ProbeCorpusTest::brokenMoviesFailWithPathOffsetAndCause() {
    int failed = 0;
    for (const Row& row : _rows) {
        if (isReadable(row)) {
            continue;
        }
        const Outcome outcome = probe(pathOf(row));
        QVERIFY2(outcome.status == 1, qPrintable(row[u"file"_s]));
        QCOMPARE(outcome.output, QByteArray());
        const QRegularExpression line(
            uR"(^marquill: %1: \S.*\S \(at byte (\d+)\)\n$)"_s.arg(QRegularExpression::escape(pathOf(row))));
        const QRegularExpressionMatch match = line.match(QString::fromUtf8(outcome.errors));
        QVERIFY2(match.hasMatch(), outcome.errors);
        QVERIFY2(match.captured(1).toLongLong() <= row[u"size"_s].toLongLong(), outcome.errors);
        ++failed;
    }
    qInfo("%d movies are broken", failed);
    QCOMPARE(failed, 6);
}

QTEST_GUILESS_MAIN(ProbeCorpusTest)
#include "ProbeCorpusTest.moc"
