#include "spatialview/ShapeItem.h"

#include "document/Media.h"
#include "document/Scene.h"
#include "spatialview/MediaPicture.h"
#include "spatialview/ShapeGeometry.h"
#include "spatialview/TextEdit.h"
#include "spatialview/WordingPainter.h"

#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QImage>
#include <QPainter>
#include <QTimer>

namespace selvora {
namespace spatialview {

namespace {
// What a colour that cannot be read becomes: the default fill, and black lines.
const QColor kDefaultFill(255, 127, 0, 255);
} // namespace

ShapeItem::ShapeItem(int id, int layer, float transparency, QString hover,
                     Definitions::kShapeType shapeType, QString colorFont, QString colorFill,
                     QString colorOutline, Definitions::kOutlineStyle outlineStyle,
                     Definitions::kOutlineWidth outlineWidth, QString fontFamily, QString fontSize,
                     QString alignment, const QString& text, document::Scene* scene,
                     QWidget* widget, Definitions::kSpatialResizingType kind, QGraphicsItem* parent)
    : SpatialResizingMedia(id, kind, parent, -1), scene_(scene), widget_(widget),
      shapeType_(shapeType), outlineStyle_(outlineStyle), outlineWidth_(outlineWidth), text_(text),
      idMedia_(id), fontSize_(WordingPainter::pixelSizeOf(WordingPainter::fontSizeOf(fontSize))) {
    textEdit_ = new TextEdit(text, colorFont, fontFamily, QString::number(fontSize_), widget);
    setColorFill(colorFill);
    setColorFont(colorFont);
    setColorOutline(colorOutline);
    font_.setFamily(WordingPainter::familyOf(fontFamily));
    hover_.setKind(hover);
    setAcceptHoverEvents(true);
    setAlignment(alignment);
    setShapeTransparency(transparency);
    setShapeLayer(layer);
    setConnections();
}

ShapeItem::~ShapeItem() {
    // The editor belongs to the canvas widget; it goes with its item, without writing back.
    if (textEdit_) {
        textEdit_->disconnect(this);
        textEdit_->hide();
        textEdit_->deleteLater();
    }
}

void ShapeItem::setConnections() {
    connect(textEdit_, &TextEdit::textChanged, this, &ShapeItem::changeText, Qt::UniqueConnection);
}

bool ShapeItem::isPlaying() const {
    return scene_ && scene_->getStatusPlayer() == Definitions::kPlayerStatus::play;
}

QPen ShapeItem::pen() const {
    return QPen(colorOutline_, ShapeGeometry::penWidth(outlineWidth_),
                ShapeGeometry::penStyle(outlineStyle_));
}

QFont ShapeItem::drawingFont(int pixelSize) const {
    QFont font = font_;
    font.setPixelSize(std::max(1, pixelSize));
    font.setWeight(bold_ ? QFont::Bold : QFont::Normal);
    font.setItalic(italic_);
    font.setUnderline(underline_);
    return font;
}

void ShapeItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) {
    const QRectF b = boundingRect();
    const QPen outline = pen();
    const qreal pw = outline.widthF();
    shapeRect_ = ShapeGeometry::shapeRect(b, pw);
    QPen figurePen = outline;
    int pixelSize = fontSize_;
    if (hover_.isHovering()) {
        if (hover_.apply(this, QSizeF(b.width() + 1.1 * pw, b.height() + 1.1 * pw)))
            QTimer::singleShot(500, this, &ShapeItem::hoverLeave);
        pixelSize += 2 * hover_.growthSign();
        // The figure's own outline thickens, not a frame around the item.
        if (hover_.drawsBorder())
            figurePen.setWidth(int(pw + 5));
    }
    if (hover_.settle(this))
        shapeRect_ = hover_.startRect();

    painter->save();
    ShapeGeometry::paint(painter, shapeType_, shapeRect_, figurePen, colorFill_, pw);
    const QRectF s = shapeRect_;
    painter->setClipRect(b, Qt::IntersectClip);
    WordingPainter::draw(
        painter, QRectF(s.x() + 20, s.y() + 20, s.width() + s.x() - 40, s.height() + s.y() - 40),
        text_, drawingFont(pixelSize), colorFont_, alignment_, b.height());
    painter->restore();
    painter->setBrush(Qt::transparent);
    SpatialResizingMedia::paint(painter, option, widget);
}

QImage ShapeItem::picture() const {
    const QSize size = boundingRect().size().toSize();
    QImage image = MediaPicture::blank(size);
    if (image.isNull())
        return image;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF bounds = boundingRect();
    ShapeGeometry::paintInBounds(&painter, shapeType_, bounds, pen(), colorFill_);
    // The bottom margin of the picture is 12, not the canvas's 40.
    WordingPainter::draw(&painter,
                         QRectF(bounds.x() + 20, bounds.y() + 20, bounds.x() + bounds.width() - 40,
                                bounds.y() + bounds.height() - 12),
                         text_, drawingFont(fontSize_), colorFont_, alignment_, size.height());
    painter.end();
    return image;
}

bool ShapeItem::generateImage(QString path) {
    return MediaPicture::write(picture(), path);
}

void ShapeItem::clearText() {
    text_ = QStringLiteral(" ");
    update();
}

void ShapeItem::showEditWidget() {
    setText(QStringLiteral("Duplo clique para editar"));
    if (textEdit_)
        textEdit_->setText(QString());
}

void ShapeItem::showEdit() {
    if (!textEdit_)
        return;
    clearText();
    const QRectF b = boundingRect();
    const QPoint g = TextEdit::globalPos(this, pos(), widget_);
    textEdit_->showEditWidget(
        QRect(g.x() + 14, g.y() + 15, int(b.width() - 34), int(b.height() - 34)), pos().toPoint(),
        Qt::Alignment(alignment_));
}

void ShapeItem::changeText(QString text) {
    text_ = text;
    update();
    // The lookup falls back to the current media; only this item's own media is written.
    document::Media* media = scene_ ? scene_->getMedia(idMedia_) : nullptr;
    if (media && media->getId() == idMedia_)
        media->setWording(text);
}

QVariant ShapeItem::itemChange(GraphicsItemChange change, const QVariant& value) {
    const QVariant result = SpatialResizingMedia::itemChange(change, value);
    if (!textEdit_)
        return result;
    if (change == ItemPositionChange && textEdit_->isVisible()) {
        const QPoint g = TextEdit::globalPos(this, result.toPointF(), widget_);
        const qreal h = shapeRect_.height();
        const int height = fontSize_ + 6 <= h ? fontSize_ : int(h - 12);
        textEdit_->setGlobalGeometry(
            QRect(g.x() + 6, g.y() + 6, int(shapeRect_.width() - 12), height));
    } else if (change == ItemOpacityChange && shapeRect_.height() != 0) {
        textEdit_->updateGeometry();
    }
    return result;
}

void ShapeItem::focusInEvent(QFocusEvent* event) {
    SpatialResizingMedia::focusInEvent(event);
    if (textEdit_ && textEdit_->isOpened())
        textEdit_->closeWidget();
}

void ShapeItem::focusOutEvent(QFocusEvent* event) {
    SpatialResizingMedia::focusOutEvent(event);
    if (textEdit_ && textEdit_->isOpened() && !textEdit_->getTextBoxFocus())
        textEdit_->closeWidget();
}

void ShapeItem::hoverEnterEvent(QGraphicsSceneHoverEvent* event) {
    const QRectF b = boundingRect();
    if (hover_.enter(pos(), ShapeGeometry::shapeRect(b, pen().widthF()), isPlaying()))
        update();
    SpatialResizingMedia::hoverEnterEvent(event);
}

void ShapeItem::hoverLeaveEvent(QGraphicsSceneHoverEvent* event) {
    hoverLeave();
    SpatialResizingMedia::hoverLeaveEvent(event);
}

void ShapeItem::hoverLeave() {
    hover_.leave(this);
}

void ShapeItem::mousePressEvent(QGraphicsSceneMouseEvent* event) {
    if (isPlaying())
        emit itemClicked(idMedia_);
    QGraphicsItem::mousePressEvent(event);
}

void ShapeItem::mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) {
    if (scene_ && scene_->getStatusPlayer() == Definitions::kPlayerStatus::pause)
        showEdit();
    SpatialResizingMedia::mouseDoubleClickEvent(event);
}

