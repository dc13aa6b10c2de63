#include "buffer/Buffer.h"

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

const QString kSync = QStringLiteral("sync");
const QString kId = QStringLiteral("id");
const QString kTime = QStringLiteral("time");
const QString kOldTime = QStringLiteral("oldTime");
const QString kNewTime = QStringLiteral("newTime");
const QString kCurrentTime = QStringLiteral("currentTime");
const QString kOldProperties = QStringLiteral("oldProperties");
const QString kNewProperties = QStringLiteral("newProperties");

// The keys whose change makes a media properties record; geometry and layer are the syncs'.
const char* const kRecordedMediaKeys[] = {
    "wording",      "colorFill",  "colorFont", "colorOutline", "widthOutline",
    "styleOutline", "fontFamily", "fontType",  "fontSize",     "textAlignment"};

int intOf(const QDomElement& element, const QString& name) {
    return element.attribute(name).toInt();
}

QDomElement sceneElement(QDomDocument& doc, const Scene* scene) {
    QDomElement element = doc.createElement(QStringLiteral("scene"));
    element.setAttribute(kId, scene->getId());
    return element;
}

// The first child element not named "sync": a medium in a snapshot, the removed syncs beside
// the moved one in a compound record.
QDomElement firstOtherChild(const QDomElement& parent) {
    for (QDomElement child = parent.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        if (child.tagName() != kSync)
            return child;
    }
    return QDomElement();
}

// The action form of the sync records: unlike the file, a goto keeps its target and a link
// without address is kept.
void appendAction(QDomDocument& doc, QDomElement& parent, const Sync* sync) {
    const SyncType type = sync->getType();
    QDomElement action = doc.createElement(Definitions::getkSyncTypeLegend(int(type)));
    action.setAttribute(QStringLiteral("target"), sync->getMediaTarget());
    if (type != SyncType::stop) {
        const QHash<QString, QString> properties = sync->getProperties();
        for (const QString& key : ProjectXml::syncKeys()) {
            const QString value = properties.value(key);
            if (value.isEmpty())
                continue;
            QDomElement property = doc.createElement(QStringLiteral("property"));
            property.setAttribute(QStringLiteral("name"), key);
            property.setAttribute(QStringLiteral("value"),
                                  key == QLatin1String("key")
                                      ? Definitions::getkButtonTypeLegend(value.toInt())
                                      : value);
            action.appendChild(property);
        }
    }
    parent.appendChild(action);
}

QDomElement syncElement(QDomDocument& doc, const Sync* sync) {
    QDomElement element = doc.createElement(kSync);
    element.setAttribute(kId, sync->getId());
    element.setAttribute(kTime, sync->getTime());
    appendAction(doc, element, sync);
    return element;
}

void appendProperties(QDomDocument& doc, QDomElement& parent, const QString& name,
                      const QHash<QString, QString>& properties) {
    QDomElement list = doc.createElement(name);
    QStringList keys = properties.keys();
    keys.sort();
    for (const QString& key : keys) {
        if (properties.value(key).isEmpty())
            continue;
        QDomElement property = doc.createElement(QStringLiteral("property"));
        property.setAttribute(QStringLiteral("name"), key);
        property.setAttribute(QStringLiteral("value"), properties.value(key));
        list.appendChild(property);
    }
    parent.appendChild(list);
}

QHash<QString, QString> readProperties(const QDomElement& list) {
    QHash<QString, QString> properties;
    for (QDomElement property = list.firstChildElement(QStringLiteral("property"));
         !property.isNull(); property = property.nextSiblingElement(QStringLiteral("property")))
        properties.insert(property.attribute(QStringLiteral("name")),
                          property.attribute(QStringLiteral("value")));
    return properties;
}

// The side of a properties record that a replay applies. Empty values are not recorded, so a
// key that only the other side names was empty on this one, and is emptied again.
QHash<QString, QString> propertiesToApply(const QDomElement& holder, bool undo) {
    QHash<QString, QString> wanted =
        readProperties(holder.firstChildElement(undo ? kOldProperties : kNewProperties));
    const QHash<QString, QString> other =
        readProperties(holder.firstChildElement(undo ? kNewProperties : kOldProperties));
    for (auto it = other.constBegin(); it != other.constEnd(); ++it) {
        if (!wanted.contains(it.key()))
            wanted.insert(it.key(), QString(""));
    }
    return wanted;
}

