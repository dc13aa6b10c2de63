#include "project/OperationsFile.h"

#include "app/Definitions.h"
#include "app/OrganisationInfo.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "project/HtmlExport.h"
#include "project/NclExport.h"
#include "project/ProjectReader.h"
#include "project/ProjectXml.h"
#include "project/ServiceAddresses.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QHttpMultiPart>
#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QPointer>
#include <QProcess>
#include <QSaveFile>
#include <QSet>
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

// The files of the library that no medium of a saved scene uses: imported and waiting. The ones
// in use come back with their media. Written only when there are some, so that a project
// without them keeps the file as it always was.
void appendLibrary(QDomDocument& doc, QDomElement& root, const Document* document,
                   const QList<Scene*>& scenes) {
    QSet<QString> used;
    for (const Scene* scene : scenes) {
        for (const Media* media : scene->getAllMedias())
            used.insert(media->getPathStart());
    }
    QDomElement library;
    for (const QString& path : document->getPathMedia()) {
        if (used.contains(path))
            continue;
        if (library.isNull())
            library = doc.createElement(QStringLiteral("library"));
        QDomElement file = doc.createElement(QStringLiteral("file"));
        file.setAttribute(QStringLiteral("path"), path);
        library.appendChild(file);
    }
    if (!library.isNull())
        root.appendChild(library);
}

} // namespace

OperationsFile::OperationsFile(Document* document, QObject* parent)
    : QObject(parent), document_(document), currentScene_(document->getScene(-1)) {}

OperationsFile::~OperationsFile() {
    // A packer or an upload still running when the worker goes must not call back into it.
    if (process_)
        process_->disconnect(this);
    if (reply_)
        reply_->disconnect(this);
    delete process_;
}

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
    // Only a regular file is copied: reading a device or a pipe may never end.
    if (!QFileInfo(source).isFile() || !input.open(QIODevice::ReadOnly)) {
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

QString OperationsFile::sourceInFile(const QString& directory, const QString& pathProject) {
    // Inside the folder the path is kept whole, whatever its depth, so that a file read back
    // names the same place; stored media are three parts deep and read the same either way.
    const QString folder = QDir::cleanPath(directory) + QLatin1Char('/');
    if (!directory.isEmpty() && pathProject.startsWith(folder))
        return QLatin1Char('/') + pathProject.mid(folder.size());
    return projectRelativePath(pathProject);
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
                endOperation(); // an export or publish that called us stops here too
                return;
            }
            ProjectXml::appendMedia(
                doc, sceneElement, media,
                sourceInFile(document_->getProjectDirectory(), media->getPathProject()));
            // The bar moves per scene: the numerator is the same for all its media.
            emit progress((base + 1) * 100 / (medias.size() + sceneCount * 10));
        }
        ProjectXml::appendSyncGroups(doc, sceneElement, scene, scene->getAllSyncs(), true, counter);
    }
    appendLibrary(doc, root, document_, scenes);

    // Whatever was typed, the file holds only what XML can hold, so that it opens again.
    const QString text = ProjectXml::xmlText(doc.toString(1));
    const QString path = QDir::toNativeSeparators(document_->getProjectDirectory() +
                                                  QLatin1Char('/') + document_->getProjectName());
    // Written beside the old file and renamed over it only when complete: a full disk or a
    // vanished folder leaves the old file whole, nothing beside it, and the project modified.
    // The explicit flush matters: QSaveFile::commit does not notice a write that fails there.
    QSaveFile file(path);
    const QByteArray bytes = text.toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush() ||
        !file.commit()) {
        emit saveReport(QStringLiteral("writeError"), path);
        endOperation();
        return;
    }
    document_->setModified(false);

    if (finish)
        emit finished();
}

QString OperationsFile::loadProject() {
    emit titleProgress(tr("Carregando"));
    ProjectReader reader(document_, [this](int value) { emit progress(value); });
    const QString report = reader.read(document_->getProjectDirectory() + QLatin1Char('/') +
                                       document_->getProjectName());
    emit loadReport(report);
    emit finished();
    return report;
}

// ---------------------------------------------------------------- export

void OperationsFile::endOperation() {
    if (ended_)
        return;
    ended_ = true;
    emit finished();
}

void OperationsFile::exportProjectHTML() {
    exportProject(Definitions::kTypeExport::HTML);
}

