#include "buffer/HistoryRecord.h"

#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "project/ProjectXml.h"

#include <algorithm>

namespace selvora {
namespace buffer {

using document::Media;
using document::Scene;
using document::Sync;
using project::ProjectXml;
using SyncType = Definitions::kSyncType;

const QString HistoryRecord::kSync = QStringLiteral("sync");
const QString HistoryRecord::kId = QStringLiteral("id");
const QString HistoryRecord::kTime = QStringLiteral("time");
const QString HistoryRecord::kOldTime = QStringLiteral("oldTime");
const QString HistoryRecord::kNewTime = QStringLiteral("newTime");
const QString HistoryRecord::kCurrentTime = QStringLiteral("currentTime");
const QString HistoryRecord::kOldProperties = QStringLiteral("oldProperties");
const QString HistoryRecord::kNewProperties = QStringLiteral("newProperties");

int HistoryRecord::intOf(const QDomElement& element, const QString& name) {
    return element.attribute(name).toInt();
}

QDomElement HistoryRecord::sceneElement(QDomDocument& doc, const Scene* scene) {
    QDomElement element = doc.createElement(QStringLiteral("scene"));
    element.setAttribute(kId, scene->getId());
    return element;
}

// The first child element not named "sync": a medium in a snapshot, the removed syncs beside
// the moved one in a compound record.
QDomElement HistoryRecord::firstOtherChild(const QDomElement& parent) {
    for (QDomElement child = parent.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        if (child.tagName() != kSync)
            return child;
    }
    return QDomElement();
}

// The action form of the sync records: unlike the file, a goto keeps its target and a link
// without address is kept.
void HistoryRecord::appendAction(QDomDocument& doc, QDomElement& parent, const Sync* sync) {
    const SyncType type = sync->getType();
    QDomElement action = doc.createElement(Definitions::getkSyncTypeLegend(int(type)));
    action.setAttribute(QStringLiteral("target"), sync->getMediaTarget());
    if (type != SyncType::stop) {
        const QHash<QString, QString> properties = sync->getProperties();
        for (const QString& key : ProjectXml::syncKeys()) {
            const QString value = properties.value(key);
            if (value.isEmpty())
                continue;
            QDomElement property = doc.createElement(QStringLiteral("property"));
            property.setAttribute(QStringLiteral("name"), key);
            property.setAttribute(QStringLiteral("value"),
                                  key == QLatin1String("key")
                                      ? Definitions::getkButtonTypeLegend(value.toInt())
                                      : value);
            action.appendChild(property);
        }
    }
    parent.appendChild(action);
}

QDomElement HistoryRecord::syncElement(QDomDocument& doc, const Sync* sync) {
    QDomElement element = doc.createElement(kSync);
    element.setAttribute(kId, sync->getId());
    element.setAttribute(kTime, sync->getTime());
    appendAction(doc, element, sync);
    return element;
}

void HistoryRecord::appendProperties(QDomDocument& doc, QDomElement& parent, const QString& name,
                                     const QHash<QString, QString>& properties) {
    QDomElement list = doc.createElement(name);
    QStringList keys = properties.keys();
    keys.sort();
    for (const QString& key : keys) {
        if (properties.value(key).isEmpty())
            continue;
        QDomElement property = doc.createElement(QStringLiteral("property"));
        property.setAttribute(QStringLiteral("name"), key);
        property.setAttribute(QStringLiteral("value"), properties.value(key));
        list.appendChild(property);
    }
    parent.appendChild(list);
}

QHash<QString, QString> HistoryRecord::readProperties(const QDomElement& list) {
    QHash<QString, QString> properties;
    for (QDomElement property = list.firstChildElement(QStringLiteral("property"));
         !property.isNull(); property = property.nextSiblingElement(QStringLiteral("property")))
        properties.insert(property.attribute(QStringLiteral("name")),
                          property.attribute(QStringLiteral("value")));
    return properties;
}

// The side of a properties record that a replay applies. Empty values are not recorded, so a
// key that only the other side names was empty on this one, and is emptied again.
QHash<QString, QString> HistoryRecord::propertiesToApply(const QDomElement& holder, bool undo) {
    QHash<QString, QString> wanted =
        readProperties(holder.firstChildElement(undo ? kOldProperties : kNewProperties));
    const QHash<QString, QString> other =
        readProperties(holder.firstChildElement(undo ? kNewProperties : kOldProperties));
    for (auto it = other.constBegin(); it != other.constEnd(); ++it) {
        if (!wanted.contains(it.key()))
            wanted.insert(it.key(), QString(""));
    }
    return wanted;
}

// Sync ids are not unique (the automatic starts share one, a rebuilt group shares its id), so
// a replay narrows the search by what the record knows: type and target from its action, and
// the time when it is given.
Sync* HistoryRecord::findSync(const Scene* scene, int id, const QDomElement& action, int time) {
    if (!scene)
        return nullptr;
    const bool hasAction = !action.isNull();
    const ProjectXml::ActionRecord wanted =
        hasAction ? ProjectXml::readAction(action) : ProjectXml::ActionRecord();
    const QList<Sync*> syncs = scene->getAllSyncs();
    for (Sync* sync : syncs) {
        if (sync->getId() != id)
            continue;
        if (hasAction &&
            (sync->getType() != wanted.type || sync->getMediaTarget() != wanted.target))
            continue;
        if (time >= 0 && sync->getTime() != time)
            continue;
        return sync;
    }
    return nullptr;
}

Sync* HistoryRecord::findRecorded(const Scene* scene, const QDomElement& group) {
    return findSync(scene, intOf(group, kId), group.firstChildElement(), intOf(group, kTime));
}

void HistoryRecord::markTarget(QDomElement& element, const Sync* sync) {
    if (!sync)
        return;
    element.setAttribute(QStringLiteral("target"), sync->getMediaTarget());
    element.setAttribute(QStringLiteral("type"),
                         Definitions::getkSyncTypeLegend(int(sync->getType())));
}

Sync* HistoryRecord::findMarked(const Scene* scene, const QDomElement& element, int time) {
    const int id = intOf(element, kId);
    if (!scene || !element.hasAttribute(QStringLiteral("target")))
        return findSync(scene, id, QDomElement(), time);
    const int target = intOf(element, QStringLiteral("target"));
    const auto type = Definitions::getkSyncType(element.attribute(QStringLiteral("type")));
    const QList<Sync*> syncs = scene->getAllSyncs();
    for (Sync* sync : syncs) {
        if (sync->getId() == id && sync->getMediaTarget() == target && sync->getType() == type &&
            (time < 0 || sync->getTime() == time))
            return sync;
    }
    return nullptr; // that sync is gone: another one of its id is not it
}

QList<Sync*> HistoryRecord::byTime(QList<Sync*> syncs) {
    std::stable_sort(syncs.begin(), syncs.end(),
                     [](const Sync* a, const Sync* b) { return a->getTime() < b->getTime(); });
    return syncs;
}

QList<Media*> HistoryRecord::byId(QList<Media*> medias) {
    std::sort(medias.begin(), medias.end(),
              [](const Media* a, const Media* b) { return a->getId() < b->getId(); });
    return medias;
}

} // namespace buffer
} // namespace selvora
