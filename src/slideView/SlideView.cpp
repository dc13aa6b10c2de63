#include "slideView/SlideView.h"

#include "app/TwoStageToolTip.h"
#include "document/Document.h"
#include "document/Scene.h"
#include "slideView/SlideListTree.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace selvora {
namespace slideView {

using document::Document;
using document::Scene;

namespace {
// In the order of the buttons: add, remove, up, down, link.
const TwoStageToolTip::Button kButtons[] = {
    {":/imagens/icones-Selvora_01", QT_TRANSLATE_NOOP("SlideView", "Adicionar Cena"),
     QT_TRANSLATE_NOOP("SlideView",
                       "Adicionar Cena:<br/><br/><font size=\"2\">Insere uma nova cena vazia no "
                       "fim da lista de Cenas.</font>")},
    {":/imagens/icones-Selvora_02", QT_TRANSLATE_NOOP("SlideView", "Remover Cena"),
     QT_TRANSLATE_NOOP("SlideView", "Remover Cena:<br/><br/><font size=\"2\">Remove a cena "
                                    "selecionada da lista de Cenas.</font>")},
    {":/imagens/up", QT_TRANSLATE_NOOP("SlideView", "Enviar Cena para cima"),
     QT_TRANSLATE_NOOP("SlideView",
                       "Enviar Cena para cima:<br/><br/><font size=\"2\">Altera a posição da cena "
                       "selecionada na lista, fazendo-a subir uma posição.</font>")},
    {":/imagens/down", QT_TRANSLATE_NOOP("SlideView", "Enviar Cena para baixo"),
     QT_TRANSLATE_NOOP("SlideView",
                       "Enviar Cena para baixo:<br/><br/><font size=\"2\">Altera a posição da "
                       "cena selecionada na lista, fazendo-a descer uma posição.</font>")},
    {":/imagens/link", QT_TRANSLATE_NOOP("SlideView", "Criar elo automático entre Cenas"),
     QT_TRANSLATE_NOOP("SlideView",
                       "Criar elo automático entre Cenas:<br/><br/><font size=\"2\">Permite "
                       "configurar transições automáticas entre uma cenas.</font>")}};
} // namespace

SlideView::SlideView(Document* document, QWidget* parent)
    : QWidget(parent), document_(document), scene_(document->getScene(-1)) {
    tree_ = new SlideListTree(document_, this);
    toolTip_ = new TwoStageToolTip(this);
    createObjects();
    createLayout();
    setConnections();
    setDocumentConnections();
    setSceneConnections();
}

QList<QPushButton*> SlideView::getButtons() const {
    return {addButton_, removeButton_, upButton_, downButton_, linkButton_};
}

void SlideView::createObjects() {
    QPushButton** buttons[] = {&addButton_, &removeButton_, &upButton_, &downButton_, &linkButton_};
    for (int i = 0; i < 5; ++i)
        *buttons[i] = toolTip_->addButton(this, "SlideView", kButtons[i]);
}

void SlideView::createLayout() {
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : getButtons())
        buttons->addWidget(button);
    buttons->addStretch();
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    column->addLayout(buttons);
    column->addWidget(tree_);
    auto* tabs = new QTabWidget(this);
    tabs->setMovable(true);
    tabs->setTabPosition(QTabWidget::North);
    tabs->setTabShape(QTabWidget::Rounded);
    tabs->addTab(page, tr("Cenas"));
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(tabs);
}

void SlideView::setConnections() {
    connect(addButton_, &QPushButton::clicked, this, [this] { document_->createScene(-1); });
    connect(removeButton_, &QPushButton::clicked, this, [this] { removeScene(); });
    connect(upButton_, &QPushButton::clicked, this, [this] {
        if (Scene* scene = document_->getScene(-1))
            document_->sendSceneUp(scene->getId());
    });
    connect(downButton_, &QPushButton::clicked, this, [this] {
        if (Scene* scene = document_->getScene(-1))
            document_->sendSceneDown(scene->getId());
    });
    connect(linkButton_, &QPushButton::clicked, tree_, &SlideListTree::setLinkAutomatic);
}

void SlideView::setDocumentConnections() {
    connect(document_, &Document::sceneCurrent, this, &SlideView::changeScene,
            Qt::UniqueConnection);
    connect(document_, &Document::clear, this, &SlideView::clearList, Qt::UniqueConnection);
}

void SlideView::setSceneConnections() {
    if (scene_)
        connect(scene_, &Scene::playerStatus, this, &SlideView::slideViewStatus,
                Qt::UniqueConnection);
}

void SlideView::setSceneDisconnections() {
    if (scene_)
        disconnect(scene_, &Scene::playerStatus, this, &SlideView::slideViewStatus);
}

void SlideView::clearList() {
    setSceneDisconnections();
    scene_ = nullptr;
}

void SlideView::changeScene(Scene* scene) {
    if (scene == scene_)
        return;
    clearList();
    scene_ = scene;
    setSceneConnections();
}

void SlideView::slideViewStatus(Definitions::kPlayerStatus status) {
    switch (status) {
    case Definitions::kPlayerStatus::play:
        setEnabled(false);
        break;
    case Definitions::kPlayerStatus::pause:
    case Definitions::kPlayerStatus::stop:
        setEnabled(true);
        break;
    }
}

bool SlideView::removeScene() {
    if (document_->getCountScenes() == 1) {
        QMessageBox box(QMessageBox::Information, tr("Remover Cena"),
                        tr("A lista de cenas não pode ficar vazia."), QMessageBox::Ok);
        box.exec();
        return false;
    }
    Scene* current = document_->getScene(-1);
    if (!current)
        return false;
    const int id = current->getId();
    QMessageBox box(QMessageBox::Question, tr("Remover Cena"),
                    tr("Deseja mesmo remover a cena \"%1\"?\n").arg(current->getLabel()),
                    QMessageBox::Yes | QMessageBox::No);
    box.button(QMessageBox::Yes)->setText(tr("Sim"));
    box.button(QMessageBox::No)->setText(tr("Não"));
    if (box.exec() != QMessageBox::Yes)
        return false;
    // By id: the scene may have gone while the question was open.
    return document_->removeScene(id);
}

bool SlideView::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip)
        toolTip_->showAtPointer();
    return QWidget::event(event);
}

} // namespace slideView
} // namespace selvora