void ShapeItem::setColorFill(const QString& name) {
    colorFill_ = WordingPainter::colorOf(name, Qt::transparent, kDefaultFill);
    update();
}

void ShapeItem::setColorFont(const QString& name) {
    colorFont_ = WordingPainter::colorOf(name, Qt::black, Qt::black);
    if (textEdit_)
        textEdit_->setColorFont(name);
    update();
}

void ShapeItem::setColorOutline(const QString& name) {
    colorOutline_ = WordingPainter::colorOf(name, Qt::transparent, Qt::black);
    update();
}

void ShapeItem::setOutlineStyle(Definitions::kOutlineStyle style) {
    outlineStyle_ = style;
    update();
}

void ShapeItem::setOutlineWidth(Definitions::kOutlineWidth width) {
    outlineWidth_ = width;
    update();
}

void ShapeItem::setFontFamily(const QString& fontFamily) {
    font_.setFamily(WordingPainter::familyOf(fontFamily));
    if (textEdit_)
        textEdit_->setFontFamily(fontFamily);
    update();
}

void ShapeItem::setFontType(const QString& value) {
    WordingPainter::fontTypeOf(value, &bold_, &italic_, &underline_);
    if (textEdit_)
        textEdit_->setFontType(value);
    update();
}

void ShapeItem::setFontSize(const QString& value) {
    fontSize_ = WordingPainter::pixelSizeOf(WordingPainter::fontSizeOf(value));
    if (textEdit_)
        textEdit_->setFontSize(QString::number(fontSize_));
    update();
}

void ShapeItem::setAlignment(const QString& value) {
    alignment_ = WordingPainter::alignmentOf(value);
    update();
}

void ShapeItem::setText(const QString& text) {
    text_ = text;
    if (textEdit_)
        textEdit_->setText(text);
    update();
}

void ShapeItem::setHover(const QString& hover) {
    hover_.setKind(hover);
}

void ShapeItem::setShapeType(Definitions::kShapeType type) {
    shapeType_ = type;
    update();
}

void ShapeItem::setShapeTransparency(float transparency) {
    setOpacity(1.0 - transparency / 100.0);
}

void ShapeItem::setShapeLayer(int layer) {
    setZValue(layer);
}

} // namespace spatialview
} // namespace selvora
