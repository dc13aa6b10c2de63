#include "spatialview/RegionItem.h"

#include "document/Document.h"
#include "document/Media.h"
#include "document/Region.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "document/Template.h"
#include "spatialview/ShapeChoiceMenu.h"
#include "spatialview/SpatialView.h"
#include "spatialview/WordingItem.h"

#include <QCursor>
#include <QDebug>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFocusEvent>
#include <QGraphicsScene>
#include <QGraphicsSceneDragDropEvent>
#include <QGraphicsView>
#include <QGridLayout>
#include <QMessageBox>
#include <QMimeData>
#include <QPainter>
#include <QPushButton>
#include <QUrl>
#include <QVariantHash>

namespace selvora {
namespace spatialview {

using document::Media;
using document::Scene;
using MediaType = Definitions::kMediaType;
using SyncType = Definitions::kSyncType;

namespace {

QString number(double value) {
    return QString::number(value, 'g', 6);
}

// The file filter of a kind: "Imagem ( *.png *.jpg)".
QString filterOf(const QString& name, const QStringList& extensions) {
    QString filter = name + " (";
    for (const QString& extension : extensions)
        filter += " *." + extension;
    return filter + ")";
}

QString extensionOf(const QString& file) {
    const int dot = file.lastIndexOf(QLatin1Char('.'));
    return dot < 0 ? QString() : file.mid(dot + 1);
}

void warnSecondVideo() {
    QMessageBox::warning(nullptr, QObject::tr("Alerta."),
                         QObject::tr("A cena já possui vídeo. Insira outras mídias."),
                         QMessageBox::Ok);
}

} // namespace

RegionItem::RegionItem(int id, int templateId, int order, int layer, document::Document* document,
                       QWidget* widget, Definitions::kSpatialResizingType kind,
                       QGraphicsItem* parent)
    : SpatialResizingMedia(id, kind, parent, templateId), order_(order), widget_(widget),
      document_(document) {
    setAcceptDrops(true);
    createOptionsButtons();
    createOptionsDialog();
    createShapeMenu();
    setOptionsConnections();
    setPlaceholderLayer(layer);
    setOpacity(0.8);
}

RegionItem::~RegionItem() {
    // Both are top-level windows of their own when the item has no widget.
    if (optionsDialog_)
        optionsDialog_->removeEventFilter(this);
    delete optionsDialog_.data();
    delete shapeMenu_.data();
}

QColor RegionItem::orderColour(int order) {
    switch (order) {
    case 1:
        return QColor(247, 150, 70, 255);
    case 2:
        return QColor(75, 172, 198, 255);
    case 3:
        return QColor(238, 239, 70, 255);
    case 4:
        return QColor(71, 220, 87, 255);
    case 5:
        return QColor(73, 209, 163, 255);
    case 6:
        return QColor(237, 28, 36, 255);
    case 7:
        return QColor(163, 73, 164, 255);
    default:
        return QColor(Qt::lightGray);
    }
}

void RegionItem::createOptionsButtons() {
    const struct {
        QPushButton** button;
        const char* icon;
    } rows[] = {{&videoButton_, ":/imagens/icones-Selvora_04"},
                {&imageButton_, ":/imagens/icones-Selvora_05"},
                {&textButton_, ":/imagens/icones-Selvora_09"},
                {&shapeButton_, ":/imagens/icones-Selvora_10"}};
    for (const auto& row : rows) {
        *row.button = new QPushButton;
        (*row.button)->setIcon(QIcon(row.icon));
        (*row.button)->setStyleSheet("background-color: rgba(255, 255, 255, 10);");
    }
    videoButton_->setToolTip(tr("Inserir Vídeo"));
    imageButton_->setToolTip(tr("Inserir Imagem"));
    textButton_->setToolTip(tr("Inserir Texto"));
    shapeButton_->setToolTip(tr("Inserir Formas"));
}

void RegionItem::createOptionsDialog() {
    optionsDialog_ = new QDialog(widget_, Qt::Window | Qt::FramelessWindowHint);
    optionsDialog_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    optionsDialog_->setAttribute(Qt::WA_TranslucentBackground);
    auto* grid = new QGridLayout(optionsDialog_);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    grid->addWidget(videoButton_, 0, 0);
    grid->addWidget(imageButton_, 0, 1);
    grid->addWidget(textButton_, 1, 0);
    grid->addWidget(shapeButton_, 1, 1);
    // The grey icons come back whenever the buttons go, however they were closed.
    optionsDialog_->installEventFilter(this);
}

bool RegionItem::eventFilter(QObject* watched, QEvent* event) {
    // A dialog being destroyed hides as a bare QWidget: it is no longer the one to watch, and
    // reading the guarded pointer then would take it for a dialog.
    if (event->type() == QEvent::Hide && qobject_cast<QDialog*>(watched) &&
        watched == optionsDialog_) {
        showIcons_ = true;
        update();
    }
    return QObject::eventFilter(watched, event);
}

// A click elsewhere on the canvas closes the buttons; the click on a button itself only takes
// the window's focus away, and keeps them.
void RegionItem::focusOutEvent(QFocusEvent* event) {
    if (event->reason() == Qt::MouseFocusReason && optionsDialog_)
        optionsDialog_->close();
    SpatialResizingMedia::focusOutEvent(event);
}

void RegionItem::createShapeMenu() {
    shapeMenu_ = new ShapeChoiceMenu([this](int value) { addShapeOfType(value); }, widget_);
}

void RegionItem::setOptionsConnections() {
    connect(videoButton_, &QPushButton::pressed, this, &RegionItem::addVideo, Qt::UniqueConnection);
    connect(imageButton_, &QPushButton::pressed, this, &RegionItem::addImage, Qt::UniqueConnection);
    connect(textButton_, &QPushButton::pressed, this, &RegionItem::addText, Qt::UniqueConnection);
    connect(shapeButton_, &QPushButton::pressed, this, &RegionItem::addShape, Qt::UniqueConnection);
}

void RegionItem::setPlaceholderLayer(int layer) {
    layer_ = layer;
    setZValue(layer);
}

void RegionItem::setEnable(bool enable) {
    enable_ = enable;
    setVisible(enable);
    if (!enable && optionsDialog_)
        optionsDialog_->close();
}

void RegionItem::holdMedia(int mediaId) {
    mediaId_ = mediaId;
    lastMediaId_ = mediaId;
    if (document::Region* owner = region())
        owner->setMediaId(mediaId);
    setEnable(false);
}

void RegionItem::releaseMedia() {
    mediaId_ = -1;
    if (document::Region* owner = region())
        owner->setMediaId(-1);
    setEnable(true);
}

Scene* RegionItem::canvasScene() const {
    QGraphicsScene* graphics = scene();
    if (!graphics || graphics->views().isEmpty())
        return nullptr;
    if (auto* view = qobject_cast<SpatialView*>(graphics->views().first()->parentWidget()))
        return view->getScene();
    return nullptr;
}

document::Region* RegionItem::region() const {
    document::Template* templ = document_ ? document_->getTemplate(getTemplateId()) : nullptr;
    return templ && templ->hasRegion(getId()) ? templ->getRegion(getId()) : nullptr;
}

// ---------------------------------------------------------------- painting

void RegionItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) {
    if (!enable_)
        return;
    const QRectF rect = boundingRect();
    painter->save();
    painter->setBrush(dragging_ ? orderColour(order_).lighter(130) : orderColour(order_));
    painter->setPen(QPen(QColor(Qt::gray), 1.0, Qt::DashLine));
    const QRectF outline = rect.adjusted(0.5, 0.5, -0.5, -0.5);
    painter->drawRects(&outline, 1);
    if (showIcons_)
        paintIcons(painter, rect);
    painter->restore();
    SpatialResizingMedia::paint(painter, option, widget);
}

// The grey versions of the four buttons, small in a small region; no video in a scene that has
// one.
void RegionItem::paintIcons(QPainter* painter, const QRectF& rect) {
    const double w = rect.width();
    const double h = rect.height();
    const Scene* scene = canvasScene();
    const bool hasVideo = scene && scene->getMainVideo();
    const char* const icons[] = {
        ":/imagens/icones-Selvora_04-gray", ":/imagens/icones-Selvora_05-gray",
        ":/imagens/icones-Selvora_09-gray", ":/imagens/icones-Selvora_10-gray"};
    if (w / 2 - 30 <= 30 || h / 2 - 30 <= 30) {
        if (w <= 60 || h <= 30)
            return;
        const QPointF first(w / 2 - 30 + 5, h / 2 - 15 - 5);
        const QPointF third(w / 2 - 30 + 5, h / 2 + 15 - 10);
        const QPointF at[] = {first, first + QPointF(25, 0), third, third + QPointF(25, 0)};
        for (int i = 0; i < 4; ++i) {
            if (i == 0 && hasVideo)
                continue;
            painter->drawPixmap(QRectF(at[i], QSizeF(15, 15)), QPixmap(icons[i]), QRectF());
        }
        return;
    }
    const QPointF origin(w / 2 - 60 + 15, h / 2 - 60 + 15);
    const QPointF at[] = {origin, origin + QPointF(60, 0), origin + QPointF(0, 60),
                          origin + QPointF(60, 60)};
    for (int i = 0; i < 4; ++i) {
        if (i == 0 && hasVideo)
            continue;
        painter->drawPixmap(QRectF(at[i], QSizeF(30, 30)), QPixmap(icons[i]), QRectF());
    }
}

// ---------------------------------------------------------------- the four buttons

void RegionItem::mousePressEvent(QGraphicsSceneMouseEvent* event) {
    if (optionsDialog_ && optionsDialog_->isVisible()) {
        optionsDialog_->close();
        showIcons_ = true;
    }
    const QRectF rect = boundingRect();
    const double w = rect.width();
    const double h = rect.height();
    QPoint global = QCursor::pos();
    if (scene() && !scene()->views().isEmpty()) {
        QGraphicsView* view = scene()->views().first();
        global = view->viewport()->mapToGlobal(view->mapFromScene(scenePos()));
    }
    Scene* canvas = canvasScene();
    videoButton_->setVisible(!(canvas && canvas->getMainVideo()));
    if (w >= 60 && h >= 60) {
        for (QPushButton* button : {videoButton_, imageButton_, textButton_, shapeButton_}) {
            button->setFixedSize(30, 30);
            button->setIconSize(QSize(30, 30));
        }
        optionsDialog_->adjustSize();
        optionsDialog_->move(qRound(global.x() + w / 2 - 45), qRound(global.y() + h / 2 - 45));
    } else {
        for (QPushButton* button : {videoButton_, imageButton_, textButton_, shapeButton_}) {
            button->setFixedSize(10, 10);
            button->setIconSize(QSize(10, 10));
        }
        optionsDialog_->adjustSize();
        optionsDialog_->move(qRound(global.x() + w / 2 - 15), qRound(global.y() + h / 2 - 15));
    }
    optionsDialog_->show();
    showIcons_ = false;
    update();
    SpatialResizingMedia::mousePressEvent(event);
}

void RegionItem::addFile(MediaType type) {
    Scene* scene = canvasScene();
    if (!scene)
        return;
    const bool video = type == MediaType::video;
    if (video && scene->getMainVideo()) {
        warnSecondVideo();
        return;
    }
    const QString filter = video ? filterOf("Video", Definitions::getVideoExtensions())
                                 : filterOf("Imagem", Definitions::getImageExtensions());
    QString directory = document_->getLastDirectory();
    if (directory.isEmpty())
        directory = QDir::homePath();
    const QString file =
        QFileDialog::getOpenFileName(nullptr, tr("Escolha um arquivo"), directory, filter, nullptr,
                                     QFileDialog::DontUseNativeDialog);
    // A cancelled choice leaves the region empty with its buttons open.
    if (file.isEmpty())
        return;
    Media* media = document_->createMedia(scene, file, type, QString(), QString(), -1);
    document_->setLastDirectory(QFileInfo(file).absolutePath());
    fill(media);
}

void RegionItem::addVideo() {
    addFile(MediaType::video);
}

void RegionItem::addImage() {
    addFile(MediaType::image);
}

void RegionItem::addText() {
    Media* media =
        document_->createMedia(canvasScene(), QString(), MediaType::text, QString(), QString(), -1);
    fill(media);
    // Filling rewrote the look of the new text: its prompt to type is shown again.
    if (!media || !scene() || scene()->views().isEmpty())
        return;
    if (auto* view = qobject_cast<SpatialView*>(scene()->views().first()->parentWidget())) {
        if (auto* text =
                dynamic_cast<WordingItem*>(view->getItem(SpatialView::mediaKey(media->getId()))))
            if (text->getText().isEmpty())
                text->showEditWidget();
    }
}

void RegionItem::addShape() {
    if (shapeMenu_) {
        if (auto* menu = qobject_cast<ShapeChoiceMenu*>(shapeMenu_.data()))
            menu->showAt(QCursor::pos());
    }
    if (optionsDialog_)
        optionsDialog_->close();
    showIcons_ = true;
    update();
}

void RegionItem::addShapeOfType(int value) {
    fill(document_->createMedia(canvasScene(), QString(), MediaType::shape, QString::number(value),
                                QString(), -1));
}

void RegionItem::fill(Media* media) {
    if (!media)
        return;
    adjustMedia(media);
    if (optionsDialog_)
        optionsDialog_->close();
    showIcons_ = true;
}

// ---------------------------------------------------------------- the media inside

void RegionItem::adjustMedia(Media* media) {
    Scene* scene = canvasScene();
    // The media may belong to another canvas, or have been refused: nothing to fill then.
    if (!media || !scene || !scene->hasMedia(media->getId()) ||
        scene->getMedia(media->getId()) != media)
        return;
    mediaId_ = media->getId();
    lastMediaId_ = mediaId_;
    if (document::Region* owner = region())
        owner->setMediaId(mediaId_);
    media->setTemplateId(QString::number(getTemplateId()));
    media->setRegionId(QString::number(getId()));
    // One write, so that one undo step takes the media back to where it was made.
    const double width = Definitions::getViewWidth();
    const double height = Definitions::getViewHeight();
    const QRectF rect = boundingRect();
    QHash<QString, QString> geometry;
    geometry.insert("left", number(pos().x()));
    geometry.insert("top", number(pos().y()));
    geometry.insert("width", number(rect.width()));
    geometry.insert("height", number(rect.height()));
    geometry.insert("layer", number(zValue()));
    media->setPropertiesPx(geometry, width, height);
    const int id = media->getId();
    document_->createSync(scene, id, true, SyncType::set, scene->getCurrentTime(),
                          media->getProperties(), -1);
    // The media starts and stops with its template.
    const QList<document::Sync*> syncs = scene->getAllSyncsMedia(getTemplateId(), false);
    QList<QPair<SyncType, int>> times;
    for (const document::Sync* sync : syncs)
        times.append(qMakePair(sync->getType(), sync->getTime()));
    for (const auto& time : times) {
        if (!scene->hasMedia(id))
            break;
        document_->createSync(scene, id, true, time.first, time.second,
                              scene->getMedia(id)->getProperties(), -1);
    }
    setEnable(false);
    emit mediaInserted(order_, id);
}

// ---------------------------------------------------------------- drops

void RegionItem::dragEnterEvent(QGraphicsSceneDragDropEvent* event) {
    if (event->proposedAction() != Qt::CopyAction)
        return;
    qDebug() << "[Placeholder] Enter event!";
    dragging_ = true;
    event->acceptProposedAction();
    update();
}

void RegionItem::dragMoveEvent(QGraphicsSceneDragDropEvent* event) {
    if (event->proposedAction() != Qt::CopyAction)
        return;
    dragging_ = true;
    event->acceptProposedAction();
}

void RegionItem::dragLeaveEvent(QGraphicsSceneDragDropEvent* event) {
    qDebug() << "[Placeholder] Leave event!";
    dragging_ = false;
    event->accept();
    update();
}

void RegionItem::dropEvent(QGraphicsSceneDragDropEvent* event) {
    dragging_ = false;
    update();
    if (event->proposedAction() != Qt::CopyAction)
        return;
    qDebug() << "[Placeholder] Drop event!";
    Scene* scene = canvasScene();
    if (!scene)
        return;
    const QMimeData* data = event->mimeData();
    const QList<QUrl> urls = data->urls();
    event->acceptProposedAction();
    if (!data->property("type").isValid()) {
        // Files from the file manager: the first picture or video fills the region.
        QString file;
        for (const QUrl& url : urls) {
            file = url.toLocalFile();
            const QString extension = extensionOf(file);
            MediaType type;
            if (Definitions::getImageExtensions().contains(extension)) {
                type = MediaType::image;
            } else if (Definitions::getVideoExtensions().contains(extension)) {
                if (scene->getMainVideo()) {
                    warnSecondVideo();
                    continue;
                }
                type = MediaType::video;
            } else {
                continue; // sound has no place in a region; the unknown is skipped
            }
            if (mediaId_ != -1)
                break;
            fill(document_->createMedia(scene, file, type, QString(), QString(), -1));
        }
        if (!file.isEmpty())
            document_->setLastDirectory(QFileInfo(file).absolutePath());
        return;
    }
    // A row of the media library, with its kind and look.
    const int type = data->property("type").toInt();
    if (type == int(MediaType::video) && scene->getMainVideo()) {
        warnSecondVideo();
        return;
    }
    const MediaType mediaType = Definitions::getkMediaType(type);
    if (mediaType == MediaType::audio)
        return;
    const QVariantHash stored = data->property("properties").toHash();
    QHash<QString, QString> properties;
    for (auto it = stored.constBegin(); it != stored.constEnd(); ++it)
        properties.insert(it.key(), it.value().toString());
    const QString file = urls.isEmpty() ? QString() : urls.first().toLocalFile();
    Media* media = document_->createMedia(
        scene, file.isEmpty() ? QString() : QFileInfo(file).absoluteFilePath(), mediaType,
        properties.value("geometry"), properties.value("wording"), -1);
    if (!media)
        return;
    media->setProperties(properties);
    fill(media);
}

} // namespace spatialview
} // namespace selvora
