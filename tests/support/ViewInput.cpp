#include "support/ViewInput.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QGraphicsView>
#include <QMouseEvent>

namespace selvora {
namespace test {

void ViewInput::send(QGraphicsView* view, int type, const QPointF& scenePos, Qt::MouseButton button,
                     Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers) {
    QWidget* viewport = view->viewport();
    const QPoint local = view->mapFromScene(scenePos);
    QMouseEvent event(QEvent::Type(type), local, viewport->mapToGlobal(local), button, buttons,
                      modifiers);
    QApplication::sendEvent(viewport, &event);
}

void ViewInput::press(QGraphicsView* view, const QPointF& scenePos, Qt::MouseButton button,
                      Qt::KeyboardModifiers modifiers) {
    send(view, QEvent::MouseButtonPress, scenePos, button, button, modifiers);
}

void ViewInput::move(QGraphicsView* view, const QPointF& scenePos, Qt::MouseButtons buttons,
                     Qt::KeyboardModifiers modifiers) {
    send(view, QEvent::MouseMove, scenePos, Qt::NoButton, buttons, modifiers);
}

void ViewInput::release(QGraphicsView* view, const QPointF& scenePos, Qt::MouseButton button,
                        Qt::KeyboardModifiers modifiers) {
    send(view, QEvent::MouseButtonRelease, scenePos, button, Qt::NoButton, modifiers);
}

void ViewInput::click(QGraphicsView* view, const QPointF& scenePos, Qt::MouseButton button,
                      Qt::KeyboardModifiers modifiers) {
    press(view, scenePos, button, modifiers);
    release(view, scenePos, button, modifiers);
}

void ViewInput::doubleClick(QGraphicsView* view, const QPointF& scenePos) {
    // The order the platform delivers: press, release, double-click, release.
    click(view, scenePos);
    send(view, QEvent::MouseButtonDblClick, scenePos, Qt::LeftButton, Qt::LeftButton,
         Qt::NoModifier);
    release(view, scenePos, Qt::LeftButton, Qt::NoModifier);
}

void ViewInput::drag(QGraphicsView* view, const QPointF& from, const QPointF& to,
                     Qt::KeyboardModifiers modifiers) {
    press(view, from, Qt::LeftButton, modifiers);
    const int steps = 5;
    for (int i = 1; i <= steps; ++i)
        move(view, from + (to - from) * i / steps, Qt::LeftButton, modifiers);
    release(view, to, Qt::LeftButton, modifiers);
}

void ViewInput::contextMenu(QGraphicsView* view, const QPointF& scenePos) {
    QWidget* viewport = view->viewport();
    const QPoint local = view->mapFromScene(scenePos);
    QContextMenuEvent event(QContextMenuEvent::Mouse, local, viewport->mapToGlobal(local));
    QApplication::sendEvent(viewport, &event);
}

} // namespace test
} // namespace selvora
