#include "clipstore/ClipFolder.h"
#include "clipstore/ClipStore.h"
#include "commandline/PlaceholderChoice.h"

#include <QTest>

using namespace marquill;

// What a command writes back into clips that others write too.
class PlaceholderChoiceTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ClipFolder> _folder;

    void makeClip(const QString& name, const QString& scene) const {
        ClipInfo clip;
        clip.setClipName(name);
        clip.setClipScene(scene);
        QVERIFY(ClipStore::createProxyClip(clip, _folder->path()));
    }
    // Another program changes the clip.
    void changeElsewhere(const QString& name, const QString& scene, const QString& comment) const {
        ClipInfo clip = stored(name);
        clip.setClipScene(scene);
        clip.setClipComment(comment);
        QVERIFY(ClipStore::writeClipInfo(clip, _folder->path()));
    }
    ClipInfo stored(const QString& name) const {
        return ClipStore::infoForClip(_folder->path(name)).value_or(ClipInfo());
    }

  private Q_SLOTS:
    void init() {
        _folder = std::make_unique<ClipFolder>();
        makeClip(u"A#01.xml"_s, u"old"_s);
        makeClip(u"B#01.xml"_s, u"old"_s);
    }

    void whatOthersWroteMeanwhileIsKept() {
        const PlaceholderChoice choice = choosePlaceholders(_folder->path(), {"A#01"});
        ClipInfo clip = choice.clips.front().deepCopy();
        clip.setClipPath(u"/media/a.mov"_s);
        changeElsewhere(u"A#01.xml"_s, u"theirs"_s, u"theirs"_s);
        QCOMPARE(writeChanges({clip}, _folder->path(), *choice.shared), std::vector{true});
        QCOMPARE(stored(u"A#01.xml"_s).clipPath(), std::optional(u"/media/a.mov"_s));
        QCOMPARE(stored(u"A#01.xml"_s).clipScene(), std::optional(u"theirs"_s));
        QCOMPARE(stored(u"A#01.xml"_s).clipComment(), std::optional(u"theirs"_s));
    }

    void whatOthersChangedTooIsLeftAsItIs() {
        const PlaceholderChoice choice = choosePlaceholders(_folder->path(), {"A#01", "B#01"});
        std::vector<ClipInfo> clips;
        for (const ClipInfo& clip : choice.clips) {
            clips.push_back(clip.deepCopy());
            clips.back().setClipScene(u"new"_s);
        }
        changeElsewhere(u"A#01.xml"_s, u"theirs"_s, u"theirs"_s);
        QCOMPARE(writeChanges(clips, _folder->path(), *choice.shared), std::vector({false, true}));
        QCOMPARE(stored(u"A#01.xml"_s).clipScene(), std::optional(u"theirs"_s));
        QCOMPARE(stored(u"B#01.xml"_s).clipScene(), std::optional(u"new"_s));
    }

    void aClipThatIsDeletedMeanwhileIsNotMadeAnew() {
        const PlaceholderChoice choice = choosePlaceholders(_folder->path(), {"A#01"});
        ClipInfo clip = choice.clips.front();
        clip.setClipScene(u"new"_s);
        QVERIFY(QFile::remove(_folder->path(u"A#01.xml"_s)));
        QCOMPARE(writeChanges({clip}, _folder->path(), *choice.shared), std::vector{false});
        QVERIFY(!QFile::exists(_folder->path(u"A#01.xml"_s)));
    }
};

QTEST_APPLESS_MAIN(PlaceholderChoiceTest)
#include "PlaceholderChoiceTest.moc"
