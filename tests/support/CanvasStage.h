#ifndef SELVORA_TESTS_CANVASSTAGE_H
#define SELVORA_TESTS_CANVASSTAGE_H

class QGraphicsView;
class QWidget;

namespace selvora {
namespace test {

// The ground of the item tests: a canvas of 720x405 whose pixels are scene units, in a view of
// that size filling a widget of its own, with no canvas panel around it.
class CanvasStage {
public:
    // The view and its canvas, both owned by the holder.
    static QGraphicsView* build(QWidget* holder);
    // Shows the holder as the active window with the view focused; false when it never showed.
    static bool show(QGraphicsView* view);
};

} // namespace test
} // namespace selvora

#endif
