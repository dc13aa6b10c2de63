#include "document/Document.h"

#include "document/Media.h"
#include "document/Region.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "document/Template.h"
#include "spatialview/LayoutItem.h"

#include <algorithm>

namespace selvora {
namespace document {

Document* Document::instance_ = nullptr;

Document* Document::instance() {
    if (!instance_)
        instance_ = new Document();
    return instance_;
}

void Document::registerMetaTypes() {
    Definitions::registerMetaTypes();
    qRegisterMetaType<Scene*>("selvora::document::Scene*");
    qRegisterMetaType<Media*>("selvora::document::Media*");
    qRegisterMetaType<Sync*>("selvora::document::Sync*");
    qRegisterMetaType<Template*>("selvora::document::Template*");
    qRegisterMetaType<Region*>("selvora::document::Region*");
    qRegisterMetaType<QList<Sync*>>("QList<selvora::document::Sync*>");
    qRegisterMetaType<QList<Media*>>("QList<selvora::document::Media*>");
    qRegisterMetaType<QList<Region*>>("QList<selvora::document::Region*>");
}

Document::Document()
    : projectViewWidth_(Definitions::getViewWidth()),
      projectViewHeight_(Definitions::getViewHeight()) {
    registerMetaTypes();
    Scene* scene = createScene(-1);
    currentScene_ = scene->getId();
}

Document::~Document() {
    const QList<Scene*> scenes = scenes_.values();
    scenes_.clear();
    qDeleteAll(scenes);
    const QList<Template*> templates = templates_.values();
    templates_.clear();
    qDeleteAll(templates);
    if (instance_ == this)
        instance_ = nullptr;
}

Media* Document::getMediaBuffer() const {
    return mediaBuffer_.data();
}
Scene* Document::getSceneBuffer() const {
    return sceneBuffer_.data();
}

bool Document::setModified(bool modified) {
    modified_ = modified;
    return true;
}

bool Document::setUrlRepository(const QString& url) {
    if (url.isEmpty())
        return false;
    urlRepository_ = url;
    return true;
}

bool Document::setLastDirectory(const QString& directory) {
    if (directory.isNull())
        return false;
    lastDirectory_ = directory;
    return true;
}

bool Document::setProjectName(const QString& name) {
    if (name.isNull())
        return false;
    projectName_ = name;
    emit projectName(name);
    emit project(projectDirectory_ + "/" + name);
    return true;
}

bool Document::setProjectDirectory(const QString& directory) {
    if (directory.isNull())
        return false;
    projectDirectory_ = directory;
    emit project(directory + "/" + projectName_);
    return true;
}

void Document::setProjectDate(const QString& date) {
    projectDate_.append(date);
}

void Document::setTemplateMode(bool mode) {
    if (templateMode_ != mode)
        templateMode_ = mode;
}

// ---------------------------------------------------------------- factories

Scene* Document::makeScene(int id, const QString& label) {
    auto* scene = new Scene(id, label);
    setSceneConnections(scene);
    return scene;
}

Scene* Document::createScene(int id) {
    Scene* scene = makeScene(id, QString());
    // The first two scenes of a project leave it unmodified.
    if (scenes_.size() > 1)
        setModified(true);
    if (Scene* previous = scenes_.value(scene->getId(), nullptr))
        removeScene(previous->getId());
    scenes_.insert(scene->getId(), scene);
    emit sceneAdded(scene);
    return scene;
}

Scene* Document::loadScene(int id, int order, int currentTime, int totalTime,
                           const QString& label) {
    Scene* scene = makeScene(id, label);
    if (order != -1 && order != -2)
        scene->setOrder(order);
    scene->setCurrentTime(currentTime == -1 ? 0 : currentTime, false);
    scene->setTotalTime(totalTime == -1 ? 0 : totalTime);
    if (Scene* previous = scenes_.value(scene->getId(), nullptr))
        removeScene(previous->getId());
    scenes_.insert(scene->getId(), scene);
    return scene;
}

Media* Document::createMedia(Scene* scene, const QString& pathStart, Definitions::kMediaType type,
                             const QString& geometry, const QString& wording, int id) {
    if (!scene)
        return nullptr;
    auto* media = new Media(pathStart, type, id, QString(), {}, QString());
    media->setGeometry(geometry);
    media->setWording(wording);
    if (!scene->addMedia(media))
        return nullptr; // refused and deleted by the scene
    addPathMedia(pathStart);
    emit mediaAdded(media);
    return media;
}

Media* Document::loadMedia(Scene* scene, const QString& pathStart, Definitions::kMediaType type,
                           int id, const QString& label, const QHash<QString, QString>& properties,
                           const QString& pathProject) {
    if (!scene)
        return nullptr;
    auto* media = new Media(pathStart, type, id, label, properties, pathProject);
    scene->loadMedia(media);
    addPathMedia(pathStart);
    emit mediaAdded(media);
    return media;
}

Sync* Document::makeSync(Scene* scene, int mediaTarget, bool isMedia, Definitions::kSyncType type,
                         int time, const QHash<QString, QString>& properties, int id) {
    auto* sync = new Sync(id, time, type, mediaTarget, isMedia);
    sync->setProperties(properties);
    // History puts a sync back under its old id, replacing the one of the same kind. Only a
    // start, stop or link is held once per target: another set or goto is a different event.
    const bool heldOnce =
        type != Definitions::kSyncType::set && type != Definitions::kSyncType::goTo;
    if (id != -1 && heldOnce && scene->hasSync(type, mediaTarget, isMedia))
        scene->removeSync(type, mediaTarget, isMedia);
    return sync;
}

Sync* Document::enterSync(Scene* scene, Sync* sync) {
    if (scene->addSync(sync))
        return sync;
    delete sync; // merged into an existing sync, or refused
    return nullptr;
}

Sync* Document::createSync(Scene* scene, int mediaTarget, bool isMedia, Definitions::kSyncType type,
                           int time, const QHash<QString, QString>& properties, int id) {
    if (!scene)
        return nullptr;
    return enterSync(scene, makeSync(scene, mediaTarget, isMedia, type, time, properties, id));
}

Sync* Document::createSync(Scene* scene, int mediaTarget, bool isMedia, Definitions::kSyncType type,
                           int time, int id) {
    if (!scene)
        return nullptr;
    Sync* sync = makeSync(scene, mediaTarget, isMedia, type, time, {}, id);
    // The media in the template's regions start and stop with it.
    if (Template* templ = getTemplate(mediaTarget)) {
        for (Region* region : templ->getAllRegions()) {
            const int mediaId = region->getMediaId();
            if (mediaId != -1 && scene->hasMedia(mediaId))
                createSync(scene, mediaId, true, type, time,
                           scene->getMedia(mediaId)->getProperties(), -1);
        }
    }
    return enterSync(scene, sync);
}

Sync* Document::loadSync(Scene* scene, int mediaTarget, bool isMedia, Definitions::kSyncType type,
                         int time, const QHash<QString, QString>& properties, int id) {
    if (!scene)
        return nullptr;
    auto* sync = new Sync(id, time, type, mediaTarget, isMedia);
    sync->setProperties(properties);
    scene->loadSync(sync);
    return sync;
}

Template* Document::createTemplate(Scene* scene, int id) {
    auto* templ = new Template(scene, id);
    templates_.insert(templ->getId(), templ);
    emit templateAdded(templ);
    return templ;
}

Region* Document::createRegion(Template* templ, int id) {
    if (!templ)
        return nullptr;
    auto* region = new Region(id, templ->getId());
    region->setProperties({});
    templ->addRegion(region);
    return region;
}

// ---------------------------------------------------------------- queries

Scene* Document::getScene(int id) {
    if (scenes_.isEmpty())
        return nullptr;
    if (id != -1) {
        if (Scene* scene = scenes_.value(id, nullptr))
            return scene;
    }
    return scenes_.value(currentScene_, nullptr);
}

Scene* Document::getScene(const QString& label) {
    if (label.isNull())
        return getScene(-1);
    QList<int> ids = scenes_.keys();
    std::sort(ids.begin(), ids.end());
    for (int id : ids) {
        if (scenes_.value(id)->getLabel() == label)
            return scenes_.value(id);
    }
    return getScene(-1);
}

Template* Document::getTemplate(int id) const {
    return templates_.value(id, nullptr);
}

QList<Scene*> Document::getSceneAllInOrder() const {
    QList<Scene*> scenes = scenes_.values();
    // Stable, so that equal orders follow the hash; runs after every load, whatever its size.
    std::stable_sort(scenes.begin(), scenes.end(),
                     [](const Scene* a, const Scene* b) { return a->getOrder() < b->getOrder(); });
    return scenes;
}

Scene* Document::sceneByOrder(bool lowest) const {
    Scene* result = nullptr;
    for (Scene* scene : scenes_) {
        if (!result || (lowest ? scene->getOrder() < result->getOrder()
                               : scene->getOrder() > result->getOrder()))
            result = scene;
    }
    return result;
}

Scene* Document::firstSceneOrder() const {
    return sceneByOrder(true);
}
Scene* Document::lastSceneOrder() const {
    return sceneByOrder(false);
}

Scene* Document::backSceneOrder(Scene* scene) const {
    Scene* result = firstSceneOrder();
    if (!scene || result == scene)
        return result;
    for (Scene* other : scenes_) {
        if (other->getOrder() < scene->getOrder() && other->getOrder() > result->getOrder())
            result = other;
    }
    return result;
}

Scene* Document::nextSceneOrder(Scene* scene) const {
    Scene* result = lastSceneOrder();
    if (!scene || result == scene)
        return result;
    for (Scene* other : scenes_) {
        if (other->getOrder() > scene->getOrder() && other->getOrder() < result->getOrder())
            result = other;
    }
    return result;
}

// ---------------------------------------------------------------- changes

bool Document::setCurrentScene(int id, bool notify) {
    Scene* scene = scenes_.value(id, nullptr);
    if (!scene)
        return false;
    currentScene_ = id;
    if (notify) {
        emit sceneCurrent(scene);
        emit sceneCurrentId(id);
    }
    return true;
}

bool Document::setCurrentSceneTime(int id, int time, bool play) {
    Scene* scene = scenes_.value(id, nullptr);
    if (!scene)
        return false;
    currentScene_ = id;
    scene->setCurrentTime(time, false);
    setCurrentScene(id, true);
    scene->resetExecuteSyncs();
    // Entering at second 0 starts the scene as play does, its gotos at 0 included. Entering
    // later enters the span that starts there: the gotos of that second end the span before
    // it (one feedback slot's exit is the next one's entry) and are not followed on arrival.
    if (play && scene->getCurrentTime() > 0)
        scene->resumeScene();
    else if (play)
        scene->playScene();
    return true;
}

bool Document::removeScene(int id) {
    Scene* scene = scenes_.value(id, nullptr);
    if (!scene)
        return false;
    emit sceneRemovedId(id);
    emit sceneRemoved(scene);
    for (Media* media : scene->getAllMedias())
        scene->removeMedia(media->getId());
    for (Sync* sync : scene->getAllSyncs())
        scene->removeSyncObject(sync);
    setSceneDisconnections(scene);
    scenes_.remove(id);
    delete scene;
    return true;
}

bool Document::swapSceneOrder(int id, bool up) {
    Scene* scene = scenes_.value(id, nullptr);
    if (!scene)
        return false;
    Scene* neighbour = up ? backSceneOrder(scene) : nextSceneOrder(scene);
    if (neighbour == scene)
        return false;
    const int sceneOrder = scene->getOrder();
    const int neighbourOrder = neighbour->getOrder();
    neighbour->setOrder(sceneOrder);
    scene->setOrder(neighbourOrder);
    if (up)
        emit sceneSendUp(scene);
    else
        emit sceneSendDown(scene);
    return true;
}

bool Document::sendSceneUp(int id) {
    return swapSceneOrder(id, true);
}

bool Document::sendSceneDown(int id) {
    return swapSceneOrder(id, false);
}

bool Document::addMediaBuffer(Media* media) {
    mediaBuffer_ = media;
    hasMediaBuffer_ = true;
    return true;
}

bool Document::addSceneBuffer(Scene* scene) {
    sceneBuffer_ = scene;
    hasSceneBuffer_ = true;
    return true;
}

void Document::addPathMedia(const QString& path) {
    // The set answers "already listed" at once: a load registers every medium's path.
    if (path.isEmpty() || pathMediaIndex_.contains(path))
        return;
    pathMedia_.append(path);
    pathMediaIndex_.insert(path);
    emit pathAdded(path);
}

void Document::removePathMedia(const QString& path) {
    emit pathRemoved(path);
    if (pathMedia_.removeOne(path))
        pathMediaIndex_.remove(path);
}

void Document::clearDocument() {
    emit clear();
    for (int id : scenes_.keys())
        removeScene(id);
    title_ = QString();
    projectDocumentVersion_ = QString();
    projectSoftwareVersion_ = QString();
    projectLanguage_ = QString();
    projectDate_.clear();
    projectViewWidth_ = Definitions::getViewWidth();
    projectViewHeight_ = Definitions::getViewHeight();
    projectName_ = QString();
    projectDirectory_ = QString();
    lastDirectory_ = QString();
    currentScene_ = -1;
    pathMedia_.clear();
    pathMediaIndex_.clear();
    scenes_ = QHash<int, Scene*>();
    hasMediaBuffer_ = false;
    hasSceneBuffer_ = false;
    setModified(false);
    Scene::resetScene();
    Media::resetMedia();
    Sync::resetSync();
    emit projectName(QString(""));
    emit project(tr("Sem Título.svproj"));
}

void Document::newProject() {
    clearDocument();
    Scene* scene = createScene(0);
    setCurrentScene(scene->getId(), true);
    emit newp();
}

void Document::openProject() {
    emit open();
    const QList<Scene*> ordered = getSceneAllInOrder();
    if (!ordered.isEmpty())
        setCurrentScene(ordered.first()->getId(), true);
    // The state at second 0 is built without following links.
    if (Scene* scene = getScene(-1))
        scene->executeSyncs(0, true, Definitions::kSyncType::goTo);
    setModified(false);
}

void Document::insertTemplateScene(Template* templ, Scene* scene) {
    if (!templ || !scene)
        return;
    scene->addTemplate(templ->getId());
    for (Region* region : templ->getAllRegions()) {
        emit templ->regionAdded(region);
        emit templ->regionCurrent(region);
    }
}

void Document::insertStandardLayouts(Template* templ, Definitions::kLayoutType layoutType) {
    spatialview::LayoutItem layout(this, templ, layoutType);
}

void Document::setSceneConnections(Scene* scene) {
    // Queued: the jump plays the target scene, whose second may jump again; entered from the
    // event loop, a chain of jumps (even a scene that jumps to itself) never grows the stack.
    // A jump whose scene is gone by then is dropped.
    QPointer<Scene> source(scene);
    connect(
        scene, &Scene::documentChangeSceneTime, this,
        [this, source](int id, int time) {
            if (source)
                setCurrentSceneTime(id, time);
        },
        Qt::QueuedConnection);
}

void Document::setSceneDisconnections(Scene* scene) {
    disconnect(scene, &Scene::documentChangeSceneTime, this, nullptr);
}

} // namespace document
} // namespace selvora
