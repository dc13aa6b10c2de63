#include "document/Scene.h"

#include "document/IdCounter.h"
#include "document/LayerOrder.h"
#include "document/Media.h"
#include "document/Sync.h"

#include <QTimer>

#include <algorithm>

namespace selvora {
namespace document {

using SyncType = Definitions::kSyncType;

int Scene::countScene_ = 0;
int Scene::countTemplate_ = 0;
int Scene::countRegions_ = 0;

Scene::Scene(int id, const QString& label) : id_(IdCounter::take(countScene_, id)) {
    label_ = label.isEmpty() ? QString("Cena %1").arg(id_ + 1) : label;
    init();
}

Scene::Scene(TemplateTag, const QString& label) : id_(IdCounter::take(countTemplate_, -1)) {
    label_ = label.isEmpty() ? QString("Template %1").arg(id_ + 1) : label;
    init();
}

void Scene::init() {
    order_ = id_;
    timer_ = new QTimer(this);
    timer_->setTimerType(Qt::PreciseTimer);
    setConnections();
}

void Scene::setConnections() {
    connect(timer_, &QTimer::timeout, this, &Scene::iteratorTime, Qt::UniqueConnection);
}

Scene::~Scene() {
    timer_->stop();
    const QList<Sync*> syncs = syncs_.values();
    syncs_.clear();
    qDeleteAll(syncs);
    const QList<Media*> medias = medias_.values();
    medias_.clear();
    qDeleteAll(medias);
}

// ---------------------------------------------------------------- contents and layers

bool Scene::setLabel(const QString& label) {
    if (label.isNull() || label == label_)
        return false;
    const QString old = label_;
    label_ = label;
    emit projectModified();
    emit changeLabel(label_);
    emit changeLabel(old, label_);
    return true;
}

void Scene::setOrder(int order) {
    order_ = order;
    emit projectModified();
    emit changeOrder(order_);
}

void Scene::setMainVideo(Media* media) {
    mainVideo_ = media;
    if (media)
        currentMedia_ = media->getId();
}

Media* Scene::getMedia(int id) {
    if (medias_.isEmpty())
        return nullptr;
    if (id != -1) {
        if (Media* media = medias_.value(id, nullptr))
            return media;
    }
    return medias_.value(currentMedia_, nullptr);
}

bool Scene::hasMedia(int id) const {
    for (Media* media : medias_) {
        if (media->getId() == id)
            return true;
    }
    return false;
}

bool Scene::setCurrentMedia(int id) {
    Media* media = nullptr;
    if (id == -1) {
        if (!mainVideo_)
            return false;
        media = mainVideo_;
        currentMedia_ = media->getId();
        emit mediaCurrent(media);
    } else {
        media = medias_.value(id, nullptr);
        if (!media)
            return false;
        currentMedia_ = id;
        emit mediaCurrent(media);
    }
    emit mediaCurrentId(media->getId());
    hasCurrentMedia_ = true;
    hasCurrentTemplate_ = false;
    return true;
}

bool Scene::addMedia(Media* media) {
    if (!media)
        return false;
    const int id = media->getId();
    if (medias_.contains(id) && medias_.value(id) != media) {
        // An id that is already taken would orphan the media holding it.
        delete media;
        return false;
    }
    medias_.insert(id, media);
    if (media->getType() == Definitions::kMediaType::video) {
        if (mainVideo_ && mainVideo_ != media)
            medias_.remove(id);
        else
            setMainVideo(media);
    }
    if (!medias_.contains(id)) {
        // A scene has one main video; a second one is refused.
        delete media;
        return false;
    }

    if (media->getType() != Definitions::kMediaType::audio) {
        Media* last = lastMediaLayer();
        const int layer = last && last != media ? last->getLayer().toInt() + 1 : countRegions_ + 1;
        media->setLayer(QString::number(layer));
    }

    // Automatic start syncs all carry the id 1: they are found through their target.
    auto* start = new Sync(1, currentTime_, SyncType::start, id, true);
    start->setProperties(media->getProperties());
    if (!addSync(start))
        delete start;

    emit projectModified();
    emit mediaAdded(media);
    setCurrentMedia(id);
    return true;
}

void Scene::loadMedia(Media* media) {
    if (!media)
        return;
    const int id = media->getId();
    if (Media* previous = medias_.value(id, nullptr)) {
        if (previous == media)
            return;
        if (mainVideo_ == previous)
            mainVideo_ = nullptr;
        delete previous;
    }
    medias_.insert(id, media);
    currentMedia_ = id;
    if (media->getType() == Definitions::kMediaType::video)
        setMainVideo(media);
}

bool Scene::removeMedia(int id) {
    Media* media = medias_.value(id, nullptr);
    if (!media)
        return false;
    if (media->getType() == Definitions::kMediaType::video && mainVideo_ == media)
        mainVideo_ = nullptr;
    emit projectModified();
    emit mediaRemoved(media);
    emit mediaRemovedId(id);
    emit mediaNull();
    hasCurrentMedia_ = false;
    removeAllSyncs(id, true);
    medias_.remove(id);
    if (mainVideo_ == media)
        mainVideo_ = nullptr;
    delete media;
    return true;
}

Media* Scene::firstMediaLayer() const {
    return LayerOrder<Media>(medias_.values()).first();
}
Media* Scene::lastMediaLayer() const {
    return LayerOrder<Media>(medias_.values()).last();
}
Media* Scene::backMediaLayer(Media* media) const {
    return LayerOrder<Media>(medias_.values()).back(media);
}
Media* Scene::nextMediaLayer(Media* media) const {
    return LayerOrder<Media>(medias_.values()).next(media);
}
QList<Media*> Scene::getAllMediasLayerNull() const {
    return LayerOrder<Media>(medias_.values()).layerNull();
}
QList<Media*> Scene::getAllMediasOrderLayer() const {
    return LayerOrder<Media>(medias_.values()).ordered();
}

void Scene::updateMediasLayer(int mediaId, int oldLayer, int newLayer) {
    if (!medias_.contains(mediaId) || oldLayer == newLayer)
        return;
    QList<Media*> shifted;
    for (Media* media : medias_) {
        if (media->getId() == mediaId || media->getLayer().isEmpty())
            continue;
        const int layer = media->getLayer().toInt();
        if (oldLayer > newLayer && newLayer <= layer && layer < oldLayer) {
            media->setLayer(QString::number(layer + 1));
            shifted.append(media);
        } else if (oldLayer < newLayer && oldLayer < layer && layer <= newLayer) {
            media->setLayer(QString::number(layer - 1));
            shifted.append(media);
        }
    }
    // A change of stacking holds from the current second on, as any other change of look.
    for (Media* media : shifted) {
        auto* sync = new Sync(-1, currentTime_, SyncType::set, media->getId(), true);
        sync->setProperties(media->getProperties());
        if (!addSync(sync))
            delete sync;
    }
    emit updateLayers(mediaId, getAllMediasOrderLayer());
}

void Scene::setStopAllMedias() {
    for (Media* media : medias_)
        emit mediaSyncType(media, SyncType::stop);
}

void Scene::setStopAllTemplates() {
    for (int id : templates_)
        emit templateSyncType(id, SyncType::stop);
}

void Scene::addTemplate(int id) {
    templates_.append(id);
    hasCurrentTemplate_ = true;
    currentTemplate_ = id;
    auto* start = new Sync(-1, currentTime_, SyncType::start, id, false);
    if (!addSync(start))
        delete start;
    emit templateChanged(id);
}

bool Scene::removeTemplate(int id, int regions) {
    hasCurrentTemplate_ = false;
    if (!templates_.contains(id))
        return false;
    updateCountRegions(-regions);
    emit templateRemovedId(id);
    emit templateNull();
    removeAllSyncs(id, false);
    templates_.removeOne(id);
    return true;
}

void Scene::setCurrentTemplate(int id) {
    currentTemplate_ = id;
    hasCurrentMedia_ = false;
    hasCurrentTemplate_ = true;
    emit templateCurrent(id);
}

int Scene::getTemplate(int id) const {
    return id == -1 ? currentTemplate_ : id;
}

// ---------------------------------------------------------------- sync queries

QList<Sync*> Scene::getAllSyncs() const {
    return syncs_.values();
}

QList<Sync*> Scene::getAllSyncs(int time) const {
    return syncs_.values(time);
}

QList<Sync*> Scene::getAllSyncs(Definitions::kSyncType type) const {
    QList<Sync*> result;
    for (Sync* sync : syncs_) {
        if (sync->getType() == type)
            result.append(sync);
    }
    return result;
}

QList<Sync*> Scene::getAllSyncs(int target, int time, bool isMedia) const {
    QList<Sync*> result;
    const QList<Sync*> atTime = syncs_.values(time);
    for (Sync* sync : atTime) {
        if (sync->getMediaTarget() == target && sync->getIsMedia() == isMedia)
            result.append(sync);
    }
    return result;
}

QList<Sync*> Scene::getAllSyncsMedia(int target, bool isMedia) const {
    QList<Sync*> result;
    for (Sync* sync : syncs_) {
        if (sync->getMediaTarget() == target && sync->getIsMedia() == isMedia)
            result.append(sync);
    }
    return result;
}

QList<Sync*> Scene::getAllSyncsWithKey(const QString& key) const {
    QList<Sync*> result;
    for (Sync* sync : syncs_) {
        if (sync->getKey() == key)
            result.append(sync);
    }
    return result;
}

Sync* Scene::getSync(int id) const {
    for (Sync* sync : syncs_) {
        if (sync->getId() == id)
            return sync;
    }
    return nullptr;
}

Sync* Scene::getSync(Definitions::kSyncType type, int target, bool isMedia) const {
    for (Sync* sync : syncs_) {
        if (sync->getType() == type && sync->getMediaTarget() == target &&
            sync->getIsMedia() == isMedia)
            return sync;
    }
    return nullptr;
}

bool Scene::hasSync(int id) const {
    return getSync(id) != nullptr;
}

bool Scene::hasSync(Definitions::kSyncType type, int target, bool isMedia) const {
    return getSync(type, target, isMedia) != nullptr;
}

bool Scene::hasSync(int target, int time, bool isMedia) const {
    return !getAllSyncs(target, time, isMedia).isEmpty();
}

bool Scene::hasSyncWithKey(const QString& key) const {
    for (Sync* sync : syncs_) {
        if (sync->getKey() == key)
            return true;
    }
    return false;
}

// ---------------------------------------------------------------- clock

void Scene::playScene() {
    timer_->start(1000);
    setStatusPlayer(Definitions::kPlayerStatus::play);
    executeSyncs(currentTime_, false, SyncType::goTo);
}

void Scene::resumeScene() {
    timer_->start(1000);
    setStatusPlayer(Definitions::kPlayerStatus::play);
}

bool Scene::pauseScene() {
    timer_->stop();
    setStatusPlayer(Definitions::kPlayerStatus::pause);
    setCurrentTime(currentTime_, false);
    return true;
}

bool Scene::stopScene() {
    timer_->stop();
    setStatusPlayer(Definitions::kPlayerStatus::stop);
    setCurrentTime(0, true);
    return true;
}

void Scene::iteratorTime() {
    if (currentTime_ < totalTime_)
        ++currentTime_;
    // Restarted on each tick: a slow tick delays the next one rather than shortening it.
    timer_->start(1000);
    executeSyncs(currentTime_, false, SyncType::goTo);
    emit currentTime(currentTime_);
}

void Scene::setCurrentTime(int time, bool execute) {
    currentTime_ = time;
    emit currentTime(time);
    if (execute)
        executeSyncs(time, false, SyncType::goTo);
}

void Scene::executeSyncs(int time, bool filter, Definitions::kSyncType type) {
    const QList<Sync*> atTime = syncs_.values(time);
    if (atTime.isEmpty())
        return;
    QString link;
    QString timeEvent;
    for (Sync* sync : atTime) {
        const SyncType syncType = sync->getType();
        if (filter && syncType == type)
            continue;
        if (syncType == SyncType::goTo) {
            link = sync->getLink();
            timeEvent = sync->getTimeEvent();
            continue;
        }
        if (syncType == SyncType::select)
            continue; // links act through the canvas and the keys, not the clock
        if (!sync->getIsMedia()) {
            emit templateSyncType(sync->getMediaTarget(), syncType);
            continue;
        }
        if (Media* media = medias_.value(sync->getMediaTarget(), nullptr)) {
            media->setProperties(sync->getProperties());
            emit mediaSyncType(media, syncType);
        }
    }
    // A jump acts only while playing, after the other syncs of its second.
    if (!link.isEmpty() && statusPlayer_ == Definitions::kPlayerStatus::play) {
        pauseScene();
        emit documentChangeSceneTime(link.toInt(), timeEvent.toInt());
    }
}

void Scene::resetExecuteSyncs() {
    setStopAllMedias();
    setStopAllTemplates();
    // Replaying every second from 0 is the same as replaying, in ascending order, the seconds
    // that hold syncs; walking only those keeps a seek at one hour as cheap as at one minute.
    QList<int> times = syncs_.uniqueKeys();
    std::sort(times.begin(), times.end());
    for (int t : times) {
        if (t > currentTime_)
            break;
        if (t >= 0)
            executeSyncs(t, true, SyncType::goTo);
    }
    emit executeSyncsReseted();
}

void Scene::setStatusPlayer(Definitions::kPlayerStatus status) {
    statusPlayer_ = status;
    emit playerStatus(status);
}

void Scene::setTotalTime(int time) {
    if (time == totalTime_)
        return;
    const int old = totalTime_;
    totalTime_ = time;
    emit projectModified();
    emit totalTime(time);
    emit totalTime(old, time);
}

bool Scene::mediaActivate(int target, int time, bool isMedia) const {
    const Sync* start = getSync(SyncType::start, target, isMedia);
    const Sync* stop = getSync(SyncType::stop, target, isMedia);
    const int startTime = start ? start->getTime() : 0;
    const int stopTime = stop ? stop->getTime() : totalTime_ + 1;
    return startTime <= time && time < stopTime;
}

QList<Media*> Scene::getAllMediasVisibleInTime(int time) const {
    QList<Media*> result;
    for (Media* media : medias_) {
        if (mediaActivate(media->getId(), time, true))
            result.append(media);
    }
    return result;
}

bool Scene::insertSync(Sync* sync) {
    syncs_.insert(sync->getTime(), sync);
    emit syncAdded(sync);
    return true;
}

bool Scene::addSync(Sync* sync) {
    if (!sync || !enabledAddSync_)
        return false; // the slider is being moved: seeking makes no syncs
    const int time = sync->getTime();
    const int target = sync->getMediaTarget();
    const bool isMedia = sync->getIsMedia();
    const SyncType type = sync->getType();

    // A set lives only inside the span of its target.
    if (type == SyncType::set) {
        const Sync* start = getSync(SyncType::start, target, isMedia);
        if (start && time < start->getTime())
            return false;
        const Sync* stop = getSync(SyncType::stop, target, isMedia);
        if (stop && time > stop->getTime())
            return false;
    }

    emit projectModified();

    // A second start or stop moves the existing one, and takes along what falls outside.
    if (type == SyncType::start || type == SyncType::stop) {
        if (Sync* existing = getSync(type, target, isMedia)) {
            const int oldTime = existing->getTime();
            updateSyncs(existing, oldTime, time);
            QList<Sync*> outside;
            const bool check = type == SyncType::start ? hasBeforeSync(time) : hasNextSync(time);
            if (check) {
                for (Sync* other : getAllSyncsMedia(target, isMedia)) {
                    if (other->getType() == SyncType::select)
                        continue;
                    if (type == SyncType::start ? other->getTime() < time : other->getTime() > time)
                        outside.prepend(other);
                }
            }
            emit syncStartStopSpecialCondition(existing, oldTime, existing->getTime(), outside);
            for (Sync* other : outside)
                removeSyncObject(other);
            resetExecuteSyncs();
            return false;
        }
    }

    // A first stop before later syncs of its target cuts them off.
    if (type == SyncType::stop && hasNextSyncMedia(target, time - 1)) {
        insertSync(sync);
        QList<Sync*> outside;
        for (Sync* other : getAllSyncsMedia(target, isMedia)) {
            if (other->getType() != SyncType::select && other->getTime() > time)
                outside.append(other);
        }
        emit syncStartStopSpecialCondition(sync, -1, time, outside);
        for (Sync* other : outside)
            removeSyncObject(other);
        resetExecuteSyncs();
        return true;
    }

    if (type == SyncType::set && hasSync(target, time, isMedia)) {
        // One second holds at most one state of a target.
        for (Sync* other : getAllSyncs(target, time, isMedia)) {
            if (other->getType() == SyncType::select || other->getType() == SyncType::goTo)
                continue;
            if (other->getProperties() != sync->getProperties())
                other->setProperties(sync->getProperties());
            return false;
        }
    }

    if (type == SyncType::set && hasBeforeSyncMedia(target, time)) {
        // An unchanged state is not recorded again.
        const int before = getBeforeSyncTimeMedia(target, -1);
        const QHash<QString, QString> properties = sync->getProperties();
        for (Sync* other : getAllSyncs(target, before, isMedia)) {
            if (other->getProperties() == properties)
                return false;
        }
    }

    if (type == SyncType::select) {
        if (Sync* existing = getSync(SyncType::select, target, isMedia)) {
            existing->setProperties(sync->getProperties()); // one link per target
            return false;
        }
    }

    return insertSync(sync);
}

void Scene::loadSync(Sync* sync) {
    if (sync)
        syncs_.insert(sync->getTime(), sync);
}

void Scene::eraseSync(Sync* sync) {
    if (syncs_.remove(sync->getTime(), sync) > 0)
        return;
    // The time was changed without moving the entry: find it by value.
    for (auto it = syncs_.begin(); it != syncs_.end(); ++it) {
        if (it.value() == sync) {
            syncs_.erase(it);
            return;
        }
    }
}

void Scene::updateSyncs(Sync* sync, int oldTime, int newTime) {
    if (!sync)
        return;
    if (syncs_.remove(oldTime, sync) == 0)
        eraseSync(sync);
    syncs_.insert(newTime, sync);
    sync->setTime(newTime);
    emit syncUpdate(sync);
    emit syncUpdateId(sync->getId());
}

void Scene::removeSyncObject(Sync* sync) {
    emit projectModified();
    emit syncRemoved(sync);
    emit syncRemovedId(sync->getId());
    eraseSync(sync);
    delete sync;
}

bool Scene::removeSync(int id) {
    Sync* sync = getSync(id);
    if (!sync)
        return false;
    removeSyncObject(sync);
    return true;
}

bool Scene::removeSync(Definitions::kSyncType type, int target, bool isMedia) {
    Sync* sync = getSync(type, target, isMedia);
    if (!sync)
        return false;
    removeSyncObject(sync);
    return true;
}

void Scene::removeSyncs(const QList<Sync*>& syncs) {
    for (Sync* sync : syncs) {
        emit syncRemoved(sync);
        emit syncRemovedId(sync->getId());
        eraseSync(sync);
        delete sync;
    }
    emit projectModified();
}

bool Scene::removeAllSyncs() {
    removeSyncs(syncs_.values());
    syncs_.clear();
    return true;
}

bool Scene::removeAllSyncs(int target, bool isMedia) {
    removeSyncs(getAllSyncsMedia(target, isMedia));
    return true;
}

bool Scene::removeAllSyncs(int target, int time, bool isMedia) {
    removeSyncs(getAllSyncs(target, time, isMedia));
    return true;
}

// ---------------------------------------------------------------- neighbours in time

QList<int> Scene::syncTimesOf(int target) const {
    // The syncs of a media and of a template with the same id are not told apart here.
    QList<int> times;
    for (Sync* sync : syncs_) {
        if (sync->getMediaTarget() == target)
            times.append(sync->getTime());
    }
    return times;
}

namespace {

int beforeOf(const QList<int>& times, int time) {
    int result = 0;
    bool found = false;
    for (int t : times) {
        if (t < time && (!found || t > result)) {
            result = t;
            found = true;
        }
    }
    return result;
}

// Starts from the total time, so a sync beyond the end is never the next one.
int nextOf(const QList<int>& times, int time, int totalTime) {
    int result = totalTime;
    for (int t : times) {
        if (t > time && t < result)
            result = t;
    }
    return result;
}

bool anyBelow(const QList<int>& times, int time) {
    for (int t : times) {
        if (t < time)
            return true;
    }
    return false;
}

bool anyAbove(const QList<int>& times, int time) {
    for (int t : times) {
        if (t > time)
            return true;
    }
    return false;
}

} // namespace

int Scene::getBeforeSyncTime(int time) const {
    return beforeOf(syncs_.uniqueKeys(), time == -1 ? currentTime_ : time);
}

int Scene::getNextSyncTime(int time) const {
    return nextOf(syncs_.uniqueKeys(), time == -1 ? currentTime_ : time, totalTime_);
}

bool Scene::hasBeforeSync(int time) const {
    return anyBelow(syncs_.uniqueKeys(), time == -1 ? currentTime_ : time);
}

bool Scene::hasNextSync(int time) const {
    return anyAbove(syncs_.uniqueKeys(), time == -1 ? currentTime_ : time);
}

int Scene::getBeforeSyncTimeMedia(int target, int time) const {
    return beforeOf(syncTimesOf(target), time == -1 ? currentTime_ : time);
}

int Scene::getNextSyncTimeMedia(int target, int time) const {
    return nextOf(syncTimesOf(target), time == -1 ? currentTime_ : time, totalTime_);
}

bool Scene::hasBeforeSyncMedia(int target, int time) const {
    return anyBelow(syncTimesOf(target), time == -1 ? currentTime_ : time);
}

bool Scene::hasNextSyncMedia(int target, int time) const {
    return anyAbove(syncTimesOf(target), time == -1 ? currentTime_ : time);
}

void Scene::seekBackwardSync() {
    seekTo(getBeforeSyncTime(-1));
}

void Scene::seekForwardSync() {
    seekTo(getNextSyncTime(-1));
}

void Scene::seekTo(int time) {
    timer_->stop();
    setCurrentTime(time, false);
    resetExecuteSyncs();
    if (statusPlayer_ == Definitions::kPlayerStatus::play)
        playScene();
    else
        emit playerStatus(statusPlayer_);
}

} // namespace document
} // namespace selvora
