#include "application/ApplicationMenus.h"

#include "application/Application.h"
#include "application/FocusedText.h"
#include "application/GlobalKeys.h"
#include "clipmanager/ClipExports.h"
#include "clipmanager/ClipManager.h"
#include "connect/ClipConnecting.h"
#include "connect/ClipTableController.h"
#include "recording/OfflineRecorder.h"

#include <algorithm>
#include <iterator>

namespace marquill {

namespace {

void withClipManager(void (ClipManager::*command)()) {
    if (ClipManager* clipManager = ClipManager::getClipManager()) {
        (clipManager->*command)();
    }
}

void withExports(void (ClipExports::*command)()) {
    if (ClipManager* clipManager = ClipManager::getClipManager()) {
        (clipManager->exports().*command)();
    }
}

std::vector<ActionDescription> fileCommands(Application& app) {
    const QString menu = u"&File"_s;
    return {
        {u"addFolder"_s, menu, u"Add Folder…"_s, QKeySequence::Open,
         [] { withClipManager(&ClipManager::addFolderButton); }},
        {u"removeFolder"_s,
         menu,
         u"Remove Folder from List"_s,
         {},
         [] { withClipManager(&ClipManager::removeFolderButton); }},
        {u"importQTclips"_s, menu, u"Import Movies…"_s, QKeySequence(Qt::CTRL | Qt::Key_I),
         [] { withClipManager(&ClipManager::importQTclips); }, true},
        {u"exportClipListAsXML"_s, menu, u"Export Clips as XML…"_s, QKeySequence(Qt::CTRL | Qt::Key_E),
         [] { withExports(&ClipExports::exportClipListAsXML); }},
        {u"exportClipListAsText"_s, menu, u"Export Clips as Text…"_s,
         QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E),
         [] { withExports(&ClipExports::exportClipListAsText); }},
        {u"showPreferences"_s, menu, u"Preferences…"_s, QKeySequence(Qt::CTRL | Qt::Key_Comma),
         [&app] { app.showPreferences(); }, true},
        {u"hide"_s, menu, u"Hide Marquill"_s, QKeySequence(Qt::CTRL | Qt::Key_H), [&app] { app.hide(); },
         true},
        {u"terminate"_s, menu, u"Quit Marquill"_s, QKeySequence(Qt::CTRL | Qt::Key_Q),
         [&app] { app.terminateLater(); }, true},
    };
}

void withClipTable(void (ClipTableController::*command)()) {
    if (ClipManager* clipManager = ClipManager::getClipManager()) {
        (clipManager->clipTable().*command)();
    }
}

// Takes back the typing of the field in hand, or else the window's last step.
void undoOrRedo(FocusedText::Command command, void (ClipManager::*step)()) {
    if (FocusedText::can(command)) {
        FocusedText::perform(command);
    } else {
        withClipManager(step);
    }
}

std::vector<ActionDescription> editCommands() {
    using FocusedText::Command;
    const QString menu = u"&Edit"_s;
    return {
        {u"undo"_s, menu, u"Undo"_s, QKeySequence::Undo,
         [] { undoOrRedo(Command::undo, &ClipManager::undo); }},
        {u"redo"_s, menu, u"Redo"_s, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z),
         [] { undoOrRedo(Command::redo, &ClipManager::redo); }},
        {u"cut"_s, menu, u"Cut"_s, QKeySequence::Cut, [] { FocusedText::perform(Command::cut); }, true},
        {u"copy"_s, menu, u"Copy"_s, QKeySequence::Copy, [] { FocusedText::perform(Command::copy); }},
        {u"paste"_s, menu, u"Paste"_s, QKeySequence::Paste, [] { FocusedText::perform(Command::paste); }},
        {u"selectAll"_s, menu, u"Select All"_s, QKeySequence::SelectAll,
         [] { FocusedText::perform(Command::selectAll); }},
    };
}

