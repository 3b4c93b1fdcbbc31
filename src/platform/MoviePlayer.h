// What plays a movie: libmpv, told to trust no file and to read no settings but ours. It reads and decodes in
// threads of its own; a MovieRenderer draws its frames. Main thread; every signal comes from the event loop.
#pragma once

#include "platform/Literals.h"

#include <QByteArrayList>
#include <QObject>
#include <QRectF>
#include <QSizeF>

#include <initializer_list>
#include <optional>

struct mpv_event;
struct mpv_event_end_file;
struct mpv_event_property;
struct mpv_handle;

namespace marquill {

class MoviePlayer : public QObject {
    Q_OBJECT

  public:
    explicit MoviePlayer(QObject* parent = nullptr);
    MoviePlayer(const MoviePlayer&) = delete;
    MoviePlayer& operator=(const MoviePlayer&) = delete;
    ~MoviePlayer() override;

    /// For the renderers; null when libmpv could not be started, and then every movie fails.
    mpv_handle* handle() const { return _mpv; }
    /// Lets graphics hardware decode where it does so faithfully.
    void setHardwareDecoding(bool enabled);
    /// Turns pictures by filters, for a renderer that cannot: libmpv's software renderer ends the program
    /// when it is to turn one.
    void setTurningPictures(bool turning);
    /// Told by the renderer when it has got something to draw on and when it loses that: a movie waits for it
    /// to be loaded, and gets its picture back with a new one.
    void setReady(bool ready);

    /// Loads the movie at `path`, paused at its first frame; `loaded` or `failed` tells how it went. Only the
    /// part `aperture` of its picture is shown, in pixels from the top left, or all of it.
    void load(const QString& path, std::optional<QRectF> aperture = {});
    void unload();

    bool isLoaded() const { return _loaded; }
    bool isPlaying() const { return _loaded && !_paused; }
    bool isAtEnd() const { return _atEnd; }
    /// Whether a seek has been asked for and its frame is not shown yet.
    bool isSeeking() const { return _seeking; }
    /// The presentation time of the frame on show, in seconds from the movie's start.
    double seconds() const { return _seconds; }
    /// In seconds, as the player knows it; 0 while it does not.
    double duration() const { return _duration; }
    /// Of the picture as it is meant to be shown, turned and with square pixels; empty while it is not known.
    QSizeF displaySize() const { return _displayedOnItsSide ? _displaySize.transposed() : _displaySize; }
    int volume() const { return _volume; }  ///< percent
    bool isMuted() const { return _muted; }

    void setPlaying(bool playing);
    /// 1 is the movie's own.
    void setSpeed(double speed);
    /// Shows the first frame presented from `seconds` on, which may be the one shown already.
    void seek(double seconds);
    void seekToEnd();
    void stepForward();
    void stepBackward();
    void setVolume(int percent);
    void setMuted(bool muted);

  Q_SIGNALS:
    void loaded();
    /// The movie cannot be played, or no longer; `message` is for a person.
    void failed(const QString& message);
    void secondsChanged(double seconds);
    void playingChanged(bool playing);
    void displaySizeChanged();
    void durationChanged();
    void volumeChanged();
    /// The frame of the latest seek is there.
    void seekFinished();
    /// From any thread: libmpv has something to tell.
    void wokenUp();

  private:
    bool isHeard() const { return _entry != 0 && _current == _entry; }
    void startUp();
    void observeProperties();
    void startLoading();
    void drainEvents();
    void handle(const mpv_event& event);
    void turnPicture();
    void handleReply(const mpv_event& event);
    void handleEndOfFile(const mpv_event_end_file& end);
    void handleProperty(const mpv_event_property& property);
    void handleNumber(QByteArrayView name, double value);
    void handleFlag(QByteArrayView name, bool value);
    void handleVideoTrack(QByteArrayView id);
    void fail(const QString& reason);
    void forgetMovie();
    void command(std::initializer_list<const char*> words, quint64 reply = 0);
    void set(const char* property, const QByteArray& value);

    mpv_handle* _mpv = nullptr;
    bool _running = false;
    bool _ready = false;
    bool _restoring = false;  // the picture is off because the renderer lost its surface
    bool _turning = false;
    QByteArrayList _filters;             // for the movie's picture, before it is turned
    std::optional<QByteArray> _waiting;  // the movie to load once there is something to draw on
    quint64 _generation = 0;             // of the latest load; what older ones report is not heard
    qint64 _entry = 0;                   // what libmpv calls that load; 0 while it has not said
    qint64 _current = 0;                 // the load that libmpv's events are about
    bool _loaded = false;
    bool _hasPicture = false;
    bool _paused = true;
    bool _atEnd = false;
    bool _stepping = false;  // to step forward libmpv plays for a moment, which is no playing
    bool _seeking = false;
    double _seconds = 0;
    double _duration = 0;
    QSizeF _displaySize;
    bool _displayedOnItsSide = false;  // the renderer turns the picture by a quarter
    int _volume = 100;
    bool _muted = false;
};

}  // namespace marquill
