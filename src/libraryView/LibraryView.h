#ifndef SELVORA_LIBRARYVIEW_LIBRARYVIEW_H
#define SELVORA_LIBRARYVIEW_LIBRARYVIEW_H

#include "app/Definitions.h"

#include <QList>
#include <QPointer>
#include <QWidget>

class QPushButton;
class QTabWidget;

namespace selvora {
class TwoStageToolTip;
namespace document {
class Document;
class Scene;
} // namespace document

namespace libraryView {

class LayerList;
class LibraryList;
class MediaList;

// The library dock: the layers of the scene, the media of the scene and the project's files,
// one tab each, with a row of buttons over each list.
class LibraryView : public QWidget {
    Q_OBJECT
public:
    LibraryView(document::Document* document, QWidget* parent);

    LayerList* getLayerList() const { return layerList_; }
    MediaList* getMediaList() const { return mediaList_; }
    LibraryList* getLibraryList() const { return libraryList_; }
    QTabWidget* getTabs() const { return tabs_; }
    // Up, down, duplicate, insert and import, in that order.
    QList<QPushButton*> getButtons() const;

public slots:
    void changeScene(selvora::document::Scene* scene);
    void removeScene(int id);
    void libraryViewStatus(selvora::Definitions::kPlayerStatus status);

protected:
    bool event(QEvent* event) override;

private:
    void createObjects();
    void createLayout();
    void setConnections();
    void setDocumentConnections();
    void setSceneConnections();
    void setSceneDisconnections();

    document::Document* document_;
    QPointer<document::Scene> scene_;
    LayerList* layerList_;
    MediaList* mediaList_;
    LibraryList* libraryList_;
    QPushButton* upButton_ = nullptr;
    QPushButton* downButton_ = nullptr;
    QPushButton* duplicateButton_ = nullptr;
    QPushButton* insertButton_ = nullptr;
    QPushButton* importButton_ = nullptr;
    TwoStageToolTip* toolTip_;
    QTabWidget* tabs_ = nullptr;
    QWidget* layerPage_ = nullptr;
    QWidget* mediaPage_ = nullptr;
    QWidget* libraryPage_ = nullptr;
};

} // namespace libraryView
} // namespace selvora

#endif
