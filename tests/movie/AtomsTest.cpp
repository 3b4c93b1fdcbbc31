#include "movie/FragmentAtoms.h"
#include "movie/HeaderAtoms.h"
#include "movie/SampleTableAtoms.h"
#include "movie/UserData.h"

#include <QTest>

using namespace marquill;

/// Every atom that is understood: written, measured, read, compared; and its bytes once by hand.
class AtomsTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void headerAtomsSurvive();
    void sampleTableAtomsSurvive();
    void fragmentAtomsSurvive();
    void userDataSurvives();
    void truncatedAtomsEndEarly();

    void movieHeaderBytes();
    void editListBytes();
    void editListVersion1Bytes();
    void sampleDescriptionBytes();
    void trackRunBytes();
    void compactSampleSizesArePacked();
    void trackFragmentHeaderBytes();

    void countsBeyondTheAtomAreMalformed();
    void cutFieldsEndEarly();
    void newerVersionsAreUnsupported();
    void impossibleSizesAreMalformed();
    void longSizesAreRead();
    void unknownAtomsAndTailsAreKept();
    void codesAreToldInAscii();
    void rotationIsReadFromTheMatrix();
};

namespace {

template <class A>
void roundTrip(const A& value) {
    const Result<QByteArray> bytes = writeAtom(value);
    QVERIFY(bytes);
    const Result<AtomHeader> header = readAtomHeader(*bytes, 0, bytes->size());
    QVERIFY(header);
    QCOMPARE(header->type.text(), A::type.text());
    QCOMPARE(header->size, bytes->size());
    const Result<A> read = readAtomBody<A>(QByteArrayView(*bytes).sliced(8), 8);
    QVERIFY2(read, read ? "" : qPrintable(read.error().description()));
    QVERIFY(*read == value);
    QCOMPARE(*writeAtom(*read), *bytes);
}

/// Whatever is cut off an atom of fixed size is noticed.
template <class A>
void cutEverywhere(const A& value) {
    const QByteArray body = writeAtom(value)->sliced(8);
    for (qsizetype size = 0; size < body.size(); ++size) {
        const Result<A> read = readAtomBody<A>(QByteArrayView(body).first(size), 100);
        QVERIFY(!read);
        QCOMPARE(read.error().code, ErrorCode::endsEarly);
        QVERIFY(*read.error().byteOffset >= 100 && *read.error().byteOffset <= 100 + size);
    }
}

MovieHeaderAtom movieHeader(quint8 version) {
    MovieHeaderAtom atom;
    atom.head = {.version = version, .flags = 0x010203};
    atom.creationTime = version == 1 ? 0x1122334455667788 : 0x11223344;
    atom.modificationTime = 5;
    atom.timeScale = 30000;
    atom.duration = version == 1 ? 0x100000000 : 0xFFFFFFFE;
    atom.reserved = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    atom.matrix.values = {1, -2, 3, -4, 5, -6, 7, -8, 9};
    atom.previewAndSelection = {1, 2, 3, 4, 5, 6};
    atom.nextTrackId = 7;
    return atom;
}

TrackHeaderAtom trackHeader(quint8 version) {
    TrackHeaderAtom atom;
    atom.head = {.version = version, .flags = 7};
    atom.creationTime = 1;
    atom.modificationTime = 2;
    atom.trackId = 3;
    atom.reserved1 = 4;
    atom.duration = version == 1 ? 0x500000000 : 5;
    atom.reserved2 = {6, 7};
    atom.layer = 8;
    atom.alternateGroup = 9;
    atom.volume = 10;
    atom.reserved3 = 11;
    atom.width = 12;
    atom.height = 13;
    return atom;
}

MediaHeaderAtom mediaHeader(quint8 version) {
    MediaHeaderAtom atom;
    atom.head.version = version;
    atom.creationTime = 1;
    atom.modificationTime = 2;
    atom.timeScale = 3;
    atom.duration = version == 1 ? 0x400000000 : 4;
    atom.language = 5;
    atom.quality = 6;
    return atom;
}

EditListAtom editList(quint8 version) {
    EditListAtom atom;
    atom.head.version = version;
    atom.entries = {{.duration = 100, .mediaTime = -1, .rate = 0x10000},
                    {.duration = version == 1 ? 0x500000000U : 500, .mediaTime = 42, .rate = -0x8000}};
    return atom;
}

VisualSampleDescription visualDescription() {
    VisualSampleDescription visual;
    visual.version = 1;
    visual.revision = 2;
    visual.vendor = FourCharCode("mrql");
    visual.temporalQuality = 3;
    visual.spatialQuality = 4;
    visual.width = 1920;
    visual.height = 1080;
    visual.dataSize = 5;
    visual.compressorName = {4, 'J', 'P', 'E', 'G'};
    visual.extensions.atoms = {{.type = "fiel", .body = "\1\2"}};
    visual.extensions.tail = QByteArray(4, '\0');
    return visual;
}

QByteArray bodyOf(VisualSampleDescription visual) {
    AtomStream stream;
    visual.transfer(stream);
    return stream.written();
}

}  // namespace

