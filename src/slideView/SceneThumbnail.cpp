#include "slideView/SceneThumbnail.h"

#include "app/Definitions.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "spatialview/SpatialGroupView.h"
#include "spatialview/SpatialView.h"

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QImageReader>
#include <QPainter>
#include <QWidget>

#include <algorithm>

namespace selvora {
namespace slideView {

using document::Document;
using document::Media;
using document::Scene;

namespace {
// The picture window of the card ":/imagens/slide", drawn on a grid of 128 by 128.
constexpr qreal kWindowLeft = 18.0 / 128;
constexpr qreal kWindowTop = 18.0 / 128;
constexpr qreal kWindowWidth = 92.0 / 128;
constexpr qreal kWindowHeight = 52.0 / 128;

QColor colour(const QString& name) {
    const QColor colour(name);
    return colour.isValid() ? colour : QColor(160, 160, 160);
}
} // namespace

SceneThumbnail::SceneThumbnail(Document* document, QWidget* host)
    : QObject(host), document_(document), host_(host) {
    timer_.setSingleShot(true);
    timer_.setInterval(kDelayMs);
    connect(&timer_, &QTimer::timeout, this, &SceneThumbnail::renderStale);
}

QSize SceneThumbnail::size() const {
    return QSize(qRound(Definitions::getSlideListItemWidth()),
                 qRound(Definitions::getSlideListItemHeight()))
        .expandedTo(QSize(8, 8));
}

QRectF SceneThumbnail::windowRect() const {
    const QSizeF card(size());
    return QRectF(card.width() * kWindowLeft, card.height() * kWindowTop,
                  card.width() * kWindowWidth, card.height() * kWindowHeight);
}

QRectF SceneThumbnail::pictureRect() const {
    const QRectF window = windowRect();
    // The canvas keeps its proportions inside the window.
    QSizeF canvas(Definitions::getViewWidth(), Definitions::getViewHeight());
    if (canvas.isEmpty())
        canvas = QSizeF(16, 9);
    canvas.scale(window.size(), Qt::KeepAspectRatio);
    QRectF rect(QPointF(), canvas);
    rect.moveCenter(window.center());
    return rect;
}

const QPixmap& SceneThumbnail::card() const {
    if (card_.isNull()) {
        card_ = QPixmap(":/imagens/slide")
                    .scaled(size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        if (card_.isNull()) {
            card_ = QPixmap(size());
            card_.fill(Qt::white);
        }
    }
    return card_;
}

void SceneThumbnail::watch(Scene* scene) {
    if (!scene)
        return;
    const int id = scene->getId();
    disconnect(scene, nullptr, this, nullptr);
    auto stale = [this, id] { invalidate(id); };
    connect(scene, &Scene::mediaAdded, this, stale);
    connect(scene, &Scene::mediaRemovedId, this, stale);
    connect(scene, &Scene::mediaSyncType, this, stale);
    connect(scene, &Scene::updateLayers, this, stale);
    connect(scene, &Scene::templateChanged, this, stale);
    connect(scene, &Scene::currentTime, this, stale);
    connect(scene, &Scene::executeSyncsReseted, this, stale);
}

void SceneThumbnail::forget(int sceneId) {
    cache_.remove(sceneId);
    stale_.remove(sceneId);
    shown_.remove(sceneId);
    if (QGraphicsScene* canvas = canvases_.take(sceneId))
        disconnect(canvas, nullptr, this, nullptr);
    if (Scene* scene = document_->getSceneAll().value(sceneId, nullptr))
        disconnect(scene, nullptr, this, nullptr);
}

void SceneThumbnail::clear() {
    for (const QPointer<QGraphicsScene>& canvas : qAsConst(canvases_)) {
        if (canvas)
            disconnect(canvas, nullptr, this, nullptr);
    }
    for (Scene* scene : document_->getSceneAll())
        disconnect(scene, nullptr, this, nullptr);
    canvases_.clear();
    cache_.clear();
    stale_.clear();
    shown_.clear();
    images_.clear();
    timer_.stop();
}

void SceneThumbnail::invalidate(int sceneId) {
    stale_.insert(sceneId);
    // Not restarted while running: a steady stream of changes still gets drawn.
    if (!timer_.isActive())
        timer_.start(kDelayMs);
}

bool SceneThumbnail::cached(int sceneId, QPixmap* picture) const {
    const auto found = cache_.constFind(sceneId);
    if (found == cache_.constEnd())
        return false;
    *picture = found.value();
    return true;
}

void SceneThumbnail::setShown(int sceneId) {
    if (!shown_.contains(sceneId)) {
        shown_.insert(sceneId);
        invalidate(sceneId);
    }
}

void SceneThumbnail::renderStale() {
    QList<int> round = stale_.values();
    std::sort(round.begin(), round.end());
    round = round.mid(0, kPerRound);
    for (int id : qAsConst(round)) {
        stale_.remove(id);
        // Scenes removed since they were marked are not drawn.
        if (Scene* scene = document_->getSceneAll().value(id, nullptr))
            emit pictureChanged(id, render(scene));
    }
    if (!stale_.isEmpty())
        timer_.start(0);
}

QGraphicsScene* SceneThumbnail::canvasOf(Scene* scene) {
    // The canvases are built after this panel, by the window: found when first needed.
    if (!group_ && host_ && host_->window())
        group_ = host_->window()->findChild<spatialview::SpatialGroupView*>();
    if (!group_)
        return nullptr;
    spatialview::SpatialView* view = group_->getView(scene->getId());
    // A canvas left behind by a removed scene of the same id is not this scene's.
    if (!view || view->getScene() != scene || !view->getGraphicsView())
        return nullptr;
    QGraphicsScene* canvas = view->getGraphicsView()->scene();
    if (canvas && canvases_.value(scene->getId()) != canvas) {
        const int id = scene->getId();
        canvases_.insert(id, canvas);
        connect(canvas, &QGraphicsScene::changed, this, [this, id] { invalidate(id); });
    }
    return canvas;
}

QPixmap SceneThumbnail::render(Scene* scene) {
    QPixmap picture = card();
    if (!scene)
        return picture;
    const QRectF target = pictureRect();
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    // The card's own drawing in the window gives way to the scene.
    painter.fillRect(windowRect(), QColor(236, 236, 236));
    painter.fillRect(target, Qt::white);
    QGraphicsScene* canvas = shown_.contains(scene->getId()) ? canvasOf(scene) : nullptr;
    if (canvas)
        canvas->render(&painter, target, canvas->sceneRect(), Qt::IgnoreAspectRatio);
    else
        paintModel(&painter, scene, target);
    painter.setPen(QColor(120, 120, 120));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(target.adjusted(-0.5, -0.5, 0.5, 0.5));
    painter.end();
    cache_.insert(scene->getId(), picture);
    return picture;
}

// Pictures are read at the size they are drawn, once: scenes often share a background.
QImage SceneThumbnail::smallImage(const QString& path, const QSize& size) const {
    const QSize scaled = size.expandedTo(QSize(1, 1));
    const QString key = QString("%1|%2x%3").arg(path).arg(scaled.width()).arg(scaled.height());
    const auto found = images_.constFind(key);
    if (found != images_.constEnd())
        return found.value();
    QImageReader reader(path);
    reader.setScaledSize(scaled);
    const QImage image = reader.read();
    images_.insert(key, image);
    return image;
}

// What the scene shows at its current second, in layer order: pictures, blocks for shapes and
// videos, lines for texts. Small as it is, more detail would not be seen.
void SceneThumbnail::paintModel(QPainter* painter, Scene* scene, const QRectF& target) const {
    painter->save();
    painter->setClipRect(target);
    const int time = scene->getCurrentTime();
    for (Media* media : scene->getAllMediasOrderLayer()) {
        if (!scene->mediaActivate(media->getId(), time, true))
            continue;
        const QRectF rect(target.left() + media->getLeftPx(target.width()),
                          target.top() + media->getTopPx(target.height()),
                          media->getWidthPx(target.width()), media->getHeightPx(target.height()));
        if (rect.width() <= 0 || rect.height() <= 0)
            continue;
        switch (media->getType()) {
        case Definitions::kMediaType::image: {
            const QImage image = smallImage(media->getPathStart(), rect.size().toSize());
            if (image.isNull())
                painter->fillRect(rect, QColor(200, 200, 200));
            else
                painter->drawImage(rect, image);
            break;
        }
        case Definitions::kMediaType::video:
            painter->fillRect(rect, QColor(48, 48, 48));
            break;
        case Definitions::kMediaType::shape:
            painter->fillRect(rect, colour(media->getColorFill()));
            break;
        case Definitions::kMediaType::text:
            painter->setPen(colour(media->getColorFont()));
            for (qreal y = rect.top() + 1; y < rect.bottom(); y += 2)
                painter->drawLine(QPointF(rect.left(), y), QPointF(rect.right(), y));
            break;
        default:
            break;
        }
    }
    painter->restore();
}

} // namespace slideView
} // namespace selvora
