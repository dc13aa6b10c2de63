#include "project/OperationsFile.h"

#include "app/Definitions.h"
#include "app/OrganisationInfo.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "project/ProjectXml.h"

#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <algorithm>

namespace selvora {
namespace project {

using document::Document;
using document::Media;
using document::Scene;
using document::Sync;
using MediaType = Definitions::kMediaType;

namespace {

// The folders of the medias tree, in the order they are made.
const char* const kMediaFolders[] = {"/medias", "/medias/images", "/medias/videos", "/medias/texts",
                                     "/medias/forms"};

// Where each type is stored below the project directory. Sound has no folder: its name is glued
// onto the directory itself, which is how projects have always stored it.
struct StoreFolder {
    MediaType type;
    const char* folder;
    bool rendered;
};
const StoreFolder kStoreFolders[] = {{MediaType::image, "/medias/images/", false},
                                     {MediaType::video, "/medias/videos/", false},
                                     {MediaType::shape, "/medias/forms/", true},
                                     {MediaType::text, "/medias/texts/", true},
                                     {MediaType::audio, "", false}};

const StoreFolder& storeFolder(MediaType type) {
    const auto* it = std::find_if(std::begin(kStoreFolders), std::end(kStoreFolders),
                                  [type](const StoreFolder& f) { return f.type == type; });
    return it != std::end(kStoreFolders) ? *it : kStoreFolders[0];
}

QString storedBaseName(const Media* media) {
    return QStringLiteral("Midia_%1").arg(media->getId() + 1);
}

// A meta element carries one fact; the reader takes the first of these names it finds.
struct MetaField {
    const char* name;
    void (*read)(Document*, const QDomElement&);
};
const MetaField kMetaFields[] = {
    {"software-version",
     [](Document* d, const QDomElement& e) {
         d->setProjectSoftwareVersion(e.attribute(QStringLiteral("software-version")));
     }},
    {"language",
     [](Document* d, const QDomElement& e) {
         d->setProjectLanguage(e.attribute(QStringLiteral("language")));
     }},
    {"date-build",
     [](Document* d, const QDomElement& e) {
         d->setProjectDate(e.attribute(QStringLiteral("date-build")));
     }},
    {"view-width",
     [](Document* d, const QDomElement& e) {
         d->setProjectViewWidth(ProjectXml::readInt(e.attribute(QStringLiteral("view-width"))));
         d->setProjectViewHeight(ProjectXml::readInt(e.attribute(QStringLiteral("view-height"))));
     }},
};

QString buildDate(const Document* document) {
    const QStringList dates = document->getProjectDate();
    if (!dates.isEmpty())
        return dates.first();
    const QDateTime now = QDateTime::currentDateTime();
    const QDate d = now.date();
    const QTime t = now.time();
    return QStringLiteral("%1-%2-%3 %4:%5:%6")
        .arg(d.year())
        .arg(d.month())
        .arg(d.day())
        .arg(t.hour())
        .arg(t.minute())
        .arg(t.second());
}

QDomElement appendMeta(QDomDocument& doc, QDomElement& root, const char* name,
                       const QString& value) {
    QDomElement meta = doc.createElement(QStringLiteral("meta"));
    meta.setAttribute(QLatin1String(name), value);
    root.appendChild(meta);
    return meta;
}

} // namespace

OperationsFile::OperationsFile(Document* document, QObject* parent)
    : QObject(parent), document_(document), currentScene_(document->getScene(-1)) {}

// ---------------------------------------------------------------- project folder

bool OperationsFile::makeProject(const QString& path) {
    QDir directory(QDir::toNativeSeparators(path));
    directory.mkpath(directory.absolutePath());
    if (!directory.exists())
        return false;
    for (const char* folder : kMediaFolders)
        directory.mkpath(path + QLatin1String(folder));
    const QChar separator = path.contains(QLatin1Char('/')) ? QChar('/') : QDir::separator();
    const QString name = path.split(separator).last() + QStringLiteral(".svproj");
    document_->setProjectName(name);
    document_->setProjectDirectory(path);
    return true;
}

bool OperationsFile::saveMedia(Scene* scene, Media* media) {
    const StoreFolder& folder = storeFolder(media->getType());
    const QString stem =
        document_->getProjectDirectory() + QLatin1String(folder.folder) + storedBaseName(media);
    if (folder.rendered) {
        // Rendered anew at every save, so the picture always matches the medium.
        media->setPathProject(stem + QStringLiteral(".png"));
        document_->generateImageProject(scene, media);
        return true;
    }
    if (!media->getPathProject().isEmpty())
        return true;

    const QString source = media->getPathStart();
    QFile input(source);
    if (!input.open(QIODevice::ReadOnly)) {
        emit saveReport(QStringLiteral("readError"), source);
        return false;
    }
    const QByteArray bytes = input.readAll();
    input.close();

    const QString target = stem + QLatin1Char('.') + source.split(QLatin1Char('.')).last();
    if (target != source) {
        QFile output(target);
        if (!output.open(QIODevice::WriteOnly)) {
            emit saveReport(QStringLiteral("writeError"), source);
            return false;
        }
        output.write(bytes);
        output.close();
    }
    media->setPathProject(target);
    return true;
}

void OperationsFile::deleteMedia(Media* media) {
    if (!media)
        return;
    const QString path = media->getPathProject();
    if (path.isEmpty() || !isInProjectStore(path)) {
        if (!path.isEmpty())
            qDebug() << "not removed, outside the project's media store:" << path;
        return;
    }
    QFile file(path);
    if (file.open(QIODevice::ReadOnly)) {
        file.close();
        file.remove();
    }
}

bool OperationsFile::isInProjectStore(const QString& path) const {
    const QString directory = document_->getProjectDirectory();
    if (directory.isEmpty())
        return false;
    const QFileInfo info(path);
    if (!info.isFile())
        return false;
    // Compare real folders, so that neither ".." nor a linked folder leads out of the store.
    const QString folder = QFileInfo(info.absolutePath()).canonicalFilePath();
    const QString medias = QDir(directory + QStringLiteral("/medias")).canonicalPath();
    if (!medias.isEmpty() && folder.startsWith(medias + QLatin1Char('/')))
        return true;
    // A sound sits beside the folder, named after it: "<directory>Midia_N.ext".
    const QString project = QDir::cleanPath(QDir(directory).absolutePath());
    const QString parent = QFileInfo(project).absolutePath();
    return !folder.isEmpty() && folder == QFileInfo(parent).canonicalFilePath() &&
           info.fileName().startsWith(QFileInfo(project).fileName() + QStringLiteral("Midia_"));
}

QString OperationsFile::projectRelativePath(const QString& pathProject) {
    const QStringList parts = pathProject.split(QLatin1Char('/'));
    QString src;
    for (int i = std::max(0, parts.size() - 3); i < parts.size(); ++i)
        src += QLatin1Char('/') + parts.at(i);
    return src;
}

// ---------------------------------------------------------------- project file

void OperationsFile::saveProject(bool finish) {
    emit titleProgress(tr("Salvando"));

    QDomDocument doc(QStringLiteral("FOLIOMARK"));
    QDomElement root = doc.createElement(QStringLiteral("foliomark"));
    root.setAttribute(QStringLiteral("id"), document_->getProjectName());
    root.setAttribute(QStringLiteral("version"), QStringLiteral("1.0"));
    doc.appendChild(root);
    appendMeta(doc, root, "software-version", OrganisationInfo::version());
    appendMeta(doc, root, "language", QStringLiteral("pt-BR"));
    appendMeta(doc, root, "date-build", buildDate(document_));
    QDomElement view =
        appendMeta(doc, root, "view-width", QString::number(Definitions::getViewWidth()));
    view.setAttribute(QStringLiteral("view-height"), QString::number(Definitions::getViewHeight()));

    const QList<Scene*> scenes = document_->getSceneAllInOrder();
    const int sceneCount = scenes.size();
    int base = 0;
    int counter = 0;
    for (Scene* scene : scenes) {
        base += 10;
        QDomElement sceneElement = doc.createElement(QStringLiteral("scene"));
        root.appendChild(sceneElement);
        sceneElement.setAttribute(QStringLiteral("id"), QString::number(scene->getId()));
        sceneElement.setAttribute(QStringLiteral("label"), scene->getLabel());
        sceneElement.setAttribute(QStringLiteral("time"), QString::number(scene->getTotalTime()));
        sceneElement.setAttribute(QStringLiteral("order"), QString::number(scene->getOrder()));

        const QList<Media*> medias = scene->getAllMedias();
        for (Media* media : medias) {
            if (!saveMedia(scene, media)) {
                emit finished();
                return;
            }
            ProjectXml::appendMedia(doc, sceneElement, media,
                                    projectRelativePath(media->getPathProject()));
            // The bar moves per scene: the numerator is the same for all its media.
            emit progress((base + 1) * 100 / (medias.size() + sceneCount * 10));
        }
        ProjectXml::appendSyncGroups(doc, sceneElement, scene, scene->getAllSyncs(), true, counter);
    }

    const QString text = doc.toString(1);
    QFile file(QDir::toNativeSeparators(document_->getProjectDirectory() + QLatin1Char('/') +
                                        document_->getProjectName()));
    // An unwritable file is not reported: the stream writes nothing and the save goes on.
    file.open(QIODevice::WriteOnly);
    {
        QTextStream stream(&file);
        stream.setCodec("UTF-8");
        stream << text;
    }
    file.close();
    document_->setModified(false);

    if (finish)
        emit finished();
}

QString OperationsFile::loadProject() {
    emit titleProgress(tr("Carregando"));

    const QFileInfo fileInfo(document_->getProjectDirectory() + QLatin1Char('/') +
                             document_->getProjectName());
    const QString basePath = fileInfo.absolutePath();
    QDomDocument doc;
    {
        QFile file(fileInfo.filePath());
        const bool parsed = doc.setContent(&file);
        file.close();
        if (!parsed) {
            const QString report = QStringLiteral("openError");
            emit loadReport(report);
            emit finished();
            return report;
        }
    }

    const QDomElement root = doc.documentElement();
    if (root.hasAttribute(QStringLiteral("version")))
        document_->setProjectDocumentVersion(root.attribute(QStringLiteral("version")));

    const QDomNodeList metas = doc.elementsByTagName(QStringLiteral("meta"));
    for (int i = 0; i < metas.size(); ++i) {
        const QDomElement meta = metas.item(i).toElement();
        for (const MetaField& field : kMetaFields) {
            if (meta.hasAttribute(QLatin1String(field.name))) {
                field.read(document_, meta);
                break;
            }
        }
    }

    const QDomNodeList scenes = doc.elementsByTagName(QStringLiteral("scene"));
    const int sceneCount = scenes.size();
    if (sceneCount == 0) {
        const QString report = QStringLiteral("noScenes");
        emit loadReport(report);
        emit finished();
        return report;
    }

    const QString kSync = QStringLiteral("sync");
    const int viewHeight = Definitions::getViewHeight();
    const int savedViewHeight = document_->getProjectViewHeight();
    for (int i = 0; i < sceneCount; ++i) {
        const QDomElement sceneElement = scenes.item(i).toElement();
        const int id = ProjectXml::readId(sceneElement.attribute(QStringLiteral("id")),
                                          QStringLiteral("scene_"));
        Scene* scene = document_->loadScene(
            id, ProjectXml::readInt(sceneElement.attribute(QStringLiteral("order"))), 0,
            ProjectXml::readInt(sceneElement.attribute(QStringLiteral("time"))),
            sceneElement.attribute(QStringLiteral("label")));

        // Media precede syncs in the file, so that a sync finds the medium it names.
        for (QDomElement child = sceneElement.firstChildElement(); !child.isNull();
             child = child.nextSiblingElement()) {
            if (child.tagName() == kSync) {
                const int time = ProjectXml::readInt(child.attribute(QStringLiteral("time")));
                for (QDomElement action = child.firstChildElement(); !action.isNull();
                     action = action.nextSiblingElement()) {
                    const ProjectXml::ActionRecord record = ProjectXml::readAction(action);
                    document_->loadSync(scene, record.target, true, record.type, time,
                                        record.properties, -1);
                }
                continue;
            }
            ProjectXml::MediaRecord record = ProjectXml::readMedia(child);
            const QString path = basePath + record.src;
            QString& fontSize = record.properties[QStringLiteral("fontSize")];
            fontSize = ProjectXml::rescaleFontSize(fontSize, viewHeight, savedViewHeight);
            document_->loadMedia(scene, path, record.type, record.id, record.label,
                                 record.properties, path);
        }
        scene->executeSyncs(0, true, Definitions::kSyncType::goTo);
        emit progress(1000 * (i + 1) / (sceneCount * 10));
    }

    const QString report = QStringLiteral("noError");
    emit loadReport(report);
    emit finished();
    return report;
}

} // namespace project
} // namespace selvora
