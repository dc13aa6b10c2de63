#include "project/LessonJson.h"

#include "app/Definitions.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/NumberForm.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "project/ExportSources.h"
#include "project/QuizStructure.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

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

QJsonValue optionalText(const QString& text) {
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

// A geometry value as the media stores it when a sync sets it.
double geometry(const QString& value) {
    return NumberForm::of(value.toDouble()).toDouble();
}

QJsonObject mediaObject(const Media* media, ExportSources& sources) {
    const MediaType type = media->getType();
    QJsonObject object{{"id", media->getId()},
                       {"type", Definitions::getkMediaTypeLegend(int(type))},
                       {"label", media->getLabel()},
                       {"src", sources.urlOf(media)}};
    bool hoverSet = false;
    const int hover = media->getHover().toInt(&hoverSet);
    object.insert("hover", hoverSet && hover >= 0 && hover <= 9 ? hover : -1);
    // A text or shape whose picture is missing is shown from its own words and colours.
    if ((type == MediaType::text || type == MediaType::shape) &&
        object.value("src").toString().isEmpty()) {
        object.insert("text", media->getWording());
        object.insert("color", optionalText(media->getColorFont()));
        object.insert("fill", optionalText(media->getColorFill()));
        object.insert("size", media->getFontSize().toDouble());
    }
    return object;
}

QJsonObject actionObject(const Sync* sync) {
    if (sync->getType() == SyncType::goTo) {
        const QString link = sync->getLink();
        return {{"goto", link.isEmpty() ? QJsonValue() : QJsonValue(link.toInt())},
                {"at", sync->getTimeEvent().toInt()}};
    }
    return {{"do", Definitions::getkSyncTypeLegend(int(sync->getType()))},
            {"target", sync->getMediaTarget()},
            {"box", QJsonArray{geometry(sync->getLeft()), geometry(sync->getTop()),
                               geometry(sync->getWidth()), geometry(sync->getHeight())}},
            {"layer", sync->getLayer().toInt()},
            {"alpha", sync->getTransparency().toDouble()}};
}

QJsonObject linkObject(const Sync* sync) {
    const QString key = Definitions::getkButtonTypeLegend(sync->getKey().toInt());
    const QString link = sync->getLink();
    return {{"target", sync->getMediaTarget()},
            {"key", sync->getKey().isEmpty() ? QJsonValue() : optionalText(key)},
            {"scene", link.isEmpty() ? QJsonValue() : QJsonValue(link.toInt())},
            {"at", sync->getTimeEvent().toInt()},
            {"url", optionalText(sync->getUrl().trimmed())}};
}

QJsonObject sceneObject(const Scene* scene, ExportSources& sources) {
    QList<Media*> medias = scene->getAllMedias();
    std::sort(medias.begin(), medias.end(),
              [](const Media* a, const Media* b) { return a->getId() < b->getId(); });
    QJsonArray mediaArray;
    for (const Media* media : medias)
        mediaArray.append(mediaObject(media, sources));

    // Seconds in order; within one second the order in which the clock runs them.
    const QList<Sync*> all = scene->getAllSyncs();
    QSet<int> seen;
    for (const Sync* sync : all)
        seen.insert(sync->getTime());
    QList<int> times = seen.values();
    std::sort(times.begin(), times.end());
    QJsonArray timeline;
    QJsonArray links;
    for (int time : times) {
        QJsonArray actions;
        const QList<Sync*> atTime = scene->getAllSyncs(time);
        for (const Sync* sync : atTime) {
            const SyncType type = sync->getType();
            if (type == SyncType::select) {
                // As in the file: a link to nowhere is left out.
                if (!sync->getLink().isEmpty() || !sync->getUrl().isEmpty())
                    links.append(linkObject(sync));
            } else if (type == SyncType::goTo || sync->getIsMedia()) {
                actions.append(actionObject(sync));
            }
        }
        if (!actions.isEmpty())
            timeline.append(QJsonArray{time, actions});
    }
    return {{"id", scene->getId()}, {"label", scene->getLabel()}, {"total", scene->getTotalTime()},
            {"media", mediaArray},  {"timeline", timeline},       {"links", links}};
}

} // namespace

QString LessonJson::title(const document::Document* document) {
    const QString title = document->getTitle().trimmed();
    if (!title.isEmpty())
        return title;
    const QString base = QFileInfo(document->getProjectName()).baseName();
    return base.isEmpty() ? QStringLiteral("Selvorá") : base;
}

QByteArray LessonJson::build(const document::Document* document, ExportSources& sources,
                             bool scorm) {
    const QList<Scene*> scenes = document->getSceneAllInOrder();
    QJsonArray sceneArray;
    for (const Scene* scene : scenes)
        sceneArray.append(sceneObject(scene, sources));

    int width = document->getProjectViewWidth();
    int height = document->getProjectViewHeight();
    if (width <= 0 || height <= 0) {
        width = Definitions::getViewWidth();
        height = Definitions::getViewHeight();
    }
    const QuizStructure quiz = QuizStructure::find(document);
    const QJsonObject lesson{{"title", title(document)},
                             {"stage", QJsonArray{width, height}},
                             {"scorm", scorm},
                             {"scenes", sceneArray},
                             {"quiz", quiz.isValid()
                                          ? QJsonValue(QJsonObject{{"scene", quiz.feedbackScene},
                                                                   {"questions", quiz.questions},
                                                                   {"final", quiz.finalScene},
                                                                   {"slot", quiz.slotSeconds}})
                                          : QJsonValue()}};

    const QByteArray json = QJsonDocument(lesson).toJson(QJsonDocument::Compact);
    QByteArray safe;
    safe.reserve(json.size() + json.size() / 16);
    for (int i = 0; i < json.size(); ++i) {
        const char c = json.at(i);
        if (c == '<')
            safe += "\\u003c";
        else if (c == '>')
            safe += "\\u003e";
        else if (c == '&')
            safe += "\\u0026";
        else if (c == '\xe2' && i + 2 < json.size() && json.at(i + 1) == '\x80' &&
                 (json.at(i + 2) == '\xa8' || json.at(i + 2) == '\xa9')) {
            safe += json.at(i + 2) == '\xa8' ? "\\u2028" : "\\u2029";
            i += 2;
        } else
            safe += c;
    }
    return safe;
}

} // namespace project
} // namespace selvora
