// What the settings keep of the record folder list.
#include "folders/FolderList.h"

using namespace marquill;

class RecordFolderSettingsTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void savedFoldersComeBackAsCopies() {
        List list;
        list.b.setBusyCount(1);
        Dictionary settings;
        list.controller.writeSettings(settings);
        QCOMPARE(settings.string(u"kRecordFolderPath"), list.path(u"a"_s));
        settings = settings.deepCopy();
        settings.freeze();

        List other;
        other.controller.restoreFromSettings(settings);
        QCOMPARE(other.paths(), list.paths());
        QVERIFY(other.controller.recordingFolder());
        QCOMPARE(other.controller.recordingFolder()->folderPath(), list.path(u"a"_s));
        QCOMPARE(other.controller.folderArray()[1].busyCount(), 1);
        QVERIFY(FolderRecord(other.controller.folderArray()[1]).setFolderName(u"mutable"_s));
        QVERIFY(other.dialogs.alerts.isEmpty());
    }

    void savedWithoutARecordingFolderHasNoPath() {
        List list;
        list.controller.setRecordingFolder(std::nullopt);
        Dictionary settings;
        list.controller.writeSettings(settings);
        QVERIFY(!settings.contains(u"kRecordFolderPath"));
        QCOMPARE(settings.array(u"kRecordFolderArray")->size(), 3);
    }

    void savedRecordingFolderThatVanishedIsRefusedAtTheStart() {
        List list;
        Dictionary settings;
        list.controller.writeSettings(settings);
        QVERIFY(QDir().rmdir(list.path(u"a"_s)));
        list.controller.setRecordingFolder(std::nullopt);
        list.forget();
        list.controller.restoreFromSettings(settings);
        QCOMPARE(list.alert(), noValidRecordingFolder);
        QVERIFY(!list.controller.recordingFolder());
        QCOMPARE(list.paths().size(), 3);
    }

    void firstRecordOfThatPathBecomesTheRecordingFolder() {
        List list;
        const Dictionary twin = list.b.record();
        list.controller.restoreFromSettings(
            Dictionary{{u"kRecordFolderArray"_s, Array{twin, twin.deepCopy(), u"no record"_s}},
                       {u"kRecordFolderPath"_s, list.path(u"b"_s)}});
        QCOMPARE(list.paths().size(), 2);
        QVERIFY(list.isRecordingFolder(list.controller.folderArray()[0]));
        QVERIFY(!list.isRecordingFolder(list.b));
    }

    void pathWithoutAListRestoresNothing() {
        List list;
        list.controller.setRecordingFolder(std::nullopt);
        list.controller.restoreFromSettings(Dictionary{{u"kRecordFolderPath"_s, list.path(u"b"_s)}});
        QVERIFY(!list.controller.recordingFolder());
        QCOMPARE(list.paths().size(), 3);
    }
};

QTEST_MAIN(RecordFolderSettingsTest)
#include "RecordFolderSettingsTest.moc"
