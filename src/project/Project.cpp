#include "project/Project.h"

#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "project/OperationsFile.h"
#include "project/ProjectScan.h"
#include "project/ServiceAddresses.h"

#include <QAbstractButton>
#include <QDesktopServices>
#include <QDialog>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLocale>
#include <QMessageBox>
#include <QProgressBar>
#include <QSettings>
#include <QThread>
#include <QUrl>
#include <QVBoxLayout>

namespace selvora {
namespace project {

using document::Document;
using document::Media;
using document::Scene;
using Operation = Definitions::kThreadOperations;

namespace {
const QString kRecentFiles = QStringLiteral("recentFileList");
const QString kExtension = QStringLiteral(".svproj");
} // namespace

Project::Project(Document* document, QWidget* parent)
    : QWidget(parent), document_(document), currentScene_(document->getScene(-1)), parent_(parent) {
    hide();
    qRegisterMetaType<QNetworkReply::NetworkError>();
    progressDialog_ = new QDialog(parent_, Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus);
    progressDialog_->setWindowFlags(progressDialog_->windowFlags() & ~Qt::WindowCloseButtonHint &
                                    ~Qt::WindowContextHelpButtonHint);
    progressDialog_->installEventFilter(this);
    progressBar_ = new QProgressBar(progressDialog_);
    progressBar_->setMinimumWidth(300);
    progressBar_->setTextVisible(true);
    progressBar_->setValue(0);
    auto* layout = new QVBoxLayout(progressDialog_);
    layout->addWidget(progressBar_);

    setDocumentConnections();
    setSceneConnections();
}

bool Project::Running::operator==(const Running& other) const {
    return thread == other.thread && worker == other.worker;
}

Project::~Project() {
    // The program closes in the middle of an operation (an upload that is never answered, a
    // packer still running): the worker goes in its own thread, and no thread outlives us.
    for (const Running& running : qAsConst(running_)) {
        if (!running.thread)
            continue;
        running.thread->disconnect();
        if (running.worker)
            running.worker->deleteLater();
        running.thread->quit();
        running.thread->wait();
        delete running.thread;
    }
    // Without a parent the dialog is ours to delete.
    if (!progressDialog_->parent())
        delete progressDialog_;
}

bool Project::eventFilter(QObject* watched, QEvent* event) {
    if (watched == progressDialog_) {
        if (event->type() == QEvent::Close) {
            event->ignore();
            return true;
        }
        if (event->type() == QEvent::KeyPress &&
            static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
            return true;
    }
    return QWidget::eventFilter(watched, event);
}

// ---------------------------------------------------------------- connections

void Project::setDocumentConnections() {
    const auto unique = Qt::UniqueConnection;
    connect(document_, &Document::newp, this, &Project::setDocumentConnections, unique);
    connect(document_, &Document::open, this, &Project::setDocumentConnections, unique);
    connect(document_, &Document::save, this, &Project::save, unique);
    connect(document_, &Document::load, this, &Project::load, unique);
    connect(document_, &Document::publish, this, &Project::publish, unique);
    connect(document_, &Document::exportt, this, &Project::exportt, unique);
    connect(document_, &Document::sceneCurrent, this, &Project::changeScene, unique);
    connect(document_, &Document::clear, this, &Project::clearProject, unique);
}

void Project::setDocumentDisconnections() {
    // newp and open stay: the next new or opened project brings the others back.
    disconnect(document_, &Document::save, this, &Project::save);
    disconnect(document_, &Document::load, this, &Project::load);
    disconnect(document_, &Document::publish, this, &Project::publish);
    disconnect(document_, &Document::exportt, this, &Project::exportt);
    disconnect(document_, &Document::sceneCurrent, this, &Project::changeScene);
    disconnect(document_, &Document::clear, this, &Project::clearProject);
}

void Project::setSceneConnections() {
    if (!currentScene_)
        return;
    const auto unique = Qt::UniqueConnection;
    connect(currentScene_, &Scene::mediaRemoved, this, &Project::deleteMedia, unique);
    connect(currentScene_, &Scene::mediaCurrent, this, &Project::setCurrentMedia, unique);
    connect(currentScene_, &Scene::projectModified, this, &Project::projectModified, unique);
}

void Project::setSceneDisconnections() {
    if (!currentScene_)
        return;
    disconnect(currentScene_, &Scene::mediaRemoved, this, &Project::deleteMedia);
    disconnect(currentScene_, &Scene::mediaCurrent, this, &Project::setCurrentMedia);
    disconnect(currentScene_, &Scene::projectModified, this, &Project::projectModified);
}

void Project::changeScene(Scene* scene) {
    if (scene == currentScene_)
        return;
    setSceneDisconnections();
    currentScene_ = scene;
    setSceneConnections();
}

void Project::setCurrentMedia(Media* media) {
    currentMedia_ = media;
    if (media)
        connect(media, &Media::projectModified, this, &Project::projectModified);
}

void Project::clearProject() {
    const QList<Scene*> scenes = document_->getSceneAll().values();
    for (Scene* scene : scenes) {
        currentScene_ = scene;
        setSceneDisconnections();
    }
    currentScene_ = nullptr;
    setDocumentDisconnections();
}

void Project::projectModified() {
    document_->setModified(true);
}

void Project::deleteMedia(Media* media) {
    OperationsFile operations(document_);
    operations.deleteMedia(media);
}

// ---------------------------------------------------------------- thread operations

void Project::runOperation(Operation operation) {
    auto* thread = new QThread();
    auto* worker = new OperationsFile(document_);
    worker->moveToThread(thread);
    running_.removeAll(Running());
    running_.append({thread, worker});
    setThreadConnections(thread, worker, operation);
    progressBar_->setValue(0);
    progressDialog_->show();
    progressDialog_->setCursor(Qt::BusyCursor);
    thread->start(QThread::HighPriority);
}

void Project::setThreadConnections(QThread* thread, OperationsFile* worker, Operation operation) {
    const auto unique = Qt::UniqueConnection;
    switch (operation) {
    case Operation::save:
        connect(thread, &QThread::started, worker, [worker] { worker->saveProject(); });
        connect(worker, &OperationsFile::saveReport, this, &Project::saveReport, unique);
        break;
    case Operation::load:
        connect(thread, &QThread::started, worker, [worker] { worker->loadProject(); });
        connect(worker, &OperationsFile::loadReport, this, &Project::loadReport, unique);
        break;
    case Operation::exportHTML:
    case Operation::exportNCL:
        if (operation == Operation::exportHTML)
            connect(thread, &QThread::started, worker, &OperationsFile::exportProjectHTML, unique);
        else
            connect(thread, &QThread::started, worker, &OperationsFile::exportProjectNCL, unique);
        connect(worker, &OperationsFile::saveReport, this, &Project::saveReport, unique);
        connect(worker, &OperationsFile::exportReport, this, &Project::exportReport, unique);
        connect(worker, &OperationsFile::exportRefused, this, &Project::exportRefused, unique);
        break;
    case Operation::publish:
        connect(thread, &QThread::started, worker, &OperationsFile::publishProject, unique);
        connect(worker, &OperationsFile::saveReport, this, &Project::saveReport, unique);
        connect(worker, &OperationsFile::publishReport, this, &Project::publishReport, unique);
        break;
    default:
        return;
    }
    connect(worker, &OperationsFile::titleProgress, progressDialog_, &QWidget::setWindowTitle,
            unique);
    connect(worker, &OperationsFile::progress, progressBar_, &QProgressBar::setValue, unique);
    connect(worker, &OperationsFile::finished, thread, &QThread::quit, unique);
    connect(worker, &OperationsFile::finished, worker, &QObject::deleteLater, unique);
    connect(thread, &QThread::finished, thread, &QObject::deleteLater, unique);
    // The dialog goes with the thread, not with the report.
    connect(thread, &QObject::destroyed, progressDialog_, &QWidget::hide, unique);
}

// ---------------------------------------------------------------- save and load

void Project::save() {
    if (document_->getProjectName().isNull()) {
        saveAs();
        return;
    }
    runOperation(Operation::save);
}

void Project::saveAs() {
    for (;;) {
        QString name = QFileDialog::getSaveFileName(
            parent_, tr("Salvar Projeto como"), QDir::homePath(), tr("Selvora Project (*.svproj)"),
            nullptr, QFileDialog::DontUseNativeDialog);
        if (name.isNull())
            return;
        if (name.endsWith(kExtension, Qt::CaseInsensitive))
            name.remove(kExtension, Qt::CaseInsensitive);
        if (QDir(name).exists()) {
            QMessageBox::warning(nullptr, tr("Erro"),
                                 tr("Já existe um projeto com este nome neste diretório."));
            continue;
        }
        OperationsFile operations(document_);
        if (operations.makeProject(name)) {
            save();
            return;
        }
        QMessageBox::warning(nullptr, tr("Erro"),
                             tr("Você não tem permissão para salvar neste diretório."));
    }
}

void Project::load(const QString& path) {
    if (path.isEmpty() || !path.endsWith(kExtension))
        return;
    {
        // Opening a pipe or a device for a look could block for ever: only a regular file.
        QFile probe(path);
        if (!QFileInfo(path).isFile() || !probe.open(QIODevice::ReadOnly))
            return;
    }
    const QFileInfo info(path);
    document_->clearDocument();
    document_->setProjectDirectory(info.absoluteDir().absolutePath());
    document_->setProjectName(info.fileName());

    auto* worker = new OperationsFile(document_);
    loadReport(worker->loadProject());
    worker->deleteLater();

    // Whatever the outcome: a file without scenes still enters the list.
    updateRecentFiles(info.absoluteFilePath());
}

void Project::updateRecentFiles(const QString& absolutePath) {
    QSettings settings;
    QStringList files = settings.value(kRecentFiles).toStringList();
    files.removeAll(absolutePath);
    files.prepend(absolutePath);
    while (files.size() > Definitions::getMaxRecentFiles())
        files.removeLast();
    settings.setValue(kRecentFiles, files);
    document_->updateRecentFiles();
}

void Project::loadReport(const QString& report) {
    if (report == QLatin1String("openError")) {
        QMessageBox::critical(nullptr, tr("Erro"), tr("Não foi possível abrir o projeto."));
        document_->newProject();
        return;
    }
    if (report == QLatin1String("sizeError")) {
        QMessageBox::critical(nullptr, tr("Erro"), sizeLimitText());
        document_->newProject();
        return;
    }
    if (report == QLatin1String("noScenes")) {
        QMessageBox::information(nullptr, tr("Atenção"), tr("Esse projeto não possui cenas."));
        document_->newProject();
        return;
    }
    const QList<Scene*> ordered = document_->getSceneAllInOrder();
    changeScene(ordered.isEmpty() ? nullptr : ordered.first());
    document_->openProject();
}

QString Project::sizeLimitText() {
    const QLocale brazil(QLocale::Portuguese, QLocale::Brazil);
    return tr("O projeto é grande demais para ser aberto: o limite é de %1 MB e de %2 "
              "elementos.")
        .arg(ProjectScan::kMaxFileBytes / (1024 * 1024))
        .arg(brazil.toString(ProjectScan::kMaxElements));
}

void Project::saveReport(const QString& kind, const QString& path) {
    if (kind == QLatin1String("readError"))
        QMessageBox::critical(
            nullptr, tr("Erro"),
            tr("Você não tem permissão para ler o arquivo <b>\"%1\"</b>.").arg(path));
    else if (kind == QLatin1String("writeError"))
        QMessageBox::critical(
            nullptr, tr("Erro"),
            tr("Você não tem permissão para salvar o arquivo <b>\"%1\"</b>.").arg(path));
}

// ---------------------------------------------------------------- export and publish

void Project::exportt(Definitions::kTypeExport type) {
    runOperation(type == Definitions::kTypeExport::HTML ? Operation::exportHTML
                                                        : Operation::exportNCL);
}

void Project::publish() {
    runOperation(Operation::publish);
}

void Project::exportReport(QNetworkReply::NetworkError error, const QString& extension) {
    const QString file =
        QFileInfo(document_->getProjectName()).baseName().toHtmlEscaped() + extension;
    if (error == QNetworkReply::NoError && extension == QLatin1String(".html")) {
        QMessageBox box(QMessageBox::Information, tr("Exportação"),
                        tr("<h2>Projeto exportado com sucesso.</h2><p>O arquivo <b>%1</b> já se "
                           "encontra na pasta do projeto.<p>Deseja abrir o arquivo no browser "
                           "padrão do seu computador?")
                            .arg(file),
                        QMessageBox::Yes | QMessageBox::No, nullptr,
                        Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint);
        box.button(QMessageBox::Yes)->setText(tr("Sim"));
        box.button(QMessageBox::No)->setText(tr("Não"));
        box.setDefaultButton(QMessageBox::Yes);
        if (box.exec() == QMessageBox::Yes)
            QDesktopServices::openUrl(
                QUrl::fromLocalFile(document_->getProjectDirectory() + QLatin1Char('/') +
                                    QFileInfo(document_->getProjectName()).baseName() + extension));
    } else if (error == QNetworkReply::NoError) {
        QMessageBox::information(nullptr, tr("Exportação"),
                                 tr("<h2>Projeto exportado com sucesso.</h2><p>Acesse a pasta do "
                                    "seu projeto e execute o arquivo <b>%1</b>.")
                                     .arg(file));
    } else if (error == QNetworkReply::OperationCanceledError) {
        QMessageBox::information(nullptr, tr("Exportação"),
                                 tr("<h2>Erro de conexão</h2><p>Sua conexão com a internet está "
                                    "muito lenta. Tente publicar mais tarde."));
    } else {
        QMessageBox::information(nullptr, tr("Exportação"),
                                 tr("<h2>Erro de conexão</h2><p>Impossível conectar ao servidor. "
                                    "Verifique sua conexão com a internet."));
    }
}

void Project::exportRefused(const QString& message) {
    QMessageBox::warning(nullptr, tr("Exportação"), message.toHtmlEscaped());
}

void Project::publishReport(int exitCode) {
    if (exitCode != 0) {
        // A failed packer: the wording is the one users have always read here.
        QMessageBox::information(nullptr, tr("Publicação para Web"),
                                 tr("<h2>Erro de conexão</h2><p>Sua conexão com a internet está "
                                    "muito lenta. Tente publicar mais tarde."));
        return;
    }
    QMessageBox::information(
        nullptr, tr("Compactação do Projeto"),
        tr("<h2>Projeto compactado.</h2><p>Acesse a pasta do seu projeto e faça a submissão do "
           "arquivo <b>%1</b> para o portal de Videoaula da RNP.")
            .arg(QFileInfo(document_->getProjectName()).baseName().toHtmlEscaped() +
                 QStringLiteral(".zip")));
    const QUrl portal = ServiceAddresses::portalUrl();
    if (!portal.isEmpty())
        QDesktopServices::openUrl(portal);
}

} // namespace project
} // namespace selvora
