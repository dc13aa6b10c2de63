#include "support/CanvasTest.h"

#include "document/Document.h"
#include "document/Media.h"
#include "document/Region.h"
#include "document/Scene.h"
#include "spatialview/SpatialGroupView.h"
#include "spatialview/SpatialResizingMedia.h"
#include "spatialview/SpatialView.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QGraphicsView>

namespace selvora {
namespace test {

bool CanvasTest::openBench() {
    bench.reset(new WindowBench());
    doc = bench->document();
    group = bench->panel<spatialview::SpatialGroupView>();
    return group != nullptr;
}

bool CanvasTest::newProject() {
    files.reset(new QTemporaryDir());
    doc->newProject();
    return canvas() && canvas()->getScene() == scene();
}

spatialview::SpatialView* CanvasTest::canvas() const {
    return bench->canvas();
}

document::Scene* CanvasTest::scene() const {
    return doc->getScene(-1);
}

spatialview::SpatialResizingMedia* CanvasTest::itemOf(const document::Media* media) const {
    return canvas()->getItem(spatialview::SpatialView::mediaKey(media->getId()));
}

void CanvasTest::seek(int second) {
    scene()->setCurrentTime(second, false);
    scene()->resetExecuteSyncs();
}

QRectF CanvasTest::pixels(const document::Media* media) {
    const double w = Definitions::getViewWidth();
    const double h = Definitions::getViewHeight();
    return QRectF(media->getLeftPx(w), media->getTopPx(h), media->getWidthPx(w),
                  media->getHeightPx(h));
}

QRectF CanvasTest::pixels(const document::Region* region) {
    const double w = Definitions::getViewWidth();
    const double h = Definitions::getViewHeight();
    return QRectF(region->getLeftPx(w), region->getTopPx(h), region->getWidthPx(w),
                  region->getHeightPx(h));
}

bool CanvasTest::near(const QRectF& a, const QRectF& b) {
    return qAbs(a.x() - b.x()) <= 1 && qAbs(a.y() - b.y()) <= 1 &&
           qAbs(a.width() - b.width()) <= 1 && qAbs(a.height() - b.height()) <= 1;
}

void CanvasTest::dropAt(QGraphicsView* view, QMimeData* data, const QPoint& at) {
    QDragEnterEvent enter(at, Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view->viewport(), &enter);
    QDragMoveEvent move(at, Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view->viewport(), &move);
    QDropEvent dropped(at, Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view->viewport(), &dropped);
}

} // namespace test
} // namespace selvora
