#ifndef SELVORA_TESTS_VIEWINPUT_H
#define SELVORA_TESTS_VIEWINPUT_H

#include <QPointF>
#include <Qt>

class QGraphicsView;

namespace selvora {
namespace test {

// The mouse on a canvas, at scene coordinates. Events go straight to the view's viewport with
// the buttons held, so a drag does not depend on the pointer of the display.
class ViewInput {
public:
    static void press(QGraphicsView* view, const QPointF& scenePos,
                      Qt::MouseButton button = Qt::LeftButton,
                      Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    // Moves with the buttons given held down (none: a hover).
    static void move(QGraphicsView* view, const QPointF& scenePos,
                     Qt::MouseButtons buttons = Qt::LeftButton,
                     Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    static void release(QGraphicsView* view, const QPointF& scenePos,
                        Qt::MouseButton button = Qt::LeftButton,
                        Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    static void click(QGraphicsView* view, const QPointF& scenePos,
                      Qt::MouseButton button = Qt::LeftButton,
                      Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    static void doubleClick(QGraphicsView* view, const QPointF& scenePos);
    // Press, a few moves on the way, release: what a hand does.
    static void drag(QGraphicsView* view, const QPointF& from, const QPointF& to,
                     Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    // A right-button context menu request at that point, as the mouse sends it.
    static void contextMenu(QGraphicsView* view, const QPointF& scenePos);

private:
    static void send(QGraphicsView* view, int type, const QPointF& scenePos, Qt::MouseButton button,
                     Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers);
};

} // namespace test
} // namespace selvora

#endif
