#ifndef SELVORA_SPATIALVIEW_TEXTITEM_H
#define SELVORA_SPATIALVIEW_TEXTITEM_H

#include "spatialview/WordingItem.h"

#include <QImage>
#include <QObject>
#include <QString>

class QWidget;

namespace selvora {
namespace document {
class Scene;
}

namespace spatialview {

// The item of a text media: it draws its wording itself and is edited in place through a
// TextEdit laid over it, growing while the typing overflows it.
class TextItem : public WordingItem {
    Q_OBJECT
public:
    TextItem(int id, int layer, float transparency, QString hover, QString colorFont,
             QString fontFamily, QString fontSize, QString alignment, const QString& text,
             document::Scene* scene, QWidget* widget,
             Definitions::kSpatialResizingType kind =
                 Definitions::kSpatialResizingType::spatialResizingMedia,
             QGraphicsItem* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
               QWidget* widget = nullptr) override;

    // Null for a zero-size item or an empty wording.
    QImage picture() const override;

signals:
    void deleteItem();

public slots:
    void changeGeometry(int height);

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;
    void focusInEvent(QFocusEvent* event) override;
    QRect editorRect(const QPoint& global) const override;
    bool takeEmptyWording(const QString& text) override;

private:
    // The rectangle of the wording inside `bounds`.
    static QRectF wordingRect(const QRectF& bounds);

    QRectF textRect_;
    bool deleted_ = false;
};

} // namespace spatialview
} // namespace selvora

#endif
