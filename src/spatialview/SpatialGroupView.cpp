#include "spatialview/SpatialGroupView.h"

#include "document/Document.h"
#include "document/Media.h"
#include "document/Region.h"
#include "document/Scene.h"
#include "document/Template.h"
#include "spatialview/SpatialView.h"
#include "wizards/Quiz.h"
#include "wizards/QuizView.h"

#include <QApplication>
#include <QGraphicsView>

namespace selvora {
namespace spatialview {

using document::Document;
using document::Media;
using document::Scene;

SpatialGroupView::SpatialGroupView(Document* document, QWidget* parent)
    : QStackedWidget(parent), document_(document) {
    if (document_->getCountScenes() > 0) {
        open();
    } else {
        // A document without scenes still shows an empty canvas.
        currentView_ = new SpatialView(document_, nullptr, this);
        addWidget(currentView_);
    }
    setGeometry(0, 0, Definitions::getViewWidth(), Definitions::getViewHeight());
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setDocumentConnections();
}

void SpatialGroupView::setDocumentConnections() {
    connect(document_, &Document::sceneAdded, this, &SpatialGroupView::newSlide,
            Qt::UniqueConnection);
    connect(document_, &Document::sceneCurrent, this, &SpatialGroupView::changeSlide,
            Qt::UniqueConnection);
    connect(document_, &Document::sceneRemovedId, this, &SpatialGroupView::removeSlide,
            Qt::UniqueConnection);
    connect(document_, &Document::generateImage, this, &SpatialGroupView::generateImage,
            Qt::UniqueConnection);
    connect(document_, &Document::clear, this, &SpatialGroupView::clear, Qt::UniqueConnection);
    connect(document_, &Document::open, this, &SpatialGroupView::open, Qt::UniqueConnection);
    connect(document_, &Document::openComplement, this, &SpatialGroupView::showComplementWidget,
            Qt::UniqueConnection);
    connect(document_, &Document::newTemplate, this, &SpatialGroupView::showTemplate,
            Qt::UniqueConnection);
}

void SpatialGroupView::setDocumentDisconnections() {
    disconnect(document_, &Document::sceneAdded, this, &SpatialGroupView::newSlide);
    disconnect(document_, &Document::sceneCurrent, this, &SpatialGroupView::changeSlide);
    disconnect(document_, &Document::sceneRemovedId, this, &SpatialGroupView::removeSlide);
    disconnect(document_, &Document::generateImage, this, &SpatialGroupView::generateImage);
    disconnect(document_, &Document::clear, this, &SpatialGroupView::clear);
    disconnect(document_, &Document::open, this, &SpatialGroupView::open);
    disconnect(document_, &Document::openComplement, this, &SpatialGroupView::showComplementWidget);
    disconnect(document_, &Document::newTemplate, this, &SpatialGroupView::showTemplate);
}

void SpatialGroupView::setSceneConnections(Scene* scene, SpatialView* view) {
    const auto unique = Qt::UniqueConnection;
    connect(scene, &Scene::playerStatus, this, &SpatialGroupView::statusPlayer, unique);
    connect(scene, &Scene::mediaAdded, view, &SpatialView::addSpatialResizingMedia, unique);
    connect(scene, &Scene::mediaCurrent, view, &SpatialView::setCurrentMedia, unique);
    connect(scene, &Scene::mediaRemovedId, view, &SpatialView::removeSpatialResizingMedia, unique);
    connect(scene, &Scene::mediaNull, view, &SpatialView::nullingCurrentMedia, unique);
    connect(scene, &Scene::currentTime, view, &SpatialView::updateCurrentTimePlayer, unique);
    connect(scene, &Scene::playerStatus, view, &SpatialView::setStatusPlayer, unique);
    connect(scene, &Scene::updateLayers, view, &SpatialView::updateSpatialResizingMedias, unique);
    connect(scene, &Scene::mediaSyncType, view,
            QOverload<Media*, Definitions::kSyncType>::of(
                &SpatialView::updateSpatialResizingMediaProperties),
            unique);
    connect(scene, &Scene::templateSyncType, view, &SpatialView::updateTemplateProperties, unique);
    connect(scene, &Scene::templateChanged, this, &SpatialGroupView::setTemplate, unique);
    connect(scene, &Scene::templateChanged, view, &SpatialView::drawTemplateBorders, unique);
    connect(scene, &Scene::templateRemovedId, view, &SpatialView::removeTemplate, unique);
}

// Undoes the first ten rows; the scene is going away. The media row is undone under the slot
// name it never reached, so the current media stays wired: harmless with the scene leaving.
void SpatialGroupView::setSceneDisconnections(Scene* scene, SpatialView* view) {
    disconnect(scene, &Scene::playerStatus, this, &SpatialGroupView::statusPlayer);
    disconnect(scene, &Scene::mediaAdded, view, &SpatialView::addSpatialResizingMedia);
    disconnect(scene, &Scene::mediaCurrent, view, &SpatialView::nullingCurrentMedia);
    disconnect(scene, &Scene::mediaRemovedId, view, &SpatialView::removeSpatialResizingMedia);
    disconnect(scene, &Scene::mediaNull, view, &SpatialView::nullingCurrentMedia);
    disconnect(scene, &Scene::currentTime, view, &SpatialView::updateCurrentTimePlayer);
    disconnect(scene, &Scene::playerStatus, view, &SpatialView::setStatusPlayer);
    disconnect(scene, &Scene::updateLayers, view, &SpatialView::updateSpatialResizingMedias);
    disconnect(scene, &Scene::mediaSyncType, view,
               QOverload<Media*, Definitions::kSyncType>::of(
                   &SpatialView::updateSpatialResizingMediaProperties));
    disconnect(scene, &Scene::templateSyncType, view, &SpatialView::updateTemplateProperties);
}

void SpatialGroupView::newSlide(Scene* scene) {
    if (!scene)
        return;
    auto* view = new SpatialView(document_, scene, this);
    views_.insert(scene->getId(), view);
    addWidget(view);
    if (currentWidget() != view)
        view->setUpdatesEnabled(false);
    setSceneConnections(scene, view);
    // The page is shown when the scene becomes current.
}

void SpatialGroupView::changeSlide(Scene* scene) {
    if (!scene || scene == currentScene_)
        return;
    currentScene_ = scene;
    currentTemplate_ = document_->getTemplate(scene->getTemplate(-1));
    currentView_ = views_.value(scene->getId(), nullptr);
    if (!currentView_)
        return;
    // The keys of a scene belong to its canvas: focus on the leaving page goes to the coming
    // one, not on to the next widget of the window, where a scene's label would take it and
    // make its own scene current in the middle of a jump.
    QWidget* focus = QApplication::focusWidget();
    const bool focusOnPage = focus && currentWidget() && currentWidget()->isAncestorOf(focus);
    if (focusOnPage)
        focus->clearFocus();
    showPage(currentView_);
    if (focusOnPage)
        currentView_->getGraphicsView()->setFocus(Qt::OtherFocusReason);
    // The player stands right on arrival.
    currentView_->updateCurrentTimePlayer(scene->getCurrentTime());
}

void SpatialGroupView::showPage(QWidget* page) {
    if (!page)
        return;
    QWidget* previous = currentWidget();
    // Also when the stack put it in front by itself, as it does when the front page leaves.
    page->setUpdatesEnabled(true);
    if (page == previous)
        return;
    setCurrentWidget(page);
    if (previous)
        previous->setUpdatesEnabled(false);
}

// A scene without media keeps its page and its connections until the scene itself is gone.
void SpatialGroupView::removeSlide(int id) {
    if (!currentScene_ || !document_->getSceneAll().contains(id))
        return;
    Scene* scene = document_->getScene(id);
    SpatialView* view = views_.value(id, nullptr);
    if (!view)
        return;
    const QList<Media*> medias = scene->getAllMedias();
    for (Media* media : medias)
        view->removeSpatialResizingMedia(media->getId());
    if (!medias.isEmpty()) {
        setSceneDisconnections(scene, view);
        removeWidget(view);
    }
}

// Before a project is closed: every canvas leaves the stack, and none hears the model again.
void SpatialGroupView::clear() {
    const QList<Scene*> scenes = document_->getSceneAll().values();
    if (currentScene_) {
        for (Scene* scene : scenes) {
            SpatialView* view = views_.value(scene->getId(), nullptr);
            if (!view)
                continue;
            setSceneDisconnections(scene, view);
            const QList<Media*> medias = scene->getAllMedias();
            for (Media* media : medias)
                view->removeSpatialResizingMedia(media->getId());
            removeWidget(view);
        }
    }
    const QHash<int, document::Template*> templates = document_->getTemplateAll();
    while (count() > 0) {
        QWidget* page = widget(0);
        removeWidget(page);
        for (Scene* scene : scenes)
            disconnect(scene, nullptr, page, nullptr);
        for (document::Template* templ : templates)
            disconnect(templ, nullptr, page, nullptr);
        page->deleteLater();
    }
    currentView_ = nullptr;
    views_.clear();
    currentScene_ = nullptr;
}

void SpatialGroupView::open() {
    const QList<Scene*> scenes = document_->getSceneAllInOrder();
    for (Scene* scene : scenes) {
        currentScene_ = scene;
        auto* view = new SpatialView(document_, scene, this);
        currentView_ = view;
        view->load();
        views_.insert(scene->getId(), view);
        addWidget(view);
        if (currentWidget() != view)
            view->setUpdatesEnabled(false);
        showPage(view);
        setSceneConnections(scene, view);
    }
}

void SpatialGroupView::generateImage(Scene* scene, Media* media) {
    if (!scene)
        return;
    if (SpatialView* view = views_.value(scene->getId(), nullptr))
        view->generateImage(media);
}

// The player's command reaches the canvas on show; the canvas also hears it directly, and the
// commands are idempotent.
void SpatialGroupView::statusPlayer(Definitions::kPlayerStatus status) {
    if (!currentView_)
        return;
    switch (status) {
    case Definitions::kPlayerStatus::play:
        currentView_->playScene();
        break;
    case Definitions::kPlayerStatus::pause:
        currentView_->pauseScene();
        break;
    case Definitions::kPlayerStatus::stop:
        currentView_->stopScene();
        break;
    }
    currentView_->updatePlayerScene(status);
}

void SpatialGroupView::setTemplate(int id) {
    currentTemplate_ = document_->getTemplate(id);
    // The regions go to the canvas of the scene that took the template, shown or not.
    SpatialView* view = currentView_;
    if (auto* scene = qobject_cast<Scene*>(sender()))
        view = views_.value(scene->getId(), view);
    if (!currentTemplate_ || !view)
        return;
    // Unique, so that a template changed twice does not announce its regions twice.
    const auto unique = Qt::UniqueConnection;
    connect(currentTemplate_, &document::Template::regionAdded, view,
            &SpatialView::addSpatialResizingRegion, unique);
    connect(currentTemplate_, &document::Template::regionCurrent, view,
            &SpatialView::setCurrentRegion, unique);
    connect(currentTemplate_, &document::Template::regionRemovedId, view,
            &SpatialView::removeSpatialResizingRegion, unique);
    connect(currentTemplate_, &document::Template::regionVisible, view,
            &SpatialView::showSpatialResizingRegion, unique);
}

// The quiz takes the current scene when it is empty, and a new one otherwise.
void SpatialGroupView::showTemplate() {
    Scene* scene = document_->getScene(-1);
    if (!scene || scene->countMedia() > 0)
        scene = document_->createScene(-1);
    new wizards::Quiz(document_, scene, this);
}

void SpatialGroupView::showComplementWidget() {
    Scene* scene = document_->createScene(-1);
    document_->setCurrentScene(scene->getId(), true);
    auto* view = new wizards::QuizView(document_, this);
    view->setWindowFlags(Qt::Window);
    view->setAttribute(Qt::WA_DeleteOnClose);
    view->show();
}

} // namespace spatialview
} // namespace selvora
