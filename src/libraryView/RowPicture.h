#ifndef SELVORA_LIBRARYVIEW_ROWPICTURE_H
#define SELVORA_LIBRARYVIEW_ROWPICTURE_H

#include <QHash>
#include <QPixmap>
#include <QPoint>
#include <QString>

class QListWidget;
class QListWidgetItem;
class QMimeData;

namespace selvora {
namespace libraryView {

// What the rows of the three lists share: the framed icon, the preview shown as tool-tip, the
// card that follows the pointer in a drag, the payload a drop on the canvas reads, and the
// settings of the lists themselves.
class RowPicture {
public:
    static constexpr int kIconSize = 48;
    static constexpr int kPreviewSize = 256;

    static void applyListSettings(QListWidget* list);
    // The framed icon of the row from a picture.
    static void decorate(QListWidgetItem* item, const QString& source);
    // The picture at the size of a tool-tip, for the tool-tip and the drag card. Rows make it
    // when it is first asked for, not when they are made: a smooth scaling and a PNG encoding
    // per row would make every change of scene wait for all of them.
    static QPixmap preview(const QString& source);
    // The preview as a rich-text tool-tip.
    static QString toolTip(const QPixmap& preview);
    static QPixmap dragCard(const QListWidget* list, const QPixmap& preview, const QString& text);
    // The payload of a drag towards the canvas; without properties the drop makes a new media.
    static QMimeData* mediaData(const QString& path, int type,
                                const QHash<QString, QString>* properties);
    // Carries the data with the row's card under the pointer; returns when the drop is done.
    static void runDrag(QListWidget* list, const QPixmap& preview, const QString& text,
                        QMimeData* data, Qt::DropActions actions, Qt::DropAction defaultAction);
    static bool isDragStart(const QPoint& pressed, const QPoint& now);
};

} // namespace libraryView
} // namespace selvora

#endif