void AtomsTest::headerAtomsSurvive() {
    for (const quint8 version : {quint8{0}, quint8{1}}) {
        roundTrip(movieHeader(version));
        roundTrip(trackHeader(version));
        roundTrip(mediaHeader(version));
        roundTrip(editList(version));
    }
    HandlerAtom handler;
    handler.componentType = FourCharCode("mhlr");
    handler.handler = FourCharCode("vide");
    handler.reserved = {1, 2, 3};
    handler.name = "\5Video";
    roundTrip(handler);
    roundTrip(DataCompressionAtom{.algorithm = "zlib"});
    roundTrip(CompressedMovieDataAtom{.inflatedSize = 99, .data = "deflated"});
    roundTrip(DataReferenceAtom{.flags = 1, .referenceType = "url ", .reference = "movie.mov"});
}

void AtomsTest::sampleTableAtomsSurvive() {
    SampleDescriptionAtom descriptions;
    descriptions.entries = {{.format = "avc1", .rest = bodyOf(visualDescription())},
                            {.format = "raw ", .rest = {}}};
    roundTrip(descriptions);
    roundTrip(CleanApertureAtom{1, 2, 3, 4, -5, 6, -7, 8});
    roundTrip(PixelAspectRatioAtom{40, 33});
    TimeToSampleAtom times;
    times.entries = {{.count = 1, .duration = 1001}, {.count = 0xFFFFFFFF, .duration = 0}};
    roundTrip(times);
    roundTrip(TimeToSampleAtom{});
    CompositionOffsetAtom offsets;
    offsets.head.version = 1;
    offsets.entries = {{.count = 1, .offset = -1001}, {.count = 2, .offset = 2002}};
    roundTrip(offsets);
    SampleSizeAtom sizes;
    sizes.sampleCount = 3;
    sizes.sizes = {1, 2, 3};
    roundTrip(sizes);
    roundTrip(SampleSizeAtom{.head = {}, .sampleSize = 4, .sampleCount = 4000000000, .sizes = {}});
    for (const quint8 bits : {quint8{4}, quint8{8}, quint8{16}}) {
        roundTrip(CompactSampleSizeAtom{
            .fieldSize = bits, .sampleCount = 3, .sizes = QByteArray((3 * bits + 7) / 8, 'x')});
    }

    VisualSampleDescription visual = visualDescription();
    VisualSampleDescription read;
    const QByteArray bytes = bodyOf(visual);
    AtomStream stream(bytes, 0);
    read.transfer(stream);
    QVERIFY(stream.result());
    QVERIFY(read == visual);
    visual.depth = 1;
    visual.colorTableId = 0;
    visual.colorTable = QByteArray(8 + 2 * 8, 'c');
    const QByteArray colored = bodyOf(visual);
    AtomStream coloredStream(colored, 0);
    VisualSampleDescription coloredRead;
    coloredRead.transfer(coloredStream);
    QVERIFY(coloredRead == visual);
}

