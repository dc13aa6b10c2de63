#include "project/NclExport.h"

#include "app/Definitions.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/NumberForm.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "project/ExportSources.h"
#include "project/HtmlExport.h"
#include "project/LessonJson.h"

#include <QCoreApplication>
#include <QDir>
#include <QHash>
#include <QSet>
#include <QXmlStreamWriter>

#include <algorithm>

namespace selvora {
namespace project {

using document::Media;
using document::NumberForm;
using document::Scene;
using document::Sync;
using MediaType = Definitions::kMediaType;
using SyncType = Definitions::kSyncType;

namespace {

QString sceneId(int id) {
    return QStringLiteral("cena%1").arg(id);
}
QString clockId(int scene) {
    return QStringLiteral("relogio%1").arg(scene);
}
QString areaId(int scene, int time) {
    return QStringLiteral("c%1t%2").arg(scene).arg(time);
}
QString areaPort(int scene, int time) {
    return QStringLiteral("pc%1t%2").arg(scene).arg(time);
}
QString mediaId(int id) {
    return QStringLiteral("m%1").arg(id);
}
QString mediaPort(int id) {
    return QStringLiteral("pm%1").arg(id);
}

QString percent(const QString& value) {
    return NumberForm::of(value.toDouble()) + QLatin1Char('%');
}
QString opacityLoss(const QString& transparency) {
    return QString::number(qBound(0.0, transparency.toDouble() / 100, 1.0), 'g', 4);
}

// The connectors every document uses: timed start, stop and set, and the jumps between scenes.
void writeConnectors(QXmlStreamWriter& out) {
    struct Connector {
        const char* id;
        const char* condition;
        const char* action; // "set" takes $value; "jump" is stop then start
        bool key;
    };
    const Connector connectors[] = {{"onBeginStart", "onBegin", "start", false},
                                    {"onBeginStop", "onBegin", "stop", false},
                                    {"onBeginSet", "onBegin", "set", false},
                                    {"onBeginStopStart", "onBegin", "jump", false},
                                    {"onSelectionStopStart", "onSelection", "jump", false},
                                    {"onKeySelectionStopStart", "onSelection", "jump", true}};
    out.writeStartElement(QStringLiteral("connectorBase"));
    for (const Connector& c : connectors) {
        out.writeStartElement(QStringLiteral("causalConnector"));
        out.writeAttribute(QStringLiteral("id"), QLatin1String(c.id));
        const QString action = QLatin1String(c.action);
        if (c.key) {
            out.writeEmptyElement(QStringLiteral("connectorParam"));
            out.writeAttribute(QStringLiteral("name"), QStringLiteral("keyCode"));
        }
        if (action == QLatin1String("set")) {
            out.writeEmptyElement(QStringLiteral("connectorParam"));
            out.writeAttribute(QStringLiteral("name"), QStringLiteral("value"));
        }
        out.writeEmptyElement(QStringLiteral("simpleCondition"));
        out.writeAttribute(QStringLiteral("role"), QLatin1String(c.condition));
        if (c.key)
            out.writeAttribute(QStringLiteral("key"), QStringLiteral("$keyCode"));
        if (action == QLatin1String("jump")) {
            out.writeStartElement(QStringLiteral("compoundAction"));
            out.writeAttribute(QStringLiteral("operator"), QStringLiteral("seq"));
            for (const char* role : {"stop", "start"}) {
                out.writeEmptyElement(QStringLiteral("simpleAction"));
                out.writeAttribute(QStringLiteral("role"), QLatin1String(role));
            }
            out.writeEndElement();
        } else {
            out.writeEmptyElement(QStringLiteral("simpleAction"));
            out.writeAttribute(QStringLiteral("role"), action);
            if (action == QLatin1String("set"))
                out.writeAttribute(QStringLiteral("value"), QStringLiteral("$value"));
            out.writeAttribute(QStringLiteral("max"), QStringLiteral("unbounded"));
            out.writeAttribute(QStringLiteral("qualifier"), QStringLiteral("par"));
        }
        out.writeEndElement();
    }
    out.writeEndElement();
}

void bind(QXmlStreamWriter& out, const QString& role, const QString& component,
          const QString& interface = QString()) {
    out.writeEmptyElement(QStringLiteral("bind"));
    out.writeAttribute(QStringLiteral("role"), role);
    out.writeAttribute(QStringLiteral("component"), component);
    if (!interface.isEmpty())
        out.writeAttribute(QStringLiteral("interface"), interface);
}

// What the document shows of one scene: media with a file, its seconds, its links.
struct SceneParts {
    const Scene* scene;
    QList<const Media*> media;
    QHash<int, const Media*> shown; // media with a file, by id
    QList<int> times;
    QList<const Sync*> links; // selects and gotos that lead to a scene of the document
    QHash<int, QString> src;
};

const Sync* startOf(const Scene* scene, int media) {
    return scene->getSync(SyncType::start, media, true);
}

} // namespace

QByteArray NclExport::document(const document::Document* doc, const QString& folder) {
    ExportSources sources(folder, false);
    const QList<Scene*> scenes = doc->getSceneAllInOrder();
    QSet<int> sceneIds;
    for (const Scene* scene : scenes)
        sceneIds.insert(scene->getId());

    QList<SceneParts> parts;
    for (const Scene* scene : scenes) {
        SceneParts part{scene, {}, {}, {}, {}, {}};
        QList<Media*> medias = scene->getAllMedias();
        std::sort(medias.begin(), medias.end(),
                  [](const Media* a, const Media* b) { return a->getId() < b->getId(); });
        for (const Media* media : medias) {
            const QString src = sources.urlOf(media);
            if (src.isEmpty() || !startOf(scene, media->getId()))
                continue;
            part.media.append(media);
            part.shown.insert(media->getId(), media);
            part.src.insert(media->getId(), src);
        }
        QSet<int> times;
        const QList<Sync*> syncs = scene->getAllSyncs();
        for (const Sync* sync : syncs) {
            const SyncType type = sync->getType();
            const bool leads =
                sceneIds.contains(sync->getLink().toInt()) && !sync->getLink().isEmpty();
            if (type == SyncType::goTo && leads) {
                part.links.append(sync);
                times.insert(sync->getTime());
            } else if (type == SyncType::select && leads &&
                       part.shown.contains(sync->getMediaTarget())) {
                part.links.append(sync);
            } else if (type != SyncType::goTo && type != SyncType::select && sync->getIsMedia() &&
                       part.shown.contains(sync->getMediaTarget())) {
                times.insert(sync->getTime());
            }
        }
        part.times = times.values();
        std::sort(part.times.begin(), part.times.end());
        std::sort(part.links.begin(), part.links.end(), [](const Sync* a, const Sync* b) {
            return a->getTime() != b->getTime() ? a->getTime() < b->getTime()
                                                : a->getId() < b->getId();
        });
        parts.append(part);
    }

    QByteArray xml;
    QXmlStreamWriter out(&xml);
    out.setAutoFormatting(true);
    out.setAutoFormattingIndent(1);
    out.writeStartDocument();
    out.writeStartElement(QStringLiteral("ncl"));
    out.writeAttribute(QStringLiteral("id"), QStringLiteral("licao"));
    out.writeAttribute(QStringLiteral("title"), LessonJson::title(doc));
    out.writeDefaultNamespace(QStringLiteral("http://www.ncl.org.br/NCL3.0/EDTVProfile"));

    out.writeStartElement(QStringLiteral("head"));
    out.writeStartElement(QStringLiteral("regionBase"));
    for (const SceneParts& part : parts) {
        for (const Media* media : part.media) {
            if (media->getType() == MediaType::audio)
                continue;
            const Sync* start = startOf(part.scene, media->getId());
            out.writeEmptyElement(QStringLiteral("region"));
            out.writeAttribute(QStringLiteral("id"), QStringLiteral("rg%1").arg(media->getId()));
            out.writeAttribute(QStringLiteral("left"), percent(start->getLeft()));
            out.writeAttribute(QStringLiteral("top"), percent(start->getTop()));
            out.writeAttribute(QStringLiteral("width"), percent(start->getWidth()));
            out.writeAttribute(QStringLiteral("height"), percent(start->getHeight()));
            out.writeAttribute(QStringLiteral("zIndex"),
                               QString::number(qBound(0, start->getLayer().toInt(), 255)));
        }
    }
    out.writeEndElement();
    out.writeStartElement(QStringLiteral("descriptorBase"));
    for (const SceneParts& part : parts) {
        QSet<int> clickable;
        for (const Sync* link : part.links) {
            if (link->getType() == SyncType::select)
                clickable.insert(link->getMediaTarget());
        }
        for (const Media* media : part.media) {
            out.writeStartElement(QStringLiteral("descriptor"));
            out.writeAttribute(QStringLiteral("id"), QStringLiteral("ds%1").arg(media->getId()));
            if (media->getType() != MediaType::audio)
                out.writeAttribute(QStringLiteral("region"),
                                   QStringLiteral("rg%1").arg(media->getId()));
            if (clickable.contains(media->getId()))
                out.writeAttribute(QStringLiteral("focusIndex"),
                                   QString::number(media->getId() + 1));
            const Sync* start = startOf(part.scene, media->getId());
            if (media->getType() != MediaType::audio && start->getTransparency().toDouble() > 0) {
                out.writeEmptyElement(QStringLiteral("descriptorParam"));
                out.writeAttribute(QStringLiteral("name"), QStringLiteral("transparency"));
                out.writeAttribute(QStringLiteral("value"), opacityLoss(start->getTransparency()));
            }
            out.writeEndElement();
        }
    }
    out.writeEndElement();
    writeConnectors(out);
    out.writeEndElement(); // head

    out.writeStartElement(QStringLiteral("body"));
    out.writeAttribute(QStringLiteral("id"), QStringLiteral("corpo"));
    if (!parts.isEmpty()) {
        out.writeEmptyElement(QStringLiteral("port"));
        out.writeAttribute(QStringLiteral("id"), QStringLiteral("entrada"));
        out.writeAttribute(QStringLiteral("component"), sceneId(parts.first().scene->getId()));
    }
    for (const SceneParts& part : parts) {
        const int sid = part.scene->getId();
        out.writeStartElement(QStringLiteral("context"));
        out.writeAttribute(QStringLiteral("id"), sceneId(sid));
        out.writeEmptyElement(QStringLiteral("port"));
        out.writeAttribute(QStringLiteral("id"), QStringLiteral("p") + clockId(sid));
        out.writeAttribute(QStringLiteral("component"), clockId(sid));
        QSet<int> gotoTimes;
        QSet<int> selectable;
        for (const Sync* link : part.links) {
            if (link->getType() == SyncType::goTo)
                gotoTimes.insert(link->getTime());
            else
                selectable.insert(link->getMediaTarget());
        }
        for (int time : part.times) {
            if (!gotoTimes.contains(time))
                continue;
            out.writeEmptyElement(QStringLiteral("port"));
            out.writeAttribute(QStringLiteral("id"), areaPort(sid, time));
            out.writeAttribute(QStringLiteral("component"), clockId(sid));
            out.writeAttribute(QStringLiteral("interface"), areaId(sid, time));
        }
        for (const Media* media : part.media) {
            if (!selectable.contains(media->getId()))
                continue;
            out.writeEmptyElement(QStringLiteral("port"));
            out.writeAttribute(QStringLiteral("id"), mediaPort(media->getId()));
            out.writeAttribute(QStringLiteral("component"), mediaId(media->getId()));
        }

        // The clock: an empty node whose anchors are the seconds at which something happens.
        out.writeStartElement(QStringLiteral("media"));
        out.writeAttribute(QStringLiteral("id"), clockId(sid));
        for (int time : part.times) {
            out.writeEmptyElement(QStringLiteral("area"));
            out.writeAttribute(QStringLiteral("id"), areaId(sid, time));
            out.writeAttribute(QStringLiteral("begin"), QStringLiteral("%1s").arg(time));
        }
        out.writeEndElement();

        for (const Media* media : part.media) {
            out.writeStartElement(QStringLiteral("media"));
            out.writeAttribute(QStringLiteral("id"), mediaId(media->getId()));
            out.writeAttribute(QStringLiteral("src"), part.src.value(media->getId()));
            out.writeAttribute(QStringLiteral("descriptor"),
                               QStringLiteral("ds%1").arg(media->getId()));
            if (media->getType() != MediaType::audio) {
                for (const char* name :
                     {"left", "top", "width", "height", "zIndex", "transparency"}) {
                    out.writeEmptyElement(QStringLiteral("property"));
                    out.writeAttribute(QStringLiteral("name"), QLatin1String(name));
                }
            }
            out.writeEndElement();
        }

        // Timed links: one per sync, from the clock's anchor of its second.
        for (int time : part.times) {
            const QList<Sync*> atTime = part.scene->getAllSyncs(time);
            for (const Sync* sync : atTime) {
                const SyncType type = sync->getType();
                if (type == SyncType::goTo || type == SyncType::select || !sync->getIsMedia() ||
                    !part.shown.contains(sync->getMediaTarget()))
                    continue;
                const QString target = mediaId(sync->getMediaTarget());
                const bool visual =
                    part.shown.value(sync->getMediaTarget())->getType() != MediaType::audio;
                if (type == SyncType::set && !visual)
                    continue;
                out.writeStartElement(QStringLiteral("link"));
                out.writeAttribute(QStringLiteral("xconnector"),
                                   type == SyncType::start  ? QStringLiteral("onBeginStart")
                                   : type == SyncType::stop ? QStringLiteral("onBeginStop")
                                                            : QStringLiteral("onBeginSet"));
                bind(out, QStringLiteral("onBegin"), clockId(sid), areaId(sid, time));
                if (type != SyncType::set) {
                    bind(out,
                         type == SyncType::start ? QStringLiteral("start") : QStringLiteral("stop"),
                         target);
                } else {
                    const QPair<const char*, QString> values[] = {
                        {"left", percent(sync->getLeft())},
                        {"top", percent(sync->getTop())},
                        {"width", percent(sync->getWidth())},
                        {"height", percent(sync->getHeight())},
                        {"zIndex", QString::number(qBound(0, sync->getLayer().toInt(), 255))},
                        {"transparency", opacityLoss(sync->getTransparency())}};
                    for (const auto& value : values) {
                        out.writeStartElement(QStringLiteral("bind"));
                        out.writeAttribute(QStringLiteral("role"), QStringLiteral("set"));
                        out.writeAttribute(QStringLiteral("component"), target);
                        out.writeAttribute(QStringLiteral("interface"), QLatin1String(value.first));
                        out.writeEmptyElement(QStringLiteral("bindParam"));
                        out.writeAttribute(QStringLiteral("name"), QStringLiteral("value"));
                        out.writeAttribute(QStringLiteral("value"), value.second);
                        out.writeEndElement();
                    }
                }
                out.writeEndElement();
            }
        }
        out.writeEndElement(); // context
    }

    // Jumps between scenes: automatic at a second, or on a selection of a media, with or
    // without a key of the remote control.
    for (const SceneParts& part : parts) {
        const int sid = part.scene->getId();
        for (const Sync* link : part.links) {
            const QString target = sceneId(link->getLink().toInt());
            out.writeStartElement(QStringLiteral("link"));
            if (link->getType() == SyncType::goTo) {
                out.writeAttribute(QStringLiteral("xconnector"),
                                   QStringLiteral("onBeginStopStart"));
                bind(out, QStringLiteral("onBegin"), sceneId(sid), areaPort(sid, link->getTime()));
            } else {
                const QString key = Definitions::getkButtonTypeLegend(link->getKey().toInt());
                const bool withKey = !link->getKey().isEmpty() && !key.isEmpty();
                out.writeAttribute(QStringLiteral("xconnector"),
                                   withKey ? QStringLiteral("onKeySelectionStopStart")
                                           : QStringLiteral("onSelectionStopStart"));
                out.writeStartElement(QStringLiteral("bind"));
                out.writeAttribute(QStringLiteral("role"), QStringLiteral("onSelection"));
                out.writeAttribute(QStringLiteral("component"), sceneId(sid));
                out.writeAttribute(QStringLiteral("interface"), mediaPort(link->getMediaTarget()));
                if (withKey) {
                    out.writeEmptyElement(QStringLiteral("bindParam"));
                    out.writeAttribute(QStringLiteral("name"), QStringLiteral("keyCode"));
                    out.writeAttribute(QStringLiteral("value"), key);
                }
                out.writeEndElement();
            }
            bind(out, QStringLiteral("stop"), sceneId(sid));
            bind(out, QStringLiteral("start"), target);
            out.writeEndElement();
        }
    }
    out.writeEndElement(); // body
    out.writeEndElement(); // ncl
    out.writeEndDocument();
    return xml;
}

ExportResult NclExport::run(const document::Document* doc, const QString& folder) {
    ExportResult result;
    if (!HtmlExport::hasFolder(folder, result))
        return result;
    return HtmlExport::writeFile(folder, HtmlExport::baseName(doc, folder) + QStringLiteral(".ncl"),
                                 document(doc, folder));
}

} // namespace project
} // namespace selvora
