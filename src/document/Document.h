#ifndef SELVORA_DOCUMENT_DOCUMENT_H
#define SELVORA_DOCUMENT_DOCUMENT_H

#include "app/Definitions.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QString>
#include <QStringList>

namespace selvora {
namespace document {

class Media;
class Region;
class Scene;
class Sync;
class Template;

// The root of the model: the project's metadata, its scenes and templates and the registry of
// media paths. It is also the factory of every model object, so that ids are given out in one
// place, and the bus on which commands travel: the menu tells the document, the document emits,
// and the controller, the history or a panel acts.
class Document : public QObject {
    Q_OBJECT
public:
    static Document* instance_;
    // The one document of the run, created on first use.
    static Document* instance();
    // The model's types in queued connections and signal spies.
    static void registerMetaTypes();

    ~Document() override;

    // --- commands: each only emits its signal ---
    void undoAction() { emit undo(); }
    void redoAction() { emit redo(); }
    // The changes made between an open and its close undo and redo as one step. Groups may
    // nest (only the outermost counts) and may stay empty. HistoryGroup pairs the two calls.
    void openHistoryGroup() { emit historyGroupOpened(); }
    void closeHistoryGroup() { emit historyGroupClosed(); }
    void saveProject() { emit save(); }
    void saveProjectAs() { emit saveAs(); }
    void publishProject() { emit publish(); }
    void exportProject(Definitions::kTypeExport type) { emit exportt(type); }
    void closeProject() { emit close(); }
    void showProject() { emit show(); }
    void showPreview() { emit preview(); }
    void loadProject(const QString& path) { emit load(path); }
    void generateImageProject(Scene* scene, Media* media) { emit generateImage(scene, media); }
    void insertComplement() { emit openComplement(); }
    void insertTemplate() { emit newTemplate(); }
    void insertLayout(Definitions::kLayoutType type) { emit openLayout(type); }
    void updateRecentFiles() { emit recentFilesUpdate(); }
    void updadeSceneOrder() { emit sceneUpdateOrder(); }

    // --- accessors ---
    QString getTitle() const { return title_; }
    QString getProjectDocumentVersion() const { return projectDocumentVersion_; }
    QString getProjectSoftwareVersion() const { return projectSoftwareVersion_; }
    QString getProjectLanguage() const { return projectLanguage_; }
    QStringList getProjectDate() const { return projectDate_; }
    int getProjectViewWidth() const { return projectViewWidth_; }
    int getProjectViewHeight() const { return projectViewHeight_; }
    QString getProjectName() const { return projectName_; }
    QString getProjectDirectory() const { return projectDirectory_; }
    QString getUrlRepository() const { return urlRepository_; }
    QString getLastDirectory() const { return lastDirectory_; }
    bool isModified() const { return modified_; }
    bool isTemplateMode() const { return templateMode_; }
    bool getTemplateMode() const { return templateMode_; }
    // The clipboards hold pointers to live objects only: a removed object leaves them empty.
    Media* getMediaBuffer() const;
    bool hasMediaBuffer() const { return hasMediaBuffer_ && getMediaBuffer(); }
    Scene* getSceneBuffer() const;
    bool hasSceneBuffer() const { return hasSceneBuffer_ && getSceneBuffer(); }
    QStringList getPathMedia() const { return pathMedia_; }
    int getCountScenes() const { return scenes_.size(); }
    int getCountTemplates() const { return templates_.size(); }
    const QHash<int, Scene*>& getSceneAll() const { return scenes_; }
    QHash<int, Template*> getTemplateAll() const { return templates_; }

    void setTitle(const QString& title) { title_ = title; }
    void setProjectDocumentVersion(const QString& v) { projectDocumentVersion_ = v; }
    void setProjectSoftwareVersion(const QString& v) { projectSoftwareVersion_ = v; }
    void setProjectLanguage(const QString& v) { projectLanguage_ = v; }
    void setProjectViewWidth(int width) { projectViewWidth_ = width; }
    void setProjectViewHeight(int height) { projectViewHeight_ = height; }
    bool setModified(bool modified);
    bool setUrlRepository(const QString& url);
    bool setLastDirectory(const QString& directory);
    bool setProjectName(const QString& name);
    bool setProjectDirectory(const QString& directory);
    void setProjectDate(const QString& date);
    void setTemplateMode(bool mode);