// Sync ids are not unique (the automatic starts share one, a rebuilt group shares its id), so
// a replay narrows the search by what the record knows: type and target from its action, and
// the time when it is given.
Sync* findSync(const Scene* scene, int id, const QDomElement& action, int time) {
    if (!scene)
        return nullptr;
    const bool hasAction = !action.isNull();
    const ProjectXml::ActionRecord wanted =
        hasAction ? ProjectXml::readAction(action) : ProjectXml::ActionRecord();
    const QList<Sync*> syncs = scene->getAllSyncs();
    for (Sync* sync : syncs) {
        if (sync->getId() != id)
            continue;
        if (hasAction &&
            (sync->getType() != wanted.type || sync->getMediaTarget() != wanted.target))
            continue;
        if (time >= 0 && sync->getTime() != time)
            continue;
        return sync;
    }
    return nullptr;
}

// The automatic starts all share one id: a change of a sync's time or properties also names its
// target and kind, when they are known, so that the replay finds that very sync.
void markTarget(QDomElement& element, const Sync* sync) {
    if (!sync)
        return;
    element.setAttribute(QStringLiteral("target"), sync->getMediaTarget());
    element.setAttribute(QStringLiteral("type"),
                         Definitions::getkSyncTypeLegend(int(sync->getType())));
}

Sync* findMarked(const Scene* scene, const QDomElement& element, int time) {
    const int id = intOf(element, kId);
    if (scene && element.hasAttribute(QStringLiteral("target"))) {
        const int target = intOf(element, QStringLiteral("target"));
        const SyncType type = Definitions::getkSyncType(element.attribute(QStringLiteral("type")));
        const QList<Sync*> syncs = scene->getAllSyncs();
        for (Sync* sync : syncs) {
            if (sync->getId() == id && sync->getMediaTarget() == target &&
                sync->getType() == type && (time < 0 || sync->getTime() == time))
                return sync;
        }
        return nullptr; // that sync is gone: another one of its id is not it
    }
    return findSync(scene, id, QDomElement(), time);
}

QList<Sync*> byTime(QList<Sync*> syncs) {
    std::stable_sort(syncs.begin(), syncs.end(),
                     [](const Sync* a, const Sync* b) { return a->getTime() < b->getTime(); });
    return syncs;
}

QList<Media*> byId(QList<Media*> medias) {
    std::sort(medias.begin(), medias.end(),
              [](const Media* a, const Media* b) { return a->getId() < b->getId(); });
    return medias;
}

} // namespace

// Indexed by kActionType.
const Buffer::ReplayRow Buffer::kReplays[] = {
    {&Buffer::removeScene, &Buffer::createScene},                 // createScene
    {&Buffer::createScene, &Buffer::removeScene},                 // removeScene
    {&Buffer::alterSceneOrder, &Buffer::alterSceneOrder},         // alterSceneOrder
    {&Buffer::alterSceneTotalTime, &Buffer::alterSceneTotalTime}, // alterSceneTotalTime
    {&Buffer::alterSceneLabel, &Buffer::alterSceneLabel},         // alterSceneLabel
    {&Buffer::removeMedia, &Buffer::createMedia},                 // createMedia
    {&Buffer::createMedia, &Buffer::removeMedia},                 // removeMedia
    {&Buffer::removeSync, &Buffer::createSync},                   // createSync
    {&Buffer::createSync, &Buffer::removeSync},                   // removeSync
    {&Buffer::updateSyncStartStopSpecialCondition,
     &Buffer::updateSyncStartStopSpecialCondition},                 // syncStartStopSpecialCondition
    {&Buffer::alterMediaLabel, &Buffer::alterMediaLabel},           // alterMediaLabel
    {&Buffer::alterMediaProperties, &Buffer::alterMediaProperties}, // alterMediaProperties
    {&Buffer::alterSyncTime, &Buffer::alterSyncTime},               // alterSyncTime
    {&Buffer::alterSyncProperties, &Buffer::alterSyncProperties},   // alterSyncProperties
};

