#ifndef SELVORA_SLIDEVIEW_SLIDEVIEW_H
#define SELVORA_SLIDEVIEW_SLIDEVIEW_H

#include "app/Definitions.h"

#include <QPointer>
#include <QWidget>

class QPushButton;

namespace selvora {
class TwoStageToolTip;

namespace document {
class Document;
class Scene;
} // namespace document

namespace slideView {

class SlideListTree;

// The dock of the scene list: a row of buttons over the tree of scenes, on a tab "Cenas".
class SlideView : public QWidget {
    Q_OBJECT
public:
    SlideView(document::Document* document, QWidget* parent);

    SlideListTree* getTree() const { return tree_; }
    // Add, remove, up, down and link, left to right.
    QList<QPushButton*> getButtons() const;

public slots:
    void clearList();
    void changeScene(selvora::document::Scene* scene);
    void slideViewStatus(selvora::Definitions::kPlayerStatus status);
    bool removeScene();

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
    SlideListTree* tree_ = nullptr;
    QPushButton* addButton_ = nullptr;
    QPushButton* removeButton_ = nullptr;
    QPushButton* upButton_ = nullptr;
    QPushButton* downButton_ = nullptr;
    QPushButton* linkButton_ = nullptr;
    TwoStageToolTip* toolTip_ = nullptr;
};

} // namespace slideView
} // namespace selvora

#endif
