#ifndef SELVORA_PROJECT_OPERATIONSFILE_H
#define SELVORA_PROJECT_OPERATIONSFILE_H

#include <QObject>
#include <QPointer>
#include <QString>

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

public slots:
    void saveProject(bool finish = true);
    QString loadProject();

signals:
    void saveReport(QString kind, QString path);
    void loadReport(QString report);
    void titleProgress(QString title);
    void progress(int value);
    void finished();
    void signalUpdate(int value);

private:
    bool isInProjectStore(const QString& path) const;

    document::Document* document_;
    QPointer<document::Scene> currentScene_;
    QPointer<document::Media> currentMedia_;
};

} // namespace project
} // namespace selvora

#endif
