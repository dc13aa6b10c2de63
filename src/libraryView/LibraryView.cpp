#include "libraryView/LibraryView.h"

#include "app/TwoStageToolTip.h"
#include "document/Document.h"
#include "document/Scene.h"
#include "libraryView/LayerList.h"
#include "libraryView/LibraryList.h"
#include "libraryView/MediaList.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace selvora {
namespace libraryView {

using document::Document;
using document::Scene;

namespace {
// In the order of the buttons: up, down, duplicate, insert, import.
const TwoStageToolTip::Button kButtons[] = {
    {":/imagens/up", QT_TRANSLATE_NOOP("LibraryView", "Subir uma camada"),
     QT_TRANSLATE_NOOP("LibraryView", "Subir uma camada:<p><p><font size=\"2\">Move a mídia uma "
                                      "camada para cima.</font></p></p>")},
    {":/imagens/down", QT_TRANSLATE_NOOP("LibraryView", "Descer uma camada"),
     QT_TRANSLATE_NOOP("LibraryView", "Descer uma camada:<p><p><font size=\"2\">Move a mídia uma "
                                      "camada para baixo.</font></p></p>")},
    {":/imagens/copy", QT_TRANSLATE_NOOP("LibraryView", "Duplicar mídia"),
     QT_TRANSLATE_NOOP("LibraryView", "Duplicar mídia:<p><p><font size=\"2\">Duplica a mídia da "
                                      "cena.</font></p></p>")},
    {":/imagens/insert", QT_TRANSLATE_NOOP("LibraryView", "Inserir mídia"),
     QT_TRANSLATE_NOOP("LibraryView", "Inserir mídia:<p><p><font size=\"2\">Insere a mídia na "
                                      "cena.</font></p></p>")},
    {":/imagens/import", QT_TRANSLATE_NOOP("LibraryView", "Importar mídia"),
     QT_TRANSLATE_NOOP("LibraryView", "Importar mídia:<p><p><font size=\"2\">Importa mídias para "
                                      "a biblioteca.</font></p></p>")}};
} // namespace

LibraryView::LibraryView(Document* document, QWidget* parent)
    : QWidget(parent), document_(document), scene_(document->getScene(-1)),
      layerList_(new LayerList(document, this)), mediaList_(new MediaList(document, this)),
      libraryList_(new LibraryList(document, this)), toolTip_(new TwoStageToolTip(this)) {
    createObjects();
    createLayout();
    setConnections();
    setDocumentConnections();
    setSceneConnections();
}

QList<QPushButton*> LibraryView::getButtons() const {
    return {upButton_, downButton_, duplicateButton_, insertButton_, importButton_};
}

void LibraryView::createObjects() {
    QPushButton** buttons[] = {&upButton_, &downButton_, &duplicateButton_, &insertButton_,
                               &importButton_};
    for (int i = 0; i < 5; ++i)
        *buttons[i] = toolTip_->addButton(this, "LibraryView", kButtons[i]);
}

void LibraryView::createLayout() {
    tabs_ = new QTabWidget(this);
    tabs_->setMovable(true);
    tabs_->setTabPosition(QTabWidget::North);
    tabs_->setTabShape(QTabWidget::Rounded);
    // Three tabs, always whole: the dock is at least as wide as their titles, with no arrows.
    tabs_->setUsesScrollButtons(false);
    tabs_->setElideMode(Qt::ElideNone);
    const auto page = [this](const QList<QPushButton*>& buttons, QWidget* list) {
        auto* widget = new QWidget(this);
        auto* row = new QHBoxLayout;
        for (QPushButton* button : buttons)
            row->addWidget(button);
        row->addStretch();
        auto* column = new QVBoxLayout(widget);
        column->addLayout(row);
        column->addWidget(list);
        return widget;
    };
    layerPage_ = page({upButton_, downButton_}, layerList_);
    mediaPage_ = page({duplicateButton_}, mediaList_);
    libraryPage_ = page({insertButton_, importButton_}, libraryList_);
    tabs_->addTab(layerPage_, tr("Camadas"));
    tabs_->addTab(mediaPage_, tr("Mídias da cena"));
    tabs_->addTab(libraryPage_, tr("Biblioteca"));
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(tabs_);
}

void LibraryView::setConnections() {
    connect(upButton_, &QPushButton::clicked, layerList_, &LayerList::contextLayerUp);
    connect(downButton_, &QPushButton::clicked, layerList_, &LayerList::contextLayerDown);
    connect(duplicateButton_, &QPushButton::clicked, mediaList_, &MediaList::contextDuplicateMedia);
    connect(insertButton_, &QPushButton::clicked, libraryList_, &LibraryList::contextInsertMedia);
    connect(importButton_, &QPushButton::clicked, libraryList_, &LibraryList::contextImportMedias);
}

void LibraryView::setDocumentConnections() {
    connect(document_, &Document::sceneCurrent, this, &LibraryView::changeScene,
            Qt::UniqueConnection);
    connect(document_, &Document::sceneRemovedId, this, &LibraryView::removeScene,
            Qt::UniqueConnection);
}

void LibraryView::setSceneConnections() {
    if (scene_)
        connect(scene_, &Scene::playerStatus, this, &LibraryView::libraryViewStatus,
                Qt::UniqueConnection);
}

void LibraryView::setSceneDisconnections() {
    if (scene_)
        disconnect(scene_, &Scene::playerStatus, this, &LibraryView::libraryViewStatus);
}

void LibraryView::changeScene(Scene* scene) {
    setSceneDisconnections();
    scene_ = scene;
    setSceneConnections();
}

void LibraryView::removeScene(int id) {
    if (scene_ && scene_->getId() == id) {
        setSceneDisconnections();
        scene_ = nullptr;
    }
}

void LibraryView::libraryViewStatus(Definitions::kPlayerStatus status) {
    setEnabled(status != Definitions::kPlayerStatus::play);
}

// Only the buttons of the tab in front are asked.
bool LibraryView::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip)
        toolTip_->showAtPointer(tabs_->currentWidget());
    return QWidget::event(event);
}

} // namespace libraryView
} // namespace selvora
