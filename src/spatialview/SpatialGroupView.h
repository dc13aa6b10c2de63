#ifndef SELVORA_SPATIALVIEW_SPATIALGROUPVIEW_H
#define SELVORA_SPATIALVIEW_SPATIALGROUPVIEW_H

#include "app/Definitions.h"

#include <QHash>
#include <QPointer>
#include <QStackedWidget>

namespace selvora {
namespace document {
class Document;
class Media;
class Scene;
class Template;
} // namespace document

namespace spatialview {

class SpatialView;

// The spatial area of the main window: one canvas per scene of the document, stacked, showing
// the canvas of the current scene. It follows the document's scenes and hands the player's
// commands to the canvas on show.
class SpatialGroupView : public QStackedWidget {
    Q_OBJECT
public:
    SpatialGroupView(document::Document* document, QWidget* parent);

    // The canvas of a scene id, or null.
    SpatialView* getView(int sceneId) const { return views_.value(sceneId, nullptr); }
    SpatialView* getCurrentView() const { return currentView_; }

public slots:
    void setTemplate(int id);
    void showTemplate();
    void showComplementWidget();
    void statusPlayer(selvora::Definitions::kPlayerStatus status);

private slots:
    void newSlide(selvora::document::Scene* scene);
    void changeSlide(selvora::document::Scene* scene);
    void removeSlide(int id);
    void generateImage(selvora::document::Scene* scene, selvora::document::Media* media);
    void clear();
    void open();

private:
    // Brings a page to the front. The stack turns pages with updates off, which visits every
    // widget of every page unless a page's own updates are off: pages out of sight keep theirs
    // off, so that a turn costs the two pages it concerns, not the whole project.
    void showPage(QWidget* page);
    void setDocumentConnections();
    void setDocumentDisconnections();
    void setSceneConnections(document::Scene* scene, SpatialView* view);
    void setSceneDisconnections(document::Scene* scene, SpatialView* view);

    document::Document* document_;
    // Guarded: a removed scene or template must not be taken for a later one at its address.
    QPointer<document::Scene> currentScene_;
    QPointer<document::Template> currentTemplate_;
    SpatialView* currentView_ = nullptr;
    QHash<int, SpatialView*> views_;
};

} // namespace spatialview
} // namespace selvora

#endif
