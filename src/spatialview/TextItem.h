#ifndef SELVORA_SPATIALVIEW_TEXTITEM_H
#define SELVORA_SPATIALVIEW_TEXTITEM_H

#include "spatialview/HoverEffect.h"
#include "spatialview/SpatialResizingMedia.h"
#include "spatialview/TextEdit.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QObject>
#include <QPointer>
#include <QString>

class QWidget;

namespace selvora {
namespace document {
class Scene;
}

namespace spatialview {

// The item of a text media: it draws its wording itself and is edited in place through a
// TextEdit laid over it, growing while the typing overflows it.
class TextItem : public QObject, public SpatialResizingMedia {
    Q_OBJECT
public:
    TextItem(int id, int layer, float transparency, QString hover, QString colorFont,
             QString fontFamily, QString fontSize, QString alignment, const QString& text,
             document::Scene* scene, QWidget* widget,
             Definitions::kSpatialResizingType kind =
                 Definitions::kSpatialResizingType::spatialResizingMedia,
             QGraphicsItem* parent = nullptr);
    ~TextItem() override;

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
               QWidget* widget = nullptr) override;

    int getIdMedia() const { return idMedia_; }
    QString getText() const { return text_; }
    TextEdit* getTextEdit() const { return textEdit_; }
    int getAlignment() const { return alignment_; }
    int getFontSize() const { return fontSize_; }

    void setColorFont(const QString& name);
    void setFontFamily(const QString& fontFamily);
    void setFontType(const QString& value);
    void setFontSize(const QString& text);
    void setAlignment(const QString& value);
    void setText(const QString& text);
    void setHover(const QString& hover);
    void setTextTransparency(float transparency);
    void setTextLayer(int layer);
    // The wording becomes one blank, so that nothing shows under the open editor.
    void clearText();
    // Shows the prompt "Duplo clique para editar" and empties the editor.
    void showEditWidget();
    // Opens the editor over the item.
    void showEdit();
    // Writes the item's picture as PNG: false, and no file, for a zero-size item or an empty
    // wording.
    bool generateImage(QString path);
    // The picture that generateImage writes; null when there is none to make.
    QImage picture() const;

signals:
    void itemClicked(int id);
    void deleteItem();

public slots:
    void changeGeometry(int height);
    void changeText(QString text);
    void hoverLeave();

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void setConnections();
    bool isPlaying() const;
    QFont drawingFont() const;
    // The rectangle of the wording inside `bounds`.
    static QRectF wordingRect(const QRectF& bounds);
    void placeEditor(const QPointF& itemPos);

    QPointer<document::Scene> scene_;
    QPointer<QWidget> widget_;
    QPointer<TextEdit> textEdit_;
    int alignment_ = Qt::AlignLeft;
    QColor colorFont_;
    QString text_;
    QRectF textRect_;
    QFont font_;
    bool bold_ = false;
    bool italic_ = false;
    bool underline_ = false;
    bool deleted_ = false;
    int idMedia_;
    int fontSize_;
    HoverEffect hover_;
};

} // namespace spatialview
} // namespace selvora

#endif
