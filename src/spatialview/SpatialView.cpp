#include "spatialview/SpatialView.h"

#include "document/Document.h"
#include "document/Media.h"
#include "document/Region.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "document/Template.h"
#include "spatialview/CanvasCommands.h"
#include "spatialview/CanvasEvents.h"
#include "spatialview/ImageItem.h"
#include "spatialview/MainVideo.h"
#include "spatialview/MainVideoPlayer.h"
#include "spatialview/ShapeItem.h"
#include "spatialview/SpatialResizingMedia.h"
#include "spatialview/TemplateCommands.h"
#include "spatialview/TextItem.h"
#include "spatialview/WordingItem.h"

#include <QGraphicsRectItem>
#include <QGraphicsView>
#include <QPen>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace selvora {
namespace spatialview {

using document::Media;
using document::Region;
using document::Scene;
using MediaType = Definitions::kMediaType;
using ResizingType = Definitions::kSpatialResizingType;
using SyncType = Definitions::kSyncType;

SpatialView::ItemKey SpatialView::mediaKey(int mediaId) {
    return qMakePair(mediaId, qMakePair(-1, ResizingType::spatialResizingMedia));
}

SpatialView::ItemKey SpatialView::regionKey(int regionId, int templateId) {
    return qMakePair(regionId, qMakePair(templateId, ResizingType::spatialResizingRegion));
}

SpatialView::SpatialView(document::Document* document, Scene* scene, QWidget* parent)
    : QWidget(parent), document_(document), scene_(scene), parentWidget_(parent),
      spatialScene_(document,
                    QRectF(0, 0, Definitions::getViewWidth(), Definitions::getViewHeight())),
      videoPlayer_(new MainVideoPlayer(scene, this)) {
    // Items move at every second of play and at every seek: an index would be rebuilt each time.
    spatialScene_.setItemIndexMethod(QGraphicsScene::NoIndex);
    createSpatialView();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(graphicsView_, 0, Qt::AlignCenter);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setAttribute(Qt::WA_MouseTracking);
    events_ = new CanvasEvents(this);
    // The context menu takes the template entries, so the templates come first.
    templates_ = new TemplateCommands(this);
    commands_ = new CanvasCommands(this);
    setConnections();
}

SpatialView::~SpatialView() {
    // The items go with the graphics scene, after this object's own fields: neither the focus
    // slot nor the player may reach them meanwhile.
    disconnect(&spatialScene_, nullptr, this, nullptr);
    // Its filter on the graphics view must not outlive this object's own part.
    delete std::exchange(events_, nullptr);
    focusedItem_ = nullptr;
    videoPlayer_->setMainVideo(nullptr);
    // The player goes before the video item it draws into: GStreamer would otherwise call into
    // the item's surface while that is being destroyed.
    delete std::exchange(videoPlayer_, nullptr);
}

void SpatialView::createSpatialView() {
    const int width = Definitions::getViewWidth();
    const int height = Definitions::getViewHeight();
    graphicsView_ = new QGraphicsView(this);
    graphicsView_->setGeometry(0, 0, width, height);
    graphicsView_->setSceneRect(spatialScene_.sceneRect());
    graphicsView_->setScene(&spatialScene_);
    // The canvas is exactly the scene: no frame, no scroll bars.
    graphicsView_->setFrameShape(QFrame::NoFrame);
    graphicsView_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    graphicsView_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    graphicsView_->setFixedSize(width, height);
    graphicsView_->setRenderHint(QPainter::SmoothPixmapTransform);
}

void SpatialView::setConnections() {
    connect(&spatialScene_, &QGraphicsScene::focusItemChanged, this, &SpatialView::updateItemFocus,
            Qt::UniqueConnection);
    connect(this, &QWidget::customContextMenuRequested, this, &SpatialView::showContextMenu,
            Qt::UniqueConnection);
}

QMediaPlayer* SpatialView::mediaPlayer() const {
    return videoPlayer_->mediaPlayer();
}

// ---------------------------------------------------------------- items

QRectF SpatialView::mediaRect(const Media* media) const {
    const double width = Definitions::getViewWidth();
    const double height = Definitions::getViewHeight();
    return QRectF(media->getLeftPx(width), media->getTopPx(height), media->getWidthPx(width),
                  media->getHeightPx(height));
}

void SpatialView::place(SpatialResizingMedia* item, const QRectF& rect, int layer) {
    spatialScene_.addItem(item);
    item->init(rect);
    item->setFocus(Qt::OtherFocusReason);
    item->setZValue(layer);
}

MainVideo* SpatialView::makeVideo(Media* media) {
    const QRectF rect = mediaRect(media);
    auto* video = new MainVideo(media->getId(), media->getPathStart(), rect.size(),
                                media->getLayer().toInt(), media->getTransparency().toFloat());
    mainVideo_ = video;
    videoPlayer_->setMainVideo(video);
    video->setPos(rect.topLeft());
    place(video, rect, media->getLayer().toInt());
    return video;
}

ImageItem* SpatialView::makeImage(Media* media, QWidget* widget) {
    auto* image = new ImageItem(media->getId(), media->getPathStart(), media->getLayer().toInt(),
                                media->getTransparency().toFloat(), media->getHover(), scene_,
                                widget, ResizingType::spatialResizingMedia, nullptr);
    connect(image, &ImageItem::itemClicked, this, &SpatialView::spatialResizingClicked,
            Qt::UniqueConnection);
    return image;
}

namespace {
// A wording from a file may hold a NUL; what follows it was never shown.
QString wordingOf(const Media* media) {
    const QString wording = media->getWording();
    const int nul = wording.indexOf(QChar(0));
    return nul < 0 ? wording : wording.left(nul);
}
} // namespace

TextItem* SpatialView::makeText(Media* media) {
    // The editor lies over the item as a child of this page, so it goes with the page.
    auto* text = new TextItem(media->getId(), media->getLayer().toInt(),
                              media->getTransparency().toFloat(), media->getHover(),
                              media->getColorFont(), media->getFontFamily(), media->getFontSize(),
                              media->getTextAlignment(), wordingOf(media), scene_, this);
    text->setFontType(media->getFontType());
    connect(text, &TextItem::itemClicked, this, &SpatialView::spatialResizingClicked,
            Qt::UniqueConnection);
    // An emptied text asks for its own removal, whatever has focus by then.
    connect(text, &TextItem::deleteItem, this, [this, text]() {
        const auto known = std::find(resizingItems_.cbegin(), resizingItems_.cend(), text);
        if (commands_ && known != resizingItems_.cend())
            commands_->removeMedia(text);
    });
    return text;
}

ShapeItem* SpatialView::makeShape(Media* media) {
    auto* shape = new ShapeItem(
        media->getId(), media->getLayer().toInt(), media->getTransparency().toFloat(),
        media->getHover(), Definitions::getkShapeType(media->getGeometry().toInt()),
        media->getColorFont(), media->getColorFill(), media->getColorOutline(),
        Definitions::getkOutlineStyle(media->getStyleOutline().toInt()),
        Definitions::getkOutlineWidth(media->getWidthOutline().toInt()), media->getFontFamily(),
        media->getFontSize(), media->getTextAlignment(), wordingOf(media), scene_, this);
    shape->setFontType(media->getFontType());
    connect(shape, &ShapeItem::itemClicked, this, &SpatialView::spatialResizingClicked,
            Qt::UniqueConnection);
    return shape;
}

// Fonts, colours, wording and hover of a text or shape item, from its media.
void SpatialView::applyLook(SpatialResizingMedia* item, const Media* media) {
    if (auto* shape = dynamic_cast<ShapeItem*>(item)) {
        shape->setColorFill(media->getColorFill());
        shape->setColorOutline(media->getColorOutline());
        shape->setOutlineStyle(Definitions::getkOutlineStyle(media->getStyleOutline().toInt()));
        shape->setOutlineWidth(Definitions::getkOutlineWidth(media->getWidthOutline().toInt()));
    }
    if (auto* wording = dynamic_cast<WordingItem*>(item)) {
        wording->setColorFont(media->getColorFont());
        wording->setFontFamily(media->getFontFamily());
        wording->setFontType(media->getFontType());
        wording->setFontSize(media->getFontSize());
        wording->setAlignment(media->getTextAlignment());
        wording->setText(wordingOf(media));
        wording->setHover(media->getHover());
    } else if (auto* image = dynamic_cast<ImageItem*>(item)) {
        image->setHover(media->getHover());
    }
}

void SpatialView::addSpatialResizingMedia(Media* media) {
    if (!media)
        return;
    // A media announced twice keeps one item.
    removeItem(mediaKey(media->getId()));
    switch (media->getType()) {
    case MediaType::video:
        addVideo(media);
        break;
    case MediaType::image:
        addImage(media);
        break;
    case MediaType::text:
        addText(media);
        break;
    case MediaType::shape:
        addShape(media);
        break;
    case MediaType::audio:
        break; // sound has no place on the canvas
    }
    templates_->mediaAdded(media);
}

void SpatialView::addText(Media* media) {
    TextItem* text = makeText(media);
    const QRectF rect = mediaRect(media);
    text->setPos(rect.topLeft());
    place(text, rect, media->getLayer().toInt());
    text->setVisible(true);
    resizingItems_.insert(mediaKey(media->getId()), text);
    // A new empty text opens its prompt at once, so the author sees where to type.
    if (text->getText().isEmpty())
        text->showEditWidget();
}

void SpatialView::addShape(Media* media) {
    ShapeItem* shape = makeShape(media);
    const QRectF rect = mediaRect(media);
    shape->setPos(rect.topLeft());
    place(shape, rect, media->getLayer().toInt());
    shape->setVisible(true);
    resizingItems_.insert(mediaKey(media->getId()), shape);
}

void SpatialView::addVideo(Media* media) {
    if (mainVideo_)
        removeItem(mediaKey(mainVideo_->getIdMedia()));
    MainVideo* video = makeVideo(media);
    video->setVisible(true);
    resizingItems_.insert(mediaKey(media->getId()), video);
    loadVideo();
}

void SpatialView::addImage(Media* media) {
    ImageItem* image = makeImage(media, parentWidget_);
    const QRectF rect = mediaRect(media);
    image->setPos(rect.topLeft());
    place(image, rect, media->getLayer().toInt());
    image->setVisible(true);
    resizingItems_.insert(mediaKey(media->getId()), image);
}

void SpatialView::addSpatialResizingRegion(Region* region) {
    templates_->addRegion(region);
}

// Rebuilds the canvas of a saved scene: every item hidden at a first size, then shown with its
// real geometry if it is on display at second 0.
void SpatialView::load() {
    if (!scene_) {
        emit finished();
        return;
    }
    const QList<Media*> medias = scene_->getAllMedias();
    for (Media* media : medias) {
        SpatialResizingMedia* item = nullptr;
        switch (media->getType()) {
        case MediaType::image: {
            ImageItem* image = makeImage(media, nullptr);
            // An unreadable picture takes its media's size, to show its placeholder there.
            const QSize natural = image->naturalSize();
            const QRectF rect = natural.isEmpty() ? mediaRect(media) : QRectF(QPointF(), natural);
            place(image, rect, media->getLayer().toInt());
            item = image;
            break;
        }
        case MediaType::video:
            if (mainVideo_)
                removeItem(mediaKey(mainVideo_->getIdMedia()));
            item = makeVideo(media);
            break;
        case MediaType::text: {
            // A first size only: the start sync gives the real one.
            TextItem* text = makeText(media);
            place(text, QRectF(0, 0, 200, 20), media->getLayer().toInt());
            item = text;
            break;
        }
        case MediaType::shape: {
            ShapeItem* shape = makeShape(media);
            place(shape, QRectF(0, 0, 100, 100), media->getLayer().toInt());
            item = shape;
            break;
        }
        case MediaType::audio:
            break;
        }
        if (item) {
            item->setVisible(false);
            resizingItems_.insert(mediaKey(media->getId()), item);
        }
        if (scene_->mediaActivate(media->getId(), 0, true))
            updateSpatialResizingMediaProperties(media, SyncType::start);
    }
    emit finished();
}

void SpatialView::forgetItem(const SpatialResizingMedia* item) {
    if (focusedItem_ == item)
        focusedItem_ = nullptr;
    if (lastNotifiedItem_ == item)
        lastNotifiedItem_ = nullptr;
    if (item == mainVideo_) {
        videoPlayer_->unloadVideo();
        videoPlayer_->setMainVideo(nullptr);
        mainVideo_ = nullptr;
    }
}

void SpatialView::removeItem(const ItemKey& key) {
    SpatialResizingMedia* item = resizingItems_.take(key);
    if (!item)
        return;
    forgetItem(item);
    spatialScene_.removeItem(item);
    // An item may be asking for its own removal: an object item goes when that call is over.
    if (auto* object = dynamic_cast<QObject*>(item))
        object->deleteLater();
    else
        delete item;
}

void SpatialView::removeSpatialResizingMedia(int id) {
    // The region that held the media is offered again.
    templates_->mediaRemoved(id);
    removeItem(mediaKey(id));
    nullingCurrentMedia();
    update();
}

void SpatialView::removeSpatialResizingRegion(int regionId, int templateId) {
    removeItem(regionKey(regionId, templateId));
    update();
}

void SpatialView::removeTemplate(int templateId) {
    const QList<ItemKey> keys = resizingItems_.keys();
    for (const ItemKey& key : keys) {
        if (key.second.second == ResizingType::spatialResizingRegion &&
            key.second.first == templateId)
            removeItem(key);
    }
    if (QGraphicsRectItem* border = templateBorders_.take(templateId)) {
        spatialScene_.removeItem(border);
        delete border;
    }
    templates_->templateRemoved(templateId);
    currentBorder_ = nullptr;
    if (scene_)
        document_->setCurrentScene(scene_->getId(), true);
    update();
}

// ---------------------------------------------------------------- model to item

void SpatialView::applyGeometry(SpatialResizingMedia* item, const Media* media) {
    const QRectF rect = mediaRect(media);
    if (item == mainVideo_)
        mainVideo_->setVideoSize(rect.size());
    if (item->getRect().size() != rect.size())
        item->setSize(rect.size());
    item->setPos(rect.topLeft());
    item->setZValue(media->getLayer().toInt());
}

void SpatialView::applyOpacity(SpatialResizingMedia* item, const Media* media) {
    item->setOpacity(1 - media->getTransparency().toFloat() / 100);
}

// A sync fired: a start shows the item, a stop hides it, a set only moves it. A video's look
// other than its geometry is set when it is built.
void SpatialView::updateSpatialResizingMediaProperties(Media* media, Definitions::kSyncType type) {
    if (!media)
        return;
    SpatialResizingMedia* item = resizingItems_.value(mediaKey(media->getId()), nullptr);
    if (!item)
        return;
    applyGeometry(item, media);
    const bool video = item == mainVideo_;
    if (!video)
        applyOpacity(item, media);
    if (type == SyncType::start)
        item->setVisible(true);
    else if (type == SyncType::stop)
        item->setVisible(false);
    if (video && scene_ && (type == SyncType::start || type == SyncType::stop)) {
        setStatusPlayer(scene_->getStatusPlayer());
        if (type == SyncType::stop)
            videoPlayer_->pause();
    }
}

// The current media's properties changed outside a sync (the properties panel, the history).
void SpatialView::updateSpatialResizingMediaProperties() {
    if (!currentMedia_)
        return;
    SpatialResizingMedia* item = resizingItems_.value(mediaKey(currentMedia_->getId()), nullptr);
    if (!item)
        return;
    applyGeometry(item, currentMedia_);
    if (item == mainVideo_)
        return;
    applyOpacity(item, currentMedia_);
    applyLook(item, currentMedia_);
}

void SpatialView::updateSpatialResizingMedias(int mediaId, QList<Media*> medias) {
    Q_UNUSED(mediaId)
    for (Media* media : medias)
        updateSpatialResizingMediaProperties(media, SyncType::set);
}

void SpatialView::updateSpatialResizingMediaSource(int id) {
    if (!scene_ || !scene_->hasMedia(id))
        return;
    SpatialResizingMedia* item = resizingItems_.value(mediaKey(id), nullptr);
    if (!item)
        return;
    Media* media = scene_->getMedia(id);
    if (auto* image = dynamic_cast<ImageItem*>(item)) {
        image->setImagePath(media->getPathStart());
    } else if (item == mainVideo_) {
        videoPlayer_->setSourceChanged(true);
        mainVideo_->setVideoPath(media->getPathStart());
        loadVideo();
    }
    if (auto* shape = dynamic_cast<ShapeItem*>(item))
        shape->setShapeType(Definitions::getkShapeType(media->getGeometry().toInt()));
}

void SpatialView::updateSpatialResizingRegionProperties() {
    if (!currentRegion_)
        return;
    SpatialResizingMedia* item = resizingItems_.value(
        regionKey(currentRegion_->getId(), currentRegion_->getTemplateId()), nullptr);
    if (!item)
        return;
    const double width = Definitions::getViewWidth();
    const double height = Definitions::getViewHeight();
    item->setSize(QSizeF(currentRegion_->getWidthPx(width), currentRegion_->getHeightPx(height)));
    item->setPos(currentRegion_->getLeftPx(width), currentRegion_->getTopPx(height));
    item->setZValue(currentRegion_->getLayer().toInt());
}

void SpatialView::updateTemplateProperties(int templateId, Definitions::kSyncType type) {
    document::Template* templ = document_->getTemplate(templateId);
    if (!templ || !scene_)
        return;
    if (type == SyncType::stop) {
        templ->hideComponents();
        if (QGraphicsRectItem* border = templateBorders_.value(templateId, nullptr))
            border->hide();
    } else if (type == SyncType::start &&
               scene_->getStatusPlayer() != Definitions::kPlayerStatus::play) {
        templ->showComponents();
    }
    templates_->blankRelated(templateId);
}

// The dashed outline of a template's regions, shown while one of its regions is chosen.
void SpatialView::drawTemplateBorders(int templateId) {
    document::Template* templ = document_->getTemplate(templateId);
    if (!templ || templateBorders_.contains(templateId))
        return;
    const double width = Definitions::getViewWidth();
    const double height = Definitions::getViewHeight();
    double left = Definitions::getScreenWidth();
    double top = Definitions::getScreenHeight();
    double right = 0;
    double bottom = 0;
    const QList<Region*> regions = templ->getAllRegions();
    for (const Region* region : regions) {
        left = qMin(left, region->getLeftPx(width));
        top = qMin(top, region->getTopPx(height));
        right = qMax(right, region->getLeftPx(width) + region->getWidthPx(width));
        bottom = qMax(bottom, region->getTopPx(height) + region->getHeightPx(height));
    }
    auto* border = new QGraphicsRectItem(QRectF(QPointF(left, top), QPointF(right, bottom)));
    border->setPen(QPen(QBrush(Qt::black), 1.0, Qt::DashLine, Qt::SquareCap, Qt::BevelJoin));
    border->setFlag(QGraphicsItem::ItemIsFocusable, false);
    border->hide();
    spatialScene_.addItem(border);
    templateBorders_.insert(templateId, border);
    templates_->templateAdded(templateId);
}

void SpatialView::showSpatialResizingRegion(Region* region, bool visible) {
    templates_->showRegion(region, visible);
}

// Asked by the save's worker through the document: texts and shapes are stored as pictures.
// A picture that cannot be made (an empty text, a zero size) leaves no file and the save goes on.
void SpatialView::generateImage(Media* media) {
    if (!media)
        return;
    SpatialResizingMedia* item = resizingItems_.value(mediaKey(media->getId()), nullptr);
    if (auto* wording = dynamic_cast<WordingItem*>(item))
        wording->generateImage(media->getPathProject());
}

// ---------------------------------------------------------------- current media and region

void SpatialView::setMediaConnections() {
    if (!currentMedia_)
        return;
    connect(currentMedia_, &Media::pathStartChanged, this,
            &SpatialView::updateSpatialResizingMediaSource, Qt::UniqueConnection);
    connect(currentMedia_, &Media::geometryChanged, this,
            &SpatialView::updateSpatialResizingMediaSource, Qt::UniqueConnection);
    connect(currentMedia_, QOverload<QHash<QString, QString>>::of(&Media::propertiesChanged), this,
            QOverload<>::of(&SpatialView::updateSpatialResizingMediaProperties),
            Qt::UniqueConnection);
}

void SpatialView::setMediaDisconnections() {
    if (!currentMedia_)
        return;
    disconnect(currentMedia_, &Media::pathStartChanged, this,
               &SpatialView::updateSpatialResizingMediaSource);
    disconnect(currentMedia_, &Media::geometryChanged, this,
               &SpatialView::updateSpatialResizingMediaSource);
    disconnect(currentMedia_, QOverload<QHash<QString, QString>>::of(&Media::propertiesChanged),
               this, QOverload<>::of(&SpatialView::updateSpatialResizingMediaProperties));
}

void SpatialView::setRegionConnections() {
    if (currentRegion_)
        connect(currentRegion_, QOverload<QHash<QString, QString>>::of(&Region::propertiesChanged),
                this, &SpatialView::updateSpatialResizingRegionProperties, Qt::UniqueConnection);
}

void SpatialView::setRegionDisconnections() {
    if (currentRegion_)
        disconnect(currentRegion_,
                   QOverload<QHash<QString, QString>>::of(&Region::propertiesChanged), this,
                   &SpatialView::updateSpatialResizingRegionProperties);
}

void SpatialView::setCurrentMedia(Media* media) {
    // Only the media now current is followed.
    nullingCurrentMedia();
    currentMedia_ = media;
    setMediaConnections();
    if (currentBorder_)
        currentBorder_->hide();
}

void SpatialView::nullingCurrentMedia() {
    if (!currentMedia_)
        return;
    setMediaDisconnections();
    currentMedia_ = nullptr;
}

void SpatialView::setCurrentRegion(Region* region) {
    setMediaDisconnections();
    setRegionDisconnections();
    currentRegion_ = region;
    if (currentBorder_)
        currentBorder_->hide();
    if (!region || !scene_)
        return;
    const int templateId = region->getTemplateId();
    const document::Sync* stop = scene_->getSync(SyncType::stop, templateId, false);
    // The border of a template that has ended is not shown.
    if (!stop || scene_->getCurrentTime() < stop->getTime()) {
        currentBorder_ = templateBorders_.value(templateId, nullptr);
        if (currentBorder_)
            currentBorder_->show();
    }
    scene_->setCurrentTemplate(templateId);
    setRegionConnections();
}

void SpatialView::updateItemFocus(QGraphicsItem* newFocus, QGraphicsItem* oldFocus,
                                  Qt::FocusReason reason) {
    Q_UNUSED(oldFocus)
    Q_UNUSED(reason)
    // The outline stays, without handles, while the keyboard is on another panel.
    if (focusedItem_)
        focusedItem_->showFocusItem(!spatialScene_.hasFocus());
    if (newFocus && newFocus->type() == SpatialResizingMedia::Type)
        focusedItem_ = static_cast<SpatialResizingMedia*>(newFocus);
}

void SpatialView::spatialResizingClicked(int id) {
    if (events_)
        events_->clicked(id);
}

// ---------------------------------------------------------------- player

void SpatialView::loadVideo() {
    videoPlayer_->loadVideo();
}

void SpatialView::playScene() {
    videoPlayer_->playScene();
}

void SpatialView::pauseScene() {
    videoPlayer_->pauseScene();
}

void SpatialView::stopScene() {
    videoPlayer_->stopScene();
}

void SpatialView::updateCurrentTimePlayer(int time) {
    videoPlayer_->updateCurrentTimePlayer(time);
}

void SpatialView::setStatusPlayer(Definitions::kPlayerStatus status) {
    switch (status) {
    case Definitions::kPlayerStatus::pause:
        pauseScene();
        break;
    case Definitions::kPlayerStatus::stop:
        stopScene();
        break;
    case Definitions::kPlayerStatus::play:
        playScene();
        graphicsView_->setFocus(Qt::OtherFocusReason);
        break;
    }
}

// Editing and playing are the two modes of the canvas: items are handled while editing and
// only clicked while playing.
void SpatialView::updatePlayerScene(Definitions::kPlayerStatus status) {
    bool interactive = true;
    switch (status) {
    case Definitions::kPlayerStatus::play:
        interactive = false;
        graphicsView_->setFocus(Qt::OtherFocusReason);
        if (focusedItem_)
            focusedItem_->showFocusItem(false);
        if (currentBorder_)
            currentBorder_->hide();
        for (auto it = resizingItems_.constBegin(); it != resizingItems_.constEnd(); ++it) {
            if (it.key().second.second == ResizingType::spatialResizingRegion)
                it.value()->hide();
        }
        break;
    case Definitions::kPlayerStatus::pause:
        graphicsView_->setAttribute(Qt::WA_TransparentForMouseEvents, false);
        if (focusedItem_)
            focusedItem_->showFocusItem(true);
        templates_->showEnabledRegions();
        if (scene_)
            scene_->resetExecuteSyncs();
        break;
    case Definitions::kPlayerStatus::stop:
        break;
    }
    for (SpatialResizingMedia* item : qAsConst(resizingItems_)) {
        if (item->type() != SpatialResizingMedia::Type)
            continue;
        item->setFlag(QGraphicsItem::ItemIsMovable, interactive);
        item->setFlag(QGraphicsItem::ItemSendsGeometryChanges, interactive);
        item->setFlag(QGraphicsItem::ItemIsFocusable, interactive);
        item->setFlag(QGraphicsItem::ItemIsSelectable, interactive);
        item->setCursor(interactive ? Qt::ArrowCursor : Qt::PointingHandCursor);
    }
    templates_->keepRegionsInPlace();
}

// ---------------------------------------------------------------- events

bool SpatialView::event(QEvent* event) {
    bool result = false;
    if (events_ && events_->dispatch(event, &result))
        return result;
    return QWidget::event(event);
}

void SpatialView::updateMediaProperties(SpatialResizingMedia* item) {
    if (events_)
        events_->updateMediaProperties(item);
}

void SpatialView::moveMedia(QKeyEvent* event, int step) {
    if (events_)
        events_->moveMedia(event, step);
}

// ---------------------------------------------------------------- commands and dialogs

SpatialView::TimeTarget SpatialView::timeTarget() const {
    // A region item notified last sets its template's times.
    TimeTarget target;
    if (lastNotifiedItem_ &&
        lastNotifiedItem_->getKind() == Definitions::kSpatialResizingType::spatialResizingRegion) {
        target.id = lastNotifiedItem_->getTemplateId();
        target.isMedia = false;
    } else if (scene_) {
        if (const Media* media = scene_->getMedia(-1))
            target.id = media->getId();
    }
    return target;
}

void SpatialView::showContextMenu(const QPoint& pos) {
    commands_->showContextMenu(pos);
}

void SpatialView::copyMedia() {
    commands_->copyMedia();
}

void SpatialView::pasteMedia() {
    commands_->pasteMedia();
}

void SpatialView::changeMedia() {
    commands_->changeMedia();
}

void SpatialView::editTextMedia() {
    commands_->editTextMedia();
}

void SpatialView::removeMedia() {
    commands_->removeMedia();
}

void SpatialView::sendToBack() {
    commands_->changeLayer(CanvasCommands::sendToBack);
}

void SpatialView::bringToFront() {
    commands_->changeLayer(CanvasCommands::bringToFront);
}

void SpatialView::sendBackward() {
    commands_->changeLayer(CanvasCommands::sendBackward);
}

void SpatialView::bringForward() {
    commands_->changeLayer(CanvasCommands::bringForward);
}

void SpatialView::setStartTime() {
    commands_->openDialog(CanvasCommands::startTime);
}

void SpatialView::setStopTime() {
    commands_->openDialog(CanvasCommands::stopTime);
}

void SpatialView::setLinkAutomatic() {
    commands_->openDialog(CanvasCommands::linkAutomatic);
}

void SpatialView::setLinkInteractive() {
    commands_->openDialog(CanvasCommands::linkInteractive);
}

void SpatialView::setLinkInteractiveWeb() {
    commands_->openDialog(CanvasCommands::linkWeb);
}

void SpatialView::renameMedia() {
    commands_->openDialog(CanvasCommands::rename);
}

} // namespace spatialview
} // namespace selvora
