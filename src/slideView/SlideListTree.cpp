#include "slideView/SlideListTree.h"

#include "app/Definitions.h"
#include "app/TimeText.h"
#include "document/Document.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "slideView/SceneThumbnail.h"
#include "slideView/SlideListTreeChild.h"
#include "slideView/SlideListTreeRoot.h"

#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace selvora {
namespace slideView {

using document::Document;
using document::Scene;
using document::Sync;

namespace {
constexpr auto kGoTo = Definitions::kSyncType::goTo;

int sceneIdOf(const QTreeWidgetItem* item) {
    return item ? item->data(0, Qt::UserRole).toInt() : -1;
}

// The two buttons that end the small dialogs; "&Salvar" is the default one.
QHBoxLayout* dialogButtons(QDialog* dialog, QPushButton** save) {
    auto* row = new QHBoxLayout;
    auto* cancel = new QPushButton(QObject::tr("&Cancelar"), dialog);
    *save = new QPushButton(QObject::tr("&Salvar"), dialog);
    (*save)->setDefault(true);
    QObject::connect(cancel, &QPushButton::clicked, dialog, &QDialog::reject);
    row->addStretch();
    row->addWidget(cancel);
    row->addWidget(*save);
    return row;
}
} // namespace

SlideListTree::SlideListTree(Document* document, QWidget* parent)
    : QTreeWidget(parent), document_(document) {
    thumbnails_ = new SceneThumbnail(document_, this);
    connect(thumbnails_, &SceneThumbnail::pictureChanged, this, &SlideListTree::setPicture);
    createActions();
    createContextMenu();
    setConnections();
    setDocumentConnections();
    if (document_->getCountScenes() > 0) {
        load();
        if (Scene* current = document_->getScene(-1))
            changeScene(current->getId());
    }
    setHeaderHidden(true);
    setItemsExpandable(true);
    setAnimated(true);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setIndentation(14);
    setIconSize(QSize(qRound(Definitions::getSlideListItemWidth()),
                      qRound(Definitions::getSlideListItemHeight())));
    setMinimumSize(qRound(Definitions::getSlideListMinWidth()),
                   qRound(Definitions::getSlideListMinHeight()));
}

int SlideListTree::timeSeconds(const QStringList& parts) {
    return TimeText::timeSeconds(parts);
}

void SlideListTree::createActions() {
    struct Row {
        QAction** action;
        const char* text;
        const char* icon;
    };
    const Row rows[] = {
        {&addAction_, QT_TR_NOOP("Adicionar Cena"), ":/imagens/icones-Selvora_01"},
        {&removeAction_, QT_TR_NOOP("Remover Cena"), ":/imagens/icones-Selvora_02"},
        {&renameAction_, QT_TR_NOOP("Renomear Cena"), ":/imagens/rename"},
        {&upAction_, QT_TR_NOOP("Enviar Cena para cima"), ":/imagens/up"},
        {&downAction_, QT_TR_NOOP("Enviar Cena para baixo"), ":/imagens/down"},
        {&linkAction_, QT_TR_NOOP("Criar elo automática entre Cenas"), ":/imagens/link"}};
    for (const Row& row : rows) {
        *row.action = new QAction(QIcon(row.icon), tr(row.text), this);
        (*row.action)->setStatusTip(tr(row.text));
    }
    connect(addAction_, &QAction::triggered, this, [this] { newScene(nullptr); });
    connect(removeAction_, &QAction::triggered, this, [this] { removeScene(); });
    connect(renameAction_, &QAction::triggered, this, &SlideListTree::renameScene);
    connect(upAction_, &QAction::triggered, this, [this] {
        if (scene_)
            document_->sendSceneUp(scene_->getId());
    });
    connect(downAction_, &QAction::triggered, this, [this] {
        if (scene_)
            document_->sendSceneDown(scene_->getId());
    });
    connect(linkAction_, &QAction::triggered, this, &SlideListTree::setLinkAutomatic);
}

void SlideListTree::createContextMenu() {
    addActions({addAction_, removeAction_, renameAction_, upAction_, downAction_, linkAction_});
}

// The tree's own selection: cut while the list is changed from here, so that a row chosen by
// code is not taken for the user's choice.
void SlideListTree::setConnections() {
    connect(this, &QTreeWidget::currentItemChanged, this,
            QOverload<QTreeWidgetItem*, QTreeWidgetItem*>::of(&SlideListTree::changeScene),
            Qt::UniqueConnection);
}

void SlideListTree::setDisconnections() {
    disconnect(this, &QTreeWidget::currentItemChanged, this,
               QOverload<QTreeWidgetItem*, QTreeWidgetItem*>::of(&SlideListTree::changeScene));
}

void SlideListTree::setDocumentConnections() {
    const auto unique = Qt::UniqueConnection;
    connect(document_, &Document::clear, this, &SlideListTree::clearList, unique);
    connect(document_, &Document::sceneAdded, this, &SlideListTree::newScene, unique);
    connect(document_, &Document::sceneCurrentId, this,
            QOverload<int>::of(&SlideListTree::changeScene), unique);
    connect(document_, &Document::sceneRemovedId, this,
            QOverload<int>::of(&SlideListTree::removeScene), unique);
    connect(document_, &Document::sceneUpdateOrder, this, &SlideListTree::updateOrder, unique);
    connect(document_, &Document::sceneSendUp, this, &SlideListTree::updateOrder, unique);
    connect(document_, &Document::sceneSendDown, this, &SlideListTree::updateOrder, unique);
    connect(document_, &Document::open, this, &SlideListTree::load, unique);
    connect(document_, &Document::openLayout, this, &SlideListTree::insertLayout, unique);
}

void SlideListTree::setDocumentDisconnections() {
    disconnect(document_, &Document::clear, this, &SlideListTree::clearList);
    disconnect(document_, &Document::sceneAdded, this, &SlideListTree::newScene);
    disconnect(document_, &Document::sceneCurrentId, this,
               QOverload<int>::of(&SlideListTree::changeScene));
    disconnect(document_, &Document::sceneRemovedId, this,
               QOverload<int>::of(&SlideListTree::removeScene));
    disconnect(document_, &Document::sceneUpdateOrder, this, &SlideListTree::updateOrder);
    disconnect(document_, &Document::sceneSendUp, this, &SlideListTree::updateOrder);
    disconnect(document_, &Document::sceneSendDown, this, &SlideListTree::updateOrder);
    disconnect(document_, &Document::open, this, &SlideListTree::load);
    disconnect(document_, &Document::openLayout, this, &SlideListTree::insertLayout);
}

// Every scene with a row is heard, current or not: the history may put a link back into a
// scene that is not current.
void SlideListTree::setSceneConnections(Scene* scene) {
    if (!scene)
        return;
    connect(scene, &Scene::syncAdded, this, &SlideListTree::newLink, Qt::UniqueConnection);
    connect(scene, &Scene::syncRemoved, this, &SlideListTree::removeLink, Qt::UniqueConnection);
}

void SlideListTree::setSceneDisconnections(Scene* scene) {
    if (!scene)
        return;
    disconnect(scene, &Scene::syncAdded, this, &SlideListTree::newLink);
    disconnect(scene, &Scene::syncRemoved, this, &SlideListTree::removeLink);
}

QTreeWidgetItem* SlideListTree::itemOf(int sceneId) const {
    for (int i = 0; i < topLevelItemCount(); ++i) {
        if (sceneIdOf(topLevelItem(i)) == sceneId)
            return topLevelItem(i);
    }
    return nullptr;
}

SlideListTreeRoot* SlideListTree::rootOf(int sceneId) const {
    QTreeWidgetItem* item = itemOf(sceneId);
    return item ? qobject_cast<SlideListTreeRoot*>(itemWidget(item, 0)) : nullptr;
}

void SlideListTree::insertLayout(Definitions::kLayoutType type) {
    const Scene* scene = document_->getScene(-1);
    if (SlideListTreeRoot* row = scene ? rootOf(scene->getId()) : nullptr)
        row->insertLayout(static_cast<int>(type) + 1);
}

SlideListTreeChild* SlideListTree::childOf(const Sync* sync) const {
    QTreeWidgetItem* item = links_.value(sync, nullptr);
    return item ? qobject_cast<SlideListTreeChild*>(itemWidget(item, 0)) : nullptr;
}

void SlideListTree::newScene(Scene* scene) {
    if (!scene) {
        setDocumentDisconnections();
        scene = document_->createScene(-1);
        setDocumentConnections();
    }
    if (!scene || itemOf(scene->getId()))
        return;
    auto* row = new SlideListTreeRoot(document_, scene);
    row->getLabelEdit()->installEventFilter(this);
    auto* item = new QTreeWidgetItem;
    item->setData(0, Qt::UserRole, scene->getId());
    item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    addTopLevelItem(item);
    setItemWidget(item, 0, row);
    item->setSizeHint(0, row->sizeHint());
    setSceneConnections(scene);
    thumbnails_->watch(scene);
    QPixmap picture;
    if (thumbnails_->cached(scene->getId(), &picture))
        row->setPicture(picture);
    else
        thumbnails_->invalidate(scene->getId());
}

void SlideListTree::setPicture(int sceneId, const QPixmap& picture) {
    if (SlideListTreeRoot* row = rootOf(sceneId))
        row->setPicture(picture);
}

void SlideListTree::changeScene(QTreeWidgetItem* current, QTreeWidgetItem*) {
    setDocumentDisconnections();
    if (!current) {
        document_->setCurrentScene(-1, true);
        setDocumentConnections();
        return;
    }
    const int id = sceneIdOf(current);
    document_->setCurrentScene(id, true);
    scene_ = document_->getSceneAll().value(id, nullptr);
    setSceneConnections(scene_);
    if (scene_)
        thumbnails_->setShown(id);
    setDocumentConnections();
}

void SlideListTree::changeScene(int id) {
    setDisconnections();
    if (QTreeWidgetItem* item = itemOf(id))
        setCurrentItem(item, 0, QItemSelectionModel::ClearAndSelect);
    setConnections();
    scene_ = document_->getSceneAll().value(id, nullptr);
    setSceneConnections(scene_);
    if (scene_)
        thumbnails_->setShown(id);
}

void SlideListTree::load() {
    for (Scene* scene : document_->getSceneAllInOrder()) {
        newScene(scene);
        for (Sync* sync : scene->getAllSyncs(kGoTo))
            addLinkRow(scene, sync);
    }
}

void SlideListTree::detachRows(QTreeWidgetItem* item) {
    if (!item)
        return;
    if (auto* row = qobject_cast<SlideListTreeRoot*>(itemWidget(item, 0)))
        row->setDisconnections();
    for (int i = 0; i < item->childCount(); ++i) {
        if (auto* child = qobject_cast<SlideListTreeChild*>(itemWidget(item->child(i), 0))) {
            child->setDisconnections();
            child->setDocumentDisconnections();
            child->setSyncDisconnections();
        }
    }
    for (auto it = links_.begin(); it != links_.end();) {
        if (it.value()->parent() == item)
            it = links_.erase(it);
        else
            ++it;
    }
}

void SlideListTree::dropRows() {
    setDisconnections();
    for (int i = 0; i < topLevelItemCount(); ++i)
        detachRows(topLevelItem(i));
    links_.clear();
    QTreeWidget::clear();
    setConnections();
}

void SlideListTree::updateOrder() {
    dropRows();
    setDisconnections();
    load();
    setConnections();
    if (Scene* current = document_->getScene(-1))
        changeScene(current->getId());
}

void SlideListTree::clearList() {
    dropRows();
    thumbnails_->clear();
}

// The selection stays connected: when the row of the current scene goes, the row that takes
// its place makes its scene current, since the document leaves that choice to its caller.
void SlideListTree::removeScene(int id) {
    Scene* scene = document_->getSceneAll().value(id, nullptr);
    while (QTreeWidgetItem* item = itemOf(id)) {
        detachRows(item);
        delete item;
    }
    setSceneDisconnections(scene);
    thumbnails_->forget(id);
}

void SlideListTree::inform(QWidget* parent, const QString& title, const QString& text) {
    QPointer<QMessageBox> box =
        new QMessageBox(QMessageBox::Information, title, text, QMessageBox::Ok, parent);
    box->exec();
    delete box.data();
}

bool SlideListTree::removeScene() {
    if (selectedItems().size() == topLevelItemCount()) {
        inform(nullptr, tr("Remover Cena"), tr("A lista de cenas não pode ficar vazia."));
        return false;
    }
    Scene* current = document_->getScene(-1);
    QMessageBox box(
        QMessageBox::Question, tr("Remover Cena"),
        tr("Deseja mesmo remover a cena \"%1\"?\n").arg(current ? current->getLabel() : QString()),
        QMessageBox::Yes | QMessageBox::No);
    box.button(QMessageBox::Yes)->setText(tr("Sim"));
    box.button(QMessageBox::No)->setText(tr("Não"));
    if (box.exec() != QMessageBox::Yes)
        return false;
    QList<int> ids;
    for (QTreeWidgetItem* item : selectedItems())
        ids.append(sceneIdOf(item));
    for (int id : qAsConst(ids))
        document_->removeScene(id);
    return true;
}

bool SlideListTree::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
        removeScene();
        return true;
    }
    return QTreeWidget::event(event);
}

