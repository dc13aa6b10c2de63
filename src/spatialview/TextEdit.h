#ifndef SELVORA_SPATIALVIEW_TEXTEDIT_H
#define SELVORA_SPATIALVIEW_TEXTEDIT_H

#include <QDialog>
#include <QFont>
#include <QPoint>
#include <QRectF>
#include <QString>

class QGraphicsItem;
class QTextDocument;
class QTextEdit;

namespace selvora {
namespace spatialview {

// The editor of the wording of a text or shape item: a frameless, transparent box laid exactly
// over the item, so that the author seems to type on the canvas. It is a child of the widget
// that holds the canvas, so it stands over the canvas and moves with it without a window of its
// own. Rectangles are given in global coordinates.
class TextEdit : public QDialog {
    Q_OBJECT
public:
    TextEdit(QString text, QString colorFont, QString fontFamily, QString fontSize,
             QWidget* parent = nullptr);

    // Opens the editor over `rect`; `itemPos` is the item's position on the canvas, which
    // bounds the growth at the canvas bottom.
    void showEditWidget(QRect rect, QPoint itemPos, Qt::Alignment alignment);
    bool isOpened() const { return opened_; }
    QString getText() const;
    bool getTextBoxFocus() const;
    // The height that the wording needs, in pixels.
    int getTextDocument();
    QTextEdit* textBox() const { return textBox_; }
    // Moves the editor to a rectangle in global coordinates.
    void setGlobalGeometry(const QRect& rect);
    // Where a canvas item standing at `itemPos` has its top-left corner on the screen: through
    // the first view of its scene, else through `widget` taken as the canvas.
    static QPoint globalPos(const QGraphicsItem* item, const QPointF& itemPos, QWidget* widget);

    void setFontFamily(const QString& fontFamily);
    void setFontType(const QString& value);
    void setFontSize(const QString& text);
    void setText(const QString& text);
    void setColorFont(const QString& name);

signals:
    void geometryChanged(int height);
    void textChanged(QString text);

public slots:
    void closeWidget();
    void updateGeometry();
    // Escape ends the edit as a click elsewhere does, keeping the text.
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setConnections();
    QPoint toLocal(const QPoint& global) const;

    bool opened_ = false;
    bool shown_ = false;
    int fontSize_;
    QRectF editRect_;
    QPoint itemPos_;
    QFont font_;
    QTextEdit* textBox_;
    QTextDocument* document_;
};

} // namespace spatialview
} // namespace selvora

#endif
