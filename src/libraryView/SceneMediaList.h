#ifndef SELVORA_LIBRARYVIEW_SCENEMEDIALIST_H
#define SELVORA_LIBRARYVIEW_SCENEMEDIALIST_H

#include "app/Definitions.h"
#include "libraryView/RowList.h"

#include <QHash>
#include <QList>
#include <QListWidget>
#include <QPoint>
#include <QPointer>

class QAction;
class QMenu;
class QMimeData;

namespace selvora {
namespace document {
class Document;
class Media;
class Scene;
} // namespace document

namespace libraryView {

class SceneMediaItem;

// What the layer list and the media list share: rows of the current scene's media that follow
// its labels, pictures and current media, the rename dialog, removal, and the drag of a row.
class SceneMediaList : public RowList {
    Q_OBJECT
public:
    SceneMediaList(document::Document* document, QWidget* parent);

    document::Scene* getScene() const { return scene_; }
    QMenu* getContextMenu() const { return contextMenu_; }
    SceneMediaItem* getItem(int id) const { return items_.value(id, nullptr); }
    // The payload of a drag of that row.
    virtual QMimeData* dragData(SceneMediaItem* item) const = 0;

public slots:
    void sceneChanged(selvora::document::Scene* scene);
    virtual void setPropertiesEnableState(selvora::Definitions::kPlayerStatus status);
    // A media added to the scene: the layer list puts its row in stacking order at once.
    void addItem(selvora::document::Media* media) { addItem(media, true); }
    virtual void addItem(selvora::document::Media* media, bool reorder) = 0;
    virtual void removeItem(int id);
    void itemSelected(int id);
    void updateItemSource(int id);
    void updateItemLabel(int id, QString oldLabel, QString newLabel);
    void mediaSelected(QListWidgetItem* item);
    void mediaTextChanged(QListWidgetItem* item);
    void contextRename();
    void contextRemoveMedia();

protected:
    virtual void load() = 0;
    virtual void setSceneConnections();
    void setSceneDisconnections();
    void setMediaConnections(document::Media* media);
    void setMediaDisconnections(document::Media* media);
    void clearList();
    QAction* addContextAction(const QString& text, const QString& icon);
    SceneMediaItem* itemOf(QListWidgetItem* item) const;
    // The row a command works on: the selected one, or the one under the last press.
    SceneMediaItem* commandItem() const;
    virtual Qt::DropActions dragActions() const = 0;

    void contextMenuEvent(QContextMenuEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

    document::Document* document_;
    QPointer<document::Scene> scene_;
    QMenu* contextMenu_;
    QHash<int, SceneMediaItem*> items_;

private:
    void setDocumentConnections();
    void setConnections();
};

} // namespace libraryView
} // namespace selvora

#endif
