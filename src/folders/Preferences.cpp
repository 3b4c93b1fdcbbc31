#include "folders/Preferences.h"

#include "clipstore/Notifications.h"
#include "platform/Log.h"
#include "platform/TableView.h"
#include "platform/UserDefaults.h"
#include "platform/WindowDescription.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSlider>
#include <QTabWidget>

#include <algorithm>

namespace marquill {

namespace {

namespace key {
const QString PrefDict = u"PrefDict"_s;
const QString AudioVolume = u"AudioVolume"_s;
const QString LabelArray = u"LabelArray"_s;
const QString kTheme = u"kTheme"_s;
}  // namespace key

// How a theme is kept in the settings and called in the window, in the order of the pop-up.
struct ThemeName {
    Theme::Choice choice;
    QString saved;
    const char* shown;
};

const ThemeName themeNames[] = {
    {Theme::Choice::followSystem, u"system"_s, QT_TRANSLATE_NOOP("Preferences", "Follow the system")},
    {Theme::Choice::dark, u"dark"_s, QT_TRANSLATE_NOOP("Preferences", "Dark")},
    {Theme::Choice::light, u"light"_s, QT_TRANSLATE_NOOP("Preferences", "Light")},
};

std::unique_ptr<Preferences>& instance() {
    static std::unique_ptr<Preferences> instance;
    return instance;
}

QStringList defaultLabels() {
    return {u"Print"_s, u"Trash"_s, u"Audio"_s, u"1st Half"_s, u"2nd Half"_s};
}

std::optional<Dictionary> savedPreferences() {
    const std::optional<Value> saved = UserDefaults::standard().value(key::PrefDict);
    return saved ? saved->dictionary() : std::nullopt;
}

void saveDefaults() {
    if (const Result<void> saved = UserDefaults::standard().save(); !saved) {
        qCWarning(logFolders).noquote() << "cannot save the preferences:" << saved.error().description();
    }
}

void applyTheme(Theme::Choice choice) {
    if (auto* application = qobject_cast<QApplication*>(QCoreApplication::instance())) {
        Theme::apply(*application, choice);
    }
}

}  // namespace

void Preferences::init() {
    Result<std::unique_ptr<Preferences>> preferences = create();
    if (!preferences) {
        qCWarning(logFolders, "Couldn't instantiate Preferences nib");
        qCWarning(logFolders).noquote() << preferences.error().description();
        return;
    }
    instance() = *std::move(preferences);
    applyTheme(themeChoice());
}

void Preferences::finish() {
    if (!instance()) {
        return;
    }
    instance()->save();
    instance().reset();
}

Preferences* Preferences::shared() {
    return instance().get();
}

Result<std::unique_ptr<Preferences>> Preferences::create() {
    WindowDescription::registerWidget<TableView>(u"TableView"_s);
    Result<std::unique_ptr<QWidget>> loaded = WindowDescription::load(u"Preferences"_s);
    if (!loaded) {
        return std::unexpected(loaded.error());
    }
    if (!qobject_cast<QDialog*>(loaded->get())) {
        return failure(ErrorCode::malformed, tr("the preferences window is no dialog"));
    }
    std::unique_ptr<QDialog> window(static_cast<QDialog*>(loaded->release()));
    std::unique_ptr<Preferences> preferences(new Preferences(std::move(window)));
    if (const Result<void> connected = preferences->connectOutlets(); !connected) {
        return std::unexpected(connected.error());
    }
    preferences->wireGeneralTab();
    preferences->loadLabels();
    return preferences;
}

Preferences::Preferences(std::unique_ptr<QDialog> window) : _window(std::move(window)) {}

Preferences::~Preferences() = default;

Result<void> Preferences::connectOutlets() {
    TableView* table = nullptr;
    QPushButton* buttons[4] = {};
    Outlets outlets(*_window);
    outlets.connect(_tabView, u"_tabView"_s);
    outlets.connect(table, u"_labelTable"_s);
    outlets.connect(buttons[0], u"_addLabelButton"_s);
    outlets.connect(buttons[1], u"_deleteLabelButton"_s);
    outlets.connect(buttons[2], u"_undoButton"_s);
    outlets.connect(buttons[3], u"_redoButton"_s);
    outlets.connect(_themePopup, u"_themePopup"_s);
    outlets.connect(_volumeSlider, u"_volumeSlider"_s);
    outlets.connect(_volumeText, u"_volumeText"_s);
    outlets.connect(_settingsFileField, u"_settingsFileField"_s);
    outlets.connect(_copyPathButton, u"_copyPathButton"_s);
    outlets.connect(_closeButton, u"_closeButton"_s);
    const Result<void> connected = outlets.check();
    if (connected) {
        _labelTableController = std::make_unique<LabelTableController>(
            LabelTableWidgets{*table, *buttons[0], *buttons[1], *buttons[2], *buttons[3]}, _undoManager);
    }
    return connected;
}

void Preferences::wireGeneralTab() {
    for (const ThemeName& name : themeNames) {
        _themePopup->addItem(QCoreApplication::translate("Preferences", name.shown),
                             static_cast<int>(name.choice));
    }
    showThemeChoice();
    connect(_themePopup, &QComboBox::activated, this,
            [](int index) { setThemeChoice(themeNames[index].choice); });
    connect(_volumeSlider, &QSlider::valueChanged, this, [this](int value) {
        setAudioVolume(static_cast<float>(value) / static_cast<float>(_volumeSlider->maximum()));
    });
    showAudioVolume();
    // A path has no words to break it between.
    _settingsFileField->setWordWrapMode(QTextOption::WrapAnywhere);
    _settingsFileField->setPlainText(UserDefaults::standard().path());
    connect(_copyPathButton, &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(_settingsFileField->toPlainText()); });
    connect(_closeButton, &QPushButton::clicked, _window.get(), &QDialog::close);
    _closeButton->setShortcut(QKeySequence::Close);
}

