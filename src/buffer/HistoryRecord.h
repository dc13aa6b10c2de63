#ifndef SELVORA_BUFFER_HISTORYRECORD_H
#define SELVORA_BUFFER_HISTORYRECORD_H

#include <QDomDocument>
#include <QDomElement>
#include <QHash>
#include <QList>
#include <QString>

namespace selvora {
namespace document {
class Media;
class Scene;
class Sync;
} // namespace document

namespace buffer {

// The vocabulary of the history's records, shared by the recorders that write them and the
// replays that read them back. Plain functions, no state.
class HistoryRecord {
public:
    static const QString kSync;
    static const QString kId;
    static const QString kTime;
    static const QString kOldTime;
    static const QString kNewTime;
    static const QString kCurrentTime;
    static const QString kOldProperties;
    static const QString kNewProperties;

    static int intOf(const QDomElement& element, const QString& name);
    // The `scene` element that every payload is, naming the scene by id.
    static QDomElement sceneElement(QDomDocument& doc, const document::Scene* scene);
    // The first child element not named "sync": a medium in a snapshot, the removed syncs beside
    // the moved one in a compound record.
    static QDomElement firstOtherChild(const QDomElement& parent);
    static void appendAction(QDomDocument& doc, QDomElement& parent, const document::Sync* sync);
    static QDomElement syncElement(QDomDocument& doc, const document::Sync* sync);
    static void appendProperties(QDomDocument& doc, QDomElement& parent, const QString& name,
                                 const QHash<QString, QString>& properties);
    static QHash<QString, QString> readProperties(const QDomElement& list);
    // The side of a properties record that a replay applies.
    static QHash<QString, QString> propertiesToApply(const QDomElement& holder, bool undo);
    // The sync a record names, narrowed by the action and the time when they are known.
    static document::Sync* findSync(const document::Scene* scene, int id, const QDomElement& action,
                                    int time);
    // The sync of a recorded group, by its id, first action and time.
    static document::Sync* findRecorded(const document::Scene* scene, const QDomElement& group);
    // The automatic starts all share one id: a change of a sync's time or properties also names
    // its target and kind, so that the replay finds that very sync and not another of its id.
    static void markTarget(QDomElement& element, const document::Sync* sync);
    static document::Sync* findMarked(const document::Scene* scene, const QDomElement& element,
                                      int time);
    static QList<document::Sync*> byTime(QList<document::Sync*> syncs);
    static QList<document::Media*> byId(QList<document::Media*> medias);
};

} // namespace buffer
} // namespace selvora

#endif