void AtomsTest::fragmentAtomsSurvive() {
    roundTrip(MovieExtendsHeaderAtom{.head = {}, .duration = 77});
    roundTrip(MovieExtendsHeaderAtom{.head = {.version = 1}, .duration = 0x700000000});
    roundTrip(TrackExtendsAtom{.head = {},
                               .trackId = 1,
                               .sampleDescriptionIndex = 2,
                               .sampleDuration = 3,
                               .sampleSize = 4,
                               .sampleFlags = 5});
    TrackFragmentHeaderAtom header;
    header.trackId = 1;
    roundTrip(header);
    header.head.flags = 0x2003B;
    header.baseDataOffset = 0x1234567890;
    header.sampleDescriptionIndex = 1;
    header.sampleDuration = 2;
    header.sampleSize = 3;
    header.sampleFlags = 4;
    roundTrip(header);
    roundTrip(TrackFragmentDecodeTimeAtom{.head = {}, .baseMediaDecodeTime = 8});
    roundTrip(TrackFragmentDecodeTimeAtom{.head = {.version = 1}, .baseMediaDecodeTime = 0x800000000});
    TrackRunAtom run;
    run.sampleCount = 500;
    roundTrip(run);
    run.head.flags = 0xF05;
    run.sampleCount = 2;
    run.dataOffset = -1;
    run.firstSampleFlags = 6;
    run.samples = {{1, 2, 3, 4}, {5, 6, 7, -8}};
    roundTrip(run);
    run.head.flags = 0x800;
    run.dataOffset.reset();
    run.firstSampleFlags.reset();
    run.samples = {{.compositionOffset = 4}, {.compositionOffset = -8}};
    roundTrip(run);
}

void AtomsTest::userDataSurvives() {
    UserData list;
    roundTrip(list);
    QVERIFY(list.setItem("KVXN", 1, "record"));
    QVERIFY(list.setItem("\xa9nam", 1, {}));
    roundTrip(list);
}

void AtomsTest::truncatedAtomsEndEarly() {
    for (const quint8 version : {quint8{0}, quint8{1}}) {
        cutEverywhere(movieHeader(version));
        cutEverywhere(trackHeader(version));
        cutEverywhere(mediaHeader(version));
    }
    cutEverywhere(CleanApertureAtom{});
    cutEverywhere(PixelAspectRatioAtom{});
    cutEverywhere(TrackExtendsAtom{});
    cutEverywhere(MovieExtendsHeaderAtom{.head = {.version = 1}});
    cutEverywhere(DataCompressionAtom{});
}

void AtomsTest::movieHeaderBytes() {
    MovieHeaderAtom atom;
    atom.creationTime = 1;
    atom.modificationTime = 2;
    atom.duration = 1200;
    atom.nextTrackId = 3;
    QCOMPARE(writeAtom(atom)->toHex(),
             "0000006c6d766864"
             "00000000"
             "00000001"
             "00000002"
             "00000258"
             "000004b0"
             "00010000"
             "0100"
             "00000000000000000000"
             "00010000"
             "00000000"
             "00000000"
             "00000000"
             "00010000"
             "00000000"
             "00000000"
             "00000000"
             "40000000"
             "000000000000000000000000000000000000000000000000"
             "00000003");
}

void AtomsTest::editListBytes() {
    QCOMPARE(writeAtom(editList(0))->toHex(),
             "00000028656c7374"
             "00000000"
             "00000002"
             "00000064"
             "ffffffff"
             "00010000"
             "000001f4"
             "0000002a"
             "ffff8000");
}

void AtomsTest::editListVersion1Bytes() {
    QCOMPARE(writeAtom(editList(1))->toHex(),
             "00000038656c7374"
             "01000000"
             "00000002"
             "0000000000000064"
             "ffffffffffffffff"
             "00010000"
             "0000000500000000"
             "000000000000002a"
             "ffff8000");
}