Buffer::Buffer(Document* document, QWidget* parent) : QWidget(parent), document_(document) {
    hide();
    // Steps are marks, not changes: they are followed whatever a replay has cut.
    connect(document_, &Document::historyStepBegun, this, &Buffer::beginStep);
    connect(document_, &Document::historyStepEnded, this, &Buffer::endStep);
    loadConnections();
}

QList<QDomElement> Buffer::getRecords() const {
    QList<QDomElement> elements;
    for (const Record& record : records_)
        elements.append(record.element);
    return elements;
}

// ---------------------------------------------------------------- the list

void Buffer::addHistoric(ActionType type, QDomDocument document, QDomElement payload) {
    QDomElement element = document.createElement(Definitions::getkActionTypeLegend(int(type)));
    document.appendChild(element);
    element.appendChild(payload);
    // A new action erases the redo side.
    for (int i = 0; i < position_ && !records_.isEmpty(); ++i)
        records_.removeFirst();
    if (records_.size() > kMaxRecords - 1)
        records_.removeLast();
    const bool joined = stepDepth_ > 0 && stepRecords_++ > 0;
    records_.prepend({document, element, joined});
    position_ = 0;
}

void Buffer::beginStep() {
    if (stepDepth_++ == 0)
        stepRecords_ = 0;
}

void Buffer::endStep() {
    if (stepDepth_ > 0)
        --stepDepth_;
}

void Buffer::undo() {
    bool joined = true;
    while (joined) {
        if (records_.isEmpty() || position_ < 0 || position_ >= records_.size())
            return;
        const Record record = records_.at(position_);
        if (record.element.firstChild().nodeName().isEmpty())
            return;
        replay(record, true);
        ++position_;
        joined = record.joined;
    }
}

void Buffer::redo() {
    do {
        if (position_ < 1 || position_ > records_.size())
            return;
        const Record record = records_.at(position_ - 1);
        if (record.element.firstChild().nodeName().isEmpty())
            return;
        replay(record, false);
        --position_;
    } while (position_ >= 1 && records_.at(position_ - 1).joined);
}

void Buffer::replay(const Record& record, bool undo) {
    const int type = int(Definitions::getkActionType(record.element.tagName()));
    if (type < 0 || type >= int(std::size(kReplays)))
        return;
    const ReplayRow& row = kReplays[type];
    (this->*(undo ? row.undo : row.redo))(record.element.firstChildElement(), undo);
}

void Buffer::clearBuffer() {
    records_.clear();
    position_ = 0;
    for (Scene* scene : document_->getSceneAll())
        detachScene(scene);
    setDocumentDisconnections();
}

void Buffer::loadConnections() {
    setDocumentConnections();
    for (Scene* scene : document_->getSceneAll())
        attachScene(scene);
}

// ---------------------------------------------------------------- connections

void Buffer::setDocumentConnections() {
    const auto unique = Qt::UniqueConnection;
    connect(document_, &Document::newp, this, &Buffer::loadConnections, unique);
    connect(document_, &Document::open, this, &Buffer::loadConnections, unique);
    connect(document_, &Document::clear, this, &Buffer::clearBuffer, unique);
    // The scene's own connections first, so that its contents are followed before the record.
    connect(document_, &Document::sceneAdded, this, &Buffer::setSceneConnections, unique);
    connect(document_, &Document::sceneAdded, this, &Buffer::createSceneHistoric, unique);
    // Cut first: the removal of the scene's contents that follows is part of this one record.
    connect(document_, &Document::sceneRemoved, this, &Buffer::setSceneDisconnections, unique);
    connect(document_, &Document::sceneRemoved, this, &Buffer::removeSceneHistoric, unique);
    connect(document_, &Document::sceneSendUp, this, &Buffer::sendSceneUpHistoric, unique);
    connect(document_, &Document::sceneSendDown, this, &Buffer::sendSceneDownHistoric, unique);
    connect(document_, &Document::undo, this, &Buffer::undo, unique);
    connect(document_, &Document::redo, this, &Buffer::redo, unique);
}

