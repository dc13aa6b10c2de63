// The recorders of the history: each model signal worth undoing becomes one record.
#include "buffer/Buffer.h"

#include "buffer/HistoryRecord.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "project/ProjectXml.h"

#include <algorithm>
#include <iterator>

namespace selvora {
namespace buffer {

using document::Document;
using document::Media;
using document::Scene;
using document::Sync;
using project::ProjectXml;
using ActionType = Definitions::kActionType;
using SyncType = Definitions::kSyncType;

namespace {

// The keys whose change makes a media properties record; geometry and layer are the syncs'.
const char* const kRecordedMediaKeys[] = {
    "wording",      "colorFill",  "colorFont", "colorOutline", "widthOutline",
    "styleOutline", "fontFamily", "fontType",  "fontSize",     "textAlignment"};

} // namespace

// ---------------------------------------------------------------- recorders: scenes

void Buffer::recordScene(ActionType type, Scene* scene, bool removing) {
    if (!scene)
        return;
    QDomDocument doc;
    QDomElement payload = HistoryRecord::sceneElement(doc, scene);
    payload.setAttribute(QStringLiteral("label"), scene->getLabel());
    payload.setAttribute(HistoryRecord::kTime, scene->getTotalTime());
    payload.setAttribute(QStringLiteral("order"), scene->getOrder());
    for (Media* media : HistoryRecord::byId(scene->getAllMedias())) {
        ProjectXml::appendMedia(doc, payload, media, media->getPathStart(), false);
        if (removing)
            setMediaDisconnections(media);
    }
    const QList<Sync*> syncs = HistoryRecord::byTime(scene->getAllSyncs());
    int counter = 0;
    ProjectXml::appendSyncGroups(doc, payload, scene, syncs, false, counter);
    if (removing) {
        for (Sync* sync : syncs)
            setSyncDisconnections(sync);
    }
    addHistoric(type, doc, payload);
}

void Buffer::createSceneHistoric(Scene* scene) {
    recordScene(ActionType::createScene, scene, false);
}

void Buffer::removeSceneHistoric(Scene* scene) {
    recordScene(ActionType::removeScene, scene, true);
}

void Buffer::recordSceneOrder(Scene* scene, Scene* neighbour) {
    if (!scene || !neighbour)
        return;
    QDomDocument doc;
    QDomElement payload = HistoryRecord::sceneElement(doc, scene);
    payload.setAttribute(QStringLiteral("beforeOrder"), neighbour->getOrder());
    payload.setAttribute(QStringLiteral("currentOrder"), scene->getOrder());
    addHistoric(ActionType::alterSceneOrder, doc, payload);
}

// After the exchange the neighbour holds the scene's former order.
void Buffer::sendSceneUpHistoric(Scene* scene) {
    recordSceneOrder(scene, document_->nextSceneOrder(scene));
}

void Buffer::sendSceneDownHistoric(Scene* scene) {
    recordSceneOrder(scene, document_->backSceneOrder(scene));
}

void Buffer::alterSceneTotalTimeHistoric(int oldTime, int newTime) {
    Scene* scene = document_->getScene(-1);
    if (!scene)
        return;
    QDomDocument doc;
    QDomElement payload = HistoryRecord::sceneElement(doc, scene);
    payload.setAttribute(HistoryRecord::kOldTime, oldTime);
    payload.setAttribute(HistoryRecord::kNewTime, newTime);
    addHistoric(ActionType::alterSceneTotalTime, doc, payload);
}

void Buffer::alterSceneLabelHistoric(QString oldLabel, QString newLabel) {
    // Found by its new label: of two scenes with that label, the first by id is named.
    Scene* scene = document_->getScene(newLabel);
    if (!scene)
        return;
    QDomDocument doc;
    QDomElement payload = HistoryRecord::sceneElement(doc, scene);
    payload.setAttribute(QStringLiteral("oldLabel"), oldLabel);
    payload.setAttribute(QStringLiteral("newLabel"), newLabel);
    addHistoric(ActionType::alterSceneLabel, doc, payload);
}

// ---------------------------------------------------------------- recorders: media

void Buffer::recordMedia(ActionType type, Media* media, bool removing) {
    if (!media)
        return;
    Scene* scene = sceneWithMedia(media->getId());
    if (!scene)
        return;
    const QList<Sync*> syncs = HistoryRecord::byTime(scene->getAllSyncsMedia(media->getId(), true));
    int time = scene->getCurrentTime();
    if (removing) {
        // Undoing the removal shows the medium: the scene goes to the medium's start.
        if (const Sync* start = scene->getSync(SyncType::start, media->getId(), true))
            time = start->getTime();
        for (Sync* sync : syncs)
            setSyncDisconnections(sync);
    }
    QDomDocument doc;
    QDomElement payload = HistoryRecord::sceneElement(doc, scene);
    payload.setAttribute(HistoryRecord::kCurrentTime, time);
    ProjectXml::appendMedia(doc, payload, media, media->getPathStart(), false);
    int counter = 0;
    ProjectXml::appendSyncGroups(doc, payload, scene, syncs, false, counter);
    addHistoric(type, doc, payload);
}

void Buffer::createMediaHistoric(Media* media) {
    recordMedia(ActionType::createMedia, media, false);
}

void Buffer::removeMediaHistoric(Media* media) {
    recordMedia(ActionType::removeMedia, media, true);
}

void Buffer::alterMediaLabelHistoric(int id, QString oldLabel, QString newLabel) {
    Scene* scene = sceneWithMedia(id);
    if (!scene)
        return;
    QDomDocument doc;
    QDomElement payload = HistoryRecord::sceneElement(doc, scene);
    QDomElement media = doc.createElement(QStringLiteral("media"));
    media.setAttribute(HistoryRecord::kId, id);
    media.setAttribute(QStringLiteral("oldLabel"), oldLabel);
    media.setAttribute(QStringLiteral("newLabel"), newLabel);
    payload.appendChild(media);
    addHistoric(ActionType::alterMediaLabel, doc, payload);
}

void Buffer::alterMediaPropertiesHistoric(int id, QHash<QString, QString> oldProperties,
                                          QHash<QString, QString> newProperties) {
    // The player writes position, size and layer on every tick: those belong to the syncs.
    const bool changed = std::any_of(
        std::begin(kRecordedMediaKeys), std::end(kRecordedMediaKeys), [&](const char* key) {
            const QString name = QLatin1String(key);
            return oldProperties.value(name) != newProperties.value(name);
        });
    if (!changed)
        return;
    Scene* scene = sceneWithMedia(id);
    if (!scene)
        return;
    QDomDocument doc;
    QDomElement payload = HistoryRecord::sceneElement(doc, scene);
    payload.setAttribute(HistoryRecord::kCurrentTime, scene->getCurrentTime());
    QDomElement media = doc.createElement(QStringLiteral("media"));
    media.setAttribute(HistoryRecord::kId, id);
    HistoryRecord::appendProperties(doc, media, HistoryRecord::kOldProperties, oldProperties);
    HistoryRecord::appendProperties(doc, media, HistoryRecord::kNewProperties, newProperties);
    payload.appendChild(media);
    addHistoric(ActionType::alterMediaProperties, doc, payload);
}

// ---------------------------------------------------------------- recorders: syncs

void Buffer::recordSync(ActionType type, Sync* sync) {
    Scene* scene = sceneWithSync(sync);
    if (!scene)
        return;
    QDomDocument doc;
    QDomElement payload = HistoryRecord::sceneElement(doc, scene);
    payload.appendChild(HistoryRecord::syncElement(doc, sync));
    addHistoric(type, doc, payload);
}

void Buffer::createSyncHistoric(Sync* sync) {
    // A start comes with its medium, whose record holds it.
    if (!sync || sync->getType() == SyncType::start)
        return;
    recordSync(ActionType::createSync, sync);
}

void Buffer::removeSyncHistoric(Sync* sync) {
    if (!sync || syncsRemoved_.contains(sync->getId()))
        return; // the compound record holds it
    if (!records_.isEmpty()) {
        const QDomElement newest = records_.first().element;
        if (newest.tagName() == Definitions::getkActionTypeLegend(int(ActionType::removeMedia))) {
            const QDomElement media = HistoryRecord::firstOtherChild(newest.firstChildElement());
            if (!media.isNull() &&
                HistoryRecord::intOf(media, HistoryRecord::kId) == sync->getMediaTarget())
                return; // the snapshot of the medium holds it
        }
    }
    recordSync(ActionType::removeSync, sync);
}

void Buffer::alterSyncTimeHistoric(int id, int oldTime, int newTime) {
    Scene* current = document_->getScene(-1);
    auto* sync = qobject_cast<Sync*>(sender());
    // A sync of another scene is recorded under the current scene all the same.
    if (!current || !(sync ? sceneWithSync(sync) : sceneWithSync(id)))
        return;
    QDomDocument doc;
    QDomElement payload = HistoryRecord::sceneElement(doc, current);
    QDomElement element = doc.createElement(HistoryRecord::kSync);
    element.setAttribute(HistoryRecord::kId, id);
    element.setAttribute(HistoryRecord::kOldTime, oldTime);
    element.setAttribute(HistoryRecord::kNewTime, newTime);
    HistoryRecord::markTarget(element, sync);
    payload.appendChild(element);
    addHistoric(ActionType::alterSyncTime, doc, payload);
}

void Buffer::alterSyncPropertiesHistoric(int id, QHash<QString, QString> oldProperties,
                                         QHash<QString, QString> newProperties) {
    Scene* current = document_->getScene(-1);
    auto* sync = qobject_cast<Sync*>(sender());
    Scene* holder = sync ? sceneWithSync(sync) : sceneWithSync(id);
    if (!current || !holder)
        return;
    if (holder != current) {
        const Sync* found = sync ? sync : holder->getSync(id);
        if (found && found->getType() == SyncType::stop)
            return;
    }
    QDomDocument doc;
    QDomElement payload = HistoryRecord::sceneElement(doc, current);
    QDomElement element = doc.createElement(HistoryRecord::kSync);
    element.setAttribute(HistoryRecord::kId, id);
    HistoryRecord::markTarget(element, sync);
    HistoryRecord::appendProperties(doc, element, HistoryRecord::kOldProperties, oldProperties);
    HistoryRecord::appendProperties(doc, element, HistoryRecord::kNewProperties, newProperties);
    payload.appendChild(element);
    addHistoric(ActionType::alterSyncProperties, doc, payload);
}

void Buffer::updateSyncStartStopSpecialConditionHistoric(Sync* sync, int oldTime, int newTime,
                                                         QList<Sync*> removed) {
    if (!sync)
        return;
    // The simple record just made for this sync is replaced by the compound one.
    if (position_ == 0 && !records_.isEmpty()) {
        const QDomElement newest = records_.first().element;
        const QString legend = newest.tagName();
        const QDomElement element =
            newest.firstChildElement().firstChildElement(HistoryRecord::kSync);
        const bool simple =
            legend == Definitions::getkActionTypeLegend(int(ActionType::alterSyncTime)) ||
            legend == Definitions::getkActionTypeLegend(int(ActionType::createSync));
        if (simple && HistoryRecord::intOf(element, HistoryRecord::kId) == sync->getId())
            records_.removeFirst();
    }
    syncsRemoved_.clear();
    for (const Sync* other : removed)
        syncsRemoved_.append(other->getId());

    Scene* scene = sceneWithSync(sync);
    if (!scene)
        return;
    QDomDocument doc;
    QDomElement payload = HistoryRecord::sceneElement(doc, scene);
    QDomElement element = doc.createElement(HistoryRecord::kSync);
    element.setAttribute(HistoryRecord::kId, sync->getId());
    element.setAttribute(HistoryRecord::kOldTime, oldTime);
    element.setAttribute(HistoryRecord::kNewTime, newTime);
    HistoryRecord::appendAction(doc, element, sync);
    payload.appendChild(element);
    QDomElement removedElement = doc.createElement(QStringLiteral("syncsRemoved"));
    for (const Sync* other : removed)
        removedElement.appendChild(HistoryRecord::syncElement(doc, other));
    payload.appendChild(removedElement);
    addHistoric(ActionType::syncStartStopSpecialCondition, doc, payload);
}

} // namespace buffer
} // namespace selvora
