#ifndef SELVORA_SPATIALVIEW_SHAPEITEM_H
#define SELVORA_SPATIALVIEW_SHAPEITEM_H

#include "spatialview/HoverEffect.h"
#include "spatialview/SpatialResizingMedia.h"
#include "spatialview/TextEdit.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QObject>
#include <QPen>
#include <QPointer>
#include <QString>

class QWidget;

namespace selvora {
namespace document {
class Scene;
}

namespace spatialview {

// The item of a shape media: one of the 52 figures of ShapeGeometry with fill, outline and an
// optional wording inside, drawn on the canvas and into the picture that the export uses.
class ShapeItem : public QObject, public SpatialResizingMedia {
    Q_OBJECT
public:
    ShapeItem(int id, int layer, float transparency, QString hover,
              Definitions::kShapeType shapeType, QString colorFont, QString colorFill,
              QString colorOutline, Definitions::kOutlineStyle outlineStyle,
              Definitions::kOutlineWidth outlineWidth, QString fontFamily, QString fontSize,
              QString alignment, const QString& text, document::Scene* scene, QWidget* widget,
              Definitions::kSpatialResizingType kind =
                  Definitions::kSpatialResizingType::spatialResizingMedia,
              QGraphicsItem* parent = nullptr);
    ~ShapeItem() override;

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
               QWidget* widget = nullptr) override;

    int getIdMedia() const { return idMedia_; }
    QString getText() const { return text_; }
    TextEdit* getTextEdit() const { return textEdit_; }
    // The rectangle in which the figure was last drawn.
    QRectF rect() const { return shapeRect_; }
    QColor color() const { return colorFill_; }
    QColor colorOutline() const { return colorOutline_; }
    QColor colorFont() const { return colorFont_; }
    Definitions::kShapeType shapeType() const { return shapeType_; }
    QPen pen() const;
    int getFontSize() const { return fontSize_; }
    int getAlignment() const { return alignment_; }

    void setColorFill(const QString& name);
    void setColorFont(const QString& name);
    void setColorOutline(const QString& name);
    void setOutlineStyle(Definitions::kOutlineStyle style);
    void setOutlineWidth(Definitions::kOutlineWidth width);
    void setFontFamily(const QString& fontFamily);
    void setFontType(const QString& value);
    void setFontSize(const QString& value);
    void setAlignment(const QString& value);
    void setText(const QString& text);
    void setHover(const QString& hover);
    void setShapeType(Definitions::kShapeType type);
    void setShapeTransparency(float transparency);
    void setShapeLayer(int layer);
    // The wording becomes one blank, so that nothing shows under the open editor.
    void clearText();
    void showEditWidget();
    void showEdit();
    // Writes the shape's picture as PNG with a transparent background: false, and no file, for
    // a zero-size item.
    bool generateImage(QString path);
    // The picture that generateImage writes; null when there is none to make.
    QImage picture() const;

signals:
    void itemClicked(int id);

public slots:
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
    QFont drawingFont(int pixelSize) const;

    QPointer<document::Scene> scene_;
    QPointer<QWidget> widget_;
    Definitions::kShapeType shapeType_;
    QRectF shapeRect_;
    QColor colorFill_;
    QColor colorFont_;
    QColor colorOutline_;
    int alignment_ = Qt::AlignLeft;
    Definitions::kOutlineStyle outlineStyle_;
    Definitions::kOutlineWidth outlineWidth_;
    QPointer<TextEdit> textEdit_;
    QString text_;
    QFont font_;
    bool bold_ = false;
    bool italic_ = false;
    bool underline_ = false;
    int idMedia_;
    int fontSize_;
    HoverEffect hover_;
};

} // namespace spatialview
} // namespace selvora

#endif
