#include "libraryView/SceneMediaList.h"

#include "app/YesNoBox.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "libraryView/RowPicture.h"
#include "libraryView/SceneMediaItem.h"
#include "spatialview/RenameDialog.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>

namespace selvora {
namespace libraryView {

using document::Media;
using document::Scene;

SceneMediaList::SceneMediaList(document::Document* document, QWidget* parent)
    : RowList(parent), document_(document), contextMenu_(new QMenu(this)) {
    RowPicture::applyListSettings(this);
    setDocumentConnections();
    setConnections();
}

void SceneMediaList::setDocumentConnections() {
    connect(document_, &document::Document::sceneCurrent, this, &SceneMediaList::sceneChanged,
            Qt::UniqueConnection);
}

void SceneMediaList::setConnections() {
    connect(this, &QListWidget::itemClicked, this, &SceneMediaList::mediaSelected,
            Qt::UniqueConnection);
    connect(this, &QListWidget::itemChanged, this, &SceneMediaList::mediaTextChanged,
            Qt::UniqueConnection);
}

void SceneMediaList::setSceneConnections() {
    if (!scene_)
        return;
    const auto unique = Qt::UniqueConnection;
    connect(scene_, &Scene::playerStatus, this, &SceneMediaList::setPropertiesEnableState, unique);
    connect(scene_, &Scene::mediaAdded, this, QOverload<Media*>::of(&SceneMediaList::addItem),
            unique);
    connect(scene_, &Scene::mediaRemovedId, this, &SceneMediaList::removeItem, unique);
    connect(scene_, &Scene::mediaCurrentId, this, &SceneMediaList::itemSelected, unique);
    connect(scene_, &Scene::mediaNull, this, &QAbstractItemView::clearSelection, unique);
}

// Only the connections made above run from the scene to this list.
void SceneMediaList::setSceneDisconnections() {
    if (scene_)
        disconnect(scene_, nullptr, this, nullptr);
}

void SceneMediaList::setMediaConnections(Media* media) {
    const auto unique = Qt::UniqueConnection;
    connect(media, &Media::pathStartChanged, this, &SceneMediaList::updateItemSource, unique);
    connect(media, &Media::geometryChanged, this, &SceneMediaList::updateItemSource, unique);
    connect(media, QOverload<int, QString, QString>::of(&Media::changeLabel), this,
            &SceneMediaList::updateItemLabel, unique);
}

void SceneMediaList::setMediaDisconnections(Media* media) {
    if (media)
        disconnect(media, nullptr, this, nullptr);
}

void SceneMediaList::clearList() {
    for (SceneMediaItem* item : qAsConst(items_))
        setMediaDisconnections(item->getMedia());
    setSceneDisconnections();
    scene_ = nullptr;
    items_.clear();
    clear();
}

void SceneMediaList::sceneChanged(Scene* scene) {
    clearList();
    scene_ = scene;
    load();
}

void SceneMediaList::setPropertiesEnableState(Definitions::kPlayerStatus status) {
    if (status == Definitions::kPlayerStatus::play)
        setEnabled(false);
    else
        setEnabled(true);
}

void SceneMediaList::removeItem(int id) {
    SceneMediaItem* item = items_.take(id);
    if (!item)
        return;
    setMediaDisconnections(item->getMedia());
    delete takeItem(row(item));
}

void SceneMediaList::itemSelected(int id) {
    if (SceneMediaItem* item = items_.value(id, nullptr))
        setCurrentRow(row(item));
}

void SceneMediaList::updateItemSource(int id) {
    if (SceneMediaItem* item = items_.value(id, nullptr))
        item->loadPixmap();
}

void SceneMediaList::updateItemLabel(int id, QString, QString newLabel) {
    SceneMediaItem* item = items_.value(id, nullptr);
    if (item && item->text() != newLabel)
        item->setText(newLabel);
}

void SceneMediaList::mediaSelected(QListWidgetItem* item) {
    SceneMediaItem* row = itemOf(item);
    if (row && scene_)
        scene_->setCurrentMedia(row->getId());
}

// Every change of a row's data comes here; only an edited text is a new label. A label
// erased in place comes back, as the rename dialog refuses an empty one.
void SceneMediaList::mediaTextChanged(QListWidgetItem* item) {
    SceneMediaItem* row = itemOf(item);
    Media* media = row ? row->getMedia() : nullptr;
    if (!media || row->text() == media->getLabel())
        return;
    if (row->text().isEmpty())
        row->setText(media->getLabel());
    else
        media->setLabel(row->text());
}

SceneMediaItem* SceneMediaList::itemOf(QListWidgetItem* item) const {
    auto* row = dynamic_cast<SceneMediaItem*>(item);
    return row && items_.value(row->getId(), nullptr) == row ? row : nullptr;
}

SceneMediaItem* SceneMediaList::commandItem() const {
    const QList<QListWidgetItem*> selected = selectedItems();
    if (!selected.isEmpty())
        return itemOf(selected.first());
    return itemOf(itemAt(position_));
}

QAction* SceneMediaList::addContextAction(const QString& text, const QString& icon) {
    QAction* action =
        icon.isEmpty() ? new QAction(text, this) : new QAction(QIcon(icon), text, this);
    contextMenu_->addAction(action);
    return action;
}

void SceneMediaList::contextMenuEvent(QContextMenuEvent* event) {
    position_ = event->pos();
    const bool overRow = itemOf(itemAt(position_)) != nullptr;
    for (QAction* action : contextMenu_->actions())
        action->setEnabled(overRow);
    contextMenu_->exec(event->globalPos());
    event->accept();
}

void SceneMediaList::mouseMoveEvent(QMouseEvent* event) {
    if (!dragStarts(event))
        return;
    const QList<QListWidgetItem*> selected = selectedItems();
    SceneMediaItem* item = selected.isEmpty() ? nullptr : itemOf(selected.first());
    if (!item)
        return;
    const Qt::DropActions actions = dragActions();
    RowPicture::runDrag(this, item->getToolTipItem(), item->text(), dragData(item), actions,
                        actions.testFlag(Qt::CopyAction) ? Qt::CopyAction : Qt::MoveAction);
}

void SceneMediaList::contextRename() {
    SceneMediaItem* item = itemOf(itemAt(position_));
    if (!item)
        item = commandItem();
    Media* media = item ? item->getMedia() : nullptr;
    if (!media)
        return;
    spatialview::RenameDialog(scene_, nullptr, item->getId()).exec();
}

void SceneMediaList::contextRemoveMedia() {
    if (!scene_ || !scene_->hasCurrentMedia() || count() == 0)
        return;
    Media* media = scene_->getMedia(-1);
    if (!media)
        return;
    const int id = media->getId();
    if (YesNoBox::askRemoveMedia(media->getLabel()) && scene_)
        scene_->removeMedia(id);
}

} // namespace libraryView
} // namespace selvora
