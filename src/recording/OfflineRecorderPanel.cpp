// The recorder's panel: its description, what it shows, and its fields.
#include "clipstore/ClipInfo.h"
#include "clipstore/ClipStore.h"
#include "clipstore/Notifications.h"
#include "movie/QTHelper.h"
#include "platform/Clock.h"
#include "platform/DelayedCalls.h"
#include "platform/Dialogs.h"
#include "platform/FloatingPanel.h"
#include "platform/Images.h"
#include "platform/Log.h"
#include "platform/RecordTextValidator.h"
#include "platform/RestingWindow.h"
#include "platform/Theme.h"
#include "platform/UserDefaults.h"
#include "platform/WindowDescription.h"
#include "platform/WindowFrame.h"
#include "recording/OfflineRecorder.h"
#include "recording/RecordingDestination.h"
#include "recording/TakeJournal.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QStyle>
#include <QToolButton>

#include <cmath>
#include <utility>

namespace marquill {

namespace {

const QString frameName = u"kOfflineRecorderWindowFrame"_s;
const QString settingsKey = u"kOfflineRecorder"_s;
const QString visibleKey = u"kOfflineRecorderWindowVisible"_s;
const QString clipNameKey = u"kOfflineRecorderClipName"_s;
const QString sceneNameKey = u"kOfflineRecorderSceneName"_s;

// How long after a name is entered the keys go back to the panel, in seconds.
constexpr double switchFirstResponderDelay = 1.0;
constexpr int displayInterval = 500;  // milliseconds

// What the panel's content needs at the width that the panel has.
int heightOfContent(const QWidget& panel) {
    QLayout& layout = *panel.layout();
    layout.activate();
    return layout.hasHeightForWidth() ? layout.totalHeightForWidth(panel.width())
                                      : layout.totalSizeHint().height();
}

// A saved text that the field would not let be typed is not put into it either.
void restoreText(QLineEdit& field, const std::optional<QString>& saved) {
    QString text = saved.value_or(field.text());
    int position = 0;
    if (field.validator()->validate(text, position) == QValidator::Acceptable) {
        field.setText(text);
    }
}

// A click into a field that did not have the keys takes all of its text, as Tab does: a take's name is
// replaced more often than it is mended. The next click sets the cursor.
class WholeTextByClick : public QObject {
  public:
    explicit WholeTextByClick(QLineEdit* field) : QObject(field), _field(*field) {
        field->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        switch (event->type()) {
            case QEvent::MouseButtonPress:
                _isEntered = _isEntered || !_field.hasFocus();
                break;
            case QEvent::FocusIn:
                // Behind the click when the panel had to wake first.
                _isEntered = !_field.hasSelectedText();
                break;
            case QEvent::MouseButtonRelease:
                selectIfEntered();
                break;
            case QEvent::KeyPress:
                _isEntered = false;
                break;
            default:
                break;
        }
        return false;
    }

  private:
    void selectIfEntered() {
        if (std::exchange(_isEntered, false) && !_field.hasSelectedText()) {
            _field.selectAll();
        }
    }

