#include "project/Recovery.h"

#include "app/Definitions.h"
#include "app/OrganisationInfo.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "project/Project.h"
#include "project/ProjectReader.h"
#include "project/ProjectXml.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QDialog>
#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QLockFile>
#include <QMessageBox>
#include <QSaveFile>
#include <QStandardPaths>
#include <QUuid>
#include <QWidget>

#include <unistd.h>

#include <algorithm>
#include <vector>

namespace selvora {
namespace project {

using document::Document;
using document::Media;
using document::Scene;
using MediaType = Definitions::kMediaType;

namespace {

int intervalOverride = 0;

const QString kCopyName = QStringLiteral("/projeto.svproj");
const QString kStateName = QStringLiteral("/estado.json");
const QString kMediaFolder = QStringLiteral("/medias/");

bool isRendered(MediaType type) {
    return type == MediaType::text || type == MediaType::shape;
}

bool isFile(const QString& path) {
    return !path.isEmpty() && QFileInfo(path).isFile();
}

bool writeWhole(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    // commit alone misses a write that fails while flushing.
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() &&
           file.commit();
}

QJsonObject readState(const QString& folder) {
    QFile file(folder + kStateName);
    if (!QFileInfo(file).isFile() || file.size() > 16 * 1024 * 1024 ||
        !file.open(QIODevice::ReadOnly))
        return QJsonObject();
    return QJsonDocument::fromJson(file.readAll()).object();
}

QDateTime savedAt(const QJsonObject& state) {
    return QDateTime::fromString(state.value(QStringLiteral("savedAt")).toString(),
                                 Qt::ISODateWithMs);
}

QString originalFile(const QJsonObject& state) {
    const QString name = state.value(QStringLiteral("name")).toString();
    if (name.isEmpty())
        return QString();
    return state.value(QStringLiteral("directory")).toString() + QLatin1Char('/') + name;
}

std::unique_ptr<QLockFile> lockOf(const QString& folder) {
    auto lock = std::make_unique<QLockFile>(folder + QStringLiteral(".lock"));
    // Only a dead owner makes a lock stale, never its age: a program may run for days.
    lock->setStaleLockTime(0);
    return lock;
}

} // namespace

Recovery::Recovery(Document* document, QWidget* parent)
    : QObject(parent), document_(document), parent_(parent) {
    const int interval = intervalOverride > 0 ? intervalOverride : kIntervalMs;
    timer_.setInterval(interval);
    connect(&timer_, &QTimer::timeout, this, &Recovery::writeCopy);
    timer_.start();
    // A save clears the modified flag on its worker thread, which tells no one: look often.
    watch_.setInterval(qMin(interval, 1000));
    connect(&watch_, &QTimer::timeout, this, &Recovery::watch);
    watch_.start();
    connect(qApp, &QCoreApplication::aboutToQuit, this, [this] { endSession(true); });
    // After the window is up and a project named on the command line is open.
    QTimer::singleShot(0, this, &Recovery::offer);
}

Recovery::~Recovery() {
    // The window is going: its panels may be gone already, so ask none of them.
    endSession(false);
}

void Recovery::setInterval(int ms) {
    intervalOverride = ms;
}

QString Recovery::rootFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
           QStringLiteral("/recovery");
}

QString Recovery::copyFile() const {
    return folder_.isEmpty() ? QString() : folder_ + kCopyName;
}

bool Recovery::operationRunning() const {
    // The worker of a save reads and writes the media unguarded: no copy while it runs.
    const Project* project = parent_ ? parent_->findChild<Project*>() : nullptr;
    return project && project->getProgressDialog()->isVisible();
}

// ---------------------------------------------------------------- this program's copy

bool Recovery::ensureSession() {
    if (lock_)
        return true;
    const QString folder =
        rootFolder() + QLatin1Char('/') + QUuid::createUuid().toString(QUuid::WithoutBraces);
    // The lock comes before the folder, so that another program never finds the folder free.
    if (!QDir().mkpath(rootFolder()))
        return false;
    std::unique_ptr<QLockFile> lock = lockOf(folder);
    if (!lock->tryLock(0))
        return false;
    if (!QDir().mkpath(folder + kMediaFolder))
        return false;
    folder_ = folder;
    lock_ = std::move(lock);
    return true;
}

void Recovery::writeCopy() {
    if (!document_ || !document_->isModified())
        return;
    if (operationRunning()) {
        retry_ = true;
        return;
    }
    retry_ = false;
    if (!ensureSession())
        return;

    // The project file as a save writes it, with each medium's file copied beside it.
    QDomDocument doc(QStringLiteral("FOLIOMARK"));
    QDomElement root = doc.createElement(QStringLiteral("foliomark"));
    root.setAttribute(QStringLiteral("id"), document_->getProjectName());
    root.setAttribute(QStringLiteral("version"), QStringLiteral("1.0"));
    doc.appendChild(root);
    const auto meta = [&](const QString& name, const QString& value) {
        QDomElement element = doc.createElement(QStringLiteral("meta"));
        element.setAttribute(name, value);
        root.appendChild(element);
        return element;
    };
    meta(QStringLiteral("software-version"), OrganisationInfo::version());
    meta(QStringLiteral("language"), QStringLiteral("pt-BR"));
    if (!document_->getProjectDate().isEmpty())
        meta(QStringLiteral("date-build"), document_->getProjectDate().first());
    meta(QStringLiteral("view-width"), QString::number(Definitions::getViewWidth()))
        .setAttribute(QStringLiteral("view-height"), QString::number(Definitions::getViewHeight()));

    QJsonObject files;
    int counter = 0;
    for (Scene* scene : document_->getSceneAllInOrder()) {
        QDomElement element = doc.createElement(QStringLiteral("scene"));
        root.appendChild(element);
        element.setAttribute(QStringLiteral("id"), QString::number(scene->getId()));
        element.setAttribute(QStringLiteral("label"), scene->getLabel());
        element.setAttribute(QStringLiteral("time"), QString::number(scene->getTotalTime()));
        element.setAttribute(QStringLiteral("order"), QString::number(scene->getOrder()));
        for (Media* media : scene->getAllMedias()) {
            ProjectXml::appendMedia(doc, element, media, copyMedia(media));
            files.insert(QString::number(media->getId()),
                         QJsonObject{{QStringLiteral("start"), media->getPathStart()},
                                     {QStringLiteral("project"), media->getPathProject()}});
        }
        ProjectXml::appendSyncGroups(doc, element, scene, scene->getAllSyncs(), true, counter);
    }
    const QString text = ProjectXml::xmlText(doc.toString(1));
    if (hasCopy_ && text == lastText_)
        return;

    QJsonObject state{
        {QStringLiteral("savedAt"), QDateTime::currentDateTime().toString(Qt::ISODateWithMs)},
        {QStringLiteral("media"), files}};
    if (!document_->getProjectName().isEmpty()) {
        state.insert(QStringLiteral("directory"), document_->getProjectDirectory());
        state.insert(QStringLiteral("name"), document_->getProjectName());
    }
    // The state goes last: a copy without it is incomplete and never offered.
    QFile::remove(folder_ + kStateName);
    if (!writeWhole(folder_ + kCopyName, text.toUtf8()) ||
        !writeWhole(folder_ + kStateName, QJsonDocument(state).toJson()))
        return;
    hasCopy_ = true;
    lastText_ = text;
}

QString Recovery::copyMedia(const Media* media) {
    // Text and shapes are drawn from their properties: no file to keep.
    if (isRendered(media->getType()))
        return QString();
    const QString source = isFile(media->getPathStart())     ? media->getPathStart()
                           : isFile(media->getPathProject()) ? media->getPathProject()
                                                             : QString();
    if (source.isEmpty())
        return QString();
    const QFileInfo info(QFileInfo(source).canonicalFilePath());
    QString name = QStringLiteral("Midia_%1").arg(media->getId() + 1);
    if (!info.suffix().isEmpty())
        name += QLatin1Char('.') + info.suffix();
    const QString target = folder_ + kMediaFolder + name;
    const QString src = kMediaFolder + name;
    // A recovered medium whose source is gone is read from its copy.
    if (info.absoluteFilePath() == QFileInfo(target).canonicalFilePath())
        return src;
    const QString stamp = QStringLiteral("%1|%2|%3")
                              .arg(info.absoluteFilePath())
                              .arg(info.size())
                              .arg(info.lastModified().toMSecsSinceEpoch());
    if (copied_.value(name) == stamp && QFileInfo(target).isFile())
        return src;
    QFile::remove(target);
    // A hard link costs nothing and keeps the bytes if the source is deleted; another disk
    // needs a copy.
    if (::link(QFile::encodeName(info.absoluteFilePath()).constData(),
               QFile::encodeName(target).constData()) != 0 &&
        !QFile::copy(info.absoluteFilePath(), target))
        return QString();
    copied_.insert(name, stamp);
    return src;
}

void Recovery::watch() {
    if (!document_)
        return;
    if (!document_->isModified()) {
        if (hasCopy_)
            removeCopy();
    } else if (retry_ && !operationRunning()) {
        writeCopy();
    }
}

void Recovery::removeCopy() {
    // The state first: without it what remains is never offered.
    QFile::remove(folder_ + kStateName);
    QFile::remove(folder_ + kCopyName);
    hasCopy_ = false;
    lastText_.clear();
}

void Recovery::endSession(bool mayKeep) {
    timer_.stop();
    watch_.stop();
    if (!lock_)
        return;
    // A save started on closing is not waited for: the copy stays until the next start sees
    // the project file newer than it. Otherwise a clean exit leaves nothing.
    const bool saving = mayKeep && document_ && document_->isModified() && operationRunning();
    if (!(saving && hasCopy_))
        QDir(folder_).removeRecursively();
    lock_->unlock();
    lock_.reset();
    folder_.clear();
    hasCopy_ = false;
}

// ---------------------------------------------------------------- copies of programs gone

void Recovery::offer() {
    struct Found {
        QString folder;
        QJsonObject state;
        std::unique_ptr<QLockFile> lock;
    };
    std::vector<Found> found;
    const QDir root(rootFolder());
    for (const QString& name : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString folder = root.filePath(name);
        if (folder == folder_)
            continue;
        std::unique_ptr<QLockFile> lock = lockOf(folder);
        if (!lock->tryLock(0))
            continue; // its program is running
        QJsonObject state = readState(folder);
        const QDateTime when = savedAt(state);
        const QFileInfo original(originalFile(state));
        // Incomplete, or older than the project file that a later save wrote: nothing to offer.
        if (!when.isValid() || !QFileInfo(folder + kCopyName).isFile() ||
            (original.isFile() && original.lastModified() > when)) {
            QDir(folder).removeRecursively();
            continue;
        }
        found.push_back({folder, state, std::move(lock)});
    }
    // Locks whose folder is gone are removed by taking and releasing them.
    for (const QString& name : root.entryList({QStringLiteral("*.lock")}, QDir::Files)) {
        const QString folder = root.filePath(name.chopped(5));
        if (!QFileInfo(folder).exists() && folder != folder_)
            lockOf(folder)->tryLock(0);
    }
    if (found.empty())
        return;
    // The newest is offered; the others wait for the next start.
    auto newest = std::max_element(found.begin(), found.end(), [](const Found& a, const Found& b) {
        return savedAt(a.state) < savedAt(b.state);
    });

    const QString file = QFileInfo(originalFile(newest->state)).fileName();
    const QDateTime when = savedAt(newest->state);
    const QLocale brazil(QLocale::Portuguese, QLocale::Brazil);
    QMessageBox box(QMessageBox::Question, tr("Recuperar projeto"),
                    tr("O Selvorá foi fechado sem salvar o projeto \"%1\".\nUma cópia foi guardada "
                       "automaticamente em %2, às %3.\n\nGostaria de recuperá-la?\n")
                        .arg(file.isEmpty() ? tr("Sem Título.svproj") : file,
                             brazil.toString(when.date(), QStringLiteral("dd/MM/yyyy")),
                             brazil.toString(when.time(), QStringLiteral("HH:mm"))),
                    QMessageBox::Yes | QMessageBox::No);
    box.button(QMessageBox::Yes)->setText(tr("Recuperar"));
    box.button(QMessageBox::No)->setText(tr("Descartar"));
    if (box.exec() == QMessageBox::Yes) {
        recover(newest->folder, std::move(newest->lock));
        return;
    }
    QDir(newest->folder).removeRecursively();
}

bool Recovery::recover(const QString& folder, std::unique_ptr<QLockFile> lock) {
    const QJsonObject state = readState(folder);
    document_->clearDocument();
    const QString report = ProjectReader(document_).read(folder + kCopyName);
    if (report != QLatin1String("noError")) {
        QMessageBox::critical(nullptr, tr("Erro"), tr("Não foi possível recuperar o projeto."));
        document_->newProject();
        QDir(folder).removeRecursively();
        return false;
    }
    // Media point again where they pointed before, while those files are there; a medium whose
    // source is gone keeps its copy and goes into the project at the next save.
    const QJsonObject files = state.value(QStringLiteral("media")).toObject();
    for (Scene* scene : document_->getSceneAll()) {
        for (Media* media : scene->getAllMedias()) {
            const QJsonObject paths = files.value(QString::number(media->getId())).toObject();
            if (paths.isEmpty())
                continue;
            const bool rendered = isRendered(media->getType());
            const QString start = paths.value(QStringLiteral("start")).toString();
            const QString stored = paths.value(QStringLiteral("project")).toString();
            const QString current = media->getPathStart();
            const QString wanted = rendered || isFile(start) ? start : current;
            if (wanted != current) {
                document_->removePathMedia(current);
                media->setPathStart(wanted);
                document_->addPathMedia(wanted);
            }
            media->setPathProject(rendered || isFile(stored) ? stored : QString());
        }
    }
    // A save writes to the original project while its folder is there; otherwise it asks where.
    const QFileInfo original(originalFile(state));
    if (original.absoluteDir().exists() && !original.fileName().isEmpty()) {
        document_->setProjectDirectory(state.value(QStringLiteral("directory")).toString());
        document_->setProjectName(original.fileName());
    }
    document_->openProject();
    document_->setModified(true);

    // This program keeps the copy from now on: its media files may be what the canvas shows.
    if (lock_) {
        QDir(folder_).removeRecursively();
        lock_->unlock();
    }
    folder_ = folder;
    lock_ = std::move(lock);
    hasCopy_ = true;
    lastText_.clear();
    copied_.clear();
    return true;
}

} // namespace project
} // namespace selvora