// newp, open and clear stay, so that the Buffer wakes for the next project.
void Buffer::setDocumentDisconnections() {
    disconnect(document_, &Document::sceneAdded, this, nullptr);
    disconnect(document_, &Document::sceneRemoved, this, nullptr);
    disconnect(document_, &Document::sceneSendUp, this, nullptr);
    disconnect(document_, &Document::sceneSendDown, this, nullptr);
    disconnect(document_, &Document::undo, this, nullptr);
    disconnect(document_, &Document::redo, this, nullptr);
}

void Buffer::setSceneConnections(Scene* scene) {
    if (!scene)
        return;
    const auto unique = Qt::UniqueConnection;
    connect(scene, &Scene::mediaAdded, this, &Buffer::setMediaConnections, unique);
    connect(scene, &Scene::mediaAdded, this, &Buffer::createMediaHistoric, unique);
    connect(scene, &Scene::mediaRemoved, this, &Buffer::setMediaDisconnections, unique);
    connect(scene, &Scene::mediaRemoved, this, &Buffer::removeMediaHistoric, unique);
    connect(scene, &Scene::syncAdded, this, &Buffer::setSyncConnections, unique);
    connect(scene, &Scene::syncAdded, this, &Buffer::createSyncHistoric, unique);
    connect(scene, &Scene::syncRemoved, this, &Buffer::setSyncDisconnections, unique);
    connect(scene, &Scene::syncRemoved, this, &Buffer::removeSyncHistoric, unique);
    connect(scene, QOverload<int, int>::of(&Scene::totalTime), this,
            &Buffer::alterSceneTotalTimeHistoric, unique);
    connect(scene, QOverload<QString, QString>::of(&Scene::changeLabel), this,
            &Buffer::alterSceneLabelHistoric, unique);
    connect(scene, &Scene::syncStartStopSpecialCondition, this,
            &Buffer::updateSyncStartStopSpecialConditionHistoric, unique);
}

// The Buffer makes no other connection to these objects: cutting all of them is exact.
void Buffer::setSceneDisconnections(Scene* scene) {
    if (scene)
        disconnect(scene, nullptr, this, nullptr);
}

void Buffer::setMediaConnections(Media* media) {
    if (!media)
        return;
    connect(media, QOverload<int, QString, QString>::of(&Media::changeLabel), this,
            &Buffer::alterMediaLabelHistoric, Qt::UniqueConnection);
    connect(media,
            QOverload<int, QHash<QString, QString>, QHash<QString, QString>>::of(
                &Media::propertiesChanged),
            this, &Buffer::alterMediaPropertiesHistoric, Qt::UniqueConnection);
}

void Buffer::setMediaDisconnections(Media* media) {
    if (media)
        disconnect(media, nullptr, this, nullptr);
}

void Buffer::setSyncConnections(Sync* sync) {
    if (!sync)
        return;
    connect(sync, QOverload<int, int, int>::of(&Sync::timeChanged), this,
            &Buffer::alterSyncTimeHistoric, Qt::UniqueConnection);
    connect(sync,
            QOverload<int, QHash<QString, QString>, QHash<QString, QString>>::of(
                &Sync::propertiesChanged),
            this, &Buffer::alterSyncPropertiesHistoric, Qt::UniqueConnection);
}

void Buffer::setSyncDisconnections(Sync* sync) {
    if (sync)
        disconnect(sync, nullptr, this, nullptr);
}

void Buffer::detachScene(Scene* scene) {
    if (!scene)
        return;
    setSceneDisconnections(scene);
    for (Media* media : scene->getAllMedias())
        setMediaDisconnections(media);
    for (Sync* sync : scene->getAllSyncs())
        setSyncDisconnections(sync);
}

void Buffer::attachScene(Scene* scene) {
    if (!scene)
        return;
    setSceneConnections(scene);
    for (Media* media : scene->getAllMedias())
        setMediaConnections(media);
    for (Sync* sync : scene->getAllSyncs())
        setSyncConnections(sync);
}

// ---------------------------------------------------------------- lookups

