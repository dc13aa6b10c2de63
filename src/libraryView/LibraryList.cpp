#include "libraryView/LibraryList.h"

#include "app/YesNoBox.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "libraryView/LibraryListItem.h"
#include "libraryView/RowPicture.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>

namespace selvora {
namespace libraryView {

using document::Scene;
using MediaType = Definitions::kMediaType;

LibraryList::LibraryList(document::Document* document, QWidget* parent)
    : RowList(parent), document_(document) {
    load();
    createActions();
    createContextMenu();
    setDocumentConnections();
    RowPicture::applyListSettings(this);
}

void LibraryList::load() {
    scene_ = document_->getScene(-1);
    setSceneConnections();
    if (document_->getCountScenes() > 0) {
        for (const QString& path : document_->getPathMedia())
            addItem(path);
    }
}

void LibraryList::createActions() {
    insertAction_ = new QAction(QIcon(":/imagens/down"), tr("Inserir na cena"), this);
    importAction_ = new QAction(QIcon(":/imagens/import"), tr("Importar mídias"), this);
    deleteAction_ = new QAction(QIcon(":/imagens/del"), tr("Deletar"), this);
    connect(insertAction_, &QAction::triggered, this, &LibraryList::contextInsertMedia);
    connect(importAction_, &QAction::triggered, this, &LibraryList::contextImportMedias);
    connect(deleteAction_, &QAction::triggered, this, &LibraryList::contextRemoveMedia);
}

void LibraryList::createContextMenu() {
    contextMenu_ = new QMenu(this);
    contextMenu_->addAction(insertAction_);
    contextMenu_->addAction(importAction_);
    contextMenu_->addSeparator();
    contextMenu_->addAction(deleteAction_);
}

void LibraryList::setDocumentConnections() {
    const auto unique = Qt::UniqueConnection;
    connect(document_, &document::Document::sceneCurrent, this, &LibraryList::sceneChanged, unique);
    connect(document_, &document::Document::clear, this, &LibraryList::clearLibraryList, unique);
    connect(document_, &document::Document::pathAdded, this, &LibraryList::addItem, unique);
    connect(document_, &document::Document::pathRemoved, this, &LibraryList::removeItem, unique);
}

void LibraryList::setSceneConnections() {
    if (scene_)
        connect(scene_, &Scene::playerStatus, this, &LibraryList::setPropertiesEnableState,
                Qt::UniqueConnection);
}

void LibraryList::setSceneDisconnections() {
    if (scene_)
        disconnect(scene_, &Scene::playerStatus, this, &LibraryList::setPropertiesEnableState);
}

void LibraryList::sceneChanged(Scene* scene) {
    setSceneDisconnections();
    scene_ = scene;
    setSceneConnections();
}

void LibraryList::clearLibraryList() {
    setSceneDisconnections();
    scene_ = nullptr;
    items_.clear();
    clear();
}

void LibraryList::setPropertiesEnableState(Definitions::kPlayerStatus status) {
    setEnabled(status != Definitions::kPlayerStatus::play);
}

void LibraryList::addItem(QString path) {
    auto* item = new LibraryListItem(path);
    QListWidget::addItem(item);
    items_.append(item);
}

void LibraryList::removeItem(QString path) {
    for (LibraryListItem* item : qAsConst(items_)) {
        if (item->getPath() == path) {
            items_.removeOne(item);
            delete takeItem(row(item));
            return;
        }
    }
}

LibraryListItem* LibraryList::itemOf(QListWidgetItem* item) const {
    auto* row = static_cast<LibraryListItem*>(item);
    return item && items_.contains(row) ? row : nullptr;
}

QMimeData* LibraryList::dragData(const LibraryListItem* item) const {
    return RowPicture::mediaData(item->getPath(), item->getType(), nullptr);
}

void LibraryList::contextInsertMedia() {
    const QList<QListWidgetItem*> selected = selectedItems();
    LibraryListItem* item = selected.isEmpty() ? nullptr : itemOf(selected.first());
    if (count() == 0 || !item || !scene_)
        return;
    if (item->getType() == int(MediaType::video) && scene_->getMainVideo()) {
        QMessageBox::warning(nullptr, tr("Alerta."),
                             tr("A cena já possui vídeo. Insira outras mídias."));
        return;
    }
    // The file may have gone since it was imported.
    const QString reason = refusal(item->getPath());
    if (!reason.isEmpty()) {
        QMessageBox::warning(
            nullptr, tr("Alerta."),
            tr("O arquivo \"%1\" não pode ser inserido: %2.").arg(item->text(), reason));
        return;
    }
    document_->createMedia(scene_, item->getPath(), Definitions::getkMediaType(item->getType()),
                           QString(), QString(), -1);
}

// Why a file cannot be a media of the library; empty when it can.
QString LibraryList::refusal(const QString& file) {
    const QFileInfo info(file);
    if (info.isDir())
        return tr("é uma pasta");
    if (!info.exists())
        return tr("arquivo não encontrado");
    if (LibraryListItem::typeOf(file) < 0)
        return tr("tipo de arquivo não aceito");
    if (info.size() == 0)
        return tr("arquivo vazio");
    return QString();
}

int LibraryList::importFiles(const QStringList& files) {
    QStringList refused;
    int taken = 0;
    for (const QString& file : files) {
        const QString reason = refusal(file);
        if (!reason.isEmpty()) {
            refused << QStringLiteral("%1 (%2)").arg(QFileInfo(file).fileName(), reason);
            continue;
        }
        document_->addPathMedia(QFileInfo(file).absoluteFilePath());
        ++taken;
    }
    if (!files.isEmpty())
        document_->setLastDirectory(QFileInfo(files.last()).absolutePath());
    if (!refused.isEmpty()) {
        QString text = tr("Estes arquivos não foram importados:\n");
        text += QStringList(refused.mid(0, kNamedRefusals)).join(QLatin1Char('\n'));
        if (refused.size() > kNamedRefusals)
            text += tr("\ne mais %1 arquivos.").arg(refused.size() - kNamedRefusals);
        QMessageBox::warning(nullptr, tr("Importar mídias"), text + QLatin1Char('\n'));
    }
    return taken;
}

void LibraryList::contextImportMedias() {
    QString filter = tr("Vídeo/Imagem (");
    for (const QString& extension :
         Definitions::getImageExtensions() + Definitions::getVideoExtensions())
        filter += QStringLiteral(" *.") + extension;
    filter += QLatin1Char(')');
    QString start = document_->getLastDirectory();
    if (start.isEmpty())
        start = QDir::homePath();
    const QStringList files =
        QFileDialog::getOpenFileNames(nullptr, tr("Escolha os arquivos"), start, filter, nullptr,
                                      QFileDialog::DontUseNativeDialog);
    importFiles(files);
}

void LibraryList::contextRemoveMedia() {
    LibraryListItem* item = itemOf(itemAt(position_));
    if (!item)
        return;
    const QString path = item->getPath();
    if (YesNoBox::askRemoveMedia(item->text()))
        document_->removePathMedia(path);
}

void LibraryList::contextMenuEvent(QContextMenuEvent* event) {
    position_ = event->pos();
    const bool overRow = itemOf(itemAt(position_)) != nullptr;
    insertAction_->setEnabled(overRow);
    deleteAction_->setEnabled(overRow);
    contextMenu_->exec(event->globalPos());
    event->accept();
}

void LibraryList::mouseMoveEvent(QMouseEvent* event) {
    if (!dragStarts(event))
        return;
    const QList<QListWidgetItem*> selected = selectedItems();
    const LibraryListItem* item = selected.isEmpty() ? nullptr : itemOf(selected.first());
    // A file of no known kind would become a media of a kind it is not.
    if (item && item->getType() >= 0)
        RowPicture::runDrag(this, item->getToolTipItem(), item->text(), dragData(item),
                            Qt::CopyAction | Qt::MoveAction, Qt::CopyAction);
}

} // namespace libraryView
} // namespace selvora