void OperationsFile::exportProjectNCL() {
    exportProject(Definitions::kTypeExport::NCL);
}

QString OperationsFile::formFieldText(const QString& text) {
    // Ordinary names pass unchanged; a quote or a line end would end the header early.
    QString field = text;
    field.replace(QLatin1Char('"'), QStringLiteral("%22"));
    field.replace(QLatin1Char('\r'), QStringLiteral("%0D"));
    field.replace(QLatin1Char('\n'), QStringLiteral("%0A"));
    return field;
}

void OperationsFile::exportProject(Definitions::kTypeExport type) {
    if (document_->isModified())
        saveProject(false);
    else
        emit progress(100);
    if (ended_)
        return; // the save failed and said so: the worker is on its way out
    exportType_ =
        type == Definitions::kTypeExport::HTML ? QStringLiteral(".html") : QStringLiteral(".ncl");
    const QString file =
        document_->getProjectDirectory() + QLatin1Char('/') + document_->getProjectName();
    const QFileInfo info(file);
    path_ = info.path();
    baseName_ = info.baseName();

    const QUrl service = ServiceAddresses::conversionUrl(type);
    if (service.isEmpty()) {
        exportWithoutService(type);
        return;
    }

    auto* multiPart = new QHttpMultiPart(QHttpMultiPart::FormDataType);
    // The service has always received the local path as the first field's name and value.
    QHttpPart pathPart;
    pathPart.setHeader(QNetworkRequest::ContentDispositionHeader,
                       QStringLiteral("form-data; name=\"%1\"").arg(formFieldText(file)));
    pathPart.setBody(file.toLatin1());
    QHttpPart filePart;
    filePart.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("text/html"));
    filePart.setHeader(
        QNetworkRequest::ContentDispositionHeader,
        QStringLiteral("form-data; name=\"selvora_file\"; filename=\"%1\"")
            .arg(formFieldText(baseName_ + QLatin1Char('.') + info.suffix().toLower())));
    auto* device = new QFile(file, multiPart);
    if (!info.isFile() || !device->open(QIODevice::ReadOnly)) {
        delete multiPart;
        emit saveReport(QStringLiteral("readError"), file);
        endOperation();
        return;
    }
    filePart.setBodyDevice(device);
    multiPart->append(pathPart);
    multiPart->append(filePart);

    // No time-out of our own: the answer is awaited as long as the connection lives.
    if (!manager_)
        manager_ = new QNetworkAccessManager(this);
    reply_ = manager_->post(QNetworkRequest(service), multiPart);
    multiPart->setParent(reply_);
    connect(reply_, &QNetworkReply::finished, this, &OperationsFile::UploadDone,
            Qt::UniqueConnection);
    connect(reply_, &QNetworkReply::errorOccurred, this, &OperationsFile::UploadError,
            Qt::UniqueConnection);
}

void OperationsFile::exportWithoutService(Definitions::kTypeExport type) {
    // The program is its own converter. It runs on the main thread, queued behind the pictures
    // of texts and shapes that the save has just asked for, so that the page finds them; the
    // operation then ends on the worker's own thread, like every other.
    QPointer<OperationsFile> self(this);
    QMetaObject::invokeMethod(
        qApp,
        [self, type]() {
            if (!self)
                return; // the program closed meanwhile
            const QString folder = self->document_->getProjectDirectory();
            const ExportResult result = type == Definitions::kTypeExport::HTML
                                            ? HtmlExport::run(self->document_, folder)
                                            : NclExport::run(self->document_, folder);
            QMetaObject::invokeMethod(
                self,
                [self, result]() {
                    if (result.ok)
                        emit self->exportReport(QNetworkReply::NoError, self->exportType_);
                    else
                        emit self->exportRefused(result.message);
                    self->endOperation();
                },
                Qt::QueuedConnection);
        },
        Qt::QueuedConnection);
}