// Entering the label of a row makes its scene current, as a click on the row does.
bool SlideListTree::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        for (int i = 0; i < topLevelItemCount(); ++i) {
            auto* row = qobject_cast<SlideListTreeRoot*>(itemWidget(topLevelItem(i), 0));
            if (row && row->getLabelEdit() == watched && currentItem() != topLevelItem(i))
                setCurrentItem(topLevelItem(i), 0, QItemSelectionModel::ClearAndSelect);
        }
    }
    return QTreeWidget::eventFilter(watched, event);
}

void SlideListTree::renameScene() {
    if (!document_->getScene(-1))
        return;
    renamed_ = document_->getScene(-1);
    auto* dialog = new QDialog(nullptr, Qt::WindowStaysOnTopHint);
    renameDialog_ = dialog;
    dialog->setFocusPolicy(Qt::WheelFocus);
    dialog->setWindowTitle(tr("Rótulo da cena."));
    dialog->setFixedSize(250, 100);
    auto* field = new QHBoxLayout;
    renameEdit_ = new QLineEdit(renamed_->getLabel(), dialog);
    renameEdit_->setMaxLength(15);
    field->addWidget(new QLabel(tr("Rótulo:"), dialog));
    field->addWidget(renameEdit_);
    QPushButton* save = nullptr;
    auto* layout = new QVBoxLayout(dialog);
    layout->addLayout(field);
    layout->addStretch();
    layout->addLayout(dialogButtons(dialog, &save));
    connect(save, &QPushButton::clicked, this, &SlideListTree::saveRenameScene);
    renameEdit_->setFocus();
    dialog->exec();
    renameEdit_ = nullptr;
    delete renameDialog_.data();
}

