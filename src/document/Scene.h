#ifndef SELVORA_DOCUMENT_SCENE_H
#define SELVORA_DOCUMENT_SCENE_H

#include "app/Definitions.h"

#include <QHash>
#include <QList>
#include <QMultiHash>
#include <QObject>
#include <QString>

class QTimer;

namespace selvora {
namespace document {

class Media;
class Sync;

// One slide of the project: its media in layers, the syncs of its timeline and the clock that
// plays it. The canvas always shows the state that the syncs up to the current second make, so
// seeking and playing go through the same steps.
class Scene : public QObject {
    Q_OBJECT
public:
    explicit Scene(int id, const QString& label = QString());
    ~Scene() override;

    static void resetScene() { countScene_ = 0; }
    static int getLastId() { return countScene_; }

    // --- contents and layers ---
    int getId() const { return id_; }
    QString getLabel() const { return label_; }
    int getOrder() const { return order_; }
    int getCurrentTime() const { return currentTime_; }
    int getTotalTime() const { return totalTime_; }
    Definitions::kPlayerStatus getStatusPlayer() const { return statusPlayer_; }
    Media* getMainVideo() const { return mainVideo_; }
    bool hasCurrentMedia() const { return hasCurrentMedia_; }
    bool hasCurrentTemplate() const { return hasCurrentTemplate_; }
    int countMedia() const { return medias_.size(); }
    bool hasTemplate() const { return !templates_.isEmpty(); }
    QList<int> getAllTemplates() const { return templates_; }
    int getCountRegions() const { return countRegions_; }
    QList<Media*> getAllMedias() const { return medias_.values(); }
    bool isEnabledAddSync() const { return enabledAddSync_; }
    void setEnabledAddSync(bool enabled) { enabledAddSync_ = enabled; }
    static void updateCountRegions(int delta) { countRegions_ += delta; }

    bool setLabel(const QString& label);
    void setOrder(int order);
    void setMainVideo(Media* media);
    Media* getMedia(int id);
    bool hasMedia(int id) const;
    bool setCurrentMedia(int id);
    // False when the media was refused (a second main video) and deleted.
    bool addMedia(Media* media);
    void loadMedia(Media* media);
    bool removeMedia(int id);

    Media* firstMediaLayer() const;
    Media* lastMediaLayer() const;
    Media* backMediaLayer(Media* media) const;
    Media* nextMediaLayer(Media* media) const;
    QList<Media*> getAllMediasLayerNull() const;
    QList<Media*> getAllMediasOrderLayer() const;
    void updateMediasLayer(int mediaId, int oldLayer, int newLayer);
    void setStopAllMedias();
    void setStopAllTemplates();

    void addTemplate(int id);
    bool removeTemplate(int id, int regions);
    void setCurrentTemplate(int id);
    int getTemplate(int id) const;

    // --- sync queries ---
    QList<Sync*> getAllSyncs() const;
    QList<Sync*> getAllSyncs(int time) const;
    QList<Sync*> getAllSyncs(Definitions::kSyncType type) const;
    QList<Sync*> getAllSyncs(int target, int time, bool isMedia) const;
    QList<Sync*> getAllSyncsMedia(int target, bool isMedia) const;
    QList<Sync*> getAllSyncsWithKey(const QString& key) const;
    Sync* getSync(int id) const;
    Sync* getSync(Definitions::kSyncType type, int target, bool isMedia) const;
    bool hasSync(int id) const;
    bool hasSync(Definitions::kSyncType type, int target, bool isMedia) const;
    bool hasSync(int target, int time, bool isMedia) const;
    bool hasSyncWithKey(const QString& key) const;

    // --- clock ---
    void playScene();
    // Starts the clock on a second whose syncs were just replayed, following none of its
    // gotos: a jump's arrival at a second is not a departure from it.
    void resumeScene();
    bool pauseScene();
    void setCurrentTime(int time, bool execute);
    void executeSyncs(int time, bool filter, Definitions::kSyncType type);
    void resetExecuteSyncs();
    void setStatusPlayer(Definitions::kPlayerStatus status);
    void setTotalTime(int time);
    bool mediaActivate(int target, int time, bool isMedia) const;
    QList<Media*> getAllMediasVisibleInTime(int time) const;

