#ifndef SELVORA_BUFFER_BUFFER_H
#define SELVORA_BUFFER_BUFFER_H

#include "app/Definitions.h"

#include <QDomDocument>
#include <QDomElement>
#include <QHash>
#include <QList>
#include <QString>
#include <QWidget>

namespace selvora {
namespace document {
class Document;
class Media;
class Scene;
class Sync;
} // namespace document

namespace buffer {

// The undo and redo history. It watches the model: each change worth undoing arrives as a
// signal, a recorder (the slots ending in Historic) turns it into a small XML record of values
// and ids, and undo or redo replays a record through the ordinary model calls. A replay keeps
// itself out of the history by cutting the Buffer's connections to what it touches.
class Buffer : public QWidget {
    Q_OBJECT
public:
    static constexpr int kMaxRecords = 25;

    explicit Buffer(document::Document* document, QWidget* parent = nullptr);

    // How many records, counted from the newest, are undone now; -1 before the first clear.
    int getPosition() const { return position_; }
    // The records, newest first: an element named by the action's legend holding the payload.
    QList<QDomElement> getRecords() const;

    void addHistoric(Definitions::kActionType type, QDomDocument document, QDomElement payload);

    // Whether records made now join one step (a group is open).
    bool isGroupOpen() const { return groupDepth_ > 0; }

public slots:
    void undo();
    void redo();
    void clearBuffer();
    void loadConnections();
    // The records made between the outermost open and its close are one step: one undo takes
    // them all back, newest first, one redo makes them again in order. Inner groups join the
    // outer one; an empty group leaves no step; a close without an open is ignored. The limit
    // of kMaxRecords counts records, and the oldest step is dropped whole.
    void openGroup();
    void closeGroup();

    void setDocumentConnections();
    void setDocumentDisconnections();
    void setSceneConnections(selvora::document::Scene* scene);
    void setSceneDisconnections(selvora::document::Scene* scene);
    void setMediaConnections(selvora::document::Media* media);
    void setMediaDisconnections(selvora::document::Media* media);
    void setSyncConnections(selvora::document::Sync* sync);
    void setSyncDisconnections(selvora::document::Sync* sync);

    void createSceneHistoric(selvora::document::Scene* scene);
    void removeSceneHistoric(selvora::document::Scene* scene);
    void sendSceneUpHistoric(selvora::document::Scene* scene);
    void sendSceneDownHistoric(selvora::document::Scene* scene);
    void alterSceneTotalTimeHistoric(int oldTime, int newTime);
    void alterSceneLabelHistoric(QString oldLabel, QString newLabel);
    void createMediaHistoric(selvora::document::Media* media);
    void removeMediaHistoric(selvora::document::Media* media);
    void alterMediaLabelHistoric(int id, QString oldLabel, QString newLabel);
    void alterMediaPropertiesHistoric(int id, QHash<QString, QString> oldProperties,
                                      QHash<QString, QString> newProperties);
    void createSyncHistoric(selvora::document::Sync* sync);
    void removeSyncHistoric(selvora::document::Sync* sync);
    void alterSyncTimeHistoric(int id, int oldTime, int newTime);
    void alterSyncPropertiesHistoric(int id, QHash<QString, QString> oldProperties,
                                     QHash<QString, QString> newProperties);
    void updateSyncStartStopSpecialConditionHistoric(selvora::document::Sync* sync, int oldTime,
                                                     int newTime,
                                                     QList<selvora::document::Sync*> removed);

private:
    // Every replay has one shape, so that undo and redo dispatch through one table; the flag
    // picks the old values over the new ones and is ignored by the creating and removing ones.
    using Replay = void (Buffer::*)(const QDomElement& payload, bool undo);
    struct ReplayRow {
        Replay undo;
        Replay redo;
    };
    static const ReplayRow kReplays[];

    struct Record {
        QDomDocument document; // keeps the element's owner alive
        QDomElement element;
        int group; // the step it belongs to with its neighbours; 0 for a step of its own
    };

    void replay(const Record& record, bool undo);

    void createScene(const QDomElement& payload, bool undo);
    void removeScene(const QDomElement& payload, bool undo);
    void alterSceneOrder(const QDomElement& payload, bool undo);
    void alterSceneTotalTime(const QDomElement& payload, bool undo);
    void alterSceneLabel(const QDomElement& payload, bool undo);
    void createMedia(const QDomElement& payload, bool undo);
    void removeMedia(const QDomElement& payload, bool undo);
    void alterMediaLabel(const QDomElement& payload, bool undo);
    void alterMediaProperties(const QDomElement& payload, bool undo);
    void createSync(const QDomElement& payload, bool undo);
    void removeSync(const QDomElement& payload, bool undo);
    void alterSyncTime(const QDomElement& payload, bool undo);
    void alterSyncProperties(const QDomElement& payload, bool undo);
    void updateSyncStartStopSpecialCondition(const QDomElement& payload, bool undo);

    // The two snapshot shapes, shared by creation and removal records.
    void recordScene(Definitions::kActionType type, document::Scene* scene, bool removing);
    void recordMedia(Definitions::kActionType type, document::Media* media, bool removing);
    void recordSync(Definitions::kActionType type, document::Sync* sync);
    void recordSceneOrder(document::Scene* scene, document::Scene* neighbour);

    document::Media* rebuildMedia(document::Scene* scene, const QDomElement& element);
    QList<document::Sync*> rebuildSyncs(document::Scene* scene, const QDomElement& group, int time,
                                        int id);
    // Every group of syncs recorded under `parent`, each at its own time and id.
    void rebuildSyncGroups(document::Scene* scene, const QDomElement& parent);

    // A scene's own connections and those of all its media and syncs, cut or made at once.
    void detachScene(document::Scene* scene);
    void attachScene(document::Scene* scene);

    document::Scene* sceneOf(const QDomElement& payload) const;
    document::Scene* sceneWithMedia(int id) const;
    document::Scene* sceneWithSync(const document::Sync* sync) const;
    document::Scene* sceneWithSync(int id) const;
    bool makeCurrent(document::Scene* scene, const QDomElement& payload);

    document::Document* document_;
    int position_ = -1;
    QList<Record> records_;
    // Ids, not pointers: the syncs themselves are deleted by the removals the list announces.
    QList<int> syncsRemoved_;
    int groupDepth_ = 0;
    int group_ = 0; // the open group's number, 0 when none is open
    int nextGroup_ = 1;
};

} // namespace buffer
} // namespace selvora

#endif