Scene* Buffer::sceneOf(const QDomElement& payload) const {
    if (payload.isNull() || !payload.hasAttribute(kId))
        return nullptr;
    // Not Document::getScene: it falls back to the current scene, and a replay must not act
    // on another scene than its own.
    return document_->getSceneAll().value(intOf(payload, kId), nullptr);
}

Scene* Buffer::sceneWithMedia(int id) const {
    Scene* current = document_->getScene(-1);
    if (current && current->hasMedia(id))
        return current;
    for (Scene* scene : document_->getSceneAll()) {
        if (scene->hasMedia(id))
            return scene;
    }
    return nullptr;
}

// By the object where there is one: an id may be shared by several syncs.
Scene* Buffer::sceneWithSync(const Sync* sync) const {
    Scene* current = document_->getScene(-1);
    if (current && current->getAllSyncs().contains(const_cast<Sync*>(sync)))
        return current;
    for (Scene* scene : document_->getSceneAll()) {
        if (scene->getAllSyncs().contains(const_cast<Sync*>(sync)))
            return scene;
    }
    return nullptr;
}

Scene* Buffer::sceneWithSync(int id) const {
    Scene* current = document_->getScene(-1);
    if (current && current->hasSync(id))
        return current;
    for (Scene* scene : document_->getSceneAll()) {
        if (scene->hasSync(id))
            return scene;
    }
    return nullptr;
}

// Shows the user what is undone: the record's scene, at the record's time when it has one.
bool Buffer::makeCurrent(Scene* scene, const QDomElement& payload) {
    if (!scene)
        return false;
    document_->setCurrentScene(scene->getId(), true);
    if (payload.hasAttribute(kCurrentTime))
        scene->setCurrentTime(intOf(payload, kCurrentTime), false);
    return true;
}

// ---------------------------------------------------------------- recorders: scenes

void Buffer::recordScene(ActionType type, Scene* scene, bool removing) {
    if (!scene)
        return;
    QDomDocument doc;
    QDomElement payload = sceneElement(doc, scene);
    payload.setAttribute(QStringLiteral("label"), scene->getLabel());
    payload.setAttribute(kTime, scene->getTotalTime());
    payload.setAttribute(QStringLiteral("order"), scene->getOrder());
    for (Media* media : byId(scene->getAllMedias())) {
        ProjectXml::appendMedia(doc, payload, media, media->getPathStart(), false);
        if (removing)
            setMediaDisconnections(media);
    }
    const QList<Sync*> syncs = byTime(scene->getAllSyncs());
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
    QDomElement payload = sceneElement(doc, scene);
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
    QDomElement payload = sceneElement(doc, scene);
    payload.setAttribute(kOldTime, oldTime);
    payload.setAttribute(kNewTime, newTime);
    addHistoric(ActionType::alterSceneTotalTime, doc, payload);
}

void Buffer::alterSceneLabelHistoric(QString oldLabel, QString newLabel) {
    // Found by its new label: of two scenes with that label, the first by id is named.
    Scene* scene = document_->getScene(newLabel);
    if (!scene)
        return;
    QDomDocument doc;
    QDomElement payload = sceneElement(doc, scene);
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
    const QList<Sync*> syncs = byTime(scene->getAllSyncsMedia(media->getId(), true));
    int time = scene->getCurrentTime();
    if (removing) {
        // Undoing the removal shows the medium: the scene goes to the medium's start.
        if (const Sync* start = scene->getSync(SyncType::start, media->getId(), true))
            time = start->getTime();
        for (Sync* sync : syncs)
            setSyncDisconnections(sync);
    }
    QDomDocument doc;
    QDomElement payload = sceneElement(doc, scene);
    payload.setAttribute(kCurrentTime, time);
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
    QDomElement payload = sceneElement(doc, scene);
    QDomElement media = doc.createElement(QStringLiteral("media"));
    media.setAttribute(kId, id);
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
    QDomElement payload = sceneElement(doc, scene);
    payload.setAttribute(kCurrentTime, scene->getCurrentTime());
    QDomElement media = doc.createElement(QStringLiteral("media"));
    media.setAttribute(kId, id);
    appendProperties(doc, media, kOldProperties, oldProperties);
    appendProperties(doc, media, kNewProperties, newProperties);
    payload.appendChild(media);
    addHistoric(ActionType::alterMediaProperties, doc, payload);
}