    // --- factories ---
    Scene* createScene(int id = -1);
    Scene* loadScene(int id, int order, int currentTime, int totalTime, const QString& label);
    // Null when the scene refuses the media (a second main video).
    Media* createMedia(Scene* scene, const QString& pathStart, Definitions::kMediaType type,
                       const QString& geometry, const QString& wording, int id = -1);
    Media* loadMedia(Scene* scene, const QString& pathStart, Definitions::kMediaType type, int id,
                     const QString& label, const QHash<QString, QString>& properties,
                     const QString& pathProject);
    // Null when the scene did not keep the object (merged into an existing sync, or refused).
    Sync* createSync(Scene* scene, int mediaTarget, bool isMedia, Definitions::kSyncType type,
                     int time, const QHash<QString, QString>& properties, int id = -1);
    Sync* createSync(Scene* scene, int mediaTarget, bool isMedia, Definitions::kSyncType type,
                     int time, int id = -1);
    Sync* loadSync(Scene* scene, int mediaTarget, bool isMedia, Definitions::kSyncType type,
                   int time, const QHash<QString, QString>& properties, int id = -1);
    Template* createTemplate(Scene* scene, int id = -1);
    Region* createRegion(Template* templ, int id = -1);

    // --- queries ---
    Scene* getScene(int id);
    Scene* getScene(const QString& label);
    Template* getTemplate(int id) const;
    QList<Scene*> getSceneAllInOrder() const;
    Scene* firstSceneOrder() const;
    Scene* lastSceneOrder() const;
    Scene* backSceneOrder(Scene* scene) const;
    Scene* nextSceneOrder(Scene* scene) const;

    // --- changes ---
    bool setCurrentScene(int id, bool notify);
    bool removeScene(int id);
    bool sendSceneUp(int id);
    bool sendSceneDown(int id);
    bool addMediaBuffer(Media* media);
    bool addSceneBuffer(Scene* scene);
    void addPathMedia(const QString& path);
    void removePathMedia(const QString& path);
    void clearDocument();
    void newProject();
    void openProject();
    void insertTemplateScene(Template* templ, Scene* scene);
    void insertStandardLayouts(Template* templ, Definitions::kLayoutType layoutType);
    void setSceneConnections(Scene* scene);
    void setSceneDisconnections(Scene* scene);

public slots:
    // The jump between scenes of a goto.
    bool setCurrentSceneTime(int id, int time = 0, bool play = true);

signals:
    void undo();
    void redo();
    void historyGroupOpened();
    void historyGroupClosed();
    void save();
    void saveAs();
    void publish();
    void exportt(selvora::Definitions::kTypeExport type);
    void close();
    void show();
    void preview();
    void load(QString path);
    void generateImage(selvora::document::Scene* scene, selvora::document::Media* media);
    void openComplement();
    void newTemplate();
    void openLayout(selvora::Definitions::kLayoutType type);
    void recentFilesUpdate();
    void sceneUpdateOrder();

    void project(QString title);
    void projectName(QString name);
    void sceneAdded(selvora::document::Scene* scene);
    void templateAdded(selvora::document::Template* templ);
    void sceneRemovedId(int id);
    void sceneRemoved(selvora::document::Scene* scene);
    void sceneCurrent(selvora::document::Scene* scene);
    void sceneCurrentId(int id);
    void sceneSendUp(selvora::document::Scene* scene);
    void sceneSendDown(selvora::document::Scene* scene);
    void mediaAdded(selvora::document::Media* media);
    void pathAdded(QString path);
    void pathRemoved(QString path);
    void clear();
    void newp();
    void open();
    void playerStatus(selvora::Definitions::kPlayerStatus status);
    void remove();

private:
    Document();
    Scene* makeScene(int id, const QString& label);
    Scene* sceneByOrder(bool lowest) const;
    bool swapSceneOrder(int id, bool up);
    Sync* makeSync(Scene* scene, int mediaTarget, bool isMedia, Definitions::kSyncType type,
                   int time, const QHash<QString, QString>& properties, int id);
    Sync* enterSync(Scene* scene, Sync* sync);

    QString title_;
    QString projectDocumentVersion_;
    QString projectSoftwareVersion_;
    QString projectLanguage_;
    QStringList projectDate_;
    int projectViewWidth_;
    int projectViewHeight_;
    QString projectName_;
    QString projectDirectory_;
    QHash<int, Scene*> scenes_;
    QHash<int, Template*> templates_;
    int currentScene_ = -1;
    QString urlRepository_ = QStringLiteral("????");
    bool modified_ = false;
    QString lastDirectory_;
    Definitions::kPlayerStatus status_ = Definitions::kPlayerStatus::stop;
    QStringList pathMedia_;
    QSet<QString> pathMediaIndex_;
    QPointer<Media> mediaBuffer_;
    bool hasMediaBuffer_ = false;
    QPointer<Scene> sceneBuffer_;
    bool hasSceneBuffer_ = false;
    bool templateMode_ = false;
};

} // namespace document
} // namespace selvora

#endif
