// Opens what the program is given from outside: folders, movies and clips of its command line, of a later
// start, or of the desktop. Opening writes no file and never changes where takes go. Owned by the
// application, between launch and quit; main thread.
#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>

namespace marquill {

class NoticeBar;

class OpenedFiles : public QObject {
    Q_OBJECT

  public:
    /// The Clip Manager is there already.
    explicit OpenedFiles(QObject* parent = nullptr);

    /// Adds each folder at `paths`, and the folder of each file, to the record folders unless it is there,
    /// and shows that of the last one. Of its files those that are clips, or movies that clips are connected
    /// to, are selected; a movie that has no clip is offered to be imported. Paths are full ones. While a
    /// modal window is open nothing happens yet.
    void open(const QStringList& paths);
    /// Opens what waited for a modal window to be closed.
    void resume();

  private:
    void openNow(const QStringList& paths);
    void selectWhenRead();
    void select();
    void tellOfMissing(const QStringList& files);
    void offerImport(const QStringList& movies);
    NoticeBar* showNotice(const QString& text, const QString& buttonText = {});

    QStringList _waiting;
    QString _folder;     // is being read
    QStringList _files;  // are to be selected in it
    QPointer<NoticeBar> _notice;
};

}  // namespace marquill