void AtomsTest::sampleDescriptionBytes() {
    SampleDescriptionAtom atom;
    VisualSampleDescription visual;
    visual.width = 320;
    visual.height = 240;
    atom.entries = {{.format = "jpeg", .rest = bodyOf(visual)}};
    const QByteArray bytes = *writeAtom(atom);
    QCOMPARE(bytes.size(), 16 + 86);
    QCOMPARE(bytes.toHex().first(2 * 32),
             "0000006673747364"
             "00000000"
             "00000001"
             "000000566a706567"
             "0000000000000001");
    // Width and height stand 24 bytes into what the media says, see "Video sample description".
    QCOMPARE(bytes.sliced(16 + 32, 4).toHex(), "014000f0");
}

void AtomsTest::trackRunBytes() {
    TrackRunAtom run;
    run.head.flags = 0x301;
    run.sampleCount = 1;
    run.dataOffset = 64;
    run.samples = {{.duration = 512, .size = 9}};
    QCOMPARE(writeAtom(run)->toHex(),
             "0000001c7472756e"
             "00000301"
             "00000001"
             "00000040"
             "00000200"
             "00000009");
}

void AtomsTest::compactSampleSizesArePacked() {
    const CompactSampleSizeAtom atom{.fieldSize = 4, .sampleCount = 3, .sizes = QByteArray::fromHex("1230")};
    QCOMPARE(writeAtom(atom)->toHex(),
             "0000001673747a32"
             "00000000"
             "00000004"
             "00000003"
             "1230");
}

void AtomsTest::trackFragmentHeaderBytes() {
    TrackFragmentHeaderAtom atom;
    atom.head.flags = 0x020008;
    atom.trackId = 2;
    atom.sampleDuration = 1001;
    QCOMPARE(writeAtom(atom)->toHex(),
             "0000001474666864"
             "00020008"
             "00000002"
             "000003e9");
}

void AtomsTest::countsBeyondTheAtomAreMalformed() {
    const QByteArray body = QByteArray::fromHex(
        "00000000"
        "ffffffff"
        "0000000100000001");
    const auto times = readAtomBody<TimeToSampleAtom>(body, 1000);
    QVERIFY(!times);
    QCOMPARE(times.error().code, ErrorCode::malformed);
    QCOMPARE(times.error().byteOffset, 1008);
    QVERIFY(!readAtomBody<EditListAtom>(body, 0));
    QVERIFY(!readAtomBody<CompositionOffsetAtom>(body, 0));
    QVERIFY(!readAtomBody<SampleDescriptionAtom>(body, 0));
    QCOMPARE(readAtomBody<SampleSizeAtom>(QByteArray::fromHex("00000000"
                                                              "00000000"
                                                              "7fffffff"),
                                          0)
                 .error()
                 .code,
             ErrorCode::malformed);
    QCOMPARE(readAtomBody<CompactSampleSizeAtom>(QByteArray::fromHex("00000000"
                                                                     "00000010"
                                                                     "ffffffff"),
                                                 0)
                 .error()
                 .code,
             ErrorCode::malformed);
    QCOMPARE(readAtomBody<TrackRunAtom>(QByteArray::fromHex("00000f00"
                                                            "ffffffff"),
                                        0)
                 .error()
                 .code,
             ErrorCode::malformed);
    QCOMPARE(readAtomBody<DataReferenceAtom>(QByteArray::fromHex("00000000"
                                                                 "75726c20"
                                                                 "ffffffff"),
                                             0)
                 .error()
                 .code,
             ErrorCode::malformed);
}

void AtomsTest::cutFieldsEndEarly() {
    const auto times = readAtomBody<TimeToSampleAtom>(QByteArray::fromHex("00000000"
                                                                          "0000"),
                                                      50);
    QCOMPARE(times.error().code, ErrorCode::endsEarly);
    QCOMPARE(times.error().byteOffset, 54);
    QVERIFY(times.error().message.contains(u"'stts'"_s));
}

