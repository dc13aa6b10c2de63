#include "spatialview/MainVideoPlayer.h"

#include "app/Definitions.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "spatialview/MainVideo.h"

#include <QAbstractVideoSurface>
#include <QDebug>
#include <QGraphicsVideoItem>
#include <QMediaContent>
#include <QUrl>

namespace selvora {
namespace spatialview {

namespace {

// The last frame stays on the canvas: the player rests this far before the end.
constexpr qint64 kRestBeforeEndMs = 50;

const char* errorName(QMediaPlayer::Error error) {
    static const char* const names[] = {
        "NoError",           "ResourceError",       "FormatError",    "NetworkError",
        "AccessDeniedError", "ServiceMissingError", "MediaIsPlaylist"};
    const int index = int(error);
    return index >= 0 && index < int(sizeof(names) / sizeof(names[0])) ? names[index] : "";
}

} // namespace

MainVideoPlayer::MainVideoPlayer(document::Scene* scene, QObject* parent)
    : QObject(parent), scene_(scene) {}

MainVideoPlayer::~MainVideoPlayer() = default;

QMediaPlayer* MainVideoPlayer::player() {
    if (!mediaPlayer_) {
        mediaPlayer_ = new QMediaPlayer(this, QMediaPlayer::VideoSurface);
        connect(mediaPlayer_, QOverload<QMediaPlayer::Error>::of(&QMediaPlayer::error), this,
                &MainVideoPlayer::mediaPlayerError, Qt::UniqueConnection);
        connect(mediaPlayer_, &QMediaPlayer::durationChanged, this,
                &MainVideoPlayer::updateTotalTimeScene, Qt::UniqueConnection);
        connect(mediaPlayer_, &QMediaPlayer::stateChanged, this, &MainVideoPlayer::updateStateVideo,
                Qt::UniqueConnection);
    }
    return mediaPlayer_;
}

void MainVideoPlayer::setMainVideo(MainVideo* video) {
    mainVideo_ = video;
}

void MainVideoPlayer::loadVideo() {
    if (!mainVideo_)
        return;
    QMediaPlayer* media = player();
    mainVideo_->setUnplayable(false);
    media->setVideoOutput(mainVideo_->videoItem());
    media->setMedia(QUrl::fromLocalFile(mainVideo_->getPath()));
    videoLoaded_ = true;
}

void MainVideoPlayer::unloadVideo() {
    videoLoaded_ = false;
    if (!mediaPlayer_)
        return;
    mediaPlayer_->setMedia(QMediaContent());
    // The item it drew into is about to go.
    mediaPlayer_->setVideoOutput(static_cast<QAbstractVideoSurface*>(nullptr));
}

bool MainVideoPlayer::readyToCommand() {
    if (!mainVideo_ || !scene_)
        return false;
    // The video never runs outside its display interval.
    if (!scene_->mediaActivate(mainVideo_->getIdMedia(), scene_->getCurrentTime(), true))
        return false;
    if (!videoLoaded_)
        loadVideo();
    return true;
}

void MainVideoPlayer::playScene() {
    if (readyToCommand())
        player()->play();
}

void MainVideoPlayer::pauseScene() {
    if (readyToCommand())
        player()->pause();
}

void MainVideoPlayer::stopScene() {
    if (readyToCommand())
        player()->stop();
}

void MainVideoPlayer::pause() {
    if (mediaPlayer_)
        mediaPlayer_->pause();
}

qint64 MainVideoPlayer::restingPosition() const {
    return qMax<qint64>(0, videoDurationMs_ - kRestBeforeEndMs);
}

// Keeps the player within a second of the scene's clock; in between it runs freely.
void MainVideoPlayer::updateCurrentTimePlayer(int time) {
    if (!mainVideo_ || !scene_)
        return;
    if (!videoLoaded_)
        loadVideo();
    const int id = mainVideo_->getIdMedia();
    const int currentTime = scene_->getCurrentTime();
    if (!scene_->mediaActivate(id, currentTime, true))
        return;
    const document::Sync* startSync = scene_->getSync(Definitions::kSyncType::start, id, true);
    const int start = startSync ? startSync->getTime() : 0;
    const int offset = time - start;
    if (offset < 0)
        return;
    QMediaPlayer* media = player();
    const qint64 position = media->position();
    // A duration not known yet cannot have run out.
    if (videoDurationMs_ > 0 && start + videoDurationMs_ / 1000 <= currentTime - 1) {
        // A seek lands near, not on, the position asked for.
        if (qAbs(position - restingPosition()) > kRestBeforeEndMs)
            media->setPosition(restingPosition());
        return;
    }
    const qint64 seconds = position / 1000;
    if (offset == seconds || offset == seconds + 1 || offset == seconds - 1)
        return;
    media->setPosition(qint64(offset) * 1000);
}

void MainVideoPlayer::updateStateVideo(QMediaPlayer::State state) {
    if (state != QMediaPlayer::StoppedState || !videoLoaded_ || !mediaPlayer_)
        return;
    // The last frame, not a black item. Paused before the seek: a seek in the ended pipeline
    // stops its stream with an error.
    mediaPlayer_->pause();
    mediaPlayer_->setPosition(restingPosition());
}

// A scene grows to fit its video, never shrinks: a first insertion counts the video from the
// current second, a replaced source from second 0.
void MainVideoPlayer::updateTotalTimeScene(qint64 duration) {
    if (!mainVideo_ || !scene_)
        return;
    videoDurationMs_ = duration;
    const int seconds = int(duration / 1000);
    if (sourceChanged_) {
        if (seconds > scene_->getTotalTime())
            scene_->setTotalTime(seconds);
    } else if (scene_->getCurrentTime() + seconds > scene_->getTotalTime()) {
        scene_->setTotalTime(scene_->getCurrentTime() + seconds);
    }
}

void MainVideoPlayer::mediaPlayerError(QMediaPlayer::Error error) {
    qDebug() << errorName(error);
    // The canvas shows a placeholder where the video cannot play.
    if (mainVideo_ && error != QMediaPlayer::NoError)
        mainVideo_->setUnplayable(true);
}

void MainVideoPlayer::updateMediaStatus(QMediaPlayer::MediaStatus status) {
    if (!mainVideo_ || !videoLoaded_ || !scene_)
        return;
    if (status == QMediaPlayer::InvalidMedia) {
        mainVideo_->setUnplayable(true);
    } else if (status == QMediaPlayer::LoadedMedia &&
               mediaPlayer_->state() == QMediaPlayer::StoppedState &&
               scene_->getStatusPlayer() != Definitions::kPlayerStatus::play &&
               scene_->mediaActivate(mainVideo_->getIdMedia(), scene_->getCurrentTime(), true)) {
        // A video on display at rest shows its frame, not an empty item; asked once the file
        // is known to be readable.
        mediaPlayer_->pause();
    }
}

} // namespace spatialview
} // namespace selvora
