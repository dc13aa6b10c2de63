#ifndef SELVORA_APP_SHAPEPALETTE_H
#define SELVORA_APP_SHAPEPALETTE_H

#include <QList>
#include <QMenu>

class QAction;

namespace selvora {
namespace menu {

// The palette of shapes: thirteen rows of four buttons, grouped by family. It serves both as a
// sub-menu and, from the tool bar, as a plain window shown at the pointer.
class ShapePalette : public QMenu {
    Q_OBJECT
public:
    // The actions are indexed by kShapeType; they stay with their owner.
    ShapePalette(const QList<QAction*>& shapeActions, QWidget* parent);

    void showAtPointer();
};

} // namespace menu
} // namespace selvora

#endif
