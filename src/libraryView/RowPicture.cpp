#include "libraryView/RowPicture.h"

#include "app/Definitions.h"

#include <QApplication>
#include <QBuffer>
#include <QDateTime>
#include <QDrag>
#include <QFileInfo>
#include <QListWidget>
#include <QMimeData>
#include <QPainter>
#include <QPixmapCache>
#include <QTextOption>
#include <QUrl>
#include <QVariantHash>

namespace selvora {
namespace libraryView {

void RowPicture::applyListSettings(QListWidget* list) {
    list->setViewMode(QListView::ListMode);
    list->setIconSize(QSize(int(Definitions::getSlideListItemWidth()),
                            int(Definitions::getSlideListItemHeight())));
    list->setMovement(QListView::Static);
    list->setSpacing(0);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setCurrentRow(-1);
    list->setAcceptDrops(true);
    list->setDragDropMode(QAbstractItemView::InternalMove);
}

namespace {
// Only a regular file is read: a pipe or a device named like a picture could block for ever.
QPixmap readPicture(const QString& source) {
    return QFileInfo(source).isFile() ? QPixmap(source) : QPixmap();
}
} // namespace

void RowPicture::decorate(QListWidgetItem* item, const QString& source) {
    // Rows of one picture share one icon: a scene of many shapes of a kind, a scene seen again.
    const QFileInfo info(source);
    const QString key = QStringLiteral("selvora-row:%1:%2:%3")
                            .arg(source)
                            .arg(info.lastModified().toMSecsSinceEpoch())
                            .arg(info.size());
    QPixmap icon;
    if (!QPixmapCache::find(key, &icon)) {
        const QPixmap picture = readPicture(source);
        icon = QPixmap(kIconSize, kIconSize);
        {
            QPainter painter(&icon);
            painter.fillRect(QRect(0, 0, kIconSize - 1, kIconSize - 1), Qt::white);
            painter.drawRect(QRect(0, 0, kIconSize - 2, kIconSize - 2));
            if (!picture.isNull())
                painter.drawPixmap(QRect(QPoint(1, 1), QPoint(kIconSize - 2, kIconSize - 2)),
                                   picture);
        }
        icon = icon.scaled(kIconSize, kIconSize);
        QPixmapCache::insert(key, icon);
    }
    item->setData(Qt::DecorationRole, icon);
    item->setIcon(QIcon(icon));
}

QPixmap RowPicture::preview(const QString& source) {
    // A file that cannot be read keeps its row, with an empty preview.
    const QPixmap picture = readPicture(source);
    if (picture.isNull())
        return QPixmap();
    return picture.height() <= picture.width()
               ? picture.scaledToWidth(kPreviewSize, Qt::SmoothTransformation)
               : picture.scaledToHeight(kPreviewSize, Qt::SmoothTransformation);
}

QString RowPicture::toolTip(const QPixmap& preview) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    preview.save(&buffer, "PNG");
    return QStringLiteral("<img style=\"background-color: #ffffff;\" "
                          "src=\"data:image/png;base64,") +
           QString::fromLatin1(bytes.toBase64()) + QStringLiteral("\"/>");
}

QPixmap RowPicture::dragCard(const QListWidget* list, const QPixmap& preview, const QString& text) {
    const int pw = preview.width();
    const int ph = preview.height();
    const int width = list->width();
    QPixmap card(width + 2, ph + 4);
    card.fill(Qt::transparent);
    QPainter painter(&card);
    painter.fillRect(QRect(0, 0, width, ph + 2), QColor(255, 255, 255, 220));
    painter.setOpacity(0.8);
    QTextOption option;
    option.setWrapMode(QTextOption::WordWrap);
    painter.drawText(QRectF(pw + 10, ph / 2.0 - 10, qMax(0, width - pw - 10), 20), text, option);
    if (!preview.isNull())
        painter.drawPixmap(QRect(2, 2, pw, ph), preview);
    painter.setPen(QPen(QColor(0, 0, 0, 220), 1, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter.drawRect(QRect(0, 0, width, ph + 2));
    return card;
}

QMimeData* RowPicture::mediaData(const QString& path, int type,
                                 const QHash<QString, QString>* properties) {
    auto* data = new QMimeData;
    // "file:///" and the path; the path's own root slash is the third one.
    data->setUrls({QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath())});
    data->setProperty("type", type);
    if (properties) {
        QVariantHash stored;
        for (auto it = properties->constBegin(); it != properties->constEnd(); ++it)
            stored.insert(it.key(), it.value());
        data->setProperty("properties", stored);
    }
    return data;
}

void RowPicture::runDrag(QListWidget* list, const QPixmap& preview, const QString& text,
                         QMimeData* data, Qt::DropActions actions, Qt::DropAction defaultAction) {
    auto* drag = new QDrag(list);
    drag->setPixmap(dragCard(list, preview, text));
    drag->setMimeData(data);
    drag->exec(actions, defaultAction);
}

bool RowPicture::isDragStart(const QPoint& pressed, const QPoint& now) {
    return (now - pressed).manhattanLength() >= QApplication::startDragDistance();
}

} // namespace libraryView
} // namespace selvora
