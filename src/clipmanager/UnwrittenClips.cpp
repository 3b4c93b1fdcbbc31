#include "clipmanager/UnwrittenClips.h"

#include "connect/ClipWriter.h"
#include "platform/Dialogs.h"
#include "platform/NoticeBar.h"

#include <QMainWindow>

namespace marquill {

UnwrittenClips::UnwrittenClips(QMainWindow& window, ClipWriter& writer) : _window(window), _writer(writer) {
    connect(&writer, &ClipWriter::failed, this, &UnwrittenClips::failed);
    connect(&writer, &ClipWriter::lost, this, &UnwrittenClips::lost);
    connect(&writer, &ClipWriter::allWritten, this, &UnwrittenClips::allWritten);
}

// However many clips fail, and however often, there is one notice.
void UnwrittenClips::failed() {
    if (!_wasClosed) {
        show(_writer.unwrittenText(), tr("Try Again"));
    }
}

void UnwrittenClips::lost(const QString& text) {
    if (!_writer.hasFailing()) {
        show(text);
    }
}

void UnwrittenClips::allWritten() {
    _wasClosed = false;
    if (_notice && _notice->hasButton()) {
        _notice->dismiss();
        _notice.clear();
    }
}

void UnwrittenClips::show(const QString& text, const QString& buttonText) {
    if (_notice && _notice->hasButton() == !buttonText.isEmpty()) {
        _notice->setText(text);
        return;
    }
    if (_notice) {
        _notice->dismiss();
    }
    _notice = NoticeBar::showIn(_window, text, buttonText);
    connect(_notice, &NoticeBar::closed, this, [this] {
        _wasClosed = _writer.hasFailing();
        _notice.clear();
    });
    connect(_notice, &NoticeBar::buttonPressed, this, [this] {
        _notice.clear();
        _writer.retry();
        if (_writer.hasFailing()) {
            failed();
        }
    });
}

bool UnwrittenClips::mayQuit() {
    _writer.retry();
    if (!_writer.hasUnwritten()) {
        return true;
    }
    enum Answer { cancelQuitting, quit };
    const int answer = Dialogs::current().alert(
        &_window, {.title = tr("Quit without saving?"),
                   .text = tr("%1 If you quit now, the last changes are lost.").arg(_writer.unwrittenText()),
                   .buttons = {tr("Cancel Quitting"), tr("Quit")},
                   .cancelButton = cancelQuitting});
    return answer == quit;
}

}  // namespace marquill
