#include "spatialview/TextItem.h"

#include "document/Media.h"
#include "document/Scene.h"
#include "spatialview/MediaPicture.h"
#include "spatialview/TextEdit.h"
#include "spatialview/WordingPainter.h"

#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QImage>
#include <QPainter>
#include <QPen>
#include <QTimer>

namespace selvora {
namespace spatialview {

TextItem::TextItem(int id, int layer, float transparency, QString hover, QString colorFont,
                   QString fontFamily, QString fontSize, QString alignment, const QString& text,
                   document::Scene* scene, QWidget* widget, Definitions::kSpatialResizingType kind,
                   QGraphicsItem* parent)
    : SpatialResizingMedia(id, kind, parent, -1), scene_(scene), widget_(widget), text_(text),
      idMedia_(id), fontSize_(WordingPainter::pixelSizeOf(WordingPainter::fontSizeOf(fontSize))) {
    colorFont_ = WordingPainter::colorOf(colorFont, Qt::black, Qt::black);
    font_.setFamily(WordingPainter::familyOf(fontFamily));
    textEdit_ = new TextEdit(text, colorFont, fontFamily, QString::number(fontSize_), widget);
    hover_.setKind(hover);
    setAcceptHoverEvents(true);
    setAlignment(alignment);
    setTextTransparency(transparency);
    setTextLayer(layer);
    setConnections();
}

TextItem::~TextItem() {
    // The editor belongs to the canvas widget; it goes with its item, without writing back.
    if (textEdit_) {
        textEdit_->disconnect(this);
        textEdit_->hide();
        textEdit_->deleteLater();
    }
}

void TextItem::setConnections() {
    connect(textEdit_, &TextEdit::geometryChanged, this, &TextItem::changeGeometry,
            Qt::UniqueConnection);
    connect(textEdit_, &TextEdit::textChanged, this, &TextItem::changeText, Qt::UniqueConnection);
}

bool TextItem::isPlaying() const {
    return scene_ && scene_->getStatusPlayer() == Definitions::kPlayerStatus::play;
}

QFont TextItem::drawingFont() const {
    QFont font = font_;
    font.setPixelSize(fontSize_);
    font.setWeight(bold_ ? QFont::Bold : QFont::Normal);
    font.setItalic(italic_);
    font.setUnderline(underline_);
    return font;
}

QRectF TextItem::wordingRect(const QRectF& b) {
    return QRectF(b.x() + 12, b.y() + 12, b.width() + b.x() - 23, b.height() + b.y() - 12);
}

void TextItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) {
    textRect_ = boundingRect();
    if (hover_.apply(this, boundingRect().size()))
        QTimer::singleShot(500, this, &TextItem::hoverLeave);
    hover_.settle(this);

    painter->save();
    // Wording that overflows stays inside the item, which is all the canvas repaints.
    painter->setClipRect(boundingRect(), Qt::IntersectClip);
    WordingPainter::draw(painter, wordingRect(textRect_), text_, drawingFont(), colorFont_,
                         alignment_, textRect_.height());
    painter->restore();
    if (hover_.drawsBorder()) {
        painter->save();
        QPen pen;
        pen.setWidth(5);
        painter->setPen(pen);
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(hover_.startRect());
        painter->restore();
    }
    SpatialResizingMedia::paint(painter, option, widget);
}

QImage TextItem::picture() const {
    // An empty wording has no picture: the save goes on without it.
    if (text_.trimmed().isEmpty())
        return QImage();
    const QSize size = boundingRect().size().toSize();
    QImage image = MediaPicture::blank(size);
    if (image.isNull())
        return image;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing);
    WordingPainter::draw(&painter, wordingRect(QRectF(QPointF(0, 0), size)), text_, drawingFont(),
                         colorFont_, alignment_, size.height());
    painter.end();
    return image;
}

bool TextItem::generateImage(QString path) {
    return MediaPicture::write(picture(), path);
}

void TextItem::clearText() {
    text_ = QStringLiteral(" ");
    update();
}

void TextItem::showEditWidget() {
    setText(QStringLiteral("Duplo clique para editar"));
    if (textEdit_)
        textEdit_->setText(QString());
}

void TextItem::showEdit() {
    if (!textEdit_)
        return;
    clearText();
    const QRectF b = boundingRect();
    const QPoint g = TextEdit::globalPos(this, pos(), widget_);
    textEdit_->showEditWidget(
        QRect(g.x() + 6, g.y() + 6, int(b.width() - 18), int(b.height() - 18)), pos().toPoint(),
        Qt::Alignment(alignment_));
}