    // Enters a sync by the rules of the timeline. Returns true when the scene took the object;
    // otherwise the event was merged into an existing sync or refused, and the caller still
    // owns the object.
    bool addSync(Sync* sync);
    void loadSync(Sync* sync);
    void updateSyncs(Sync* sync, int oldTime, int newTime);
    bool removeSync(int id);
    bool removeSync(Definitions::kSyncType type, int target, bool isMedia);
    // Removes this very sync; the automatic starts share an id and are not reached by it.
    void removeSyncObject(Sync* sync);
    bool removeAllSyncs();
    bool removeAllSyncs(int target, bool isMedia);
    bool removeAllSyncs(int target, int time, bool isMedia);

    int getBeforeSyncTime(int time) const;
    int getNextSyncTime(int time) const;
    bool hasBeforeSync(int time) const;
    bool hasNextSync(int time) const;
    int getBeforeSyncTimeMedia(int target, int time) const;
    int getNextSyncTimeMedia(int target, int time) const;
    bool hasBeforeSyncMedia(int target, int time) const;
    bool hasNextSyncMedia(int target, int time) const;
    void seekBackwardSync();
    void seekForwardSync();

    QTimer* getTimer() const { return timer_; }

public slots:
    bool stopScene();
    void iteratorTime();

signals:
    void changeLabel(QString label);
    void changeLabel(QString oldLabel, QString newLabel);
    void changeOrder(int order);
    void projectModified();
    void mediaAdded(selvora::document::Media* media);
    void mediaRemoved(selvora::document::Media* media);
    void mediaRemovedId(int id);
    void mediaCurrent(selvora::document::Media* media);
    void mediaCurrentId(int id);
    void mediaNull();
    void updateLayers(int mediaId, QList<selvora::document::Media*> medias);
    void templateChanged(int id);
    void templateCurrent(int id);
    void templateRemovedId(int id);
    void templateNull();

    void currentTime(int time);
    void totalTime(int time);
    void totalTime(int oldTime, int newTime);
    void playerStatus(selvora::Definitions::kPlayerStatus status);
    void syncAdded(selvora::document::Sync* sync);
    void syncUpdate(selvora::document::Sync* sync);
    void syncUpdateId(int id);
    void syncRemoved(selvora::document::Sync* sync);
    void syncRemovedId(int id);
    void syncStartStopSpecialCondition(selvora::document::Sync* sync, int oldTime, int newTime,
                                       QList<selvora::document::Sync*> removed);
    void mediaSyncType(selvora::document::Media* media, selvora::Definitions::kSyncType type);
    void templateSyncType(int id, selvora::Definitions::kSyncType type);
    void documentChangeSceneTime(int scene, int time);
    void executeSyncsReseted();
    void currentTimeEvent(int time);

protected:
    struct TemplateTag {};
    // The base of a template takes its id from the template counter, whatever is asked.
    Scene(TemplateTag, const QString& label = QString());

private:
    void init();
    void seekTo(int time);
    void setConnections();
    bool insertSync(Sync* sync);
    void eraseSync(Sync* sync);
    void removeSyncs(const QList<Sync*>& syncs);
    QList<int> syncTimesOf(int target) const;

    static int countScene_;
    static int countTemplate_;
    static int countRegions_;

    QString label_;
    Media* mainVideo_ = nullptr;
    bool hasCurrentMedia_ = false;
    int currentMedia_ = -1;
    int currentTime_ = 0;
    int totalTime_ = 0;
    int order_ = 0;
    bool enabledAddSync_ = true;
    int currentTemplate_ = -1;
    bool hasCurrentTemplate_ = false;
    QTimer* timer_ = nullptr;
    Definitions::kPlayerStatus statusPlayer_ = Definitions::kPlayerStatus::pause;
    QHash<int, Media*> medias_;
    QMultiHash<int, Sync*> syncs_;
    QList<int> templates_;
    int id_;
};

} // namespace document
} // namespace selvora

#endif