// ---------------------------------------------------------------- recorders: syncs

void Buffer::recordSync(ActionType type, Sync* sync) {
    Scene* scene = sceneWithSync(sync);
    if (!scene)
        return;
    QDomDocument doc;
    QDomElement payload = sceneElement(doc, scene);
    payload.appendChild(syncElement(doc, sync));
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
            const QDomElement media = firstOtherChild(newest.firstChildElement());
            if (!media.isNull() && intOf(media, kId) == sync->getMediaTarget())
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
    QDomElement payload = sceneElement(doc, current);
    QDomElement element = doc.createElement(kSync);
    element.setAttribute(kId, id);
    element.setAttribute(kOldTime, oldTime);
    element.setAttribute(kNewTime, newTime);
    markTarget(element, sync);
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
    QDomElement payload = sceneElement(doc, current);
    QDomElement element = doc.createElement(kSync);
    element.setAttribute(kId, id);
    markTarget(element, sync);
    appendProperties(doc, element, kOldProperties, oldProperties);
    appendProperties(doc, element, kNewProperties, newProperties);
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
        const QDomElement element = newest.firstChildElement().firstChildElement(kSync);
        const bool simple =
            legend == Definitions::getkActionTypeLegend(int(ActionType::alterSyncTime)) ||
            legend == Definitions::getkActionTypeLegend(int(ActionType::createSync));
        if (simple && intOf(element, kId) == sync->getId()) {
            records_.removeFirst();
            // The compound record takes the place of the simple one in an open step.
            if (stepDepth_ > 0 && stepRecords_ > 0)
                --stepRecords_;
        }
    }
    syncsRemoved_.clear();
    for (const Sync* other : removed)
        syncsRemoved_.append(other->getId());

    Scene* scene = sceneWithSync(sync);
    if (!scene)
        return;
    QDomDocument doc;
    QDomElement payload = sceneElement(doc, scene);
    QDomElement element = doc.createElement(kSync);
    element.setAttribute(kId, sync->getId());
    element.setAttribute(kOldTime, oldTime);
    element.setAttribute(kNewTime, newTime);
    appendAction(doc, element, sync);
    payload.appendChild(element);
    QDomElement removedElement = doc.createElement(QStringLiteral("syncsRemoved"));
    for (const Sync* other : removed)
        removedElement.appendChild(syncElement(doc, other));
    payload.appendChild(removedElement);
    addHistoric(ActionType::syncStartStopSpecialCondition, doc, payload);
}

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

// ---------------------------------------------------------------- replays: scenes

void Buffer::createScene(const QDomElement& payload, bool) {
    const int id = intOf(payload, kId);
    if (document_->getSceneAll().contains(id))
        return;
    setDocumentDisconnections();
    Scene* scene = document_->createScene(id);
    scene->setLabel(payload.attribute(QStringLiteral("label")));
    scene->setTotalTime(intOf(payload, kTime));
    scene->setOrder(intOf(payload, QStringLiteral("order")));
    document_->updadeSceneOrder();
    document_->setCurrentScene(id, true);
    // Media first: the syncs name them.
    for (QDomElement child = payload.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        if (child.tagName() != kSync)
            rebuildMedia(scene, child);
    }
    for (QDomElement child = payload.firstChildElement(kSync); !child.isNull();
         child = child.nextSiblingElement(kSync))
        rebuildSyncs(scene, child, intOf(child, kTime), intOf(child, kId));
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
    const int before = intOf(payload, QStringLiteral("beforeOrder"));
    const int current = intOf(payload, QStringLiteral("currentOrder"));
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
    scene->setTotalTime(intOf(payload, undo ? kOldTime : kNewTime));
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
    if (rebuildMedia(scene, firstOtherChild(payload))) {
        for (QDomElement child = payload.firstChildElement(kSync); !child.isNull();
             child = child.nextSiblingElement(kSync))
            rebuildSyncs(scene, child, intOf(child, kTime), intOf(child, kId));
        scene->resetExecuteSyncs();
    }
    attachScene(scene);
}