// A label of blanks only is as empty as no label.
void SlideListTree::saveRenameScene() {
    if (!renameDialog_ || !renameEdit_)
        return;
    const QString text = renameEdit_->text().simplified();
    if (text.isEmpty()) {
        QMessageBox::warning(renameDialog_, tr("Rótulo da cena."),
                             tr("Por favor, informe o rótulo da cena antes de salvar."));
        return;
    }
    // The scene may have been removed while the dialog was open.
    if (renamed_)
        renamed_->setLabel(text);
    if (renameDialog_)
        renameDialog_->accept();
}

void SlideListTree::setLinkAutomatic() {
    Scene* scene = document_->getScene(-1);
    if (!scene)
        return;
    scene_ = scene;
    auto* dialog = new QDialog(nullptr, Qt::WindowStaysOnTopHint);
    linkDialog_ = dialog;
    dialog->setWindowTitle(tr("Elo automático da cena."));
    dialog->setFixedSize(350, 150);
    auto* grid = new QGridLayout;
    linkTime_ = new QLineEdit(dialog);
    linkTime_->setInputMask("00:00:00");
    linkTime_->setText(TimeText::timeString(scene->getTotalTime()));
    linkTarget_ = new QComboBox(dialog);
    linkTarget_->addItem(QString(), -1);
    for (Scene* each : document_->getSceneAllInOrder())
        linkTarget_->addItem(each->getLabel(), each->getId());
    linkEvent_ = new QLineEdit(dialog);
    linkEvent_->setInputMask("00:00:00");
    linkEvent_->setText("00:00:00");
    const QList<QPair<QString, QWidget*>> rows = {
        {tr("Aos"), linkTime_}, {tr("Ir para"), linkTarget_}, {tr("No instante"), linkEvent_}};
    for (int i = 0; i < rows.size(); ++i) {
        grid->addWidget(new QLabel(rows.at(i).first, dialog), i, 0);
        grid->addWidget(rows.at(i).second, i, 1);
    }
    QPushButton* save = nullptr;
    auto* layout = new QVBoxLayout(dialog);
    layout->addLayout(grid);
    layout->addStretch();
    layout->addLayout(dialogButtons(dialog, &save));
    connect(save, &QPushButton::clicked, this, &SlideListTree::saveLinkAutomaticMedia);
    dialog->exec();
    linkTime_ = linkEvent_ = nullptr;
    linkTarget_ = nullptr;
    delete linkDialog_.data();
}

