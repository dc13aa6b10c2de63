#include "libraryView/RowList.h"

#include "libraryView/RowPicture.h"

#include <QMouseEvent>

namespace selvora {
namespace libraryView {

void RowList::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && count() > 0)
        position_ = event->pos();
    QListWidget::mousePressEvent(event);
}

bool RowList::dragStarts(QMouseEvent* event) {
    if (event->buttons() == Qt::NoButton) {
        QListWidget::mouseMoveEvent(event);
        return false;
    }
    return RowPicture::isDragStart(position_, event->pos());
}

} // namespace libraryView
} // namespace selvora
