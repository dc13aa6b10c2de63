#ifndef SELVORA_PROJECT_RECOVERY_H
#define SELVORA_PROJECT_RECOVERY_H

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

#include <memory>

class QLockFile;
class QWidget;

namespace selvora {
namespace document {
class Document;
class Media;
} // namespace document

namespace project {

// Keeps a copy of the open project while it has unsaved changes, so that a crash or a kill
// loses at most the last interval of work. The copy lives in a folder of its own under the
// user's data location (never in the project folder), held by a lock while this program runs;
// at the next start a copy whose program is gone is offered back. A save, or a clean exit,
// removes it.
class Recovery : public QObject {
    Q_OBJECT
public:
    // How often a modified project is copied.
    static constexpr int kIntervalMs = 2 * 60 * 1000;

    // The dialogs take parent's window; the copy starts on the next event-loop turn.
    Recovery(document::Document* document, QWidget* parent = nullptr);
    ~Recovery() override;

    // For tests and the test helper: the interval of the objects made afterwards; 0 restores
    // kIntervalMs.
    static void setInterval(int ms);

    // Where the copies of all programs stand, one sub-folder each.
    static QString rootFolder();
    // The project file of this program's copy (it exists only while a copy is kept).
    QString copyFile() const;

public slots:
    // Writes the copy now when the project has unsaved changes.
    void writeCopy();
    // Asks about the newest copy left by a program that is gone, and recovers it on "Recuperar".
    void offer();

private:
    bool ensureSession();
    bool operationRunning() const;
    void watch();
    void removeCopy();
    // Removes this program's folder, or, with mayKeep, keeps the copy of a save still running.
    void endSession(bool mayKeep);
    QString copyMedia(const document::Media* media);
    bool recover(const QString& folder, std::unique_ptr<QLockFile> lock);

    QPointer<document::Document> document_;
    QPointer<QWidget> parent_;
    QTimer timer_;
    QTimer watch_;
    QString folder_;
    std::unique_ptr<QLockFile> lock_;
    QString lastText_;
    bool hasCopy_ = false;
    // A copy put off while a save ran is written as soon as it ends.
    bool retry_ = false;
    // Media files already copied, by copy name: the source and its size and time when copied.
    QHash<QString, QString> copied_;
};

} // namespace project
} // namespace selvora

#endif
