#ifndef SELVORA_TESTS_CANVASTEST_H
#define SELVORA_TESTS_CANVASTEST_H

#include "support/WindowBench.h"

#include <QObject>
#include <QRectF>
#include <QTemporaryDir>

#include <memory>

class QGraphicsView;
class QMimeData;

namespace selvora {
namespace document {
class Media;
class Region;
class Scene;
} // namespace document
namespace spatialview {
class SpatialGroupView;
class SpatialResizingMedia;
class SpatialView;
} // namespace spatialview

namespace test {

// The ground of the tests that work on the canvas of the real window: the window, a fresh project
// and a folder of its own for each test function, and the measures the checks compare.
class CanvasTest : public QObject {
protected:
    // From initTestCase: false when the window has no canvas group.
    bool openBench();
    // From init: false when the canvas does not show the new project's scene.
    bool newProject();

    spatialview::SpatialView* canvas() const;
    document::Scene* scene() const;
    spatialview::SpatialResizingMedia* itemOf(const document::Media* media) const;
    // Moves the scene's clock as the timeline does, the syncs to be played again from there.
    void seek(int second);

    // Where the model puts them on the canvas, in pixels.
    static QRectF pixels(const document::Media* media);
    static QRectF pixels(const document::Region* region);
    // Percent strings round the pixels: a picture and its model agree within one pixel.
    static bool near(const QRectF& a, const QRectF& b);
    // What the file manager does: enter, move and drop at a point of the view.
    static void dropAt(QGraphicsView* view, QMimeData* data, const QPoint& at);

    std::unique_ptr<WindowBench> bench;
    std::unique_ptr<QTemporaryDir> files;
    document::Document* doc = nullptr;
    spatialview::SpatialGroupView* group = nullptr;
};

} // namespace test
} // namespace selvora

#endif
