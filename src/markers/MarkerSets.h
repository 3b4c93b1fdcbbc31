// The real-time marker window and its marker sets. The class operations reach the one controller that the
// program has between init() and finish(); without a window description there is none, and they do nothing.
// Main thread.
#pragma once

#include "markers/MarkerButton.h"
#include "markers/MarkerSetStore.h"

#include <QObject>

#include <array>
#include <memory>

class QComboBox;
class QPushButton;

namespace marquill {

class FloatingPanel;
class RestingWindow;
class MarkerSetSheet;

class MarkerSets : public QObject, public MarkerSetStore, private MarkerButton::Delegate {
    Q_OBJECT

  public:
    static constexpr int buttonCount = 10;

    // The program's one window.

    /// Reads the sets from the user defaults, with a "Default Set" when there are none, and opens the window
    /// as it was left. Call it once, at launch.
    static void init();
    /// Writes the sets, the current one and the window's state to the user defaults and closes the window. An
    /// editor that is still open is cancelled.
    static void finish();
    /// The window, or null.
    static FloatingPanel* window();
    /// Fires the marker of the key `digit`, 0 to 9, disabled or not, and shows its button pressed for 5.0 s.
    /// The marker bears the moment `fired`, when the key was struck, not the one when its turn came.
    static void processNumKey(int digit, Date fired);
    /// Makes the marker of the current set's button `index`, from 0, and posts "newMarkerIssued".
    static void addNewMarker(int index, Date creationDate);
    /// Makes the markers of clicks that still wait for a second one, because what they mark is about to end.
    static void firePendingClicks();
    /// Enables or disables all buttons; either way an edit of a title is abandoned.
    static void setMarkersEnabled(bool enabled);
    /// The controller of the window, or null.
    static MarkerSets* controller();

    // The controller.

    ~MarkerSets() override;

    /// The set that the popup shows, or nothing.
    std::optional<MarkerSet> currSet() const;
    /// The first set with that identity, or nothing.
    std::optional<MarkerSet> setWithID(quint64 identity) const;
    /// All sets in the popup's order; the array is the controller's own.
    const Array& markerSetArray() const { return _markerSetArray; }
    /// Takes over the sets, shared, in a list of its own, and fills the popup; without sets it does nothing.
    void setMarkerSetArray(const std::optional<Array>& sets);
    /// Makes `set` the current one and titles the buttons; abandons an edit. A set equal to none of the list
    /// changes nothing else.
    void selectSet(const MarkerSet& set);
    void setEnabled(bool enabled);
    void stopEditing();
    void unhighlightButton(MarkerButton& button);
    /// Opens the editor of the sets, a sheet on the window, with the current one selected. An edit of a title
    /// is abandoned.
    void editSet();
    /// The editor, or null before it was opened for the first time.
    MarkerSetSheet* sheet() { return _sheet.get(); }
    /// The buttons by index.
    const std::array<MarkerButton*, buttonCount>& buttons() const { return _buttonArray; }

  private:
    MarkerSets();

    static Result<std::unique_ptr<MarkerSets>> create();
    Result<void> loadWindow();
    Result<void> awakeFromNib();
    void selectSavedSet(const Dictionary& settings, const std::optional<MarkerSet>& defaultSet);
    void restoreWindow(const Dictionary& settings);
    void saveInto(Dictionary& settings) const;
    void save();
    void adjustSetPopup();
    void setPopup(int index);
    void loadSheet();
    void setsEdited(const Array& sets);
    std::optional<MarkerSet> setAtIndex(qsizetype index) const;
    void highlightButton(int index);
    void markerButtonPressed(MarkerButton& button) override;
    void markerButtonEdited(MarkerButton& button) override;

    std::unique_ptr<RestingWindow> _resting;
    std::unique_ptr<QWidget> _window;
    std::unique_ptr<MarkerSetSheet> _sheet;  ///< gone before its window
    FloatingPanel* _markerPanel = nullptr;
    QComboBox* _setPopup = nullptr;
    QPushButton* _editSetButton = nullptr;
    QWidget* _buttonContainer = nullptr;
    std::array<MarkerButton*, buttonCount> _buttonArray{};
    Array _markerSetArray;
};

}  // namespace marquill
