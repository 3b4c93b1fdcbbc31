// What somebody who cannot see the windows, or has no mouse, finds in them: every control of every window has
// a name, a role and a place in the Tab order, which is the order of reading.
#include "application/Application.h"
#include "application/EveryWindow.h"
#include "application/GlobalKeys.h"
#include "clipmanager/ClipManager.h"
#include "clipstore/ClipStore.h"
#include "connect/ClipTableController.h"
#include "folders/RecordFolderController.h"
#include "markers/MarkerButton.h"
#include "markers/MarkerSets.h"
#include "platform/FakeDialogs.h"
#include "platform/Files.h"
#include "platform/UserDefaults.h"
#include "recording/OfflineRecorder.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSlider>
#include <QAccessible>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QRadioButton>
#include <QScrollBar>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

using namespace marquill;

namespace {

Application& application() {
    return *static_cast<Application*>(QCoreApplication::instance());
}

// What Qt makes within its own controls, which speak for it.
bool isPartOfAnother(const QWidget& widget) {
    return qobject_cast<const QScrollBar*>(&widget) || qobject_cast<const QHeaderView*>(&widget) ||
           qobject_cast<const QSplitterHandle*>(&widget) || widget.objectName().startsWith("qt_"_L1) ||
           qobject_cast<const QComboBox*>(widget.parentWidget()) ||
           qobject_cast<const QTabBar*>(widget.parentWidget()) ||
           (qobject_cast<const QAbstractButton*>(&widget) &&
            qobject_cast<const QAbstractItemView*>(widget.parentWidget()));
}

bool isControl(const QWidget& widget) {
    const bool isOfAKind = qobject_cast<const QAbstractButton*>(&widget) ||
                           qobject_cast<const QAbstractSlider*>(&widget) ||
                           qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QLineEdit*>(&widget);
    // What hands the focus on is no control itself, as the pages of tabs are.
    return !isPartOfAnother(widget) && !widget.focusProxy() &&
           (isOfAKind || widget.focusPolicy() != Qt::NoFocus);
}

// The controls below an accessible object that can be seen, in the order of the tree.
void addControls(QAccessibleInterface* object, QList<QWidget*>& controls) {
    auto* widget = qobject_cast<QWidget*>(object->object());
    if (widget && !widget->isVisible()) {
        return;
    }
    if (widget && isControl(*widget) && !controls.contains(widget)) {
        controls.append(widget);
    }
    if (qobject_cast<QAbstractItemView*>(widget)) {
        return;
    }
    for (int i = 0; i < object->childCount(); ++i) {
        if (QAccessibleInterface* child = object->child(i)) {
            addControls(child, controls);
        }
    }
}

QList<QWidget*> controlsOf(QWidget& window) {
    QList<QWidget*> controls;
    addControls(QAccessible::queryAccessibleInterface(&window), controls);
    return controls;
}

QString nameOf(QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

QAccessible::Role roleOf(QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget)->role();
}

// For the words of a failure.
QString described(const QWidget* widget) {
    return u"%1 “%2”"_s.arg(QLatin1StringView(widget->metaObject()->className()), widget->objectName());
}

bool takesTab(const QWidget& widget) {
    return (widget.focusPolicy() & Qt::TabFocus) && widget.isVisible() && widget.isEnabled();
}

// What is disabled now has its place in the order all the same.
void enableAll(QWidget& window) {
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        widget->setEnabled(true);
    }
}

// Whether a menu whose spoken name is what it shows says what that is of.
bool isLabelled(QWidget* control) {
    QAccessibleInterface* object = QAccessible::queryAccessibleInterface(control);
    return !qobject_cast<QComboBox*>(control) || !object->relations(QAccessible::Label).isEmpty() ||
           !object->text(QAccessible::Description).isEmpty();
}

// The widgets that Tab goes to, as the keyboard finds them: beginning with the first, until one comes again.
QList<QWidget*> tabOrder(QWidget& window) {
    QWidget* first = &window;
    while (!takesTab(*first) || first->window() != &window) {
        first = first->nextInFocusChain();
        if (first == &window) {
            return {};
        }
    }
    QList<QWidget*> order;
    first->setFocus(Qt::TabFocusReason);
    for (QWidget* focus = window.focusWidget(); focus && !order.contains(focus);
         focus = window.focusWidget()) {
        order.append(focus);
        QTest::keyClick(focus, Qt::Key_Tab);
    }
    return order;
}