void Buffer::removeMedia(const QDomElement& payload, bool) {
    Scene* scene = sceneOf(payload);
    if (!makeCurrent(scene, payload))
        return;
    const int id = intOf(firstOtherChild(payload), kId);
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
    const int id = intOf(element, kId);
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
    const int id = intOf(element, kId);
    if (!scene || !scene->hasMedia(id) || !makeCurrent(scene, payload))
        return;
    detachScene(scene);
    scene->setCurrentMedia(id);
    scene->getMedia(id)->setProperties(propertiesToApply(element, undo));
    scene->resetExecuteSyncs();
    attachScene(scene);
}

// ---------------------------------------------------------------- replays: syncs

void Buffer::createSync(const QDomElement& payload, bool) {
    Scene* scene = sceneOf(payload);
    if (!makeCurrent(scene, payload))
        return;
    detachScene(scene);
    const QDomElement element = payload.firstChildElement(kSync);
    rebuildSyncs(scene, element, intOf(element, kTime), intOf(element, kId));
    attachScene(scene);
    scene->resetExecuteSyncs();
}

void Buffer::removeSync(const QDomElement& payload, bool) {
    Scene* scene = sceneOf(payload);
    if (!makeCurrent(scene, payload))
        return;
    const QDomElement element = payload.firstChildElement(kSync);
    Sync* sync =
        findSync(scene, intOf(element, kId), element.firstChildElement(), intOf(element, kTime));
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
    const QDomElement element = payload.firstChildElement(kSync);
    Sync* sync = findMarked(scene, element, intOf(element, undo ? kNewTime : kOldTime));
    if (!sync)
        sync = findMarked(scene, element, -1);
    if (!sync)
        return;
    detachScene(scene);
    scene->updateSyncs(sync, sync->getTime(), intOf(element, undo ? kOldTime : kNewTime));
    attachScene(scene);
    scene->resetExecuteSyncs();
}

void Buffer::alterSyncProperties(const QDomElement& payload, bool undo) {
    Scene* scene = sceneOf(payload);
    if (!makeCurrent(scene, payload))
        return;
    const QDomElement element = payload.firstChildElement(kSync);
    Sync* sync = findMarked(scene, element, -1);
    if (!sync)
        return;
    detachScene(scene);
    sync->setProperties(propertiesToApply(element, undo));
    attachScene(scene);
    scene->resetExecuteSyncs();
}

void Buffer::updateSyncStartStopSpecialCondition(const QDomElement& payload, bool undo) {
    Scene* scene = sceneOf(payload);
    if (!scene)
        return;
    const QDomElement element = payload.firstChildElement(kSync);
    const QDomElement removed = firstOtherChild(payload);
    const QDomElement action = element.firstChildElement();
    const int id = intOf(element, kId);
    const int oldTime = intOf(element, kOldTime);
    const int newTime = intOf(element, kNewTime);
    detachScene(scene);

    if (oldTime == -1) {
        // A first stop that cut off the medium's later syncs.
        if (undo) {
            if (Sync* sync = findSync(scene, id, action, newTime))
                scene->removeSyncObject(sync);
        } else {
            rebuildSyncs(scene, element, newTime, id);
        }
    } else if (Sync* sync = findSync(scene, id, action, undo ? newTime : oldTime)) {
        // A start or stop moved past other syncs.
        scene->updateSyncs(sync, sync->getTime(), undo ? oldTime : newTime);
    }

    for (QDomElement child = removed.firstChildElement(kSync); !child.isNull();
         child = child.nextSiblingElement(kSync)) {
        if (undo) {
            rebuildSyncs(scene, child, intOf(child, kTime), intOf(child, kId));
        } else if (Sync* sync = findSync(scene, intOf(child, kId), child.firstChildElement(),
                                         intOf(child, kTime))) {
            // Adding a first stop already removed them: only what is left goes.
            scene->removeSyncObject(sync);
        }
    }
    scene->resetExecuteSyncs();
    attachScene(scene);
}

} // namespace buffer
} // namespace selvora
