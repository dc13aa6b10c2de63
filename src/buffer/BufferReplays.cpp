// The replays of the history: a record read back and applied through the ordinary model calls,
// with the Buffer cut off from what it touches so that the replay is not recorded again.
#include "buffer/Buffer.h"

#include "buffer/HistoryRecord.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "project/ProjectXml.h"

#include <algorithm>

namespace selvora {
namespace buffer {

using document::Document;
using document::Media;
using document::Scene;
using document::Sync;
using project::ProjectXml;
using ActionType = Definitions::kActionType;
using SyncType = Definitions::kSyncType;

// ---------------------------------------------------------------- rebuilding

Media* Buffer::rebuildMedia(Scene* scene, const QDomElement& element) {
    ProjectXml::MediaRecord record = ProjectXml::readMedia(element);
    // A snapshot holds no hover, and its font size never crossed machines.
    record.properties.remove(QStringLiteral("hover"));
    Media* media = document_->createMedia(
        scene, record.src, record.type, record.properties.value(QStringLiteral("geometry")),
        record.properties.value(QStringLiteral("wording")), record.id);
    if (!media)
        return nullptr;
    media->setLabel(record.label);
    media->setProperties(record.properties);
    return media;
}

// All actions of a group come back under the group's id. An action whose sync is still there,
// the same in every respect (another medium's sync at that second), is left as it is. A stop
// is recorded without properties; it takes its medium's, as the timing dialog gives it.
QList<Sync*> Buffer::rebuildSyncs(Scene* scene, const QDomElement& group, int time, int id) {
    QList<Sync*> rebuilt;
    for (QDomElement child = group.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        ProjectXml::ActionRecord action = ProjectXml::readAction(child);
        const QList<Sync*> present = scene->getAllSyncs(action.target, time, true);
        const bool kept = std::any_of(present.begin(), present.end(), [&](const Sync* sync) {
            if (sync->getType() != action.type)
                return false;
            const QHash<QString, QString> properties = sync->getProperties();
            for (auto it = action.properties.constBegin(); it != action.properties.constEnd();
                 ++it) {
                if (properties.value(it.key()) != it.value())
                    return false;
            }
            return true;
        });
        if (kept)
            continue;
        if (action.type == SyncType::stop && action.properties.isEmpty() &&
            scene->hasMedia(action.target))
            action.properties = scene->getMedia(action.target)->getProperties();
        if (Sync* sync = document_->createSync(scene, action.target, true, action.type, time,
                                               action.properties, id))
            rebuilt.append(sync);
    }
    return rebuilt;
}

void Buffer::rebuildSyncGroups(Scene* scene, const QDomElement& parent) {
    for (QDomElement child = parent.firstChildElement(HistoryRecord::kSync); !child.isNull();
         child = child.nextSiblingElement(HistoryRecord::kSync))
        rebuildSyncs(scene, child, HistoryRecord::intOf(child, HistoryRecord::kTime),
                     HistoryRecord::intOf(child, HistoryRecord::kId));
}

// ---------------------------------------------------------------- replays: scenes

void Buffer::createScene(const QDomElement& payload, bool) {
    const int id = HistoryRecord::intOf(payload, HistoryRecord::kId);
    if (document_->getSceneAll().contains(id))
        return;
    setDocumentDisconnections();
    Scene* scene = document_->createScene(id);
    scene->setLabel(payload.attribute(QStringLiteral("label")));
    scene->setTotalTime(HistoryRecord::intOf(payload, HistoryRecord::kTime));
    scene->setOrder(HistoryRecord::intOf(payload, QStringLiteral("order")));
    document_->updadeSceneOrder();
    document_->setCurrentScene(id, true);
    // Media first: the syncs name them.
    for (QDomElement child = payload.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        if (child.tagName() != HistoryRecord::kSync)
            rebuildMedia(scene, child);
    }
    rebuildSyncGroups(scene, payload);
    scene->resetExecuteSyncs();
    attachScene(scene);
    setDocumentConnections();
}

void Buffer::removeScene(const QDomElement& payload, bool) {
    Scene* scene = sceneOf(payload);
    if (!scene)
        return;
    setDocumentDisconnections();
    detachScene(scene);
    document_->removeScene(scene->getId());
    setDocumentConnections();
}

// Up and down exchange a scene with its neighbour: each undoes the other.
void Buffer::alterSceneOrder(const QDomElement& payload, bool undo) {
    const int before = HistoryRecord::intOf(payload, QStringLiteral("beforeOrder"));
    const int current = HistoryRecord::intOf(payload, QStringLiteral("currentOrder"));
    const bool up = undo ? before < current : current < before;
    Scene* scene = sceneOf(payload);
    if (!scene)
        return;
    setDocumentDisconnections();
    if (up)
        document_->sendSceneUp(scene->getId());
    else
        document_->sendSceneDown(scene->getId());
    setDocumentConnections();
}

void Buffer::alterSceneTotalTime(const QDomElement& payload, bool undo) {
    Scene* scene = sceneOf(payload);
    if (!scene)
        return;
    detachScene(scene);
    scene->setTotalTime(
        HistoryRecord::intOf(payload, undo ? HistoryRecord::kOldTime : HistoryRecord::kNewTime));
    if (scene->getCurrentTime() > scene->getTotalTime()) {
        scene->setCurrentTime(scene->getTotalTime(), true);
        scene->resetExecuteSyncs();
    }
    attachScene(scene);
}

void Buffer::alterSceneLabel(const QDomElement& payload, bool undo) {
    Scene* scene = sceneOf(payload);
    if (!scene)
        return;
    detachScene(scene);
    scene->setLabel(
        payload.attribute(undo ? QStringLiteral("oldLabel") : QStringLiteral("newLabel")));
    attachScene(scene);
}

// ---------------------------------------------------------------- replays: media

void Buffer::createMedia(const QDomElement& payload, bool) {
    Scene* scene = sceneOf(payload);
    if (!makeCurrent(scene, payload))
        return;
    detachScene(scene);
    if (rebuildMedia(scene, HistoryRecord::firstOtherChild(payload))) {
        rebuildSyncGroups(scene, payload);
        scene->resetExecuteSyncs();
    }
    attachScene(scene);
}

void Buffer::removeMedia(const QDomElement& payload, bool) {
    Scene* scene = sceneOf(payload);
    if (!makeCurrent(scene, payload))
        return;
    const int id =
        HistoryRecord::intOf(HistoryRecord::firstOtherChild(payload), HistoryRecord::kId);
    if (!scene->hasMedia(id))
        return;
    detachScene(scene);
    // By object, not by id: the automatic starts of all media share one id.
    for (Sync* sync : scene->getAllSyncsMedia(id, true))
        scene->removeSyncObject(sync);
    scene->removeMedia(id);
    scene->resetExecuteSyncs();
    attachScene(scene);
}

void Buffer::alterMediaLabel(const QDomElement& payload, bool undo) {
    Scene* scene = sceneOf(payload);
    const QDomElement element = payload.firstChildElement(QStringLiteral("media"));
    const int id = HistoryRecord::intOf(element, HistoryRecord::kId);
    if (!scene || !scene->hasMedia(id))
        return;
    Media* media = scene->getMedia(id);
    setMediaDisconnections(media);
    media->setLabel(
        element.attribute(undo ? QStringLiteral("oldLabel") : QStringLiteral("newLabel")));
    setMediaConnections(media);
}

void Buffer::alterMediaProperties(const QDomElement& payload, bool undo) {
    Scene* scene = sceneOf(payload);
    const QDomElement element = payload.firstChildElement(QStringLiteral("media"));
    const int id = HistoryRecord::intOf(element, HistoryRecord::kId);
    if (!scene || !scene->hasMedia(id) || !makeCurrent(scene, payload))
        return;
    detachScene(scene);
    scene->setCurrentMedia(id);
    scene->getMedia(id)->setProperties(HistoryRecord::propertiesToApply(element, undo));
    scene->resetExecuteSyncs();
    attachScene(scene);
}

// ---------------------------------------------------------------- replays: syncs

void Buffer::createSync(const QDomElement& payload, bool) {
    Scene* scene = sceneOf(payload);
    if (!makeCurrent(scene, payload))
        return;
    detachScene(scene);
    const QDomElement element = payload.firstChildElement(HistoryRecord::kSync);
    rebuildSyncs(scene, element, HistoryRecord::intOf(element, HistoryRecord::kTime),
                 HistoryRecord::intOf(element, HistoryRecord::kId));
    attachScene(scene);
    scene->resetExecuteSyncs();
}

void Buffer::removeSync(const QDomElement& payload, bool) {
    Scene* scene = sceneOf(payload);
    if (!makeCurrent(scene, payload))
        return;
    Sync* sync =
        HistoryRecord::findRecorded(scene, payload.firstChildElement(HistoryRecord::kSync));
    if (!sync)
        return;
    detachScene(scene);
    scene->removeSyncObject(sync);
    attachScene(scene);
    scene->resetExecuteSyncs();
}

void Buffer::alterSyncTime(const QDomElement& payload, bool undo) {
    Scene* scene = sceneOf(payload);
    if (!makeCurrent(scene, payload))
        return;
    const QDomElement element = payload.firstChildElement(HistoryRecord::kSync);
    Sync* sync = HistoryRecord::findMarked(
        scene, element,
        HistoryRecord::intOf(element, undo ? HistoryRecord::kNewTime : HistoryRecord::kOldTime));
    if (!sync)
        sync = HistoryRecord::findMarked(scene, element, -1);
    if (!sync)
        return;
    detachScene(scene);
    scene->updateSyncs(
        sync, sync->getTime(),
        HistoryRecord::intOf(element, undo ? HistoryRecord::kOldTime : HistoryRecord::kNewTime));
    attachScene(scene);
    scene->resetExecuteSyncs();
}

void Buffer::alterSyncProperties(const QDomElement& payload, bool undo) {
    Scene* scene = sceneOf(payload);
    if (!makeCurrent(scene, payload))
        return;
    const QDomElement element = payload.firstChildElement(HistoryRecord::kSync);
    Sync* sync = HistoryRecord::findMarked(scene, element, -1);
    if (!sync)
        return;
    detachScene(scene);
    sync->setProperties(HistoryRecord::propertiesToApply(element, undo));
    attachScene(scene);
    scene->resetExecuteSyncs();
}

void Buffer::updateSyncStartStopSpecialCondition(const QDomElement& payload, bool undo) {
    Scene* scene = sceneOf(payload);
    if (!scene)
        return;
    const QDomElement element = payload.firstChildElement(HistoryRecord::kSync);
    const QDomElement removed = HistoryRecord::firstOtherChild(payload);
    const QDomElement action = element.firstChildElement();
    const int id = HistoryRecord::intOf(element, HistoryRecord::kId);
    const int oldTime = HistoryRecord::intOf(element, HistoryRecord::kOldTime);
    const int newTime = HistoryRecord::intOf(element, HistoryRecord::kNewTime);
    detachScene(scene);

    if (oldTime == -1) {
        // A first stop that cut off the medium's later syncs.
        if (undo) {
            if (Sync* sync = HistoryRecord::findSync(scene, id, action, newTime))
                scene->removeSyncObject(sync);
        } else {
            rebuildSyncs(scene, element, newTime, id);
        }
    } else if (Sync* sync = HistoryRecord::findSync(scene, id, action, undo ? newTime : oldTime)) {
        // A start or stop moved past other syncs.
        scene->updateSyncs(sync, sync->getTime(), undo ? oldTime : newTime);
    }

    if (undo) {
        rebuildSyncGroups(scene, removed);
    } else {
        // Adding a first stop already removed them: only what is left goes.
        for (QDomElement child = removed.firstChildElement(HistoryRecord::kSync); !child.isNull();
             child = child.nextSiblingElement(HistoryRecord::kSync)) {
            if (Sync* sync = HistoryRecord::findRecorded(scene, child))
                scene->removeSyncObject(sync);
        }
    }
    scene->resetExecuteSyncs();
    attachScene(scene);
}

} // namespace buffer
} // namespace selvora