    QLineEdit& _field;
    bool _isEntered = false;
};

}  // namespace

bool OfflineRecorder::loadPanel() {
    Result<std::unique_ptr<QWidget>> window = WindowDescription::load(u"OfflineRecorder"_s);
    if (window && qobject_cast<FloatingPanel*>(window->get())) {
        _panel.reset(qobject_cast<FloatingPanel*>(window->release()));
        Outlets outlets(*_panel);
        outlets.connect(_recordButton, u"_recordButton"_s);
        outlets.connect(_shotClock, u"_shotClock"_s);
        outlets.connect(_recordState, u"_recordState"_s);
        outlets.connect(_defaultClipName, u"_defaultClipName"_s);
        outlets.connect(_defaultSceneName, u"_defaultSceneName"_s);
        outlets.connect(_currentTakeNo, u"_currentTakeNo"_s);
        outlets.connect(_recordWarning, u"_recordWarning"_s);
        if (outlets.check()) {
            wirePanel();
            return true;
        }
    }
    qCWarning(logRecording) << "Couldn't instantiate OfflineRecorder nib";
    return false;
}

void OfflineRecorder::wirePanel() {
    _recordNormalImage = image(u"record-0N"_s, u"tiff"_s);
    _recordActiveImage = image(u"record-1H"_s, u"tiff"_s);
    _shotClock->setFont(Theme::shotClockFont());
    _panel->windowShouldClose = [this] { return windowShouldClose(); };
    _defaultClipName->setValidator(new ClipNameValidator(_defaultClipName));
    _defaultSceneName->setValidator(new RecordTextValidator(_defaultSceneName));
    new WholeTextByClick(_defaultClipName);
    new WholeTextByClick(_defaultSceneName);
    connect(_recordButton, &QToolButton::clicked, this, &OfflineRecorder::startStopButtonPressed);
    connect(_defaultClipName, &QLineEdit::returnPressed, this, &OfflineRecorder::clipNameEntered);
    connect(_defaultClipName, &QLineEdit::editingFinished, this, &OfflineRecorder::updateTakeNoUI);
    connect(_defaultClipName, &QLineEdit::editingFinished, this, &OfflineRecorder::saveNow);
    connect(_defaultSceneName, &QLineEdit::editingFinished, this, &OfflineRecorder::saveNow);
    connect(_defaultSceneName, &QLineEdit::returnPressed, this, &OfflineRecorder::sceneNameEntered);
    connect(&Notifications::centre(), &Notifications::recordingFolderChanged, this,
            &OfflineRecorder::updateTakeNoUI);
    connect(&_volumeWatch, &VolumeWatch::warningChanged, this, &OfflineRecorder::showWarnings);
    connect(&_displayTimer, &QTimer::timeout, this, &OfflineRecorder::timerRecordAction);
    _displayTimer.setTimerType(Qt::PreciseTimer);
    _displayTimer.start(displayInterval);
    _defaultClipName->setText(u"Clip"_s);
    _defaultSceneName->setText(u"Scene"_s);
    showElapsed(0);
    showRecordingState(false);
}

void OfflineRecorder::restore() {
    const std::optional<Value> saved = UserDefaults::standard().value(settingsKey);
    const Dictionary settings = saved ? saved->dictionary().value_or(Dictionary()) : Dictionary();
    restoreText(*_defaultClipName, settings.string(clipNameKey));
    restoreText(*_defaultSceneName, settings.string(sceneNameKey));
    restoreWindowFrame(*_panel, frameName);
    _panel->setVisible(settings.boolean(visibleKey).value_or(true));
    updateTakeNoUI();
    // From here on a crash loses no place. Not before, or it would be saved half restored.
    _resting = std::make_unique<RestingWindow>(*_panel);
    connect(_resting.get(), &RestingWindow::cameToRest, this, &OfflineRecorder::saveNow);
}

void OfflineRecorder::save() const {
    saveWindowFrame(*_panel, frameName);
    UserDefaults::standard().setValue(settingsKey, Dictionary{{visibleKey, _panel->isOpen()},
                                                              {clipNameKey, _defaultClipName->text()},
                                                              {sceneNameKey, _defaultSceneName->text()}});
}

void OfflineRecorder::saveNow() const {
    save();
    if (const Result<void> saved = UserDefaults::standard().save(); !saved) {
        qCWarning(logRecording).noquote()
            << "cannot save the recorder's state:" << saved.error().description();
    }
}

// The path of the folder that the next take goes to; "" without one.
QString OfflineRecorder::recordFolderPath() const {
    const std::optional<FolderRecord> folder = _destination.recordFolder();
    return folder ? folder->folderPath().value_or(QString()) : QString();
}

void OfflineRecorder::updateTakeNoUI() {
    const std::optional<NewClipName> next =
        ClipStore::getNewClipNameForFolder(recordFolderPath(), _defaultClipName->text());
    _currentTakeNo->setText(QString::number(next ? next->takeNo : 0));
    _volumeWatch.folderMayHaveChanged();
}

void OfflineRecorder::journalProblemChanged(const QString& problem) {
    _journalProblem =
        problem.isEmpty()
            ? QString()
            : tr("A crash would cost this take: its journal cannot be written. %1").arg(problem);
    showWarnings();
}

// Says in words what endangers takes, and keeps nobody from recording. The panel grows by it and shrinks
// back.
void OfflineRecorder::showWarnings() {
    QStringList warnings{_volumeWatch.warning(), _journalProblem};
    warnings.removeAll(QString());
    const QString text = warnings.join(u'\n');
    if (text == _recordWarning->text()) {
        return;
    }
    // The toolkit may grow the panel as soon as the text is in it.
    const int heightOfRest = _panel->height() - heightOfContent(*_panel);
    _recordWarning->setText(text);
    _recordWarning->setHidden(text.isEmpty());
    _panel->resize(_panel->width(), heightOfRest + heightOfContent(*_panel));
    QAccessibleEvent alert(_recordWarning, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void OfflineRecorder::timerRecordAction() {
    if (!_isRecording) {
        return;
    }
    const double elapsed = secondsBetween(_recordStartDate, Clock::current().now());
    // Lit in the half second around each whole one: the light blinks once a second.
    const bool lit = static_cast<qint64>(std::trunc(2 * elapsed + 0.5)) % 2 == 0;
    _recordButton->setIcon(lit ? _recordActiveImage : _recordNormalImage);
    showElapsed(elapsed);
}

void OfflineRecorder::showElapsed(double seconds) {
    _shotClock->setText(QTHelper::timeCodeStringHHMMSS(static_cast<qint64>(std::trunc(seconds))));
}

// The state is told by a word and a frame as well, so that it can be read without colour and from afar.
void OfflineRecorder::showRecordingState(bool recording) {
    _recordButton->setIcon(recording ? _recordActiveImage : _recordNormalImage);
    _recordButton->setToolTip(recording ? tr("Stop Recording (Esc)") : tr("Start Recording (Ctrl+Space)"));
    _recordButton->setAccessibleName(recording ? tr("Stop Recording") : tr("Start Recording"));
    _recordState->setText(recording ? tr("RECORDING") : tr("READY"));
    for (QWidget* widget : {static_cast<QWidget*>(_panel.get()), static_cast<QWidget*>(_recordState),
                            static_cast<QWidget*>(_shotClock)}) {
        widget->setProperty("recording", recording);
        widget->style()->unpolish(widget);
        widget->style()->polish(widget);
    }
}

void OfflineRecorder::startStopButtonPressed() {
    if (_isRecording) {
        stop();
    } else {
        start();
    }
}

void OfflineRecorder::clipNameEntered() {
    updateTakeNoUI();
    sceneNameEntered();
}

void OfflineRecorder::sceneNameEntered() {
    DelayedCalls::performAfterDelay(this, switchFirstResponderDelay,
                                    [this] { deferredSwitchFirstResponder(); });
}

void OfflineRecorder::deferredSwitchFirstResponder() {
    _panel->setFocus(Qt::OtherFocusReason);
}

// Whatever is being typed in a field is taken as it stands; the keys then go to the panel.
void OfflineRecorder::endEditing() {
    QWidget* field = _panel->focusWidget();
    if (field == _defaultClipName || field == _defaultSceneName) {
        deferredSwitchFirstResponder();
    }
}

bool OfflineRecorder::keyDown(QKeyEvent& event) {
    const bool panelHasKeys = !_panel->focusWidget() || _panel->focusWidget() == _panel.get();
    // The toolkit has a key of its own for Tab with Shift.
    const bool isTab = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
    if (!isTab || !panelHasKeys) {
        return false;
    }
    _defaultClipName->setFocus(Qt::TabFocusReason);
    return true;
}

bool OfflineRecorder::windowShouldClose() {
    if (_isRecording) {
        Dialogs::current().alert(_panel.get(),
                                 {.title = tr("Can't close Window"),
                                  .text = tr("Please stop recording before closing the window.")});
    }
    return !_isRecording;
}

}  // namespace marquill
