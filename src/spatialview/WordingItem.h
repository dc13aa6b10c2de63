#ifndef SELVORA_SPATIALVIEW_WORDINGITEM_H
#define SELVORA_SPATIALVIEW_WORDINGITEM_H

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

// Base of the items that draw a wording of their own (text and shape media): the wording and
// its font, the TextEdit laid over the item to edit it in place, the hover effect, and the
// clicks that open the editor (paused) or follow a link (playing).
class WordingItem : public QObject, public SpatialResizingMedia {
    Q_OBJECT
public:
    WordingItem(int id, int layer, float transparency, const QString& hover,
                const QString& colorFont, const QString& fontFamily, const QString& fontSize,
                const QString& alignment, const QString& text, document::Scene* scene,
                QWidget* widget, Definitions::kSpatialResizingType kind, QGraphicsItem* parent);
    ~WordingItem() override;

    int getIdMedia() const { return idMedia_; }
    QString getText() const { return text_; }
    TextEdit* getTextEdit() const { return textEdit_; }
    int getAlignment() const { return alignment_; }
    int getFontSize() const { return fontSize_; }
    QColor colorFont() const { return colorFont_; }

    void setColorFont(const QString& name);
    void setFontFamily(const QString& fontFamily);
    void setFontType(const QString& value);
    void setFontSize(const QString& value);
    void setAlignment(const QString& value);
    void setText(const QString& text);
    void setHover(const QString& hover);
    void setTransparency(float transparency);
    void setLayer(int layer);
    // The wording becomes one blank, so that nothing shows under the open editor.
    void clearText();
    // Shows the prompt "Duplo clique para editar" and empties the editor.
    void showEditWidget();
    // Opens the editor over the item.
    void showEdit();
    // Writes the item's picture as PNG: false, and no file, when there is no picture to make.
    bool generateImage(QString path);
    // The picture that generateImage writes; null when there is none to make.
    virtual QImage picture() const = 0;

signals:
    void itemClicked(int id);

public slots:
    void changeText(QString text);
    void hoverLeave();

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

    // Where the editor opens, given the item's top-left corner on the screen.
    virtual QRect editorRect(const QPoint& global) const = 0;
    // What a hover effect starts from.
    virtual QRectF hoverRect() const { return boundingRect(); }
    // True when the item deals with an emptied wording itself, which is then not written to
    // its media.
    virtual bool takeEmptyWording(const QString& text);

    bool isPlaying() const;
    QFont drawingFont(int pixelSize) const;
    // Keeps the open editor one line high over `area`, for the item standing at `itemPos`.
    void placeEditor(const QPointF& itemPos, const QRectF& area);
    HoverEffect& hover() { return hover_; }

private:
    QPointer<document::Scene> scene_;
    QPointer<QWidget> widget_;
    QPointer<TextEdit> textEdit_;
    int alignment_ = Qt::AlignLeft;
    QColor colorFont_;
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