std::vector<ActionDescription> viewCommands(Application& app) {
    const QString menu = u"&View"_s;
    const auto part = [&menu](const QString& id, const QString& text, Qt::Key key,
                              void (ClipManager::*command)()) {
        return ActionDescription{id, menu, text, QKeySequence(Qt::CTRL | key),
                                 [command] { withClipManager(command); }};
    };
    return {
        {u"goToRecorder"_s, menu, u"Go to Recorder"_s, QKeySequence(Qt::CTRL | Qt::Key_4),
         [&app] { app.goToRecorder(); }},
        part(u"goToFolders"_s, u"Go to Folders"_s, Qt::Key_5, &ClipManager::goToFolders),
        part(u"goToClips"_s, u"Go to Clips"_s, Qt::Key_6, &ClipManager::goToClips),
        part(u"goToMovie"_s, u"Go to Movie"_s, Qt::Key_7, &ClipManager::goToMovie),
        part(u"goToAttributes"_s, u"Go to Clip Attributes"_s, Qt::Key_8, &ClipManager::goToAttributes),
        part(u"goToMarkers"_s, u"Go to Markers"_s, Qt::Key_9, &ClipManager::goToMarkers),
        {u"goToMarkerButtons"_s, menu, u"Go to Marker Buttons"_s, QKeySequence(Qt::CTRL | Qt::Key_0),
         [&app] { app.goToMarkerButtons(); }},
        {u"collapseWindow"_s, menu, u"Collapse Window"_s, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_W),
         [] { withClipManager(&ClipManager::collapseWindow); }, true},
    };
}

std::vector<ActionDescription> clipCommands() {
    const QString menu = u"&Clip"_s;
    return {
        {u"openClipInViewer"_s, menu, u"Open in Viewer"_s, QKeySequence(Qt::CTRL | Qt::Key_Return),
         [] { withClipTable(&ClipTableController::openClipInViewer); }},
        {u"openClipInQTPlayer"_s, menu, u"Open in Default Player"_s,
         QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Return),
         [] { withClipTable(&ClipTableController::openClipInQTPlayer); }},
        {u"showClipInFinder"_s, menu, u"Show in File Browser"_s, QKeySequence(Qt::CTRL | Qt::Key_R),
         [] { withClipTable(&ClipTableController::showClipInFinder); }},
        {u"renameSelected"_s,
         menu,
         u"Rename Clip"_s,
         {},
         [] { withClipTable(&ClipTableController::renameSelected); },
         true},
        {u"deleteItem"_s, menu, u"Delete Clips"_s, QKeySequence(Qt::CTRL | Qt::Key_Backspace),
         [] { withClipTable(&ClipTableController::deleteItem); }},
        {u"selectNextClip"_s, menu, u"Select Next Clip"_s, QKeySequence(Qt::CTRL | Qt::Key_Down),
         [] { withClipTable(&ClipTableController::selectNextClip); }, true},
        {u"selectPrevClip"_s, menu, u"Select Previous Clip"_s, QKeySequence(Qt::CTRL | Qt::Key_Up),
         [] { withClipTable(&ClipTableController::selectPrevClip); }},
        {u"clipIn"_s, menu, u"Set In Point"_s, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_I),
         [] { withClipManager(&ClipManager::clipIn); }, true},
        {u"clipOut"_s, menu, u"Set Out Point"_s, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O),
         [] { withClipManager(&ClipManager::clipOut); }},
        {u"addMarker"_s, menu, u"Add Marker"_s, QKeySequence(Qt::CTRL | Qt::Key_M),
         [] { withClipManager(&ClipManager::addMarker); }},
        {u"showLabelList"_s,
         menu,
         u"Edit Labels…"_s,
         {},
         [] { withClipManager(&ClipManager::showLabelList); },
         true},
        {u"showLeftOutMovies"_s,
         menu,
         u"Left-Out Movies…"_s,
         {},
         [] { withClipManager(&ClipManager::showLeftOutMovies); }},
    };
}

void withConnecting(void (ClipConnecting::*command)()) {
    if (ClipManager* clipManager = ClipManager::getClipManager()) {
        (clipManager->clipTable().connecting().*command)();
    }
}

