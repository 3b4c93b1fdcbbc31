#include "application/ApplicationMenus.h"

#include "application/Application.h"
#include "application/FocusedText.h"
#include "application/GlobalKeys.h"
#include "clipmanager/ClipExports.h"
#include "clipmanager/ClipManager.h"
#include "connect/ClipConnecting.h"
#include "connect/ClipTableController.h"
#include "recording/OfflineRecorder.h"

#include <QCoreApplication>

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
    const QString menu = QString::fromLatin1(QT_TRANSLATE_NOOP("ApplicationMenus", "&File"));
    return {
        {u"addFolder"_s, menu, Application::tr("Add Folder…"), QKeySequence::Open,
         [] { withClipManager(&ClipManager::addFolderButton); }},
        {u"removeFolder"_s,
         menu,
         Application::tr("Remove Folder from List"),
         {},
         [] { withClipManager(&ClipManager::removeFolderButton); }},
        {u"importQTclips"_s, menu, Application::tr("Import Movies…"), QKeySequence(Qt::CTRL | Qt::Key_I),
         [] { withClipManager(&ClipManager::importQTclips); }, true},
        {u"exportClipListAsXML"_s, menu, Application::tr("Export Clips as XML…"),
         QKeySequence(Qt::CTRL | Qt::Key_E), [] { withExports(&ClipExports::exportClipListAsXML); }},
        {u"exportClipListAsText"_s, menu, Application::tr("Export Clips as Text…"),
         QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E),
         [] { withExports(&ClipExports::exportClipListAsText); }},
        {u"showPreferences"_s, menu, Application::tr("Preferences…"), QKeySequence(Qt::CTRL | Qt::Key_Comma),
         [&app] { app.showPreferences(); }, true},
        {u"hide"_s, menu, Application::tr("Hide Marquill"), QKeySequence(Qt::CTRL | Qt::Key_H),
         [&app] { app.hide(); }, true},
        {u"terminate"_s, menu, Application::tr("Quit Marquill"), QKeySequence(Qt::CTRL | Qt::Key_Q),
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
    const QString menu = QString::fromLatin1(QT_TRANSLATE_NOOP("ApplicationMenus", "&Edit"));
    return {
        {u"undo"_s, menu, Application::tr("Undo"), QKeySequence::Undo,
         [] { undoOrRedo(Command::undo, &ClipManager::undo); }},
        {u"redo"_s, menu, Application::tr("Redo"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z),
         [] { undoOrRedo(Command::redo, &ClipManager::redo); }},
        {u"cut"_s, menu, Application::tr("Cut"), QKeySequence::Cut,
         [] { FocusedText::perform(Command::cut); }, true},
        {u"copy"_s, menu, Application::tr("Copy"), QKeySequence::Copy,
         [] { FocusedText::perform(Command::copy); }},
        {u"paste"_s, menu, Application::tr("Paste"), QKeySequence::Paste,
         [] { FocusedText::perform(Command::paste); }},
        {u"selectAll"_s, menu, Application::tr("Select All"), QKeySequence::SelectAll,
         [] { FocusedText::perform(Command::selectAll); }},
        {u"find"_s, menu, Application::tr("Find…"), QKeySequence::Find,
         [] { withClipManager(&ClipManager::find); }, true},
    };
}

