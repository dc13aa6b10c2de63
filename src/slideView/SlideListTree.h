#ifndef SELVORA_SLIDEVIEW_SLIDELISTTREE_H
#define SELVORA_SLIDEVIEW_SLIDELISTTREE_H

#include "app/Definitions.h"

#include <QHash>
#include <QPixmap>
#include <QPointer>
#include <QStringList>
#include <QTreeWidget>

class QAction;
class QComboBox;
class QDialog;
class QLineEdit;

namespace selvora {
namespace document {
class Document;
class Scene;
class Sync;
} // namespace document

namespace slideView {

class SceneThumbnail;
class SlideListTreeChild;
class SlideListTreeRoot;

// The scenes of the project in play order, one row each, with a row under a scene for each of
// its automatic links. It both follows the current scene and makes one current.
class SlideListTree : public QTreeWidget {
    Q_OBJECT
public:
    SlideListTree(document::Document* document, QWidget* parent);

    static int timeSeconds(const QStringList& parts);

    QTreeWidgetItem* itemOf(int sceneId) const;
    SlideListTreeRoot* rootOf(int sceneId) const;
    SlideListTreeChild* childOf(const document::Sync* sync) const;
    SceneThumbnail* getThumbnails() const { return thumbnails_; }

public slots:
    void newScene(selvora::document::Scene* scene = nullptr);
    void changeScene(QTreeWidgetItem* current, QTreeWidgetItem* previous);
    void renameScene();
    void saveRenameScene();
    void setLinkAutomatic();
    void saveLinkAutomaticMedia();
    void newLink(selvora::document::Sync* sync = nullptr);
    void removeLink(selvora::document::Sync* sync);
    void changeScene(int id);
    void load();
    void updateOrder();
    void removeScene(int id);
    bool removeScene();
    void clearList();
    // A standard layout asked for through the document: placed on the current scene as its
    // row's palette places it.
    void insertLayout(selvora::Definitions::kLayoutType type);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void setPicture(int sceneId, const QPixmap& picture);

private:
    void createActions();
    void createContextMenu();
    void setConnections();
    void setDisconnections();
    void setDocumentConnections();
    void setDocumentDisconnections();
    void setSceneConnections(document::Scene* scene);
    void setSceneDisconnections(document::Scene* scene);
    void addLinkRow(document::Scene* scene, document::Sync* sync);
    // Cuts the rows of an item (and of its links) off before they go, so that a field losing
    // the focus as its row is torn down edits nothing.
    void detachRows(QTreeWidgetItem* item);
    // Every row goes, none of them taken for the user's choice of a scene.
    void dropRows();
    // An information box with an Ok button.
    static void inform(QWidget* parent, const QString& title, const QString& text);

    document::Document* document_;
    QPointer<document::Scene> scene_;
    // By object: the history may put back syncs that share an id.
    QHash<const document::Sync*, QTreeWidgetItem*> links_;
    QAction* addAction_ = nullptr;
    QAction* removeAction_ = nullptr;
    QAction* renameAction_ = nullptr;
    QAction* upAction_ = nullptr;
    QAction* downAction_ = nullptr;
    QAction* linkAction_ = nullptr;
    QPointer<QDialog> linkDialog_;
    QPointer<QDialog> renameDialog_;
    QComboBox* linkTarget_ = nullptr;
    QLineEdit* linkTime_ = nullptr;
    QLineEdit* linkEvent_ = nullptr;
    QLineEdit* renameEdit_ = nullptr;
    QPointer<document::Scene> renamed_;
    SceneThumbnail* thumbnails_ = nullptr;
};

} // namespace slideView
} // namespace selvora

#endif
