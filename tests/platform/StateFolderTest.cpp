// Where the program's state stands.
#include "platform/StateFolder.h"
#include "platform/UserDefaults.h"

#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace marquill;

class StateFolderTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void withTheUsersSettingsItIsTheUsers() {
        UserDefaults::useFile(UserDefaults::standardPath());
        qputenv("XDG_STATE_HOME", "/somewhere/state");
        QCOMPARE(stateFolder(), u"/somewhere/state/marquill"_s);
        qputenv("XDG_STATE_HOME", "not/absolute");
        QCOMPARE(stateFolder(), QDir::homePath() + u"/.local/state/marquill"_s);
        qunsetenv("XDG_STATE_HOME");
        QCOMPARE(stateFolder(), QDir::homePath() + u"/.local/state/marquill"_s);
    }

    void withOtherSettingsItStandsBesideThem() {
        const QTemporaryDir folder;
        UserDefaults::useFile(folder.path() + u"/a.plist"_s);
        QCOMPARE(stateFolder(), folder.path() + u"/a.plist.state"_s);
        UserDefaults::useFile(folder.path() + u"/b.plist"_s);
        QCOMPARE(stateFolder(), folder.path() + u"/b.plist.state"_s);
        QDir::setCurrent(folder.path());
        UserDefaults::useFile(u"c.plist"_s);
        QCOMPARE(stateFolder(), QDir::currentPath() + u"/c.plist.state"_s);
    }
};

QTEST_GUILESS_MAIN(StateFolderTest)
#include "StateFolderTest.moc"
