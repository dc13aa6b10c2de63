#ifndef SELVORA_PROJECT_OPERATIONSFILE_H
#define SELVORA_PROJECT_OPERATIONSFILE_H

#include "app/Definitions.h"

#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>

class QNetworkAccessManager;
class QProcess;

namespace selvora {
namespace document {
class Document;
class Media;
class Scene;
} // namespace document

namespace project {

// The file work of one operation: writing and reading the project file and keeping the media
// folder. One object per operation; a save runs it on a thread of its own and it touches no
// widget, so that its effects reach the screen only through its queued signals.
class OperationsFile : public QObject {
    Q_OBJECT
public:
    explicit OperationsFile(document::Document* document, QObject* parent = nullptr);
    ~OperationsFile() override;

    // Creates the project folder and its medias tree and names the project after the folder.
    bool makeProject(const QString& path);
    // Brings one medium into the medias tree (copied once; text and shape rendered each time).
    bool saveMedia(document::Scene* scene, document::Media* media);
    // Removes the stored file of a medium, only when it lies in the project's own store.
    void deleteMedia(document::Media* media);

    // The last three parts of a stored path, each preceded by "/": what `src` holds.
    static QString projectRelativePath(const QString& pathProject);
    // What `src` holds: the path below the project folder when the medium lies in it, the last
    // three parts otherwise.
    static QString sourceInFile(const QString& directory, const QString& pathProject);
    // What the packer is given, run in the project folder without a shell: the archive named
    // after the project file, and the exclusions of databases, backups, leftovers and exports.
    static QStringList zipArguments(const QString& projectName);
    // A name as it can stand between the quotes of a form field: quote and line ends escaped.
    static QString formFieldText(const QString& text);

public slots:
    void saveProject(bool finish = true);
    QString loadProject();
    void exportProjectHTML();
    void exportProjectNCL();
    void publishProject();
    void UploadDone();
    void UploadError(QNetworkReply::NetworkError error);
    void printProgress();
    void printFinished(int exitCode);

signals:
    void saveReport(QString kind, QString path);
    void loadReport(QString report);
    void titleProgress(QString title);
    void progress(int value);
    void exportReport(QNetworkReply::NetworkError error, QString extension);
    // No conversion service is configured: nothing was exported.
    // The export made without a service could not be written; the text says why.
    void exportRefused(QString message);
    void publishReport(int exitCode);
    void finished();
    void signalUpdate(int value);

private:
    bool isInProjectStore(const QString& path) const;
    void exportProject(Definitions::kTypeExport type);
    // The export where the deployment names no conversion service.
    void exportWithoutService(Definitions::kTypeExport type);
    // Emits finished() once, however many ends an operation reaches.
    void endOperation();

    document::Document* document_;
    QPointer<document::Scene> currentScene_;
    QPointer<document::Media> currentMedia_;

    QString exportType_;
    QNetworkAccessManager* manager_ = nullptr;
    QPointer<QNetworkReply> reply_;
    QString baseName_;
    QString path_;
    QProcess* process_ = nullptr;
    float rateProgress_ = 0;
    float progressValue_ = 0;
    int totalFiles_ = 0;
    bool ended_ = false;
};

} // namespace project
} // namespace selvora

#endif
