#include "libraryView/MediaList.h"

#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "libraryView/MediaListItem.h"
#include "libraryView/RowPicture.h"

#include <QAction>
#include <QMessageBox>

namespace selvora {
namespace libraryView {

using document::Media;
using MediaType = Definitions::kMediaType;

MediaList::MediaList(document::Document* document, QWidget* parent)
    : SceneMediaList(document, parent) {
    connect(addContextAction(tr("Duplicar"), ":/imagens/copy"), &QAction::triggered, this,
            &MediaList::contextDuplicateMedia);
    connect(addContextAction(tr("Renomear"), QString()), &QAction::triggered, this,
            &MediaList::contextRename);
    connect(addContextAction(tr("Deletar"), ":/imagens/del"), &QAction::triggered, this,
            &MediaList::contextRemoveMedia);
    connect(document_, &document::Document::clear, this, &MediaList::clearMediaList,
            Qt::UniqueConnection);
    load();
}

void MediaList::load() {
    if (!scene_)
        scene_ = document_->getScene(-1);
    if (!scene_)
        return;
    setSceneConnections();
    for (Media* media : scene_->getAllMedias())
        addItem(media, false);
    clearSelection();
    if (scene_->hasCurrentMedia())
        if (Media* current = scene_->getMedia(-1))
            itemSelected(current->getId());
}

void MediaList::clearMediaList() {
    clearList();
}

void MediaList::addItem(Media* media, bool) {
    if (!media || !scene_ || items_.contains(media->getId()))
        return;
    auto* item = new MediaListItem(media, scene_);
    items_.insert(media->getId(), item);
    QListWidget::addItem(item);
    setMediaConnections(media);
}

QMimeData* MediaList::dragData(SceneMediaItem* item) const {
    const Media* media = item->getMedia();
    if (!media)
        return RowPicture::mediaData(QString(), -1, nullptr);
    const QHash<QString, QString> properties = media->getProperties();
    return RowPicture::mediaData(media->getPathStart(), int(media->getType()), &properties);
}

void MediaList::contextDuplicateMedia() {
    SceneMediaItem* item = commandItem();
    Media* source = item ? item->getMedia() : nullptr;
    if (!source || !scene_)
        return;
    if (source->getType() == MediaType::video && scene_->getMainVideo()) {
        QMessageBox::warning(nullptr, tr("Alerta."),
                             tr("A cena já possui vídeo. Insira outras mídias."));
        return;
    }
    const QHash<QString, QString> properties = source->getProperties();
    Media* copy = document_->createMedia(scene_, source->getPathStart(), source->getType(),
                                         source->getGeometry(), source->getWording(), -1);
    if (!copy)
        return;
    copy->setProperties(properties);
    if (copy->getType() != MediaType::audio) {
        // Over every other media, so that the copy does not share the source's layer.
        const Media* last = scene_->lastMediaLayer();
        const int layer = scene_->getAllMediasOrderLayer().isEmpty() || !last
                              ? scene_->getCountRegions() + 1
                              : last->getLayer().toInt() + 1;
        copy->setLayer(QString::number(layer));
    }
    // The copy's start was recorded with the defaults of its kind; without this its look
    // would fall back to them at the next seek.
    document_->createSync(scene_, copy->getId(), true, Definitions::kSyncType::set,
                          scene_->getCurrentTime(), copy->getProperties(), -1);
}

} // namespace libraryView
} // namespace selvora
