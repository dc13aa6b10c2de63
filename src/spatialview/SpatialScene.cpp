#include "spatialview/SpatialScene.h"

#include "app/Definitions.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"

#include <QDebug>
#include <QFileInfo>
#include <QGraphicsSceneDragDropEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QUrl>
#include <QVariantHash>

namespace selvora {
namespace spatialview {

using document::Media;
using document::Scene;
using MediaType = Definitions::kMediaType;

SpatialScene::SpatialScene(document::Document* document, const QRectF& rect, QObject* parent)
    : QGraphicsScene(rect, parent), document_(document) {}

// While regions are being designed the drop belongs to the region items.
void SpatialScene::dragEnterEvent(QGraphicsSceneDragDropEvent* event) {
    if (document_->isTemplateMode()) {
        qDebug() << "[SpatialScene] Is template! " << document_->isTemplateMode();
        QGraphicsScene::dragEnterEvent(event);
        return;
    }
    // Forgets the region that took the last drag.
    QGraphicsScene::dragEnterEvent(event);
    regionDrop_ = false;
    if (event->proposedAction() != Qt::CopyAction)
        return;
    // The orange of the selection outline: the canvas takes the drop.
    setBackgroundBrush(QBrush(QColor(255, 127, 0, 255)));
}

void SpatialScene::dragMoveEvent(QGraphicsSceneDragDropEvent* event) {
    if (document_->isTemplateMode()) {
        QGraphicsScene::dragMoveEvent(event);
        return;
    }
    // An empty region under the pointer takes the drop for itself.
    QGraphicsScene::dragMoveEvent(event);
    regionDrop_ = event->isAccepted();
    if (regionDrop_)
        return;
    if (event->proposedAction() == Qt::CopyAction)
        event->acceptProposedAction();
}

void SpatialScene::dragLeaveEvent(QGraphicsSceneDragDropEvent* event) {
    if (document_->isTemplateMode()) {
        QGraphicsScene::dragLeaveEvent(event);
        return;
    }
    QGraphicsScene::dragLeaveEvent(event);
    regionDrop_ = false;
    if (event->proposedAction() != Qt::CopyAction)
        return;
    setBackgroundBrush(Qt::NoBrush);
    event->acceptProposedAction();
}

void SpatialScene::dropEvent(QGraphicsSceneDragDropEvent* event) {
    if (document_->isTemplateMode()) {
        QGraphicsScene::dropEvent(event);
        return;
    }
    if (regionDrop_) {
        regionDrop_ = false;
        setBackgroundBrush(Qt::NoBrush);
        QGraphicsScene::dropEvent(event);
        return;
    }
    if (event->proposedAction() != Qt::CopyAction)
        return;
    setBackgroundBrush(Qt::NoBrush);
    if (event->mimeData()->property("type").isValid())
        dropLibraryMedia(event);
    else
        dropFiles(event);
}

void SpatialScene::warnSecondVideo() {
    QMessageBox::warning(nullptr, tr("Alerta."),
                         tr("A cena já possui vídeo. Insira outras mídias."), QMessageBox::Ok);
}

// Files from outside: each becomes a media by its extension, taken as it stands, case included.
void SpatialScene::dropFiles(QGraphicsSceneDragDropEvent* event) {
    QString file;
    const QList<QUrl> urls = event->mimeData()->urls();
    for (const QUrl& url : urls) {
        file = url.toLocalFile();
        const int dot = file.lastIndexOf(QLatin1Char('.'));
        const QString extension = dot < 0 ? QString() : file.mid(dot + 1);
        Scene* scene = document_->getScene(-1);
        if (Definitions::getImageExtensions().contains(extension)) {
            document_->createMedia(scene, file, MediaType::image, QString(), QString(), -1);
        } else if (Definitions::getVideoExtensions().contains(extension)) {
            if (scene && !scene->getMainVideo())
                document_->createMedia(scene, file, MediaType::video, QString(), QString(), -1);
            else
                warnSecondVideo();
        } else if (Definitions::getAudioExtensions().contains(extension)) {
            document_->createMedia(scene, file, MediaType::audio, QString(), QString(), -1);
        }
    }
    if (!file.isEmpty())
        document_->setLastDirectory(QFileInfo(file).absolutePath());
    event->acceptProposedAction();
}

// A row of the media library: the file with its kind and, from the media list, the look that
// media had.
void SpatialScene::dropLibraryMedia(QGraphicsSceneDragDropEvent* event) {
    const QMimeData* data = event->mimeData();
    const QList<QUrl> urls = data->urls();
    const QString file = urls.isEmpty() ? QString() : urls.first().toLocalFile();
    const int type = data->property("type").toInt();
    Scene* scene = document_->getScene(-1);
    if (type == int(MediaType::video) && scene && scene->getMainVideo()) {
        warnSecondVideo();
        event->acceptProposedAction();
        return;
    }
    const QVariantHash stored = data->property("properties").toHash();
    QHash<QString, QString> properties;
    for (auto it = stored.constBegin(); it != stored.constEnd(); ++it)
        properties.insert(it.key(), it.value().toString());
    const QString wording = properties.value("wording");
    const QString geometry = properties.value("geometry");
    const MediaType mediaType = Definitions::getkMediaType(type);
    Media* media = document_->createMedia(scene, QFileInfo(file).absoluteFilePath(), mediaType,
                                          geometry, wording, -1);
    if (media) {
        media->setProperties(properties);
        if (mediaType != MediaType::audio) {
            const QList<Media*> ordered = scene->getAllMediasOrderLayer();
            const Media* last = scene->lastMediaLayer();
            const int layer = ordered.isEmpty() || !last ? scene->getCountRegions() + 1
                                                         : last->getLayer().toInt() + 1;
            media->setLayer(QString::number(layer));
        }
    }
    event->acceptProposedAction();
}

} // namespace spatialview
} // namespace selvora
