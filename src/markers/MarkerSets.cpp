#include "markers/MarkerSets.h"

#include "clipstore/Notifications.h"
#include "markers/MarkerSetPopup.h"
#include "markers/MarkerSetSheet.h"
#include "platform/Clock.h"
#include "platform/DelayedCalls.h"
#include "platform/FloatingPanel.h"
#include "platform/Log.h"
#include "platform/RestingWindow.h"
#include "platform/Theme.h"
#include "platform/UserDefaults.h"
#include "platform/WindowDescription.h"
#include "platform/WindowFrame.h"

#include <QPushButton>

namespace marquill {

namespace {

// What the user defaults hold: one dictionary with these keys, and the window's frame beside it.
const QString kMarkerSets = u"kMarkerSets"_s;
const QString kMarkerSetArray = u"kMarkerSetArray"_s;  // array of marker set records
const QString kMarkerCurrSet = u"kMarkerCurrSet"_s;    // identity of the current set
const QString kWindowVisible = u"kWindowVisible"_s;    // boolean
const QString kMarkerWindowFrame = u"kMarkerWindowFrame"_s;

constexpr QSize smallestWindow(160, 200);
constexpr QSize largestWindow(284, 340);

constexpr double highlightSeconds = 5.0;

struct Program {
    std::optional<Dictionary> settings;  // from init() on; unknown entries are written back
    std::unique_ptr<MarkerSets> controller;
};

// Never destroyed: a program that ends without finish() has no toolkit left to close the window with.
Program& program() {
    static Program& program = *new Program;
    return program;
}

Dictionary readSettings() {
    const std::optional<Value> saved = UserDefaults::standard().value(kMarkerSets);
    const std::optional<Dictionary> settings = saved ? saved->dictionary() : std::nullopt;
    return settings ? settings->copy() : Dictionary();
}

Error wrongDescription(const QString& what) {
    return Error{ErrorCode::malformed, what};
}

}  // namespace

// The program's one window

void MarkerSets::init() {
    const Dictionary settings = readSettings();
    program().settings = settings;
    Array sets = settings.array(kMarkerSetArray).value_or(Array()).copy();
    std::optional<MarkerSet> defaultSet;
    if (sets.isEmpty()) {
        defaultSet = newMarkerSetWithTitle(u"Default Set"_s);
        sets.append(defaultSet->record());
    }
    Result<std::unique_ptr<MarkerSets>> created = create();
    if (!created) {
        qCWarning(logMarkers, "Couldn't instantiate MarkerSets nib");
        qCWarning(logMarkers).noquote() << created.error().description();
        return;
    }
    program().controller = *std::move(created);
    controller()->setMarkerSetArray(sets);
    controller()->selectSavedSet(settings, defaultSet);
    controller()->restoreWindow(settings);
}

void MarkerSets::finish() {
    std::optional<Dictionary>& settings = program().settings;
    if (const MarkerSets* sets = controller()) {
        sets->saveInto(*settings);
    }
    if (settings) {
        UserDefaults::standard().setValue(kMarkerSets, *settings);
    } else {
        UserDefaults::standard().remove(kMarkerSets);
    }
    program().controller.reset();
}

MarkerSets* MarkerSets::controller() {
    return program().controller.get();
}

FloatingPanel* MarkerSets::window() {
    return controller() ? controller()->_markerPanel : nullptr;
}

void MarkerSets::processNumKey(int digit, Date fired) {
    const int index = digit == 0 ? 9 : digit - 1;
    if (controller()) {
        controller()->highlightButton(index);
    }
    addNewMarker(index, fired);
}

void MarkerSets::firePendingClicks() {
    if (controller()) {
        for (MarkerButton* button : controller()->buttons()) {
            button->firePendingClick();
        }
    }
}

void MarkerSets::addNewMarker(int index, Date creationDate) {
    const std::optional<MarkerSet> set = controller() ? controller()->currSet() : std::nullopt;
    if (!set) {
        qCWarning(logMarkers, "No set specied");
        return;
    }
    const Marker marker = getMarkerWithTitle(markerStringAtIndex(index, *set), std::nullopt);
    Q_EMIT Notifications::centre().newMarkerIssued(marker.record(), creationDate);
}

void MarkerSets::setMarkersEnabled(bool enabled) {
    if (controller()) {
        controller()->setEnabled(enabled);
    }
}

// Making and keeping the window

MarkerSets::MarkerSets() = default;

MarkerSets::~MarkerSets() {
    stopEditing();
}

Result<std::unique_ptr<MarkerSets>> MarkerSets::create() {
    WindowDescription::registerWidget<MarkerButton>(u"MarkerButton"_s);
    WindowDescription::registerWidget<MarkerSetPopup>(u"MarkerSetPopup"_s);
    std::unique_ptr<MarkerSets> sets(new MarkerSets);
    if (Result<void> loaded = sets->loadWindow(); !loaded) {
        return std::unexpected(loaded.error());
    }
    if (Result<void> awake = sets->awakeFromNib(); !awake) {
        return std::unexpected(awake.error());
    }
    return sets;
}

Result<void> MarkerSets::loadWindow() {
    Result<std::unique_ptr<QWidget>> window = WindowDescription::load(u"MarkerSets"_s);
    if (!window) {
        return std::unexpected(window.error());
    }
    _window = *std::move(window);
    _markerPanel = qobject_cast<FloatingPanel*>(_window.get());
    if (!_markerPanel) {
        return std::unexpected(wrongDescription(tr("the description of the marker window is of no panel")));
    }
    Outlets outlets(*_window);
    outlets.connect(_setPopup, u"_setPopup"_s);
    outlets.connect(_editSetButton, u"_editSetButton"_s);
    outlets.connect(_buttonContainer, u"_buttonContainer"_s);
    _markerPanel->setMinimumSize(smallestWindow);
    _markerPanel->setMaximumSize(largestWindow);
    return outlets.check();
}

Result<void> MarkerSets::awakeFromNib() {
    int found = 0;
    for (auto* button : _buttonContainer->findChildren<MarkerButton*>(Qt::FindDirectChildrenOnly)) {
        if (button->metaObject() != &MarkerButton::staticMetaObject) {
            continue;
        }
        if (button->tag() < 0 || button->tag() >= buttonCount || _buttonArray.at(size_t(button->tag()))) {
            return std::unexpected(
                wrongDescription(tr("the description of the marker window gives a button a wrong tag")));
        }
        _buttonArray.at(size_t(button->tag())) = button;
        button->setDelegate(this);
        button->setTitle(markerStringAtIndex(button->tag(), MarkerSet()));
        ++found;
    }
    if (found != buttonCount) {
        return std::unexpected(
            wrongDescription(tr("the description of the marker window lacks marker buttons")));
    }
    setEnabled(false);
    // Activated is the user's choice; what the program selects takes its own way.
    connect(_setPopup, &QComboBox::activated, this, &MarkerSets::setPopup);
    connect(_editSetButton, &QPushButton::clicked, this, &MarkerSets::editSet);
    return {};
}

void MarkerSets::selectSavedSet(const Dictionary& settings, const std::optional<MarkerSet>& defaultSet) {
    std::optional<MarkerSet> set;
    if (const Value* saved = settings.find(kMarkerCurrSet)) {
        const std::optional<quint64> identity = unsignedNumber(*saved);
        set = identity ? setWithID(*identity) : std::nullopt;
    } else {
        set = defaultSet;
    }
    if (set) {
        selectSet(*set);
    }
}

void MarkerSets::restoreWindow(const Dictionary& settings) {
    restoreWindowFrame(*_markerPanel, kMarkerWindowFrame);
    const bool visible = settings.boolean(kWindowVisible).value_or(true);
    _markerPanel->setVisible(visible);
    if (visible) {
        _markerPanel->raise();
    }
    // From here on a crash loses no place. Not before, or it would be saved half restored.
    _resting = std::make_unique<RestingWindow>(*_markerPanel);
    connect(_resting.get(), &RestingWindow::cameToRest, this, &MarkerSets::save);
}

void MarkerSets::saveInto(Dictionary& settings) const {
    saveWindowFrame(*_markerPanel, kMarkerWindowFrame);
    const std::optional<MarkerSet> current = currSet();
    if (const std::optional<quint64> identity = current ? current->markerID() : std::nullopt) {
        settings.set(kMarkerCurrSet, *identity);
    }
    settings.set(kWindowVisible, _markerPanel->isOpen());
    settings.set(kMarkerSetArray, _markerSetArray);
}

// At every change: sets are a production's work, and a crash must not cost them.
void MarkerSets::save() {
    saveInto(*program().settings);
    UserDefaults::standard().setValue(kMarkerSets, *program().settings);
    if (const Result<void> saved = UserDefaults::standard().save(); !saved) {
        qCWarning(logMarkers).noquote() << "cannot save the marker sets:" << saved.error().description();
    }
}

// The sets

std::optional<MarkerSet> MarkerSets::setAtIndex(qsizetype index) const {
    if (index < 0 || index >= _markerSetArray.size()) {
        return {};
    }
    std::optional<Dictionary> record = _markerSetArray.at(index).dictionary();
    return record ? std::optional(MarkerSet(*std::move(record))) : std::nullopt;
}

std::optional<MarkerSet> MarkerSets::currSet() const {
    return setAtIndex(_setPopup->currentIndex());
}

std::optional<MarkerSet> MarkerSets::setWithID(quint64 identity) const {
    for (qsizetype index = 0; index < _markerSetArray.size(); ++index) {
        const std::optional<MarkerSet> set = setAtIndex(index);
        if (set && set->markerID() == identity) {
            return set;
        }
    }
    return {};
}

void MarkerSets::setMarkerSetArray(const std::optional<Array>& sets) {
    if (sets) {
        _markerSetArray = sets->copy();
        adjustSetPopup();
    }
}

void MarkerSets::adjustSetPopup() {
    _setPopup->clear();
    for (qsizetype index = 0; index < _markerSetArray.size(); ++index) {
        const std::optional<MarkerSet> set = setAtIndex(index);
        if (const std::optional<QString> title = set ? set->title() : std::nullopt) {
            _setPopup->addItem(*title);
            _setPopup->setItemData(_setPopup->count() - 1, *title, Qt::ToolTipRole);
        }
    }
}

void MarkerSets::selectSet(const MarkerSet& set) {
    stopEditing();
    const qsizetype index = _markerSetArray.indexOf(set.record());
    if (index < 0) {
        qCWarning(logMarkers, "index not found");
        return;
    }
    _setPopup->setCurrentIndex(static_cast<int>(index));
    _setPopup->setToolTip(_setPopup->currentText());
    for (MarkerButton* button : _buttonArray) {
        button->setTitle(markerStringAtIndex(button->tag(), set));
    }
}

void MarkerSets::setPopup(int index) {
    if (const std::optional<MarkerSet> set = setAtIndex(index)) {
        selectSet(*set);
        save();
    }
}

// The editor

void MarkerSets::editSet() {
    const int index = _setPopup->currentIndex();
    stopEditing();
    if (!_sheet) {
        loadSheet();
    }
    if (_sheet) {
        _sheet->begin(_markerSetArray.copy(), index);
    }
}

void MarkerSets::loadSheet() {
    Result<std::unique_ptr<MarkerSetSheet>> sheet = MarkerSetSheet::create(*_markerPanel);
    if (!sheet) {
        qCWarning(logMarkers, "Couldn't instantiate MarkerSetEditor nib");
        qCWarning(logMarkers).noquote() << sheet.error().description();
        _editSetButton->setEnabled(false);
        return;
    }
    _sheet = *std::move(sheet);
    connect(_sheet.get(), &MarkerSetSheet::setsEdited, this, &MarkerSets::setsEdited);
}

void MarkerSets::setsEdited(const Array& sets) {
    const std::optional<MarkerSet> former = currSet();
    const std::optional<quint64> identity = former ? former->markerID() : std::nullopt;
    setMarkerSetArray(sets);
    std::optional<MarkerSet> current = identity ? setWithID(*identity) : std::nullopt;
    if (!current) {
        current = setAtIndex(0);
    }
    if (current) {
        selectSet(*current);
    }
    save();
}

// The buttons

void MarkerSets::setEnabled(bool enabled) {
    for (MarkerButton* button : _buttonArray) {
        button->setEnabled(enabled);
    }
}

void MarkerSets::stopEditing() {
    for (MarkerButton* button : _buttonArray) {
        if (button) {
            button->stopEditing();
        }
    }
}

// Each key lets go of its button five seconds after it was struck, also when it was struck again meanwhile.
void MarkerSets::highlightButton(int index) {
    if (index < 0 || index >= buttonCount) {
        return;
    }
    MarkerButton& button = *_buttonArray.at(static_cast<size_t>(index));
    Theme::setHighlighted(button, true);
    DelayedCalls::performAfterDelay(this, highlightSeconds, [this, &button] { unhighlightButton(button); });
}

void MarkerSets::unhighlightButton(MarkerButton& button) {
    Theme::setHighlighted(button, false);
}

void MarkerSets::markerButtonPressed(MarkerButton& button) {
    addNewMarker(button.tag(), Clock::current().now());
}

void MarkerSets::markerButtonEdited(MarkerButton& button) {
    const std::optional<MarkerSet> set = currSet();
    if (!set) {
        return;
    }
    if (const Result<void> stored = setMarkerString(button.title(), *set, button.tag()); !stored) {
        qCWarning(logMarkers).noquote() << stored.error().description();
        return;
    }
    save();
}

}  // namespace marquill