std::vector<ActionDescription> viewCommands(Application& app) {
    const QString menu = QString::fromLatin1(QT_TRANSLATE_NOOP("ApplicationMenus", "&View"));
    const auto part = [&menu](const QString& id, const QString& text, Qt::Key key,
                              void (ClipManager::*command)()) {
        return ActionDescription{id, menu, text, QKeySequence(Qt::CTRL | key),
                                 [command] { withClipManager(command); }};
    };
    return {
        {u"goToRecorder"_s, menu, Application::tr("Go to Recorder"), QKeySequence(Qt::CTRL | Qt::Key_4),
         [&app] { app.goToRecorder(); }},
        part(u"goToFolders"_s, Application::tr("Go to Folders"), Qt::Key_5, &ClipManager::goToFolders),
        part(u"goToClips"_s, Application::tr("Go to Clips"), Qt::Key_6, &ClipManager::goToClips),
        part(u"goToMovie"_s, Application::tr("Go to Movie"), Qt::Key_7, &ClipManager::goToMovie),
        part(u"goToAttributes"_s, Application::tr("Go to Clip Attributes"), Qt::Key_8,
             &ClipManager::goToAttributes),
        part(u"goToMarkers"_s, Application::tr("Go to Markers"), Qt::Key_9, &ClipManager::goToMarkers),
        {u"goToMarkerButtons"_s, menu, Application::tr("Go to Marker Buttons"),
         QKeySequence(Qt::CTRL | Qt::Key_0), [&app] { app.goToMarkerButtons(); }},
        {u"showHideDayStrip"_s, menu, Application::tr("Show Day Timeline"),
         QKeySequence(Qt::CTRL | Qt::Key_T), [] { withClipManager(&ClipManager::showHideDayStrip); }, true},
        {u"showHidePictures"_s, menu, Application::tr("Show Pictures"),
         QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P),
         [] { withClipManager(&ClipManager::showHidePictures); }},
        {u"collapseWindow"_s, menu, Application::tr("Collapse Window"),
         QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_W),
         [] { withClipManager(&ClipManager::collapseWindow); }},
    };
}

