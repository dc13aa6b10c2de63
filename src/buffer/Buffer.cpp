// The history as a list of records: adding, undoing and redoing steps, and the connections
// through which the model feeds the recorders.
#include "buffer/Buffer.h"

#include "buffer/HistoryRecord.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"

#include <iterator>

namespace selvora {
namespace buffer {

using document::Document;
using document::Media;
using document::Scene;
using document::Sync;
using ActionType = Definitions::kActionType;
using SyncType = Definitions::kSyncType;

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
    if (records_.size() > kMaxRecords - 1) {
        // The oldest step goes whole: half a step would undo half an action. An open group
        // longer than the list can only lose its oldest records.
        const int dropped = records_.takeLast().group;
        while (dropped != 0 && dropped != group_ && !records_.isEmpty() &&
               records_.last().group == dropped)
            records_.removeLast();
    }
    records_.prepend({document, element, group_});
    position_ = 0;
}

void Buffer::openGroup() {
    if (groupDepth_++ == 0)
        group_ = nextGroup_++;
}

void Buffer::closeGroup() {
    if (groupDepth_ == 0)
        return;
    if (--groupDepth_ == 0)
        group_ = 0;
}

void Buffer::undo() {
    if (records_.isEmpty() || position_ < 0 || position_ >= records_.size())
        return;
    const Record first = records_.at(position_);
    if (first.element.firstChild().nodeName().isEmpty())
        return;
    // Newest first, back to the step's first record.
    do {
        const Record record = records_.at(position_);
        replay(record, true);
        ++position_;
    } while (first.group != 0 && position_ < records_.size() &&
             records_.at(position_).group == first.group);
}

void Buffer::redo() {
    if (position_ < 1 || position_ > records_.size())
        return;
    const Record first = records_.at(position_ - 1);
    if (first.element.firstChild().nodeName().isEmpty())
        return;
    // In the order they were made.
    do {
        const Record record = records_.at(position_ - 1);
        replay(record, false);
        --position_;
    } while (first.group != 0 && position_ > 0 && records_.at(position_ - 1).group == first.group);
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
    connect(document_, &Document::historyGroupOpened, this, &Buffer::openGroup, unique);
    connect(document_, &Document::historyGroupClosed, this, &Buffer::closeGroup, unique);
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

// newp, open and clear stay, so that the Buffer wakes for the next project, and so do the
// group marks, so that a group opened around a load or a clear is still closed.
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
    if (payload.isNull() || !payload.hasAttribute(HistoryRecord::kId))
        return nullptr;
    // Not Document::getScene: it falls back to the current scene, and a replay must not act
    // on another scene than its own.
    return document_->getSceneAll().value(HistoryRecord::intOf(payload, HistoryRecord::kId),
                                          nullptr);
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
    if (payload.hasAttribute(HistoryRecord::kCurrentTime))
        scene->setCurrentTime(HistoryRecord::intOf(payload, HistoryRecord::kCurrentTime), false);
    return true;
}

} // namespace buffer
} // namespace selvora