void Preferences::loadLabels() {
    connect(&Notifications::centre(), &Notifications::labelListHasChanged, this, [this](QObject* controller) {
        if (controller == _labelTableController.get()) {
            labelsChanged();
        }
    });
    const std::optional<Dictionary> saved = savedPreferences();
    if (!saved) {
        _labelTableController->setLabelItems(defaultLabels());
        return;
    }
    const std::optional<Array> labels = saved->array(key::LabelArray);
    _labelTableController->setLabelItems(labels ? stringsOfArray(*labels) : QStringList());
}

// What a newer version keeps beside the two keys stays.
void Preferences::save() const {
    const std::optional<Dictionary> saved = savedPreferences();
    Dictionary preferences = saved ? saved->copy() : Dictionary();
    preferences.set(key::AudioVolume, double{_audioVolume});
    preferences.set(key::LabelArray, arrayOfStrings(_labelTableController->labelItems()));
    UserDefaults::standard().setValue(key::PrefDict, preferences);
    saveDefaults();
}

// Saved at once: the list may be long in the making, and the program may be a long way from its end.
void Preferences::labelsChanged() {
    save();
    Q_EMIT Notifications::centre().labelListHasChanged(nullptr);
}

QStringList Preferences::labels() {
    return shared() ? shared()->_labelTableController->labelItems() : QStringList();
}

float Preferences::audioVolume() {
    return shared() ? shared()->_audioVolume : 0.0F;
}

void Preferences::setAudioVolume(float volume) {
    Preferences* preferences = shared();
    const float audible = std::clamp(volume, 0.0F, 1.0F);
    if (!preferences || preferences->_audioVolume == audible) {
        return;
    }
    preferences->_audioVolume = audible;
    preferences->showAudioVolume();
    Q_EMIT preferences->audioVolumeChanged(audible);
}

bool Preferences::audioPlayThrough() {
    return audioVolume() > 0.0F;
}

// The slider shows a volume that was set elsewhere without setting it in its turn, rounded to its own steps.
void Preferences::showAudioVolume() {
    const int percent = std::max(1, qRound(_audioVolume * 100.0F));
    const QSignalBlocker blocker(_volumeSlider);
    _volumeSlider->setValue(qRound(_audioVolume * static_cast<float>(_volumeSlider->maximum())));
    _volumeText->setText(audioPlayThrough() ? u"%1 %"_s.arg(percent) : tr("Off"));
}

Theme::Choice Preferences::themeChoice() {
    const std::optional<Value> value = UserDefaults::standard().value(key::kTheme);
    const std::optional<QString> saved = value ? value->string() : std::nullopt;
    const auto* const name = std::ranges::find_if(
        themeNames, [&saved](const ThemeName& candidate) { return candidate.saved == saved; });
    return name == std::end(themeNames) ? Theme::Choice::followSystem : name->choice;
}

void Preferences::setThemeChoice(Theme::Choice choice) {
    const auto* const name = std::ranges::find(themeNames, choice, &ThemeName::choice);
    UserDefaults::standard().setValue(key::kTheme, name->saved);
    saveDefaults();
    applyTheme(choice);
    if (shared()) {
        shared()->showThemeChoice();
    }
}

void Preferences::showThemeChoice() {
    _themePopup->setCurrentIndex(_themePopup->findData(static_cast<int>(themeChoice())));
}

void Preferences::showDialogWithTab(const QString& identifier) {
    switchToTab(identifier);
    runDialog();
}

// The dialog's own event loop sleeps until something happens, which is what polling a modal run every 0.05 s
// comes to: timers, the recording take's among them, go on firing meanwhile.
void Preferences::runDialog() {
    if (!shared()) {
        return;
    }
    QDialog& window = *shared()->_window;
    if (window.isVisible()) {
        window.raise();
        window.activateWindow();
        return;
    }
    window.exec();
}

void Preferences::switchToTab(const QString& identifier) {
    QTabWidget* tabView = shared() ? shared()->_tabView : nullptr;
    for (int tab = 0; tabView && tab < tabView->count(); ++tab) {
        if (tabView->widget(tab)->objectName() == identifier) {
            tabView->setCurrentIndex(tab);
        }
    }
}

}  // namespace marquill