std::vector<ActionDescription> clipCommands() {
    const QString menu = QString::fromLatin1(QT_TRANSLATE_NOOP("ApplicationMenus", "&Clip"));
    return {
        {u"openClipInViewer"_s, menu, Application::tr("Open in Viewer"),
         QKeySequence(Qt::CTRL | Qt::Key_Return),
         [] { withClipTable(&ClipTableController::openClipInViewer); }},
        {u"openClipInQTPlayer"_s, menu, Application::tr("Open in Default Player"),
         QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Return),
         [] { withClipTable(&ClipTableController::openClipInQTPlayer); }},
        {u"showClipInFinder"_s, menu, Application::tr("Show in File Browser"),
         QKeySequence(Qt::CTRL | Qt::Key_R), [] { withClipTable(&ClipTableController::showClipInFinder); }},
        {u"renameSelected"_s,
         menu,
         Application::tr("Rename Clip"),
         {},
         [] { withClipTable(&ClipTableController::renameSelected); },
         true},
        {u"deleteItem"_s, menu, Application::tr("Delete Clips"), QKeySequence(Qt::CTRL | Qt::Key_Backspace),
         [] { withClipTable(&ClipTableController::deleteItem); }},
        {u"selectNextClip"_s, menu, Application::tr("Select Next Clip"),
         QKeySequence(Qt::CTRL | Qt::Key_Down), [] { withClipTable(&ClipTableController::selectNextClip); },
         true},
        {u"selectPrevClip"_s, menu, Application::tr("Select Previous Clip"),
         QKeySequence(Qt::CTRL | Qt::Key_Up), [] { withClipTable(&ClipTableController::selectPrevClip); }},
        {u"clipIn"_s, menu, Application::tr("Set In Point"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_I),
         [] { withClipManager(&ClipManager::clipIn); }, true},
        {u"clipOut"_s, menu, Application::tr("Set Out Point"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O),
         [] { withClipManager(&ClipManager::clipOut); }},
        {u"addMarker"_s, menu, Application::tr("Add Marker"), QKeySequence(Qt::CTRL | Qt::Key_M),
         [] { withClipManager(&ClipManager::addMarker); }},
        {u"showLabelList"_s,
         menu,
         Application::tr("Edit Labels…"),
         {},
         [] { withClipManager(&ClipManager::showLabelList); },
         true},
        {u"showLeftOutMovies"_s,
         menu,
         Application::tr("Left-Out Movies…"),
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
    const QString menu = u"&Clip/"_s + QString::fromLatin1(QT_TRANSLATE_NOOP("ApplicationMenus", "C&onnect"));
    const auto batch = [&menu](const QString& id, const QString& text, void (ClipConnecting::*command)(),
                               bool lineAbove = false) {
        return ActionDescription{id, menu, text, {}, [command] { withConnecting(command); }, lineAbove};
    };
    return {
        batch(u"connectClip"_s, Application::tr("Connect Clip…"), &ClipConnecting::connectClip),
        batch(u"unConnectSelectedClips"_s, Application::tr("Disconnect Clips"),
              &ClipConnecting::unConnectSelectedClips),
        batch(u"batchConnectQTClips"_s, Application::tr("Batch Connect QuickTime Clips…"),
              &ClipConnecting::batchConnectQTClips, true),
        batch(u"batchConnectRedClips_H"_s, Application::tr("Batch Connect RED Clips (H Proxies)…"),
              &ClipConnecting::batchConnectRedClips_H),
        batch(u"batchConnectRedClips_P"_s, Application::tr("Batch Connect RED Clips (P Proxies)…"),
              &ClipConnecting::batchConnectRedClips_P),
        batch(u"batchConnectRedClips_M"_s, Application::tr("Batch Connect RED Clips (M Proxies)…"),
              &ClipConnecting::batchConnectRedClips_M),
        batch(u"batchConnectFCPLogAndTransferRedClips"_s,
              Application::tr("Batch Connect Log and Transfer RED Clips…"),
              &ClipConnecting::batchConnectFCPLogAndTransferRedClips),
        batch(u"batchConnectP2Clips"_s, Application::tr("Batch Connect P2 Clips…"),
              &ClipConnecting::batchConnectP2Clips),
    };
}

std::vector<ActionDescription> recordCommands(Application& app) {
    const QString menu = QString::fromLatin1(QT_TRANSLATE_NOOP("ApplicationMenus", "&Record"));
    return {
        {u"startRecording"_s, menu, Application::tr("Start Recording"), GlobalKeys::startRecordingKey(),
         [] { OfflineRecorder::startRecording(); }},
        {u"stopRecording"_s, menu, Application::tr("Stop Recording"), QKeySequence(Qt::Key_Escape),
         [] { OfflineRecorder::stopRecording(); }},
        {u"recoverTakes"_s,
         menu,
         Application::tr("Recover Takes…"),
         {},
         [&app] { app.recoverTakes(); },
         true},
    };
}

std::vector<ActionDescription> windowCommands(Application& app) {
    const QString menu = QString::fromLatin1(QT_TRANSLATE_NOOP("ApplicationMenus", "&Window"));
    return {
        {u"showHideClipManagerWindow"_s, menu, Application::tr("Show or Hide Clip Manager"),
         QKeySequence(Qt::CTRL | Qt::Key_1), [&app] { app.showHideClipManagerWindow(); }},
        {u"showHideOfflineRecorderWindow"_s, menu,
         Application::tr("Show or Hide Place Holder Clip Recorder Window"),
         QKeySequence(Qt::CTRL | Qt::Key_2), [&app] { app.showHideOfflineRecorderWindow(); }},
        {u"showHideMarkerWindow"_s, menu, Application::tr("Show or Hide Real Time Markers Window"),
         QKeySequence(Qt::CTRL | Qt::Key_3), [&app] { app.showHideMarkerWindow(); }},
        {u"showKeyboardShortCuts"_s, menu, Application::tr("Show or Hide Keyboard Shortcuts"),
         QKeySequence(Qt::CTRL | Qt::Key_K), [&app] { app.showKeyboardShortCuts(); }, true},
    };
}

std::vector<ActionDescription> helpCommands(Application& app) {
    const QString menu = QString::fromLatin1(QT_TRANSLATE_NOOP("ApplicationMenus", "&Help"));
    return {
        {u"showManual"_s, menu, Application::tr("Manual"), QKeySequence(Qt::Key_F1),
         [&app] { app.showManual(); }},
        {u"troubleShooting"_s,
         menu,
         Application::tr("Trouble Shooting ..."),
         {},
         [&app] { app.troubleShooting(); }},
        {u"showLog"_s, menu, Application::tr("Show Log"), {}, [&app] { app.showLog(); }},
        {u"visitWebsite"_s, menu, Application::tr("Visit Website"), {}, [&app] { app.visitWebsite(); }},
        {u"sendSupportEmail"_s,
         menu,
         Application::tr("Send Feedback…"),
         {},
         [&app] { app.sendSupportEmail(); }},
        {u"orderFrontStandardAboutPanel"_s,
         menu,
         Application::tr("About Marquill ..."),
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
