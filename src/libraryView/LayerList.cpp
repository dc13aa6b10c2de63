#include "libraryView/LayerList.h"

#include "document/Document.h"
#include "document/HistoryGroup.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "libraryView/LayerListItem.h"

#include <QAction>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QSet>

namespace selvora {
namespace libraryView {

using document::Media;
using document::Scene;
using SyncType = Definitions::kSyncType;

namespace {
int layerOf(const Media* media) {
    return media ? media->getLayer().toInt() : 0;
}
} // namespace

LayerList::LayerList(document::Document* document, QWidget* parent)
    : SceneMediaList(document, parent) {
    struct Row {
        const char* text;
        const char* icon;
        void (LayerList::*slot)();
    };
    static const Row rows[] = {
        {QT_TR_NOOP("Subir uma camada"), ":/imagens/bringForward", &LayerList::contextLayerUp},
        {QT_TR_NOOP("Descer uma camada"), ":/imagens/sendBackward", &LayerList::contextLayerDown},
        {QT_TR_NOOP("Trazer pra frente"), ":/imagens/bringToFront",
         &LayerList::contextBringToFront},
        {QT_TR_NOOP("Enviar para trás"), ":/imagens/sendToBack", &LayerList::contextSendToBack},
        {QT_TR_NOOP("Renomear"), "", &LayerList::contextRename},
        {QT_TR_NOOP("Deletar"), ":/imagens/del", &LayerList::contextRemoveMedia}};
    for (const Row& row : rows)
        connect(addContextAction(tr(row.text), row.icon), &QAction::triggered, this, row.slot);
    connect(document_, &document::Document::clear, this, &LayerList::clearLayerList,
            Qt::UniqueConnection);
    load();
}

void LayerList::load() {
    if (!scene_)
        scene_ = document_->getScene(-1);
    if (!scene_)
        return;
    setSceneConnections();
    for (Media* media : scene_->getAllMediasOrderLayer())
        addItem(media, false);
    // Rows added one by one land back to front: the front goes to the top, as after any change.
    updateOrderItem(-1, {});
    clearSelection();
    if (scene_->hasCurrentMedia())
        if (Media* current = scene_->getMedia(-1))
            itemSelected(current->getId());
}

void LayerList::setSceneConnections() {
    SceneMediaList::setSceneConnections();
    if (!scene_)
        return;
    const auto unique = Qt::UniqueConnection;
    connect(scene_, &Scene::mediaSyncType, this, &LayerList::processSync, unique);
    connect(scene_, &Scene::updateLayers, this,
            QOverload<int, QList<Media*>>::of(&LayerList::updateOrderItem), unique);
    connect(scene_, &Scene::executeSyncsReseted, this, QOverload<>::of(&LayerList::updateOrderItem),
            unique);
}

void LayerList::clearLayerList() {
    clearList();
    visibleCount_ = 0;
}

bool LayerList::isActive(int id) const {
    return scene_ && scene_->mediaActivate(id, scene_->getCurrentTime(), true);
}

// Counted rather than stepped: rows are also hidden and shown by reordering.
void LayerList::countVisible() {
    visibleCount_ = 0;
    for (int r = 0; r < count(); ++r)
        visibleCount_ += item(r)->isHidden() ? 0 : 1;
}

void LayerList::addItem(Media* media, bool reorder) {
    // A sound has no layer and no row.
    if (!media || !scene_ || media->getLayer().isEmpty() || items_.contains(media->getId()))
        return;
    auto* item = new LayerListItem(media, scene_);
    items_.insert(media->getId(), item);
    // New rows go under the visible ones and over the hidden ones.
    insertItem(visibleCount_, item);
    item->setHidden(!isActive(media->getId()));
    countVisible();
    setMediaConnections(media);
    if (reorder)
        updateOrderItem(-1, {});
}

void LayerList::removeItem(int id) {
    SceneMediaList::removeItem(id);
    countVisible();
}

void LayerList::setItemVisibility(int id, bool visible) {
    if (SceneMediaItem* item = items_.value(id, nullptr)) {
        item->setHidden(!visible);
        countVisible();
    } else if (scene_ && scene_->hasMedia(id)) {
        addItem(scene_->getMedia(id), true);
    }
}

void LayerList::updateOrderItem(int id, QList<Media*> medias) {
    if (!scene_)
        return;
    if (id == -1) {
        medias = scene_->getAllMediasOrderLayer();
    } else if (!items_.contains(id)) {
        if (scene_->hasMedia(id))
            addItem(scene_->getMedia(id), true);
        return;
    }
    // Rows first, so that the walk below moves rows only.
    for (Media* media : qAsConst(medias))
        addItem(media, false);
    clearSelection();
    QSet<SceneMediaItem*> placed;
    int r = 0;
    for (int i = medias.size() - 1; i >= 0; --i) {
        SceneMediaItem* item = items_.value(medias.at(i)->getId(), nullptr);
        if (!item || placed.contains(item))
            continue; // two media of one layer list one of them twice
        placed.insert(item);
        insertItem(r++, takeItem(row(item)));
        item->setHidden(!isActive(item->getId()));
    }
    countVisible();
    Media* current = scene_->hasCurrentMedia() ? scene_->getMedia(-1) : nullptr;
    if (current)
        itemSelected(current->getId());
    else
        clearSelection();
}

void LayerList::processSync(Media* media, SyncType type) {
    if (!media || !scene_)
        return;
    SceneMediaItem* item = items_.value(media->getId(), nullptr);
    if (!item) {
        addItem(media, true);
        return;
    }
    switch (type) {
    case SyncType::set:
        updateOrderItem(media->getId(), scene_->getAllMediasOrderLayer());
        break;
    case SyncType::stop:
        if (!item->isHidden())
            setItemVisibility(media->getId(), false);
        break;
    case SyncType::start:
        if (item->isHidden()) {
            setItemVisibility(media->getId(), true);
            updateOrderItem(media->getId(), scene_->getAllMediasOrderLayer());
        }
        break;
    default:
        break;
    }
}

void LayerList::setPropertiesEnableState(Definitions::kPlayerStatus status) {
    if (status != Definitions::kPlayerStatus::play)
        updateOrderItem(-1, {});
    SceneMediaList::setPropertiesEnableState(status);
}

QMimeData* LayerList::dragData(SceneMediaItem* item) const {
    auto* data = new QMimeData;
    data->setProperty("itemId", item->getId());
    data->setProperty("isLayerItem", true);
    return data;
}

void LayerList::dragEnterEvent(QDragEnterEvent* event) {
    if (acceptsDrag(event->mimeData()))
        event->acceptProposedAction();
    else
        event->ignore();
}

void LayerList::paintRows(const QListWidgetItem* hovered) {
    for (int r = 0; r < count(); ++r)
        item(r)->setBackground(item(r) == hovered ? QColor(255, 223, 221) : QColor(255, 255, 255));
}

void LayerList::dragMoveEvent(QDragMoveEvent* event) {
    if (event->dropAction() == Qt::MoveAction)
        paintRows(itemAt(event->pos()));
    event->acceptProposedAction();
}

void LayerList::dragLeaveEvent(QDragLeaveEvent* event) {
    paintRows(nullptr);
    event->accept();
}

void LayerList::dropEvent(QDropEvent* event) {
    if (!dropLayerItem(event->mimeData(), event->pos())) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::MoveAction);
    event->accept();
}

bool LayerList::acceptsDrag(const QMimeData* data) {
    return data && data->property("isLayerItem").toBool();
}

bool LayerList::dropLayerItem(const QMimeData* data, const QPoint& point) {
    if (!acceptsDrag(data) || !scene_)
        return false;
    SceneMediaItem* dragged = items_.value(data->property("itemId").toInt(), nullptr);
    if (!dragged)
        return false;
    SceneMediaItem* target = itemOf(itemAt(point));
    Media* media = dragged->getMedia();
    Media* other = target ? target->getMedia() : nullptr;
    if (target && target != dragged && media && other) {
        const int oldLayer = layerOf(media);
        const int targetLayer = layerOf(other);
        const QRect rect = visualItemRect(target);
        const bool below = point.y() > (rect.top() + rect.bottom()) / 2;
        const bool under = oldLayer < targetLayer;
        int newLayer;
        if (below)
            newLayer = under ? layerOf(scene_->backMediaLayer(other)) : targetLayer;
        else
            newLayer = under ? targetLayer : layerOf(scene_->nextMediaLayer(other));
        writeLayer(media, oldLayer, newLayer);
    }
    mediaSelected(dragged);
    paintRows(nullptr);
    return true;
}

// A change of stacking is a change event at the current second. The media it shifts write
// records of their own: all of them are one step of the history.
void LayerList::writeLayer(Media* media, int oldLayer, int newLayer) {
    const document::HistoryGroup step(document_);
    media->setLayer(QString::number(newLayer));
    scene_->updateMediasLayer(media->getId(), oldLayer, newLayer);
    document_->createSync(scene_, media->getId(), true, SyncType::set, scene_->getCurrentTime(),
                          media->getProperties(), -1);
}

void LayerList::moveLayer(Towards towards) {
    SceneMediaItem* item = commandItem();
    Media* media = item ? item->getMedia() : nullptr;
    if (!media || !scene_)
        return;
    const Media* other = nullptr;
    switch (towards) {
    case Towards::up:
        other = scene_->nextMediaLayer(media);
        break;
    case Towards::down:
        other = scene_->backMediaLayer(media);
        break;
    case Towards::front:
        other = scene_->lastMediaLayer();
        break;
    case Towards::back:
        other = scene_->firstMediaLayer();
        break;
    }
    if (!other)
        return;
    writeLayer(media, layerOf(media), layerOf(other));
    mediaSelected(item);
}

void LayerList::contextLayerUp() {
    moveLayer(Towards::up);
}
void LayerList::contextLayerDown() {
    moveLayer(Towards::down);
}
void LayerList::contextBringToFront() {
    moveLayer(Towards::front);
}
void LayerList::contextSendToBack() {
    moveLayer(Towards::back);
}

} // namespace libraryView
} // namespace selvora