void SlideListTree::saveLinkAutomaticMedia() {
    if (!linkDialog_ || !linkTarget_)
        return;
    const QString title = tr("Elo automático da cena");
    if (!scene_) {
        linkDialog_->reject();
        return;
    }
    const int target = linkTarget_->currentData().toInt();
    if (target == -1) {
        inform(linkDialog_, title,
               tr("Selecione no campo \"Ir para\" qual a cena o elo automático deve acionar."));
        return;
    }
    const int time = TimeText::fromText(linkTime_->text());
    if (time > scene_->getTotalTime()) {
        inform(linkDialog_, title,
               tr("A Cena \"%1\" tem o tempo total de \"%2\". O instante de tempo em que o elo "
                  "automático é acionado não pode ser maior que o tempo total da cena.")
                   .arg(scene_->getLabel(), TimeText::timeString(scene_->getTotalTime())));
        return;
    }
    if (linkEvent_->text() == linkTime_->text() && target == scene_->getId()) {
        inform(linkDialog_, title,
               tr("A Cena \"%1\" não pode ter um elo automático para ela mesmo que vá para o "
                  "mesmo instante de tempo em que é acionado.")
                   .arg(scene_->getLabel()));
        return;
    }
    QHash<QString, QString> properties;
    properties.insert("link", QString::number(target));
    properties.insert("timeEvent", QString::number(TimeText::fromText(linkEvent_->text())));
    document_->createSync(scene_, -1, true, kGoTo, time, properties, -1);
    linkDialog_->accept();
}

