#include "clipmanager/ClipAttributes.h"
#include "connect/MoviePreview.h"
#include "platform/ElidingLabel.h"
#include "platform/TableView.h"
#include "platform/WindowDescription.h"

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

using namespace marquill;

class ClipAttributesTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<QWidget> _window;
    std::unique_ptr<ClipAttributes> _editor;

    template <class Widget>
    Widget& outlet(const QString& name) {
        return *_window->findChild<Widget*>(name);
    }
    QLineEdit& field(const QString& name) { return outlet<QLineEdit>(name); }
    QComboBox& menu(const QString& name) { return outlet<QComboBox>(name); }

    static ClipInfo clip() {
        return ClipInfo(Dictionary{{u"clipName"_s, u"Interview#03.xml"_s},
                                   {u"clipScene"_s, u"12A"_s},
                                   {u"clipRating"_s, 4},
                                   {u"clipLabel"_s, u"Audio"_s},
                                   {u"clipComment"_s, u"two\nlines"_s}});
    }

  private Q_SLOTS:
    void init() {
        WindowDescription::registerWidget<TableView>(u"TableView"_s);
        WindowDescription::registerWidget<ElidingLabel>(u"ElidingLabel"_s);
        WindowDescription::registerWidget<MoviePreview>(u"MoviePreview"_s);
        Result<std::unique_ptr<QWidget>> loaded = WindowDescription::load(u"ClipManager"_s);
        QVERIFY(loaded);
        _window = std::move(*loaded);
        Result<std::unique_ptr<ClipAttributes>> editor = ClipAttributes::create(*_window);
        QVERIFY(editor);
        _editor = std::move(*editor);
        _editor->setLabels({u"Print"_s, u"Trash"_s, u"Audio"_s});
    }
    void cleanup() {
        _editor.reset();
        _window.reset();
    }

    void windowWithoutTheFieldsIsRefused() {
        QWidget empty;
        const auto editor = ClipAttributes::create(empty);
        QVERIFY(!editor);
        QVERIFY(editor.error().description().contains(u"_clipNameText"_s));
    }

    void fieldsShowTheRecord() {
        _editor->show(clip());
        QCOMPARE(field(u"_clipNameText"_s).text(), u"Interview"_s);
        QCOMPARE(field(u"_clipSceneText"_s).text(), u"12A"_s);
        QCOMPARE(field(u"_clipTakeText"_s).text(), u"03"_s);
        QCOMPARE(menu(u"_ratingPopup"_s).currentIndex(), 4);
        QCOMPARE(menu(u"_shotPopup"_s).currentText(), u"Audio"_s);
        QCOMPARE(_editor->comment(), u"two\nlines"_s);
        QCOMPARE(outlet<QPlainTextEdit>(u"_logView"_s).toPlainText(), u"N/A, externally recorded"_s);
        for (const QString& name : {u"_clipNameText"_s, u"_clipSceneText"_s, u"_clipTakeText"_s,
                                    u"_shotPopup"_s, u"_ratingPopup"_s, u"_inButton"_s, u"_outButton"_s}) {
            QVERIFY2(outlet<QWidget>(name).isEnabled(), qPrintable(name));
        }
        QVERIFY(!outlet<QPlainTextEdit>(u"_commentView"_s).isReadOnly());
    }

    void recordWithoutAttributesShowsTheFirstItems() {
        _editor->show(ClipInfo(Dictionary{{u"clipName"_s, u"Clip.mov"_s}}));
        QCOMPARE(field(u"_clipNameText"_s).text(), u"Clip"_s);
        QCOMPARE(field(u"_clipTakeText"_s).text(), QString());
        QCOMPARE(menu(u"_shotPopup"_s).currentIndex(), 0);
        QCOMPARE(menu(u"_ratingPopup"_s).currentIndex(), 0);
        QCOMPARE(outlet<QPlainTextEdit>(u"_logView"_s).toPlainText(),
                 u"No frame drops\nNo corrupted frames\n"_s);
    }

    void inAndOutAreForPlaceholders() {
        _editor->show(ClipInfo(Dictionary{{u"clipName"_s, u"Clip.mov"_s}}));
        QVERIFY(!outlet<QPushButton>(u"_inButton"_s).isEnabled());
        QVERIFY(!outlet<QPushButton>(u"_outButton"_s).isEnabled());
    }

    void clearedFieldsAreEmptyAndDisabled() {
        _editor->show(clip());
        _editor->setFileTexts(u"Duration: 00:00:01\n"_s, u"Path: /a\n"_s);
        QCOMPARE(outlet<QLabel>(u"_clipAttributes"_s).text(), u"Duration: 00:00:01"_s);
        QCOMPARE(field(u"_clipAttribPath"_s).text(), u"Path: /a"_s);
        _editor->clear();
        for (const QString& name :
             {u"_clipNameText"_s, u"_clipSceneText"_s, u"_clipTakeText"_s, u"_clipAttribPath"_s}) {
            QCOMPARE(field(name).text(), QString());
            QVERIFY2(!field(name).isEnabled(), qPrintable(name));
        }
        QCOMPARE(menu(u"_shotPopup"_s).currentIndex(), 0);
        QCOMPARE(menu(u"_ratingPopup"_s).currentIndex(), 0);
        QVERIFY(!menu(u"_shotPopup"_s).isEnabled());
        QVERIFY(!menu(u"_ratingPopup"_s).isEnabled());
        QVERIFY(!outlet<QWidget>(u"_inButton"_s).isEnabled());
        QVERIFY(!outlet<QWidget>(u"_outButton"_s).isEnabled());
        QVERIFY(!outlet<QWidget>(u"_clipAttributes"_s).isEnabled());
        QCOMPARE(outlet<QLabel>(u"_clipAttributes"_s).text(), QString());
        QCOMPARE(outlet<QPlainTextEdit>(u"_logView"_s).toPlainText(), QString());
        QCOMPARE(_editor->comment(), QString());
        QVERIFY(outlet<QPlainTextEdit>(u"_commentView"_s).isReadOnly());
    }

    void ratingMenuHasAnEmptyItemAndFivePictures() {
        const QComboBox& rating = menu(u"_ratingPopup"_s);
        QCOMPARE(rating.count(), 6);
        QVERIFY(rating.itemIcon(0).isNull());
        for (int item = 0; item < rating.count(); ++item) {
            QCOMPARE(rating.itemText(item), QString());
            QCOMPARE(rating.itemIcon(item).isNull(), item == 0);
        }
        QCOMPARE(rating.itemData(3, Qt::AccessibleTextRole).toString(), u"3 stars"_s);
    }

    void screenReadersAreToldTheRatingWithTheMenusName() {
        const auto said = [&] {
            return QAccessible::queryAccessibleInterface(&menu(u"_ratingPopup"_s))->text(QAccessible::Name);
        };
        QCOMPARE(said(), u"Rating: not rated"_s);
        _editor->show(clip());
        QCOMPARE(said(), u"Rating: 4 stars"_s);
        _editor->clear();
        QCOMPARE(said(), u"Rating: not rated"_s);
    }

    void fillingTellsNoEdit() {
        QSignalSpy typed(_editor.get(), &ClipAttributes::textDidChange);
        QSignalSpy rated(_editor.get(), &ClipAttributes::ratingChanged);
        QSignalSpy labelled(_editor.get(), &ClipAttributes::shotChanged);
        _editor->show(clip());
        _editor->clear();
        _editor->setLabels({u"New"_s});
        QCOMPARE(typed.size() + rated.size() + labelled.size(), 0);
    }

    void typingIsToldWithItsKey() {
        _editor->show(clip());
        QSignalSpy typed(_editor.get(), &ClipAttributes::textDidChange);
        QTest::keyClicks(&field(u"_clipSceneText"_s), u"x"_s);
        QTest::keyClicks(&field(u"_clipTakeText"_s), u"y"_s);
        outlet<QPlainTextEdit>(u"_commentView"_s).appendPlainText(u"z"_s);
        QTest::keyClicks(&field(u"_clipNameText"_s), u"n"_s);
        QCOMPARE(typed.size(), 3);
        QCOMPARE(typed[0][0].toString(), ClipKey::clipScene);
        QVERIFY(typed[0][1].toString().contains(u'x'));
        QCOMPARE(typed[1][0].toString(), ClipKey::clipTake);
        QCOMPARE(typed[2], QVariantList({ClipKey::clipComment, u"two\nlines\nz"_s}));
    }

    void refreshKeepsTheCursorOfAFieldThatIsRight() {
        _editor->show(clip());
        QLineEdit& scene = field(u"_clipSceneText"_s);
        scene.setCursorPosition(2);
        QTextCursor cursor = outlet<QPlainTextEdit>(u"_commentView"_s).textCursor();
        cursor.setPosition(5);
        outlet<QPlainTextEdit>(u"_commentView"_s).setTextCursor(cursor);
        ClipInfo changed = clip();
        changed.setClipTake(u"9"_s);
        _editor->refresh(changed);
        QCOMPARE(field(u"_clipTakeText"_s).text(), u"9"_s);
        QCOMPARE(scene.cursorPosition(), 2);
        QCOMPARE(outlet<QPlainTextEdit>(u"_commentView"_s).textCursor().position(), 5);
    }

    void refreshLeavesTheNameThatIsBeingTyped() {
        _editor->show(clip());
        field(u"_clipNameText"_s).setText(u"Wi"_s);
        _editor->refresh(clip());
        QCOMPARE(_editor->clipName(), u"Wi"_s);
        ClipInfo renamed = clip();
        renamed.setClipName(u"Wide#03.xml"_s);
        _editor->refresh(renamed);
        QCOMPARE(_editor->clipName(), u"Wide"_s);
    }

    void labelThatIsInNoListIsShownAllTheSame() {
        ClipInfo odd = clip();
        odd.setClipLabel(u"Pick-up"_s);
        _editor->show(odd);
        QCOMPARE(menu(u"_shotPopup"_s).currentIndex(), -1);
        QCOMPARE(menu(u"_shotPopup"_s).placeholderText(), u"Pick-up"_s);
        _editor->setLabels({u"Print"_s, u"Pick-up"_s});
        QCOMPARE(menu(u"_shotPopup"_s).currentIndex(), 1);
    }

    void labelStaysShownWhenTheListIsReordered() {
        _editor->show(clip());
        _editor->setLabels({u"Audio"_s, u"Print"_s});
        QCOMPARE(menu(u"_shotPopup"_s).count(), 2);
        QCOMPARE(_editor->label(), u"Audio"_s);
        _editor->setLabels({});
        QCOMPARE(menu(u"_shotPopup"_s).currentIndex(), -1);
    }

    void controlCharactersPastedIntoTheCommentAreReplaced() {
        _editor->show(clip());
        outlet<QPlainTextEdit>(u"_commentView"_s).setPlainText(u"a\u0001b"_s);
        QCOMPARE(_editor->comment(), u"a\uFFFDb"_s);
    }

    void wheelPassesAMenuThatHasNoKeyboard() {
        _editor->show(clip());
        QComboBox& rating = menu(u"_ratingPopup"_s);
        QWheelEvent wheel(QPointF(5, 5), rating.mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&rating, &wheel);
        QCOMPARE(rating.currentIndex(), 4);
    }

    void everyControlHasANameForScreenReaders() {
        for (const QWidget* control : _window->findChildren<QWidget*>()) {
            const bool isField =
                qobject_cast<const QLineEdit*>(control) || qobject_cast<const QComboBox*>(control) ||
                qobject_cast<const QPlainTextEdit*>(control) || qobject_cast<const QTableView*>(control);
            if (isField && control->objectName().startsWith(u'_')) {
                QVERIFY2(!control->accessibleName().isEmpty(), qPrintable(control->objectName()));
            }
        }
    }

    void mnemonicsAreLettersAndEachIsThereOnce() {
        QString mnemonics;
        for (const QLabel* label : _window->findChildren<QLabel*>()) {
            if (label->buddy()) {
                mnemonics += label->text().at(label->text().indexOf(u'&') + 1).toLower();
            }
        }
        for (const QPushButton* button : _window->findChildren<QPushButton*>()) {
            if (const qsizetype mark = button->text().indexOf(u'&'); mark >= 0) {
                mnemonics += button->text().at(mark + 1).toLower();
            }
        }
        // Those of the menu bar: File, Edit, View, Clip, Record, Window, Help.
        mnemonics += u"fevcrwh"_s;
        for (const QChar letter : mnemonics) {
            QVERIFY(letter.isLetter());
            QVERIFY2(mnemonics.count(letter) == 1, qPrintable(QString(letter)));
        }
    }
};

QTEST_MAIN(ClipAttributesTest)
#include "ClipAttributesTest.moc"
