#ifndef SELVORA_SPATIALVIEW_SHAPECHOICEMENU_H
#define SELVORA_SPATIALVIEW_SHAPECHOICEMENU_H

#include <QMenu>

#include <functional>

namespace selvora {
namespace spatialview {

// The 52 shapes in seven rows of buttons, grouped by family, for choosing the shape of a new or
// changed shape media on the canvas. A click closes the menu and hands the shape's value on.
class ShapeChoiceMenu : public QMenu {
    Q_OBJECT
public:
    ShapeChoiceMenu(const std::function<void(int)>& chosen, QWidget* parent);

    // Opens at the point with an empty size, as a palette and not as a running menu.
    void showAt(const QPoint& globalPos);
};

} // namespace spatialview
} // namespace selvora

#endif