void SlideListTree::newLink(Sync* sync) {
    auto* scene = qobject_cast<Scene*>(sender());
    if (!scene)
        scene = scene_;
    if (!sync) {
        if (!scene)
            return;
        setSceneDisconnections(scene);
        sync = document_->createSync(scene, -1, true, kGoTo, scene->getTotalTime(), -1);
        setSceneConnections(scene);
    }
    if (sync && sync->getType() == kGoTo)
        addLinkRow(scene, sync);
}

void SlideListTree::addLinkRow(Scene* scene, Sync* sync) {
    QTreeWidgetItem* parent = scene ? itemOf(scene->getId()) : nullptr;
    if (!parent || links_.contains(sync))
        return;
    auto* row = new SlideListTreeChild(document_, scene, sync, this);
    auto* item = new QTreeWidgetItem(parent);
    item->setData(0, Qt::UserRole, scene->getId());
    item->setFlags(Qt::NoItemFlags);
    links_.insert(sync, item);
    setItemWidget(item, 0, row);
    item->setSizeHint(0, row->sizeHint());
    // Hidden and shown again, so that the view measures the row.
    item->setHidden(true);
    item->setHidden(false);
    parent->setExpanded(true);
}

void SlideListTree::removeLink(Sync* sync) {
    if (!sync || sync->getType() != kGoTo)
        return;
    QTreeWidgetItem* item = links_.take(sync);
    if (!item)
        return;
    if (auto* row = qobject_cast<SlideListTreeChild*>(itemWidget(item, 0))) {
        row->setDisconnections();
        row->setDocumentDisconnections();
        row->setSyncDisconnections();
    }
    removeItemWidget(item, 0);
    if (QTreeWidgetItem* parent = item->parent())
        parent->removeChild(item);
    delete item;
}

} // namespace slideView
} // namespace selvora