void AtomsTest::newerVersionsAreUnsupported() {
    MovieHeaderAtom atom;
    atom.head.version = 2;
    QVERIFY(!writeAtom(atom));
    QByteArray bytes = *writeAtom(MovieHeaderAtom{});
    bytes[8] = 2;
    QCOMPARE(readAtomBody<MovieHeaderAtom>(QByteArrayView(bytes).sliced(8), 8).error().code,
             ErrorCode::unsupported);
}

void AtomsTest::impossibleSizesAreMalformed() {
    const auto code = [](const char* hex) {
        const Result<AtomHeader> header = readAtomHeader(QByteArray::fromHex(hex), 10, 1000);
        return header ? std::nullopt : std::optional(header.error().code);
    };
    QCOMPARE(code("000000076d6f6f76"), ErrorCode::malformed);
    QCOMPARE(code("000000026d6f6f76"), ErrorCode::malformed);
    QCOMPARE(code("000000016d6f6f76"
                  "000000000000000f"),
             ErrorCode::malformed);
    QCOMPARE(code("000000016d6f6f76"
                  "ffffffffffffffff"),
             ErrorCode::malformed);
    QCOMPARE(code("000000016d6f6f76"
                  "7fffffffffffffff"),
             ErrorCode::malformed);
    QCOMPARE(code("000000016d6f6f76"
                  "0000"),
             ErrorCode::endsEarly);
    QCOMPARE(code("000000086d6f"), ErrorCode::endsEarly);
    QCOMPARE(code("000000086d6f6f76"), std::nullopt);
}

void AtomsTest::longSizesAreRead() {
    const auto header = readAtomHeader(QByteArray::fromHex("000000016d646174"
                                                           "0000000500000010"),
                                       32, 1000);
    QCOMPARE(header->size, 0x500000010);
    QCOMPARE(header->bodyOffset(), 48);
    const auto toEnd = readAtomHeader(QByteArray::fromHex("000000006d646174"), 32, 1000);
    QCOMPARE(toEnd->size, 968);
    QVERIFY(toEnd->reachesToEnd);
}

void AtomsTest::unknownAtomsAndTailsAreKept() {
    const QByteArray bytes = QByteArray::fromHex(
        "0000000a"
        "61626364"
        "0102"
        "00000001"
        "78797a20"
        "0000000000000011"
        "ff"
        "00000000");
    AtomList list;
    AtomStream reader(bytes, 0);
    list.transfer(reader);
    QVERIFY(reader.result());
    QCOMPARE(list.atoms.size(), std::size_t{2});
    QCOMPARE(list.find("xyz ")->body.toHex(), "ff");
    QVERIFY(list.find("xyz ")->hasLongSize);
    QCOMPARE(list.tail, QByteArray(4, '\0'));
    QCOMPARE(list.size(), bytes.size());
    AtomStream writer;
    list.transfer(writer);
    QCOMPARE(writer.written().toHex(), bytes.toHex());
}

void AtomsTest::codesAreToldInAscii() {
    QCOMPARE(FourCharCode("moov").text(), u"moov"_s);
    QCOMPARE(FourCharCode("\xa9nam").text(), uR"(\xa9nam)"_s);
    QCOMPARE(FourCharCode(0x00FF5C20).text(), uR"(\x00\xff\x5c )"_s);
    QCOMPARE(FourCharCode("KVXN").value(), 0x4B56584EU);
}

void AtomsTest::rotationIsReadFromTheMatrix() {
    constexpr qint32 one = 0x10000;
    const auto rotation = [](qint32 a, qint32 b, qint32 c, qint32 d) {
        return Matrix{.values = {a, b, 0, c, d, 0, 0, 0, 0x40000000}}.rotation();
    };
    QCOMPARE(rotation(one, 0, 0, one), 0);
    QCOMPARE(rotation(0, one, -one, 0), 90);
    QCOMPARE(rotation(-one, 0, 0, -one), 180);
    QCOMPARE(rotation(0, -one, one, 0), 270);
    QCOMPARE(rotation(0, 0, 0, 0), 0);
}

QTEST_APPLESS_MAIN(AtomsTest)
#include "AtomsTest.moc"
