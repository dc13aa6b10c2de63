#ifndef SELVORA_APP_SHAPEPALETTE_H
#define SELVORA_APP_SHAPEPALETTE_H

#include <QList>
#include <QMenu>

class QAction;

namespace selvora {
namespace menu {

// The palette of shapes, grouped by family: thirteen rows of four buttons to insert a shape (a
// sub-menu and, from the tool bar, a plain window shown at the pointer), or seven rows of eight
// to change the shape of one on the canvas.
class ShapePalette : public QMenu {
    Q_OBJECT
public:
    enum class Rows { insert, change };

    // The actions are indexed by kShapeType; they stay with their owner.
    ShapePalette(const QList<QAction*>& shapeActions, QWidget* parent, Rows rows = Rows::insert);

    void showAtPointer();
    // A plain show at a global point, kept whole on its screen.
    void showAt(const QPoint& global);
};

} // namespace menu
} // namespace selvora

#endif
