// Window descriptions: missing ones, broken ones, and fields that are not there.
#include "platform/Literals.h"
#include "platform/WindowDescription.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

using namespace marquill;

namespace {

class SpecialLabel : public QLabel {
  public:
    using QLabel::QLabel;
};

QByteArray description(const QByteArray& content) {
    return "<ui version=\"4.0\"><widget class=\"QWidget\" name=\"Panel\">" + content + "</widget></ui>";
}

}  // namespace

class WindowDescriptionTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _folder;

    void write(const QByteArray& content) const {
        QFile file(_folder->filePath(u"Panel.ui"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }

  private Q_SLOTS:
    void init() {
        _folder = std::make_unique<QTemporaryDir>();
        WindowDescription::useFolder(_folder->path());
    }

    void cleanup() { WindowDescription::useFolder(u":/windows"_s); }

    void theProgramsOwnDescriptionsAreInItsResources() {
        WindowDescription::useFolder(u":/windows"_s);
        for (const QString& name : {u"ClipManager"_s, u"MarkerSets"_s, u"OfflineRecorder"_s}) {
            QVERIFY2(QFile::exists(u":/windows/"_s + name + u".ui"_s), qPrintable(name));
        }
    }

    void aMissingDescriptionIsAnErrorWithItsPath() {
        const auto window = WindowDescription::load(u"Panel"_s);
        QVERIFY(!window);
        QCOMPARE(window.error().code, ErrorCode::notFound);
        QCOMPARE(window.error().path, _folder->filePath(u"Panel.ui"_s));
    }

    void aBrokenDescriptionIsAnErrorWithItsPath_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("ends early") << QByteArray("<ui version=\"4.0\"><widget class=\"QWidget\">");
        QTest::newRow("another format") << QByteArray("<plist version=\"1.0\"><dict/></plist>");
    }
    void aBrokenDescriptionIsAnErrorWithItsPath() {
        QFETCH(const QByteArray, content);
        write(content);
        const auto window = WindowDescription::load(u"Panel"_s);
        QVERIFY(!window);
        QCOMPARE(window.error().code, ErrorCode::malformed);
        QCOMPARE(window.error().path, _folder->filePath(u"Panel.ui"_s));
    }

    void aClassThatNobodyRegisteredIsAnError() {
        write(description("<widget class=\"UnheardOf\" name=\"_field\"/>"));
        const auto window = WindowDescription::load(u"Panel"_s);
        QVERIFY(!window);
        QCOMPARE(window.error().code, ErrorCode::malformed);
        QVERIFY2(window.error().message.contains(u"UnheardOf"_s), qPrintable(window.error().message));
    }

    void aRegisteredClassIsMadeUnderItsName() {
        WindowDescription::registerWidget<SpecialLabel>(u"SpecialLabel"_s);
        write(description("<widget class=\"SpecialLabel\" name=\"_label\"/>"));
        const auto window = WindowDescription::load(u"Panel"_s);
        QVERIFY(window);
        QCOMPARE((*window)->objectName(), u"Panel"_s);
        QVERIFY(dynamic_cast<SpecialLabel*>((*window)->findChild<QLabel*>(u"_label"_s)));
    }

    void fieldsThatAreThereAreConnected() {
        write(description("<widget class=\"QLabel\" name=\"_label\"/>"));
        const auto window = WindowDescription::load(u"Panel"_s);
        QVERIFY(window);
        QLabel* label = nullptr;
        Outlets outlets(**window);
        outlets.connect(label, u"_label"_s);
        QVERIFY(outlets.check());
        QVERIFY(label);
    }

    void missingFieldsAndThoseOfAnotherClassAreNamed() {
        write(description("<widget class=\"QLabel\" name=\"_label\"/>"));
        const auto window = WindowDescription::load(u"Panel"_s);
        QVERIFY(window);
        QLineEdit* label = nullptr;
        QLineEdit* field = nullptr;
        Outlets outlets(**window);
        outlets.connect(label, u"_label"_s);
        outlets.connect(field, u"_field"_s);
        const Result<void> checked = outlets.check();
        QVERIFY(!checked);
        QCOMPARE(checked.error().code, ErrorCode::malformed);
        QVERIFY(checked.error().message.endsWith(u"_label, _field"_s));
        QVERIFY(!label);
        QVERIFY(!field);
    }
};

QTEST_MAIN(WindowDescriptionTest)
#include "WindowDescriptionTest.moc"
