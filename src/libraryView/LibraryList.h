#ifndef SELVORA_LIBRARYVIEW_LIBRARYLIST_H
#define SELVORA_LIBRARYVIEW_LIBRARYLIST_H

#include "app/Definitions.h"
#include "libraryView/RowList.h"

#include <QList>
#include <QListWidget>
#include <QPoint>
#include <QPointer>
#include <QStringList>

class QAction;
class QMenu;
class QMimeData;

namespace selvora {
namespace document {
class Document;
class Scene;
} // namespace document

namespace libraryView {

class LibraryListItem;

// The project's media files, kept by the document: imported here, dragged or inserted into the
// current scene. The library belongs to the project, not to a scene.
class LibraryList : public RowList {
    Q_OBJECT
public:
    // Refused files named in one message at most; the rest are counted.
    static constexpr int kNamedRefusals = 10;

    LibraryList(document::Document* document, QWidget* parent);

    QList<LibraryListItem*> getItems() const { return items_; }
    QMenu* getContextMenu() const { return contextMenu_; }
    QMimeData* dragData(const LibraryListItem* item) const;
    // Adds the files that can be media; the others are named in one warning. Returns how many
    // were taken.
    int importFiles(const QStringList& files);

public slots:
    void sceneChanged(selvora::document::Scene* scene);
    void clearLibraryList();
    void setPropertiesEnableState(selvora::Definitions::kPlayerStatus status);
    void addItem(QString path);
    void removeItem(QString path);
    void contextInsertMedia();
    void contextImportMedias();
    void contextRemoveMedia();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void load();
    void createActions();
    void createContextMenu();
    void setDocumentConnections();
    void setSceneConnections();
    void setSceneDisconnections();
    LibraryListItem* itemOf(QListWidgetItem* item) const;
    static QString refusal(const QString& file);

    document::Document* document_;
    QPointer<document::Scene> scene_;
    QAction* insertAction_ = nullptr;
    QAction* importAction_ = nullptr;
    QAction* deleteAction_ = nullptr;
    QMenu* contextMenu_ = nullptr;
    QList<LibraryListItem*> items_;
};

} // namespace libraryView
} // namespace selvora

#endif
