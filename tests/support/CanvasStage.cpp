#include "support/CanvasStage.h"

#include <QApplication>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QtTest>

namespace selvora {
namespace test {

QGraphicsView* CanvasStage::build(QWidget* holder) {
    auto* canvas = new QGraphicsScene(0, 0, 720, 405, holder);
    auto* view = new QGraphicsView(canvas, holder);
    view->setFrameShape(QFrame::NoFrame);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    view->setFixedSize(720, 405);
    holder->resize(720, 405);
    return view;
}

bool CanvasStage::show(QGraphicsView* view) {
    QWidget* holder = view->window();
    holder->show();
    if (!QTest::qWaitForWindowExposed(holder))
        return false;
    QApplication::setActiveWindow(holder);
    view->setFocus();
    return QTest::qWaitFor([view] { return view->scene()->isActive(); });
}

} // namespace test
} // namespace selvora
