// What the disk says of a clip's media: the movie, or why there is none, and the lines about its file. Read
// on a thread of its own, because the volume may be slow or gone. ClipMediaReader belongs to the main thread.
#pragma once

#include "clipstore/ClipInfo.h"
#include "movie/Movie.h"
#include "platform/BackgroundWork.h"

#include <QObject>

namespace marquill {

struct ClipMedia {
    QString path;                    ///< of the media; "" for a placeholder that is not connected
    std::optional<Movie> movie;      ///< when it could be opened
    std::optional<qint64> duration;  ///< of the movie, in whole seconds, truncated
    QString message;                 ///< why there is no movie; "" when there is one
    QString attributes;              ///< ClipStore::attrForClipInfo
    QString pathAttribute;           ///< ClipStore::pathAttrForClipInfo
};

/// Asks the disk for the media of a clip in `folder`; any thread. A movie is opened once.
ClipMedia readClipMedia(const ClipInfo& info, const QString& folder);

class ClipMediaReader : public QObject {
    Q_OBJECT

  public:
    /// Gives up what is under way and reads the media of `clip`; read() tells them.
    void start(const ClipInfo& clip, const QString& folder);
    /// read() is not told any more.
    void cancel() { _work.cancel(); }

  Q_SIGNALS:
    void read(const marquill::ClipMedia& media);

  private:
    BackgroundWork _work;
};

}  // namespace marquill
