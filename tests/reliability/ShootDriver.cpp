// A plugin that the toolkit loads into the program itself, unchanged, and that plays the person before it:
// it reads commands from standard input, one JSON object a line, turns them into keys and clicks on the
// windows, and writes to standard output when each was sent and when the program had dealt with it, in
// seconds of the monotonic clock. Main thread; a command that opens a dialog is answered when that is closed.
#include "platform/Literals.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QEventLoop>
#include <QFileDialog>
#include <QGenericPlugin>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QSocketNotifier>
#include <QTest>
#include <QWindow>

#include <unistd.h>

#include <array>
#include <ctime>
#include <functional>

using namespace marquill;

namespace {

double monotonicSeconds() {
    timespec time = {};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

QWidget* visibleWidget(const QString& name) {
    for (QWidget* widget : QApplication::allWidgets()) {
        if (widget->objectName() == name && widget->isVisible()) {
            return widget;
        }
    }
    return nullptr;
}

QAbstractItemView* clipTable() {
    return qobject_cast<QAbstractItemView*>(visibleWidget(u"_clipTable"_s));
}

QWindow* focusWindow() {
    if (QWindow* window = QGuiApplication::focusWindow()) {
        return window;
    }
    QWidget* table = clipTable();
    return table ? table->window()->windowHandle() : nullptr;
}

void press(QWindow* window, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    if (window) {
        const QPointer<QWindow> guard(window);
        QTest::simulateEvent(window, true, key, modifiers, text, false);
        if (guard) {
            QTest::simulateEvent(window, false, key, modifiers, text, false);
        }
    }
}

// "Ctrl+Space": one key with its modifiers, and what it types.
void pressKey(const QString& name) {
    const QKeyCombination key = QKeySequence::fromString(name, QKeySequence::PortableText)[0];
    const bool types = name.size() == 1;
    press(focusWindow(), key.key(), key.keyboardModifiers(), types ? name.toLower() : QString());
}

void type(const QString& text) {
    for (const QChar character : text) {
        press(focusWindow(), character.toUpper().unicode(), Qt::NoModifier, QString(character));
    }
}

// As a window manager does, the window that is clicked is given the keyboard, if it takes it.
void click(QWidget& widget, QPoint place, Qt::KeyboardModifiers modifiers) {
    QWidget* const window = widget.window();
    if (window->windowHandle() && !(window->windowFlags() & Qt::WindowDoesNotAcceptFocus)) {
        window->windowHandle()->requestActivate();
        QCoreApplication::processEvents();
    }
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, modifiers, widget.mapTo(window, place));
}

bool clickWidget(const QString& name) {
    QWidget* const widget = visibleWidget(name);
    if (widget) {
        click(*widget, widget->rect().center(), Qt::NoModifier);
    }
    return widget;
}

// Selects the clips of these rows, the first by a click, the others by clicks with Control.
bool clickRows(const QJsonArray& rows) {
    QAbstractItemView* const table = clipTable();
    if (!table) {
        return false;
    }
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    for (const QJsonValue row : rows) {
        const QModelIndex index = table->model()->index(row.toInt(), 0);
        table->scrollTo(index);
        click(*table->viewport(), table->visualRect(index).center(), modifiers);
        modifiers = Qt::ControlModifier;
    }
    return true;
}

// A command of the menu bar that has no key, as its item would run it once the menu is open.
bool trigger(const QString& name) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        const auto* main = qobject_cast<QMainWindow*>(window);
        for (QMenu* menu : main ? main->menuBar()->findChildren<QMenu*>() : QList<QMenu*>()) {
            QMetaObject::invokeMethod(menu, "aboutToShow");
            for (QAction* action : menu->actions()) {
                if (action->objectName() == name && action->isEnabled()) {
                    action->trigger();
                    return true;
                }
            }
        }
    }
    return false;
}

// Names a file or folder in the chooser that is open, and takes it.
bool choose(const QString& path) {
    auto* chooser = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    auto* field = chooser ? chooser->findChild<QLineEdit*>(u"fileNameEdit"_s) : nullptr;
    if (!field) {
        return false;
    }
    chooser->windowHandle()->requestActivate();
    field->setFocus();
    field->setText(path);
    press(chooser->windowHandle(), Qt::Key_Return, Qt::NoModifier, u"\r"_s);
    return true;
}

bool pressButton(const QString& text) {
    QWidget* const dialog = QApplication::activeModalWidget();
    for (QAbstractButton* button :
         dialog ? dialog->findChildren<QAbstractButton*>() : QList<QAbstractButton*>()) {
        if (button->text().remove(u'&') == text && button->isVisible()) {
            click(*button, button->rect().center(), Qt::NoModifier);
            return true;
        }
    }
    return false;
}

QJsonArray rowsOf(const QAbstractItemModel& model) {
    QJsonArray rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        QJsonObject cells;
        for (int column = 0; column < model.columnCount(); ++column) {
            const QString title = model.headerData(column, Qt::Horizontal).toString();
            cells[title] = model.index(row, column).data(Qt::DisplayRole).toString();
        }
        rows.append(cells);
    }
    return rows;
}

