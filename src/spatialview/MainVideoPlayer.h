#ifndef SELVORA_SPATIALVIEW_MAINVIDEOPLAYER_H
#define SELVORA_SPATIALVIEW_MAINVIDEOPLAYER_H

#include <QMediaPlayer>
#include <QObject>
#include <QPointer>

namespace selvora {
namespace document {
class Scene;
}

namespace spatialview {

class MainVideo;

// The player of a scene's main video. The scene's clock leads: the player is started, paused
// and stopped with the scene, only while the video is on display, and is moved back within a
// second of the clock on each tick. The QMediaPlayer is made when the scene first needs it, so
// that a project of many scenes does not hold a media pipeline per scene.
class MainVideoPlayer : public QObject {
    Q_OBJECT
public:
    MainVideoPlayer(document::Scene* scene, QObject* parent);
    ~MainVideoPlayer() override;

    // The video item the player draws into; null when the scene's video is removed.
    void setMainVideo(MainVideo* video);
    MainVideo* getMainVideo() const { return mainVideo_; }
    // Null until the video was first loaded.
    QMediaPlayer* mediaPlayer() const { return mediaPlayer_; }
    bool isVideoLoaded() const { return videoLoaded_; }
    qint64 getVideoDurationMs() const { return videoDurationMs_; }
    // A replaced source fits the scene from second 0 instead of from the current second.
    void setSourceChanged(bool changed) { sourceChanged_ = changed; }

    void loadVideo();
    void unloadVideo();
    void playScene();
    void pauseScene();
    void stopScene();
    void pause();

public slots:
    void updateCurrentTimePlayer(int time);

private slots:
    void mediaPlayerError(QMediaPlayer::Error error);
    void updateTotalTimeScene(qint64 duration);
    void updateStateVideo(QMediaPlayer::State state);
    void updateMediaStatus(QMediaPlayer::MediaStatus status);

private:
    QMediaPlayer* player();
    // The video is on display at the scene's current second; it is loaded on the way.
    bool readyToCommand();
    qint64 restingPosition() const;

    QPointer<document::Scene> scene_;
    MainVideo* mainVideo_ = nullptr;
    QMediaPlayer* mediaPlayer_ = nullptr;
    bool videoLoaded_ = false;
    bool sourceChanged_ = false;
    qint64 videoDurationMs_ = 0;
};

} // namespace spatialview
} // namespace selvora

#endif