void OperationsFile::UploadDone() {
    if (!reply_)
        return;
    QByteArray bytes = reply_->readAll();
    // The answer is text: it ends at the first NUL.
    const int nul = bytes.indexOf('\0');
    if (nul >= 0)
        bytes.truncate(nul);
    if (reply_->error() != QNetworkReply::NoError) {
        endOperation();
        return;
    }
    const QString target = path_ + QLatin1Char('/') + baseName_ + exportType_;
    // A link of that name is removed, never followed out of the folder.
    const QFileInfo existing(target);
    if (existing.exists() || existing.isSymLink())
        QFile::remove(target);
    QFile output(target);
    if (!output.open(QIODevice::ReadWrite | QIODevice::Text)) {
        emit saveReport(QStringLiteral("writeError"), target);
        endOperation();
        return;
    }
    {
        QTextStream stream(&output);
        stream.setCodec("UTF-8");
        stream << QString::fromUtf8(bytes);
    }
    output.close();
    emit exportReport(QNetworkReply::NoError, exportType_);
    endOperation();
}

void OperationsFile::UploadError(QNetworkReply::NetworkError error) {
    emit exportReport(error, exportType_);
    endOperation();
}

// ---------------------------------------------------------------- publish

QStringList OperationsFile::zipArguments(const QString& projectName) {
    QString archive = projectName + QStringLiteral(".zip");
    // A name that starts like an option is still a file name.
    if (archive.startsWith(QLatin1Char('-')))
        archive.prepend(QStringLiteral("./"));
    return {QStringLiteral("-r0"),       archive,
            QStringLiteral("."),         QStringLiteral("-x"),
            QStringLiteral("*.db"),      QStringLiteral("*.bak"),
            QStringLiteral("*.svproj~"), QStringLiteral("*.DS_Store"),
            QStringLiteral("*.html"),    QStringLiteral("*.ncl")};
}

void OperationsFile::publishProject() {
    if (document_->isModified())
        saveProject(false);
    else
        emit progress(100);
    if (ended_)
        return; // the save failed and said so: the worker is on its way out
    emit titleProgress(tr("Compactando Projeto"));
    emit progress(0);

    int sum = 0;
    const QList<Scene*> scenes = document_->getSceneAll().values();
    for (const Scene* scene : scenes)
        sum += scene->countMedia();
    // About 2.3 lines of the packer's output per medium.
    progressValue_ = 0;
    totalFiles_ = static_cast<int>(sum * 2.3);
    // With nothing to count, the first line fills the bar.
    rateProgress_ = totalFiles_ > 0 ? 100.0f / totalFiles_ : 100.0f;
    qDebug() << "Total de Mídias: " << sum;
    qDebug() << "Rate Progress" << rateProgress_;

    const QString directory = document_->getProjectDirectory();
    if (directory.isEmpty() || !QFileInfo(directory).isDir()) {
        printFinished(-1);
        return;
    }
    process_ = new QProcess(this);
    connect(process_, &QProcess::readyReadStandardOutput, this, &OperationsFile::printProgress);
    connect(process_, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            [this](int exitCode, QProcess::ExitStatus status) {
                printFinished(status == QProcess::CrashExit && exitCode == 0 ? -1 : exitCode);
            });
    // A packer that never starts ends no process: it is reported as a failed one.
    connect(process_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            printFinished(-1);
    });
    // No shell between us and the packer: the names reach it as they are.
    process_->setWorkingDirectory(directory);
    process_->start(QStringLiteral("zip"), zipArguments(document_->getProjectName()),
                    QIODevice::ReadWrite);
}

void OperationsFile::printProgress() {
    const QList<QByteArray> lines = process_->readAllStandardOutput().split('\n');
    for (const QByteArray& line : lines) {
        if (line.isEmpty())
            continue;
        progressValue_ += rateProgress_;
        qDebug() << progressValue_ << rateProgress_;
        emit progress(static_cast<int>(std::min(progressValue_, 100.0f)));
    }
}

void OperationsFile::printFinished(int exitCode) {
    if (ended_)
        return;
    qDebug() << "Finished";
    if (exitCode == 0) {
        emit progress(100);
        emit publishReport(0);
    } else {
        qDebug() << "CrashExit";
        const QList<QByteArray> lines =
            process_ ? process_->readAllStandardError().split('\n') : QList<QByteArray>();
        qDebug() << "Error: " << (lines.isEmpty() ? QByteArray() : lines.last());
        qDebug() << "== Error ==";
        for (const QByteArray& line : lines)
            qDebug() << "Error: " << line;
        emit publishReport(exitCode);
    }
    endOperation();
}

} // namespace project
} // namespace selvora
