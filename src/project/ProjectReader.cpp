#include "project/ProjectReader.h"

#include "app/Definitions.h"
#include "document/Document.h"
#include "document/Scene.h"
#include "project/MediaPath.h"
#include "project/ProjectScan.h"
#include "project/ProjectXml.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QTextCodec>
#include <QVector>
#include <QXmlStreamReader>

namespace selvora {
namespace project {

using document::Document;
using document::Scene;

namespace {

const QString kReportOpen = QStringLiteral("openError");

// A meta element carries one fact; the reader takes the first of these names it finds.
const char* const kMetaNames[] = {"software-version", "language", "date-build", "view-width"};

// One fact of a meta element: its name, its value and, for the view, the height beside it.
struct Meta {
    QString name;
    QString value;
    QString height;
};

void applyMeta(Document* document, const Meta& meta) {
    if (meta.name == QLatin1String("software-version")) {
        document->setProjectSoftwareVersion(meta.value);
    } else if (meta.name == QLatin1String("language")) {
        document->setProjectLanguage(meta.value);
    } else if (meta.name == QLatin1String("date-build")) {
        document->setProjectDate(meta.value);
    } else {
        document->setProjectViewWidth(ProjectXml::readInt(meta.value));
        document->setProjectViewHeight(ProjectXml::readInt(meta.height));
    }
}

// The text of the file: UTF-8, or UTF-16/32 when it begins with their byte order mark. The
// parsers get the decoded text, so that all of them see the same characters.
QString decode(const QByteArray& bytes) {
    QTextCodec* codec = QTextCodec::codecForUtfText(bytes, QTextCodec::codecForName("UTF-8"));
    return codec->toUnicode(bytes);
}

// One open element of the stream and what it is to the model. An element may be several things
// at once: a `scene` inside a scene is both a medium of the outer one and a scene of its own.
struct Open {
    bool isScene = false;
    bool isLibrary = false;     // the files imported and not (yet) used, beside the scenes
    QPointer<Scene> scene;      // this element is a scene, while the scene lives
    QPointer<Scene> groupScene; // this element is a sync group of that scene
    int groupTime = 0;
    QPointer<Scene> actionScene; // this element is an action of a group of that scene
    int actionTime = 0;
    ProjectXml::ActionRecord action;
};

} // namespace

struct ProjectReader::Survey {
    bool hasVersion = false;
    QString version;
    QList<Meta> metas;
    int scenes = 0;
};

ProjectReader::ProjectReader(Document* document, Progress progress)
    : document_(document), progress_(std::move(progress)) {}

QString ProjectReader::read(const QString& filePath) {
    const QFileInfo info(filePath);
    // Only a regular file is read: a device or a pipe could block for ever or never end.
    if (!info.isFile())
        return kReportOpen;
    if (info.size() > ProjectScan::kMaxFileBytes)
        return QStringLiteral("sizeError");
    QByteArray bytes;
    {
        QFile file(filePath);
        if (!file.open(QIODevice::ReadOnly))
            return kReportOpen;
        // One byte more than the size seen, to notice a file that grows while it is read.
        bytes = file.read(info.size() + 1);
    }
    if (bytes.size() > info.size())
        return kReportOpen;
    const QString text = decode(bytes);
    bytes.clear();

    switch (ProjectScan::scan(text)) {
    case ProjectScan::Verdict::refused:
        return kReportOpen;
    case ProjectScan::Verdict::tooLarge:
        return QStringLiteral("sizeError");
    case ProjectScan::Verdict::fine:
        break;
    }
    Survey found;
    if (!survey(text, found))
        return kReportOpen;

    if (found.hasVersion)
        document_->setProjectDocumentVersion(found.version);
    for (const Meta& meta : found.metas)
        applyMeta(document_, meta);
    if (found.scenes == 0)
        return QStringLiteral("noScenes");
    if (!load(text, info.absolutePath(), found.scenes))
        return kReportOpen;
    return QStringLiteral("noError");
}

bool ProjectReader::survey(const QString& text, Survey& found) const {
    QXmlStreamReader xml(text);
    xml.setNamespaceProcessing(false);
    bool root = true;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QStringRef name = xml.name();
        const QXmlStreamAttributes attributes = xml.attributes();
        if (root) {
            root = false;
            found.hasVersion = attributes.hasAttribute(QStringLiteral("version"));
            found.version = ProjectXml::attribute(attributes, QStringLiteral("version"));
        }
        if (name == QLatin1String("scene")) {
            ++found.scenes;
        } else if (name == QLatin1String("meta")) {
            for (const char* meta : kMetaNames) {
                const QString name = QLatin1String(meta);
                if (attributes.hasAttribute(name)) {
                    found.metas.append(
                        {name, ProjectXml::attribute(attributes, name),
                         ProjectXml::attribute(attributes, QStringLiteral("view-height"))});
                    break;
                }
            }
        }
    }
    return !xml.hasError();
}

bool ProjectReader::load(const QString& text, const QString& folder, int sceneCount) {
    const QString kScene = QStringLiteral("scene");
    const QString kSync = QStringLiteral("sync");
    const QString kProperty = QStringLiteral("property");
    const int viewHeight = Definitions::getViewHeight();
    const int savedViewHeight = document_->getProjectViewHeight();
    const MediaPath mediaPath(folder);
    int scenesDone = 0;

    QVector<Open> open;
    open.reserve(ProjectScan::kMaxDepth + 1);
    QXmlStreamReader xml(text);
    xml.setNamespaceProcessing(false);
    while (!xml.atEnd()) {
        const QXmlStreamReader::TokenType token = xml.readNext();
        if (token == QXmlStreamReader::EndElement) {
            const Open closed = open.takeLast();
            if (closed.actionScene)
                document_->loadSync(closed.actionScene, closed.action.target, true,
                                    closed.action.type, closed.actionTime, closed.action.properties,
                                    -1);
            if (closed.scene)
                closed.scene->executeSyncs(0, true, Definitions::kSyncType::goTo);
            if (closed.isScene && progress_)
                progress_(int(1000LL * ++scenesDone / (qint64(sceneCount) * 10)));
            continue;
        }
        if (token != QXmlStreamReader::StartElement)
            continue;
        const QString tag = xml.name().toString();
        const QXmlStreamAttributes attributes = xml.attributes();
        Open element;
        const Open* parent = open.isEmpty() ? nullptr : &open.last();
        if (parent && parent->scene) {
            Scene* scene = parent->scene;
            // Media precede syncs in the file, so that a sync finds the medium it names.
            if (tag == kSync) {
                element.groupScene = scene;
                element.groupTime =
                    ProjectXml::readInt(ProjectXml::attribute(attributes, QStringLiteral("time")));
            } else {
                ProjectXml::MediaRecord record = ProjectXml::readMedia(tag, attributes);
                const MediaPath::Resolved resolved = mediaPath.resolve(record.src);
                QString& fontSize = record.properties[QStringLiteral("fontSize")];
                fontSize = ProjectXml::rescaleFontSize(fontSize, viewHeight, savedViewHeight);
                document_->loadMedia(scene, resolved.readable ? resolved.path : QString(),
                                     record.type, record.id, record.label, record.properties,
                                     resolved.path);
            }
        } else if (parent && parent->groupScene) {
            element.actionScene = parent->groupScene;
            element.actionTime = parent->groupTime;
            element.action = ProjectXml::readAction(tag, attributes);
        } else if (parent && parent->actionScene && tag == kProperty) {
            ProjectXml::readProperty(open.last().action,
                                     ProjectXml::attribute(attributes, QStringLiteral("name")),
                                     ProjectXml::attribute(attributes, QStringLiteral("value")));
        }
        if (open.size() == 1 && tag == QLatin1String("library")) {
            element.isLibrary = true;
        } else if (parent && parent->isLibrary && tag == QLatin1String("file")) {
            // Only a whole path names a file: anything else would depend on where the program
            // runs. A file that is gone keeps its row, with an empty picture.
            const QString path = ProjectXml::attribute(attributes, QStringLiteral("path"));
            if (QDir::isAbsolutePath(path))
                document_->addPathMedia(QDir::cleanPath(path));
        }
        if (tag == kScene) {
            element.isScene = true;
            element.scene = document_->loadScene(
                ProjectXml::readId(ProjectXml::attribute(attributes, QStringLiteral("id")),
                                   QStringLiteral("scene_")),
                ProjectXml::readInt(ProjectXml::attribute(attributes, QStringLiteral("order"))), 0,
                ProjectXml::readInt(ProjectXml::attribute(attributes, QStringLiteral("time"))),
                ProjectXml::attribute(attributes, QStringLiteral("label")));
        }
        open.append(element);
    }
    return !xml.hasError();
}

} // namespace project
} // namespace selvora