bool isInMenus(const QString& id) {
    const QAction* command = application().actions().action(id);
    return command && !command->associatedObjects().isEmpty();
}

// Whether the keyboard does what a control does without going there.
bool hasAnotherWay(const QWidget& control, const QList<QWidget*>& order) {
    static const QMap<QString, QString> commands = {{u"Add Folder"_s, u"addFolder"_s},
                                                    {u"Remove Folder"_s, u"removeFolder"_s},
                                                    {u"Delete Clips"_s, u"deleteItem"_s}};
    if (const auto* button = qobject_cast<const QToolButton*>(&control)) {
        const bool isInToolBar = qobject_cast<QToolBar*>(button->parentWidget());
        const QString recordingKey = GlobalKeys::startRecordingKey().toString(QKeySequence::NativeText);
        return isInToolBar ? isInMenus(commands.value(button->text()))
                           : button->toolTip().contains(recordingKey);
    }
    // The arrow keys go from the chosen one of a group to the others.
    return qobject_cast<const QRadioButton*>(&control) &&
           std::ranges::any_of(order, [&control](QWidget* other) {
               return qobject_cast<QRadioButton*>(other) && other->parentWidget() == control.parentWidget();
           });
}

// Whether `first` is read before `second`: of the two panes that part them, rows go from top to bottom, and
// what stands in one row goes from left to right.
bool isReadBefore(QWidget* first, QWidget* second) {
    if (first->isAncestorOf(second) || second->isAncestorOf(first)) {
        return first->isAncestorOf(second);
    }
    // Marker buttons stand in two columns, as their digits do.
    const auto* button = qobject_cast<const MarkerButton*>(first);
    if (const auto* next = qobject_cast<const MarkerButton*>(second); button && next) {
        return button->tag() < next->tag();
    }
    QWidget* pane = first;
    while (!pane->parentWidget()->isAncestorOf(second)) {
        pane = pane->parentWidget();
    }
    QWidget* other = second;
    while (other->parentWidget() != pane->parentWidget()) {
        other = other->parentWidget();
    }
    const QRect a = pane->geometry();
    const QRect b = other->geometry();
    const bool isOneRow = a.top() < b.bottom() && b.top() < a.bottom();
    return isOneRow ? a.left() <= b.left() : a.top() <= b.top();
}

}  // namespace

class AccessibilityTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> _folder;
    std::unique_ptr<FakeDialogs> _dialogs;
    std::unique_ptr<EveryWindow> _windows;

    QString path(const QString& name) const { return joinPath(_folder->path(), name); }

    QWidget* open(const QString& name) { return _windows->open(name); }

    static void addWindows() {
        QTest::addColumn<QString>("name");
        for (const char* name : EveryWindow::names) {
            QTest::newRow(name) << QString::fromLatin1(name);
        }
    }

  private Q_SLOTS:
    void init() {
        _folder = std::make_unique<QTemporaryDir>();
        _dialogs = std::make_unique<FakeDialogs>();
        UserDefaults::useFile(path(u"settings.plist"_s));
        application().finishLaunching();
        _windows = std::make_unique<EveryWindow>(_folder->path());
        ClipInfo clip;
        clip.setClipName(u"Shot#01.xml"_s);
        clip.setClipRating(3);
        clip.setClipPath(path(u"none.mov"_s));
        clip.setClipMarkerArray(Array{Dictionary{{u"clipMarkerTitle"_s, u"Action"_s}}});
        QVERIFY(ClipStore::createProxyClip(clip, _folder->path()));
        const FolderRecord folder = FolderRecord::forPath(_folder->path());
        ClipManager& manager = *ClipManager::getClipManager();
        manager.folderList().setFolderArray({folder});
        manager.folderList().setRecordingFolder(folder);
        manager.folderList().selectFolder(_folder->path());
        QTRY_VERIFY(!manager.isReading());
        manager.clipTable().selectClips(manager.clipTable().clipArray());
    }

    void cleanup() {
        _windows.reset();
        QVERIFY(application().shouldTerminate() == Application::TerminateReply::now);
        _dialogs.reset();
    }

    void everyControlHasANameAndARole_data() { addWindows(); }
    void everyControlHasANameAndARole() {
        QFETCH(QString, name);
        QWidget* window = open(name);
        QVERIFY(window);
        QStringList faults;
        for (QWidget* control : controlsOf(*window)) {
            if (nameOf(control).trimmed().isEmpty()) {
                faults.append(described(control) + u" has no name"_s);
            }
            if (!isLabelled(control)) {
                faults.append(described(control) + u" has no label"_s);
            }
            if (const QAccessible::Role role = roleOf(control);
                role == QAccessible::Client || role == QAccessible::NoRole) {
                faults.append(described(control) + u" has no role"_s);
            }
        }
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
        QVERIFY2(!nameOf(window).isEmpty(), "The window has no title.");
        QVERIFY2(roleOf(window) == QAccessible::Window || roleOf(window) == QAccessible::Dialog,
                 "The window is none.");
    }

    void aTextWithANameIsToldWithIt() {
        OfflineRecorder::window()->show();
        auto* clock = OfflineRecorder::window()->findChild<QLabel*>(u"_shotClock"_s);
        QCOMPARE(nameOf(clock), u"Shot clock: 00:00:00"_s);
        clock->clear();
        QCOMPARE(nameOf(clock), u"Shot clock"_s);
    }

    void controlsOfAKindAreToldApartByTheirNames_data() { addWindows(); }
    void controlsOfAKindAreToldApartByTheirNames() {
        QFETCH(QString, name);
        QWidget* window = open(name);
        QVERIFY(window);
        QMap<QString, QWidget*> known;
        QStringList faults;
        for (QWidget* control : controlsOf(*window)) {
            const QString spoken = u"%1/%2"_s.arg(nameOf(control)).arg(roleOf(control));
            if (const QWidget* other = known.value(spoken)) {
                faults.append(
                    u"%1 and %2 are both “%3”"_s.arg(described(other), described(control), nameOf(control)));
            }
            known.insert(spoken, control);
        }
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }

    void everyButtonSaysWhatItDoes_data() { addWindows(); }
    void everyButtonSaysWhatItDoes() {
        QFETCH(QString, name);
        QWidget* window = open(name);
        QVERIFY(window);
        QStringList faults;
        for (QWidget* control : controlsOf(*window)) {
            const auto* button = qobject_cast<QAbstractButton*>(control);
            if (button && button->text().isEmpty() && button->toolTip().isEmpty()) {
                faults.append(described(control));
            }
        }
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }

    void tabReachesEveryControl_data() { addWindows(); }
    void tabReachesEveryControl() {
        QFETCH(QString, name);
        QWidget* window = open(name);
        QVERIFY(window);
        enableAll(*window);
        const QList<QWidget*> order = tabOrder(*window);
        QStringList faults;
        for (QWidget* control : controlsOf(*window)) {
            if (!order.contains(control) && !hasAnotherWay(*control, order)) {
                faults.append(described(control));
            }
        }
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }

    void tabFollowsTheOrderOfReading_data() { addWindows(); }
    void tabFollowsTheOrderOfReading() {
        QFETCH(QString, name);
        QWidget* window = open(name);
        QVERIFY(window);
        enableAll(*window);
        const QList<QWidget*> order = tabOrder(*window);
        QStringList faults;
        for (qsizetype i = 1; i < order.size(); ++i) {
            if (!isReadBefore(order[i - 1], order[i])) {
                faults.append(described(order[i - 1]) + u" stands before "_s + described(order[i]));
            }
        }
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }
};

int main(int argc, char** argv) {
    const QTemporaryDir folder;
    Options options;
    options.settingsFile = joinPath(folder.path(), u"settings.plist"_s);
    Application application(argc, argv, options);
    AccessibilityTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "AccessibilityTest.moc"
