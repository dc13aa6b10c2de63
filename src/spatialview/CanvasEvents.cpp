#include "spatialview/CanvasEvents.h"

#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "document/Template.h"
#include "spatialview/SpatialEvent.h"
#include "spatialview/SpatialResizingMedia.h"
#include "spatialview/SpatialView.h"
#include "spatialview/WordingItem.h"

#include <QDesktopServices>
#include <QGraphicsRectItem>
#include <QGraphicsView>
#include <QKeyEvent>
#include <QPointer>
#include <QUrl>

#include <cmath>

namespace selvora {
namespace spatialview {

using document::Media;
using document::Scene;
using document::Sync;
using ResizingType = Definitions::kSpatialResizingType;
using SyncType = Definitions::kSyncType;

namespace {

QString number(double value) {
    return QString::number(value, 'g', 6);
}

// Compared as the written text would read back, then cut to whole pixels.
double cut(double value) {
    return std::trunc(number(value).toDouble());
}

bool apart(double itemValue, double mediaValue) {
    return std::abs(cut(itemValue) - std::trunc(mediaValue)) > 1;
}

} // namespace

CanvasEvents::CanvasEvents(SpatialView* view) : QObject(view), view_(view) {
    // The graphics view scrolls on arrow presses; while playing they are links instead.
    view_->getGraphicsView()->installEventFilter(this);
}

bool CanvasEvents::isPlaying() const {
    return view_->scene_ && view_->scene_->getStatusPlayer() == Definitions::kPlayerStatus::play;
}

// Taken on the graphics view itself: the keys of an editor lying on the canvas (a text being
// typed) also end in the view, and are not the canvas's.
bool CanvasEvents::eventFilter(QObject* watched, QEvent* event) {
    if (watched == view_->getGraphicsView()) {
        if (event->type() == QEvent::KeyPress && isPlaying())
            return keyPress(static_cast<QKeyEvent*>(event));
        if (event->type() == QEvent::KeyRelease)
            return keyRelease(static_cast<QKeyEvent*>(event));
    }
    return QObject::eventFilter(watched, event);
}

bool CanvasEvents::dispatch(QEvent* event, bool* result) {
    if (event->type() == SpatialEvent::spatialType()) {
        *result = gestureEnded(static_cast<const SpatialEvent*>(event));
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        *result = keyPress(static_cast<QKeyEvent*>(event));
        return true;
    }
    return false;
}

// On the release, so that holding an arrow moves the item once. While playing the keys are
// links, and the picture is the timeline's, not the author's.
bool CanvasEvents::keyRelease(QKeyEvent* event) {
    if (isPlaying() || !view_->spatialScene_.focusItem())
        return false;
    const Qt::KeyboardModifiers modifiers = event->modifiers();
    int step = 2;
    if (modifiers & Qt::ControlModifier)
        step = 1;
    else if (modifiers & Qt::ShiftModifier)
        step = 4;
    moveMedia(event, step);
    return true;
}

void CanvasEvents::moveMedia(QKeyEvent* event, int step) {
    QGraphicsItem* focus = view_->spatialScene_.focusItem();
    Scene* scene = view_->scene_;
    if (!focus || focus->type() != SpatialResizingMedia::Type || !scene)
        return;
    const auto* item = static_cast<const SpatialResizingMedia*>(focus);
    if (item->getKind() == ResizingType::spatialResizingRegion || !scene->hasMedia(item->getId()))
        return;
    Media* media = scene->getMedia(item->getId());
    // With a base of 100 the pixel functions work in percent of the canvas.
    const double base = 100.0;
    switch (event->key()) {
    case Qt::Key_Right:
        media->setLeftPx(media->getLeftPx(base) + step, base);
        break;
    case Qt::Key_Left:
        media->setLeftPx(media->getLeftPx(base) - step, base);
        break;
    case Qt::Key_Up:
        media->setTopPx(media->getTopPx(base) - step, base);
        break;
    case Qt::Key_Down:
        media->setTopPx(media->getTopPx(base) + step, base);
        break;
    default:
        break;
    }
    // Any key released on a media records its state at this second.
    view_->document_->createSync(scene, media->getId(), true, SyncType::set,
                                 scene->getCurrentTime(), media->getProperties(), -1);
}

bool CanvasEvents::keyPress(QKeyEvent* event) {
    Scene* scene = view_->scene_;
    if (scene && isPlaying()) {
        const QString key = QString::number(event->key());
        QList<Sync*> syncs;
        if (scene->hasSyncWithKey(key))
            syncs = scene->getAllSyncsWithKey(key);
        else if (event->key() == Qt::Key_Return &&
                 scene->hasSyncWithKey(QString::number(Qt::Key_Enter)))
            syncs = scene->getAllSyncsWithKey(QString::number(Qt::Key_Enter));
        fireLinks(syncs);
    }
    if (event->key() == Qt::Key_Delete)
        view_->removeMedia();
    if (event->modifiers() & Qt::ControlModifier) {
        // X is taken and does nothing.
        switch (event->key()) {
        case Qt::Key_C:
            if (view_->spatialScene_.focusItem())
                view_->copyMedia();
            break;
        case Qt::Key_V:
            view_->pasteMedia();
            break;
        case Qt::Key_Z:
            view_->document_->undoAction();
            break;
        case Qt::Key_Y:
            view_->document_->redoAction();
            break;
        default:
            break;
        }
    }
    return true;
}

void CanvasEvents::fireLinks(const QList<Sync*>& syncs) {
    // A jump may change the scene shown: each sync is checked again before it fires.
    QList<QPointer<Sync>> guarded;
    for (Sync* sync : syncs)
        guarded << sync;
    for (const QPointer<Sync>& sync : qAsConst(guarded)) {
        QPointer<Scene> scene = view_->scene_.data();
        if (!sync || !scene ||
            !scene->mediaActivate(sync->getMediaTarget(), scene->getCurrentTime(),
                                  sync->getIsMedia()))
            continue;
        const QString url = sync->getUrl();
        const QString link = sync->getLink();
        const int timeEvent = sync->getTimeEvent().toInt();
        scene->pauseScene();
        if (!url.isEmpty()) {
            if (scene)
                scene->pauseScene();
            QDesktopServices::openUrl(QUrl::fromUserInput(url));
        }
        // The target scene plays at once only when no page was opened over it.
        if (!link.isEmpty())
            view_->document_->setCurrentSceneTime(link.toInt(), timeEvent, url.isEmpty());
    }
}

void CanvasEvents::clicked(int id) {
    Scene* scene = view_->scene_;
    if (!scene || !scene->hasMedia(id))
        return;
    QList<Sync*> links;
    for (Sync* sync : scene->getAllSyncsMedia(id, true)) {
        if (sync->getType() == SyncType::select)
            links << sync;
    }
    fireLinks(links);
}

bool CanvasEvents::gestureEnded(const SpatialEvent* event) {
    const SpatialView::ItemKey key =
        qMakePair(event->getId(), qMakePair(event->getTemplateId(), event->getKind()));
    SpatialResizingMedia* item = view_->resizingItems_.value(key, nullptr);
    Scene* scene = view_->scene_;
    // The item may have gone between the post and now.
    if (!item || !scene)
        return false;
    view_->lastNotifiedItem_ = item;
    if (event->getKind() == ResizingType::spatialResizingRegion) {
        if (document::Template* templ =
                view_->document_->getTemplate(scene->getTemplate(event->getTemplateId())))
            templ->setCurrentRegion(event->getId());
        return true;
    }
    const Media* current = scene->getMedia(-1);
    if (!scene->hasCurrentMedia() || !current || current->getId() != event->getId()) {
        scene->setCurrentMedia(event->getId());
        // Listeners of the new current media may have removed the item.
        item = view_->resizingItems_.value(key, nullptr);
        if (!item)
            return false;
    }
    current = scene->getMedia(-1);
    if (view_->currentBorder_)
        view_->currentBorder_->hide();
    if (current && current->getId() == event->getId() && !differs(item, current))
        return false; // a click, or a move under a pixel: nothing to record
    updateMediaProperties(item);
    return true;
}

bool CanvasEvents::differs(const SpatialResizingMedia* item, const Media* media) const {
    const double width = Definitions::getViewWidth();
    const double height = Definitions::getViewHeight();
    const QPointF pos = item->scenePos();
    const QRectF rect = item->getRect();
    if (apart(pos.x(), media->getLeftPx(width)) || apart(pos.y(), media->getTopPx(height)) ||
        apart(rect.width(), media->getWidthPx(width)) ||
        apart(rect.height(), media->getHeightPx(height)))
        return true;
    return media->getLayer() != number(item->zValue()) ||
           media->getTransparency() != number((1 - item->opacity()) * 100);
}

void CanvasEvents::updateMediaProperties(SpatialResizingMedia* item) {
    // The model's answer must not come back into the item during the write.
    view_->setMediaDisconnections();
    Scene* scene = view_->scene_;
    if (!item || !scene || !scene->hasMedia(item->getId()))
        return;
    Media* media = scene->getMedia(item->getId());
    QHash<QString, QString>& properties = item->getProperties();
    properties.insert(QStringLiteral("left"), number(item->scenePos().x()));
    properties.insert(QStringLiteral("top"), number(item->scenePos().y()));
    properties.insert(QStringLiteral("width"), number(item->getRect().width()));
    properties.insert(QStringLiteral("height"), number(item->getRect().height()));
    properties.insert(QStringLiteral("layer"), number(item->zValue()));
    properties.insert(QStringLiteral("transparency"), number((1 - item->opacity()) * 100));
    media->setPropertiesPx(properties, Definitions::getViewWidth(), Definitions::getViewHeight());
    if (auto* wording = dynamic_cast<WordingItem*>(item))
        media->setWording(wording->getText());
    view_->setMediaConnections();
    view_->document_->createSync(scene, media->getId(), true, SyncType::set,
                                 scene->getCurrentTime(), media->getProperties(), -1);
}

} // namespace spatialview
} // namespace selvora