std::vector<ActionDescription> connectCommands() {
    const QString menu = u"&Clip/C&onnect"_s;
    const auto batch = [&menu](const QString& id, const QString& text, void (ClipConnecting::*command)(),
                               bool lineAbove = false) {
        return ActionDescription{id, menu, text, {}, [command] { withConnecting(command); }, lineAbove};
    };
    return {
        batch(u"connectClip"_s, u"Connect Clip…"_s, &ClipConnecting::connectClip),
        batch(u"unConnectSelectedClips"_s, u"Disconnect Clips"_s, &ClipConnecting::unConnectSelectedClips),
        batch(u"batchConnectQTClips"_s, u"Batch Connect QuickTime Clips…"_s,
              &ClipConnecting::batchConnectQTClips, true),
        batch(u"batchConnectRedClips_H"_s, u"Batch Connect RED Clips (H Proxies)…"_s,
              &ClipConnecting::batchConnectRedClips_H),
        batch(u"batchConnectRedClips_P"_s, u"Batch Connect RED Clips (P Proxies)…"_s,
              &ClipConnecting::batchConnectRedClips_P),
        batch(u"batchConnectRedClips_M"_s, u"Batch Connect RED Clips (M Proxies)…"_s,
              &ClipConnecting::batchConnectRedClips_M),
        batch(u"batchConnectFCPLogAndTransferRedClips"_s, u"Batch Connect Log and Transfer RED Clips…"_s,
              &ClipConnecting::batchConnectFCPLogAndTransferRedClips),
        batch(u"batchConnectP2Clips"_s, u"Batch Connect P2 Clips…"_s, &ClipConnecting::batchConnectP2Clips),
    };
}

std::vector<ActionDescription> recordCommands(Application& app) {
    const QString menu = u"&Record"_s;
    return {
        {u"startRecording"_s, menu, u"Start Recording"_s, GlobalKeys::startRecordingKey(),
         [] { OfflineRecorder::startRecording(); }},
        {u"stopRecording"_s, menu, u"Stop Recording"_s, QKeySequence(Qt::Key_Escape),
         [] { OfflineRecorder::stopRecording(); }},
        {u"recoverTakes"_s, menu, u"Recover Takes…"_s, {}, [&app] { app.recoverTakes(); }, true},
    };
}

std::vector<ActionDescription> windowCommands(Application& app) {
    const QString menu = u"&Window"_s;
    return {
        {u"showHideClipManagerWindow"_s, menu, u"Show or Hide Clip Manager"_s,
         QKeySequence(Qt::CTRL | Qt::Key_1), [&app] { app.showHideClipManagerWindow(); }},
        {u"showHideOfflineRecorderWindow"_s, menu, u"Show or Hide Place Holder Clip Recorder Window"_s,
         QKeySequence(Qt::CTRL | Qt::Key_2), [&app] { app.showHideOfflineRecorderWindow(); }},
        {u"showHideMarkerWindow"_s, menu, u"Show or Hide Real Time Markers Window"_s,
         QKeySequence(Qt::CTRL | Qt::Key_3), [&app] { app.showHideMarkerWindow(); }},
        {u"showKeyboardShortCuts"_s, menu, u"Show or Hide Keyboard Shortcuts"_s,
         QKeySequence(Qt::CTRL | Qt::Key_K), [&app] { app.showKeyboardShortCuts(); }, true},
    };
}

std::vector<ActionDescription> helpCommands(Application& app) {
    const QString menu = u"&Help"_s;
    return {
        {u"troubleShooting"_s, menu, u"Trouble Shooting ..."_s, {}, [&app] { app.troubleShooting(); }},
        {u"visitWebsite"_s, menu, u"Visit Website"_s, {}, [&app] { app.visitWebsite(); }},
        {u"sendSupportEmail"_s, menu, u"Send Feedback…"_s, {}, [&app] { app.sendSupportEmail(); }},
        {u"orderFrontStandardAboutPanel"_s,
         menu,
         u"About Marquill ..."_s,
         {},
         [&app] { app.orderFrontStandardAboutPanel(); },
         true},
    };
}

}  // namespace

std::vector<ActionDescription> actionDescriptions(Application& application) {
    std::vector<ActionDescription> all;
    for (std::vector<ActionDescription> menu :
         {fileCommands(application), editCommands(), viewCommands(application), clipCommands(),
          connectCommands(), recordCommands(application), windowCommands(application),
          helpCommands(application)}) {
        std::ranges::move(menu, std::back_inserter(all));
    }
    return all;
}

}  // namespace marquill
