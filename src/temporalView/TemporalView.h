#ifndef SELVORA_TEMPORALVIEW_TEMPORALVIEW_H
#define SELVORA_TEMPORALVIEW_TEMPORALVIEW_H

#include "app/Definitions.h"

#include <QList>
#include <QPoint>
#include <QPointer>
#include <QStringList>
#include <QWidget>

#include <functional>

class QAction;
class QGraphicsScene;
class QGraphicsView;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QSlider;

namespace selvora {

class MarkerItem;

namespace document {
class Document;
class Media;
class Scene;
class Sync;
} // namespace document

namespace temporalView {

// The strip under the canvas: the player controls and the times of the current scene, and its
// syncs as markers on a small time bar. It keeps no time of its own: the scene owns the clock,
// this widget mirrors it through signals and sends commands back.
class TemporalView : public QWidget {
    Q_OBJECT
public:
    TemporalView(document::Document* document, QWidget* parent);

    // The markers of every sync of the scene, and of the current media's (or region's) syncs.
    const QList<MarkerItem*>& getSceneMarkers() const { return sceneMarkers_; }
    const QList<MarkerItem*>& getMediaMarkers() const { return mediaMarkers_; }

public slots:
    void activateMarker(int time);
    void changeSlide(selvora::document::Scene* scene);
    void clear();
    void setCurrentTime(int time);
    void setTotalTime(int time = 0);
    void updatePlayerControls(selvora::document::Media* media = nullptr);
    void statePlayer();
    void seekBackwardSync();
    void seekForwardSync();
    void updateTime(int time);
    void sliderPressed(int action);
    void sliderReleased();
    void updateMarker(int id);
    void updateMarkersPositions();
    void updateMediaLabel(QString label);
    void updateSceneLabel(QString label);
    void nullingCurrentMedia();
    void updateTextCurrentTime();
    void updateTextTotalTime();
    void adaptPlayerControl(selvora::Definitions::kPlayerStatus status);
    void deleteMarker();
    void insertMarker(selvora::document::Sync* sync);
    void loadMarkersMedia(selvora::document::Media* media);
    void loadMarkersTemplates(int id);
    void loadMarkersScene(selvora::document::Scene* scene);
    void removeMarker(int id);
    void updateMedia(selvora::document::Media* media);
    void showContextMenu(selvora::MarkerItem* marker);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    // The model's signals carry the sync itself: automatic starts share an id, so only the
    // object tells which marker is meant.
    void removeSyncMarkers(selvora::document::Sync* sync);
    void updateSyncMarkers(selvora::document::Sync* sync);
    void refreshPlayerControls() { updatePlayerControls(nullptr); }
    void resetTotalTime() { setTotalTime(0); }
    void forgetScene(selvora::document::Scene* scene);

private:
    void createContextMenu();
    void createMarkersView();
    void createLayout();
    void setConnections();
    void setDisconnections();
    void setDocumentConnections();
    void setDocumentDisconnections();
    void setSceneConnections();
    void setSceneDisconnections();
    void setMediaConnections();
    void setMediaDisconnections();
    void setMarkerConnections(MarkerItem* marker);
    void disabledLayout();
    void updateSeekButtons();
    // A message box with the wiring cut while it is open; the button pressed.
    int ask(int icon, const QString& title, const QString& text);
    // Removes the syncs after the second from, up to to, and the media they start.
    void dropSyncs(int from, int to);

    MarkerItem* newMarker(document::Sync* sync, int y);
    bool hasMarker(MarkerItem* marker) const;
    bool isLaneTarget(const document::Sync* sync) const;
    bool holds(const MarkerItem* marker) const;
    void retireMarker(MarkerItem* marker);
    // Takes the markers that match off both lanes, or off the media lane only.
    void retireMarkers(const std::function<bool(const MarkerItem*)>& which, bool sceneLane = true);
    void clearMarkers();
    int sceneTotal() const;

    document::Document* document_;
    QPointer<document::Scene> scene_;
    QPointer<document::Media> media_;
    // The media being removed, gone when the scene deletes it.
    QPointer<document::Media> leavingMedia_;
    QWidget* parent_;
    QPushButton* playButton_ = nullptr;
    QPushButton* seekBackwardButton_ = nullptr;
    QPushButton* seekForwardButton_ = nullptr;
    QSlider* slider_ = nullptr;
    QLabel* sceneLabel_ = nullptr;
    QLabel* mediaLabel_ = nullptr;
    QLineEdit* currentTimeEdit_ = nullptr;
    QLineEdit* totalTimeEdit_ = nullptr;
    QPointer<MarkerItem> selectedMarker_;
    QGraphicsView* markersView_ = nullptr;
    QGraphicsScene* markersScene_ = nullptr;
    QMenu* contextMenu_ = nullptr;
    QAction* deleteAction_ = nullptr;
    QList<MarkerItem*> sceneMarkers_;
    QList<MarkerItem*> mediaMarkers_;

    // Whose syncs the media lane shows: a media, or a template region.
    struct LaneTarget {
        int id = -1;
        bool isMedia = true;
        bool set = false;
    } laneTarget_;
    // Where the mouse went down on the slider, for a click in its groove.
    QPoint sliderPress_;
    bool sliderPressed_ = false;
};

} // namespace temporalView
} // namespace selvora

#endif
