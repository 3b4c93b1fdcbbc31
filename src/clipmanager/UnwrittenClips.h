// Tells the user of clips that could not be saved: one notice above the window's content while there are any,
// and a question at quitting. Owned by ClipManager. Main thread.
#pragma once

#include <QObject>
#include <QPointer>

class QMainWindow;

namespace marquill {

class ClipWriter;
class NoticeBar;

class UnwrittenClips : public QObject {
    Q_OBJECT

  public:
    /// Both outlive it.
    UnwrittenClips(QMainWindow& window, ClipWriter& writer);

    /// Tries a last time; where a clip still cannot be saved, asks whether to quit all the same.
    bool mayQuit();

  private:
    void failed();
    void lost(const QString& text);
    void allWritten();
    void show(const QString& text, const QString& buttonText = {});

    QMainWindow& _window;
    ClipWriter& _writer;
    QPointer<NoticeBar> _notice;
    bool _wasClosed = false;  // the user has seen enough of it while these clips are not saved
};

}  // namespace marquill