QJsonArray selectedRows(const QAbstractItemView& table) {
    QJsonArray rows;
    for (const QModelIndex& index : table.selectionModel()->selectedRows()) {
        rows.append(index.row());
    }
    return rows;
}

QString textOf(const QString& labelName) {
    const auto* label = qobject_cast<QLabel*>(visibleWidget(labelName));
    return label ? label->text() : QString();
}

QJsonArray noticeTexts() {
    QJsonArray texts;
    for (const QWidget* widget : QApplication::allWidgets()) {
        if (widget->inherits("marquill::NoticeBar") && widget->isVisible()) {
            const auto labels = widget->findChildren<QLabel*>();
            texts.append(labels.isEmpty() ? QString()
                                          : labels.first()->accessibleName() + labels.first()->text());
        }
    }
    return texts;
}

// What a person could read off the screen.
QJsonObject state() {
    const QAbstractItemView* table = clipTable();
    const QWidget* modal = QApplication::activeModalWidget();
    const QWidget* reading = visibleWidget(u"_progressInd"_s);
    const QWidget* focus = QApplication::focusWidget();
    return {
        {u"focus"_s, focus ? focus->objectName() + u' ' + QLatin1StringView(focus->metaObject()->className())
                           : QString()},
        {u"rows"_s, table ? rowsOf(*table->model()) : QJsonArray()},
        {u"selected"_s, table ? selectedRows(*table) : QJsonArray()},
        {u"isLaunched"_s, table != nullptr},
        {u"isReading"_s, reading != nullptr},
        {u"isRecording"_s, textOf(u"_recordState"_s) == "RECORDING"_L1},
        {u"modal"_s, modal ? modal->windowTitle() : QString()},
        {u"notices"_s, noticeTexts()}};
}

QJsonObject carriedOut(const QJsonObject& command) {
    const QString what = command[u"do"_s].toString();
    const QString text = command[u"text"_s].toString();
    QJsonObject answer{{u"ok"_s, true}};
    if (what == "key"_L1) {
        pressKey(text);
    } else if (what == "type"_L1) {
        type(text);
    } else if (what == "click"_L1) {
        answer[u"ok"_s] = clickWidget(text);
    } else if (what == "rows"_L1) {
        answer[u"ok"_s] = clickRows(command[u"rows"_s].toArray());
    } else if (what == "command"_L1) {
        answer[u"ok"_s] = trigger(text);
    } else if (what == "choose"_L1) {
        answer[u"ok"_s] = choose(text);
    } else if (what == "button"_L1) {
        answer[u"ok"_s] = pressButton(text);
    } else {
        answer = state();
    }
    return answer;
}

void answer(const QJsonObject& object) {
    const QByteArray line = QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
    qsizetype done = 0;
    while (done < line.size()) {
        const ssize_t count =
            write(STDOUT_FILENO, line.constData() + done, static_cast<std::size_t>(line.size() - done));
        if (count < 0) {
            return;
        }
        done += count;
    }
}

}  // namespace

class ShootDriver : public QObject {
    Q_OBJECT

  public:
    ShootDriver() : _commands(STDIN_FILENO, QSocketNotifier::Read) {
        connect(&_commands, &QSocketNotifier::activated, this, &ShootDriver::read);
    }

  private:
    void read() {
        std::array<char, 4096> bytes{};
        const ssize_t count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
        if (count <= 0) {
            _commands.setEnabled(false);
            return;
        }
        _pending.append(bytes.data(), count);
        for (qsizetype end = _pending.indexOf('\n'); end >= 0; end = _pending.indexOf('\n')) {
            const QJsonObject command = QJsonDocument::fromJson(_pending.first(end)).object();
            _pending.remove(0, end + 1);
            // On a turn of the event loop of its own: it may last as long as a dialog that it opens.
            QMetaObject::invokeMethod(
                this, [command] { inALoopOfItsOwn([&] { carryOut(command); }); }, Qt::QueuedConnection);
        }
    }

    // Events are processed in the middle of keys and clicks: what the program does only when nothing is under
    // way must know that something is.
    static void inALoopOfItsOwn(const std::function<void()>& run) {
        QEventLoop loop;
        const auto runAndLeave = [&] {
            run();
            loop.quit();
        };
        QMetaObject::invokeMethod(&loop, runAndLeave, Qt::QueuedConnection);
        loop.exec();
    }

    static void carryOut(const QJsonObject& command) {
        const double sent = monotonicSeconds();
        QJsonObject object = carriedOut(command);
        object[u"id"_s] = command[u"id"_s];
        object[u"sent"_s] = sent;
        object[u"done"_s] = monotonicSeconds();
        answer(object);
    }

    QSocketNotifier _commands;
    QByteArray _pending;
};

class ShootDriverPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "ShootDriver.json")

  public:
    QObject* create(const QString& name, const QString& /*settings*/) override {
        return name == "shootdriver"_L1 ? new ShootDriver : nullptr;
    }
};

#include "ShootDriver.moc"