void TextItem::placeEditor(const QPointF& itemPos) {
    const QRectF b = boundingRect();
    const QPoint g = TextEdit::globalPos(this, itemPos, widget_);
    const int height = fontSize_ + 6 <= b.height() ? fontSize_ : int(b.height() - 12);
    textEdit_->setGlobalGeometry(QRect(g.x() + 6, g.y() + 6, int(b.width() - 12), height));
}

void TextItem::changeGeometry(int height) {
    prepareGeometryChange();
    setSize(QSizeF(boundingRect().width(), std::max(height, 1)));
    setPos(pos());
    update();
}

void TextItem::changeText(QString text) {
    text_ = text;
    update();
    if (text.isEmpty() && !deleted_) {
        deleted_ = true;
        // Queued: the answer to the removal question may delete this item, which must not
        // happen under its own event handler.
        QMetaObject::invokeMethod(this, &TextItem::deleteItem, Qt::QueuedConnection);
        return;
    }
    // The lookup falls back to the current media; only this item's own media is written.
    document::Media* media = scene_ ? scene_->getMedia(idMedia_) : nullptr;
    if (media && media->getId() == idMedia_)
        media->setWording(text);
}

QVariant TextItem::itemChange(GraphicsItemChange change, const QVariant& value) {
    const QVariant result = SpatialResizingMedia::itemChange(change, value);
    if (!textEdit_)
        return result;
    if (change == ItemPositionChange) {
        if (textEdit_->isVisible())
            placeEditor(result.toPointF());
    } else {
        textEdit_->updateGeometry();
    }
    return result;
}

void TextItem::focusInEvent(QFocusEvent* event) {
    SpatialResizingMedia::focusInEvent(event);
    if (textEdit_ && textEdit_->isOpened())
        textEdit_->closeWidget();
    deleted_ = false;
}

void TextItem::focusOutEvent(QFocusEvent* event) {
    SpatialResizingMedia::focusOutEvent(event);
    if (textEdit_ && textEdit_->isOpened() && !textEdit_->getTextBoxFocus())
        textEdit_->closeWidget();
}

void TextItem::hoverEnterEvent(QGraphicsSceneHoverEvent* event) {
    if (hover_.enter(pos(), boundingRect(), isPlaying()))
        update();
    SpatialResizingMedia::hoverEnterEvent(event);
}

void TextItem::hoverLeaveEvent(QGraphicsSceneHoverEvent* event) {
    hoverLeave();
    SpatialResizingMedia::hoverLeaveEvent(event);
}

void TextItem::hoverLeave() {
    hover_.leave(this);
}

void TextItem::mousePressEvent(QGraphicsSceneMouseEvent* event) {
    if (isPlaying())
        emit itemClicked(idMedia_);
    QGraphicsItem::mousePressEvent(event);
}

void TextItem::mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) {
    if (scene_ && scene_->getStatusPlayer() == Definitions::kPlayerStatus::pause)
        showEdit();
    SpatialResizingMedia::mouseDoubleClickEvent(event);
}

void TextItem::setColorFont(const QString& name) {
    colorFont_ = WordingPainter::colorOf(name, Qt::black, Qt::black);
    if (textEdit_)
        textEdit_->setColorFont(name);
    update();
}

void TextItem::setFontFamily(const QString& fontFamily) {
    font_.setFamily(WordingPainter::familyOf(fontFamily));
    if (textEdit_)
        textEdit_->setFontFamily(fontFamily);
    update();
}

void TextItem::setFontType(const QString& value) {
    WordingPainter::fontTypeOf(value, &bold_, &italic_, &underline_);
    if (textEdit_)
        textEdit_->setFontType(value);
    update();
}

void TextItem::setFontSize(const QString& text) {
    fontSize_ = WordingPainter::pixelSizeOf(WordingPainter::fontSizeOf(text));
    if (textEdit_)
        textEdit_->setFontSize(QString::number(fontSize_));
    update();
}

void TextItem::setAlignment(const QString& value) {
    alignment_ = WordingPainter::alignmentOf(value);
    update();
}

void TextItem::setText(const QString& text) {
    text_ = text;
    if (textEdit_)
        textEdit_->setText(text);
    update();
}

void TextItem::setHover(const QString& hover) {
    hover_.setKind(hover);
}

void TextItem::setTextTransparency(float transparency) {
    setOpacity(1.0 - transparency / 100.0);
}

void TextItem::setTextLayer(int layer) {
    setZValue(layer);
}

} // namespace spatialview
} // namespace selvora
