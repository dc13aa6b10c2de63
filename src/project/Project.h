#ifndef SELVORA_PROJECT_PROJECT_H
#define SELVORA_PROJECT_PROJECT_H

#include "app/Definitions.h"

#include <QList>
#include <QNetworkReply>
#include <QPointer>
#include <QString>
#include <QWidget>

class QDialog;
class QProgressBar;
class QThread;

namespace selvora {
namespace document {
class Document;
class Media;
class Scene;
} // namespace document

namespace project {

class OperationsFile;

// The invisible controller that turns the document's requests into file work: it asks for a
// name, runs the save on a worker thread behind a progress dialog that cannot be closed, loads
// on the main thread, and shows the outcome to the user.
class Project : public QWidget {
    Q_OBJECT
public:
    Project(document::Document* document, QWidget* parent = nullptr);
    ~Project() override;

    QDialog* getProgressDialog() const { return progressDialog_; }
    // What the user reads when a file passes the reader's limits; the limits are named in it.
    static QString sizeLimitText();

public slots:
    void save();
    void saveAs();
    void load(const QString& path);
    void publish();
    void exportt(selvora::Definitions::kTypeExport type);
    void clearProject();
    void saveReport(const QString& kind, const QString& path);
    void loadReport(const QString& report);
    void publishReport(int exitCode);
    void exportReport(QNetworkReply::NetworkError error, const QString& extension);
    void exportRefused(const QString& message);
    void projectModified();
    void changeScene(selvora::document::Scene* scene);
    void setCurrentMedia(selvora::document::Media* media);
    void deleteMedia(selvora::document::Media* media);
    void setDocumentConnections();

protected:
    // Keeps the progress dialog open against Escape and the window's close.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setDocumentDisconnections();
    void setSceneConnections();
    void setSceneDisconnections();
    void runOperation(Definitions::kThreadOperations operation);
    void setThreadConnections(QThread* thread, OperationsFile* worker,
                              Definitions::kThreadOperations operation);
    void updateRecentFiles(const QString& absolutePath);

    document::Document* document_;
    QPointer<document::Scene> currentScene_;
    QPointer<document::Media> currentMedia_;
    QWidget* parent_;
    QDialog* progressDialog_;
    QProgressBar* progressBar_;
    // The operations started and not known to be over.
    struct Running {
        QPointer<QThread> thread;
        QPointer<OperationsFile> worker;
        bool operator==(const Running& other) const;
    };
    QList<Running> running_;
};

} // namespace project
} // namespace selvora

#endif
