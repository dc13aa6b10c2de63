#include "spatialview/WordingItem.h"

#include "document/Media.h"
#include "document/Scene.h"
#include "spatialview/MediaPicture.h"
#include "spatialview/WordingPainter.h"

#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>

namespace selvora {
namespace spatialview {

WordingItem::WordingItem(int id, int layer, float transparency, const QString& hover,
                         const QString& colorFont, const QString& fontFamily,
                         const QString& fontSize, const QString& alignment, const QString& text,
                         document::Scene* scene, QWidget* widget,
                         Definitions::kSpatialResizingType kind, QGraphicsItem* parent)
    : SpatialResizingMedia(id, kind, parent, -1), scene_(scene), widget_(widget), text_(text),
      idMedia_(id), fontSize_(WordingPainter::pixelSizeOf(WordingPainter::fontSizeOf(fontSize))) {
    colorFont_ = WordingPainter::colorOf(colorFont, Qt::black, Qt::black);
    font_.setFamily(WordingPainter::familyOf(fontFamily));
    textEdit_ = new TextEdit(text, colorFont, fontFamily, QString::number(fontSize_), widget);
    hover_.setKind(hover);
    setAcceptHoverEvents(true);
    setAlignment(alignment);
    setTransparency(transparency);
    setLayer(layer);
    connect(textEdit_, &TextEdit::textChanged, this, &WordingItem::changeText);
}

WordingItem::~WordingItem() {
    // The editor belongs to the canvas widget; it goes with its item, without writing back.
    if (textEdit_) {
        textEdit_->disconnect(this);
        textEdit_->hide();
        textEdit_->deleteLater();
    }
}

bool WordingItem::isPlaying() const {
    return scene_ && scene_->getStatusPlayer() == Definitions::kPlayerStatus::play;
}

QFont WordingItem::drawingFont(int pixelSize) const {
    QFont font = font_;
    font.setPixelSize(std::max(1, pixelSize));
    font.setWeight(bold_ ? QFont::Bold : QFont::Normal);
    font.setItalic(italic_);
    font.setUnderline(underline_);
    return font;
}

bool WordingItem::generateImage(QString path) {
    return MediaPicture::write(picture(), path);
}

void WordingItem::clearText() {
    text_ = QStringLiteral(" ");
    update();
}

void WordingItem::showEditWidget() {
    setText(QStringLiteral("Duplo clique para editar"));
    if (textEdit_)
        textEdit_->setText(QString());
}

void WordingItem::showEdit() {
    if (!textEdit_)
        return;
    clearText();
    textEdit_->showEditWidget(editorRect(TextEdit::globalPos(this, pos(), widget_)),
                              pos().toPoint(), Qt::Alignment(alignment_));
}

void WordingItem::placeEditor(const QPointF& itemPos, const QRectF& area) {
    if (!textEdit_)
        return;
    const QPoint g = TextEdit::globalPos(this, itemPos, widget_);
    const int height = fontSize_ + 6 <= area.height() ? fontSize_ : int(area.height() - 12);
    textEdit_->setGlobalGeometry(QRect(g.x() + 6, g.y() + 6, int(area.width() - 12), height));
}

bool WordingItem::takeEmptyWording(const QString& text) {
    Q_UNUSED(text)
    return false;
}

void WordingItem::changeText(QString text) {
    text_ = text;
    update();
    if (takeEmptyWording(text))
        return;
    // The lookup falls back to the current media; only this item's own media is written.
    document::Media* media = scene_ ? scene_->getMedia(idMedia_) : nullptr;
    if (media && media->getId() == idMedia_)
        media->setWording(text);
}

void WordingItem::focusInEvent(QFocusEvent* event) {
    SpatialResizingMedia::focusInEvent(event);
    if (textEdit_ && textEdit_->isOpened())
        textEdit_->closeWidget();
}

void WordingItem::focusOutEvent(QFocusEvent* event) {
    SpatialResizingMedia::focusOutEvent(event);
    if (textEdit_ && textEdit_->isOpened() && !textEdit_->getTextBoxFocus())
        textEdit_->closeWidget();
}

void WordingItem::hoverEnterEvent(QGraphicsSceneHoverEvent* event) {
    if (hover_.enter(pos(), hoverRect(), isPlaying()))
        update();
    SpatialResizingMedia::hoverEnterEvent(event);
}

void WordingItem::hoverLeaveEvent(QGraphicsSceneHoverEvent* event) {
    hoverLeave();
    SpatialResizingMedia::hoverLeaveEvent(event);
}

void WordingItem::hoverLeave() {
    hover_.leave(this);
}

void WordingItem::mousePressEvent(QGraphicsSceneMouseEvent* event) {
    if (isPlaying())
        emit itemClicked(idMedia_);
    QGraphicsItem::mousePressEvent(event);
}

void WordingItem::mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) {
    if (scene_ && scene_->getStatusPlayer() == Definitions::kPlayerStatus::pause)
        showEdit();
    SpatialResizingMedia::mouseDoubleClickEvent(event);
}

void WordingItem::setColorFont(const QString& name) {
    colorFont_ = WordingPainter::colorOf(name, Qt::black, Qt::black);
    if (textEdit_)
        textEdit_->setColorFont(name);
    update();
}

void WordingItem::setFontFamily(const QString& fontFamily) {
    font_.setFamily(WordingPainter::familyOf(fontFamily));
    if (textEdit_)
        textEdit_->setFontFamily(fontFamily);
    update();
}

void WordingItem::setFontType(const QString& value) {
    WordingPainter::fontTypeOf(value, &bold_, &italic_, &underline_);
    if (textEdit_)
        textEdit_->setFontType(value);
    update();
}

void WordingItem::setFontSize(const QString& value) {
    fontSize_ = WordingPainter::pixelSizeOf(WordingPainter::fontSizeOf(value));
    if (textEdit_)
        textEdit_->setFontSize(QString::number(fontSize_));
    update();
}

void WordingItem::setAlignment(const QString& value) {
    alignment_ = WordingPainter::alignmentOf(value);
    update();
}

void WordingItem::setText(const QString& text) {
    text_ = text;
    if (textEdit_)
        textEdit_->setText(text);
    update();
}

void WordingItem::setHover(const QString& hover) {
    hover_.setKind(hover);
}

void WordingItem::setTransparency(float transparency) {
    setOpacity(1.0 - transparency / 100.0);
}

void WordingItem::setLayer(int layer) {
    setZValue(layer);
}

} // namespace spatialview
} // namespace selvora
