#ifndef SELVORA_LIBRARYVIEW_ROWLIST_H
#define SELVORA_LIBRARYVIEW_ROWLIST_H

#include <QListWidget>
#include <QPoint>

class QMouseEvent;

namespace selvora {
namespace libraryView {

// A list of the library panel whose rows are pressed, dragged out and offered a context menu:
// it keeps where the last press or menu request was.
class RowList : public QListWidget {
public:
    using QListWidget::QListWidget;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    // True once a held button has moved far enough from the press to start a drag. A move with
    // no button held is the list's own hover and goes to it.
    bool dragStarts(QMouseEvent* event);

    QPoint position_;
};

} // namespace libraryView
} // namespace selvora

#endif
