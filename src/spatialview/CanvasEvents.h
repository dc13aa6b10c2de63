#ifndef SELVORA_SPATIALVIEW_CANVASEVENTS_H
#define SELVORA_SPATIALVIEW_CANVASEVENTS_H

#include <QObject>

class QEvent;
class QKeyEvent;

namespace selvora {
namespace document {
class Media;
class Scene;
class Sync;
} // namespace document

namespace spatialview {

class SpatialEvent;
class SpatialResizingMedia;
class SpatialView;

// What the author does on a canvas, turned into the model: the end of a drag or resize and the
// arrow keys while editing become `set` syncs at the current second; the keys and clicks of a
// playing scene fire its links. Kept apart from the view, which only shows the model.
class CanvasEvents : public QObject {
    Q_OBJECT
public:
    explicit CanvasEvents(SpatialView* view);

    // True when the event is the canvas's own; *result is then what the view answers.
    bool dispatch(QEvent* event, bool* result);
    void moveMedia(QKeyEvent* event, int step);
    void updateMediaProperties(SpatialResizingMedia* item);
    void clicked(int id);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool keyRelease(QKeyEvent* event);
    bool keyPress(QKeyEvent* event);
    bool gestureEnded(const SpatialEvent* event);
    bool differs(const SpatialResizingMedia* item, const document::Media* media) const;
    void fireLinks(const QList<document::Sync*>& syncs);
    bool isPlaying() const;

    SpatialView* view_;
};

} // namespace spatialview
} // namespace selvora

#endif
