#include "spatialview/CanvasCommands.h"

#include "app/Menu.h"
#include "app/ShapePalette.h"
#include "app/YesNoBox.h"
#include "document/Document.h"
#include "document/HistoryGroup.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "document/Template.h"
#include "spatialview/AutomaticLinkDialog.h"
#include "spatialview/InteractiveLinkDialog.h"
#include "spatialview/RenameDialog.h"
#include "spatialview/SpatialResizingMedia.h"
#include "spatialview/SpatialView.h"
#include "spatialview/TemplateCommands.h"
#include "spatialview/TimeDialog.h"
#include "spatialview/WordingItem.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>

#include <memory>

namespace selvora {
namespace spatialview {

using document::Media;
using document::Scene;
using document::Sync;
using MediaType = Definitions::kMediaType;
using ResizingType = Definitions::kSpatialResizingType;
using Shape = Definitions::kShapeType;
using SyncType = Definitions::kSyncType;

namespace {

struct CommandRow {
    const char* text;
    const char* icon;
    void (SpatialView::*slot)();
    bool separatorAfter;
};

// Indexed by CanvasCommands::Command.
const CommandRow kCommands[] = {
    {QT_TR_NOOP("Definir Inicio da Exibição"), ":/imagens/clock", &SpatialView::setStartTime,
     false},
    {QT_TR_NOOP("Definir Fim da Exibição"), ":/imagens/clock", &SpatialView::setStopTime, true},
    {QT_TR_NOOP("Criar Elo Automático entre Cenas"), ":/imagens/link",
     &SpatialView::setLinkAutomatic, false},
    {QT_TR_NOOP("Criar Elo Interativo entre Cenas"), ":/imagens/link",
     &SpatialView::setLinkInteractive, false},
    {QT_TR_NOOP("Criar Elo Interativo para Página Web"), ":/imagens/link",
     &SpatialView::setLinkInteractiveWeb, true},
    {QT_TR_NOOP("Avançar"), ":/imagens/bringForward", &SpatialView::bringForward, false},
    {QT_TR_NOOP("Recuar"), ":/imagens/sendBackward", &SpatialView::sendBackward, false},
    {QT_TR_NOOP("Trazer para frente"), ":/imagens/bringToFront", &SpatialView::bringToFront, false},
    {QT_TR_NOOP("Enviar para trás"), ":/imagens/sendToBack", &SpatialView::sendToBack, true},
    {QT_TR_NOOP("Copiar"), ":/imagens/copy", &SpatialView::copyMedia, false},
    {QT_TR_NOOP("Colar"), ":/imagens/paste", &SpatialView::pasteMedia, true},
    {QT_TR_NOOP("Editar texto"), ":/imagens/editText", &SpatialView::editTextMedia, false},
    {QT_TR_NOOP("Trocar mídia"), ":/imagens/change", &SpatialView::changeMedia, true},
    {QT_TR_NOOP("Renomear"), ":/imagens/rename", &SpatialView::renameMedia, false},
    {QT_TR_NOOP("Deletar"), ":/imagens/del", &SpatialView::removeMedia, false},
};
static_assert(std::size(kCommands) == CanvasCommands::commandCount, "one row per command");

struct ShapeText {
    Shape shape;
    const char* text;
};

// The names of the palette of the main menu, in kShapeType order.
constexpr ShapeText kShapeTexts[] = {
#define SELVORA_CANVAS_SHAPE_TEXT(slot, shape, text) {Shape::shape, text},
    SELVORA_MENU_SHAPES(SELVORA_CANVAS_SHAPE_TEXT)
#undef SELVORA_CANVAS_SHAPE_TEXT
};

// What the enable rules look at.
enum class Focus { none, region, media };

} // namespace

CanvasCommands::CanvasCommands(SpatialView* view) : QObject(view), view_(view) {
    createActions();
    createContextMenu();
    createShapeMenu();
}

void CanvasCommands::createActions() {
    for (const CommandRow& row : kCommands) {
        auto* action = new QAction(QIcon(row.icon), tr(row.text), view_);
        connect(action, &QAction::triggered, view_, row.slot, Qt::UniqueConnection);
        actions_.append(action);
    }
    for (const ShapeText& row : kShapeTexts) {
        const QString word = Definitions::getkShapeTypeLegend(int(row.shape));
        auto* action = new QAction(QIcon(":/imagens/" + word), tr(row.text), view_);
        const Shape shape = row.shape;
        connect(action, &QAction::triggered, this, [this, shape]() { openShape(shape); });
        shapeActions_.append(action);
    }
}

void CanvasCommands::createContextMenu() {
    contextMenu_ = new QMenu(view_);
    for (int i = 0; i < commandCount; ++i) {
        contextMenu_->addAction(actions_.at(i));
        if (kCommands[i].separatorAfter)
            contextMenu_->addSeparator();
    }
    contextMenu_->addAction(view_->templates_->relationMenuAction());
}

void CanvasCommands::createShapeMenu() {
    shapeMenu_ = new menu::ShapePalette(shapeActions_, view_, menu::ShapePalette::Rows::change);
}

SpatialResizingMedia* CanvasCommands::focusItem() const {
    QGraphicsItem* focus = view_->spatialScene_.focusItem();
    if (!focus || focus->type() != SpatialResizingMedia::Type)
        return nullptr;
    return static_cast<SpatialResizingMedia*>(focus);
}

Media* CanvasCommands::mediaOf(const SpatialResizingMedia* item) const {
    Scene* scene = view_->scene_;
    if (!item || !scene || item->getKind() != ResizingType::spatialResizingMedia ||
        !scene->hasMedia(item->getId()))
        return nullptr;
    return scene->getMedia(item->getId());
}

// ---------------------------------------------------------------- context menu

void CanvasCommands::showContextMenu(const QPoint& pos) {
    Scene* scene = view_->scene_;
    if (!scene || scene->getStatusPlayer() == Definitions::kPlayerStatus::play)
        return;
    contextGlobalPos_ = view_->mapToGlobal(pos);
    contextParentPos_ = view_->mapToParent(pos);
    enableActions();
    view_->templates_->prepareContextMenu(view_->spatialScene_.focusItem());
    contextMenu_->exec(contextGlobalPos_);
}

void CanvasCommands::enableActions() {
    const SpatialResizingMedia* item = focusItem();
    const Media* media = mediaOf(item);
    Focus focus = Focus::none;
    if (item && item->getKind() == ResizingType::spatialResizingRegion)
        focus = Focus::region;
    else if (media)
        focus = Focus::media;
    const bool onMedia = focus == Focus::media;
    const bool buffer = view_->document_->hasMediaBuffer();
    const MediaType type = media ? media->getType() : MediaType::audio;

    action(copy)->setEnabled(onMedia);
    action(paste)->setEnabled(focus != Focus::region && buffer);
    for (Command command : {startTime, stopTime, remove})
        action(command)->setEnabled(focus != Focus::none);
    // The automatic link is the scene's: no focus turns it off.
    if (onMedia)
        action(linkAutomatic)->setEnabled(true);
    for (Command command :
         {linkInteractive, linkWeb, bringForward, sendBackward, bringToFront, sendToBack, rename})
        action(command)->setEnabled(onMedia);
    action(editText)->setEnabled(onMedia && (type == MediaType::text || type == MediaType::shape));
    action(change)->setEnabled(onMedia && type != MediaType::text);
}

// ---------------------------------------------------------------- media file and shape

void CanvasCommands::changeMedia() {
    SpatialResizingMedia* item = focusItem();
    Media* media = mediaOf(item);
    if (!media)
        return;
    if (media->getType() == MediaType::shape) {
        shapeChangeMedia_ = media->getId();
        shapeMenu_->showAt(contextGlobalPos_);
        return;
    }
    const bool image = media->getType() == MediaType::image;
    QString filter = image ? QStringLiteral("Imagem (") : QStringLiteral("Video (");
    const QStringList extensions =
        image ? Definitions::getImageExtensions() : Definitions::getVideoExtensions();
    for (const QString& extension : extensions)
        filter += QStringLiteral(" *.") + extension;
    filter += QLatin1Char(')');
    QString directory = view_->document_->getLastDirectory();
    if (directory.isEmpty())
        directory = QDir::homePath();
    const int id = media->getId();
    const QString file =
        QFileDialog::getOpenFileName(view_->parentWidget_, tr("Escolha um arquivo"), directory,
                                     filter, nullptr, QFileDialog::DontUseNativeDialog);
    // The media may have gone while the dialog was open.
    Scene* scene = view_->scene_;
    if (!file.isEmpty() && scene && scene->hasMedia(id))
        scene->getMedia(id)->setPathStart(file);
}

// A change of shape is a change of the media, not of the timeline: no sync.
void CanvasCommands::openShape(Shape type) {
    shapeMenu_->close();
    Scene* scene = view_->scene_;
    if (scene && scene->hasMedia(shapeChangeMedia_))
        scene->getMedia(shapeChangeMedia_)->setGeometry(QString::number(int(type)));
}

void CanvasCommands::editTextMedia() {
    auto* wording = dynamic_cast<WordingItem*>(focusItem());
    const Media* media = mediaOf(focusItem());
    if (!wording || !media)
        return;
    if (media->getWording().isEmpty())
        wording->showEditWidget();
    else
        wording->showEdit();
}

// ---------------------------------------------------------------- copy and paste

void CanvasCommands::copyMedia() {
    if (Media* media = mediaOf(focusItem()))
        view_->document_->addMediaBuffer(media);
}

void CanvasCommands::pasteMedia() {
    document::Document* document = view_->document_;
    Scene* scene = view_->scene_;
    if (!scene || !document->hasMediaBuffer())
        return;
    const Media* source = document->getMediaBuffer();
    const MediaType type = source->getType();
    if (type == MediaType::video && scene->getMainVideo()) {
        QMessageBox box(QMessageBox::Warning, tr("Alerta."),
                        tr("A cena já possui vídeo. Insira outras mídias."), QMessageBox::Ok);
        box.exec();
        return;
    }
    // The links of the source go with the copy; the scene that holds the source has them.
    QList<QHash<QString, QString>> links;
    for (const Scene* other : document->getSceneAll()) {
        if (!other->hasMedia(source->getId()))
            continue;
        links.clear();
        for (const Sync* sync : other->getAllSyncsMedia(source->getId(), true)) {
            if (sync->getType() != SyncType::select)
                continue;
            QHash<QString, QString> link;
            link.insert(QStringLiteral("link"), sync->getLink());
            link.insert(QStringLiteral("timeEvent"), sync->getTimeEvent());
            link.insert(QStringLiteral("key"), sync->getKey());
            link.insert(QStringLiteral("url"), sync->getUrl());
            links.append(link);
        }
    }
    const QHash<QString, QString> properties = source->getProperties();
    const document::HistoryGroup step(document);
    Media* media = document->createMedia(scene, source->getPathStart(), type, source->getGeometry(),
                                         source->getWording(), -1);
    if (!media)
        return;
    media->setProperties(properties);
    if (type != MediaType::audio) {
        const Media* last = scene->lastMediaLayer();
        const int layer = scene->getAllMediasOrderLayer().isEmpty() || !last
                              ? scene->getCountRegions() + 1
                              : last->getLayer().toInt() + 1;
        media->setLayer(QString::number(layer));
    }
    const int now = scene->getCurrentTime();
    document->createSync(scene, media->getId(), true, SyncType::set, now, media->getProperties(),
                         -1);
    for (const QHash<QString, QString>& link : qAsConst(links)) {
        document->createSync(scene, media->getId(), true, SyncType::select, now,
                             media->getProperties(), -1);
        if (const Media* current = scene->getMedia(-1))
            document->createSync(scene, current->getId(), true, SyncType::select, 0, link, -1);
    }
}

// ---------------------------------------------------------------- layers

// On the current media: the new layer holds from this second on.
void CanvasCommands::changeLayer(Command command) {
    Scene* scene = view_->scene_;
    Media* media = view_->currentMedia_;
    if (!scene || !media || !scene->hasMedia(media->getId()))
        return;
    const Media* other = nullptr;
    switch (command) {
    case sendToBack:
        other = scene->firstMediaLayer();
        break;
    case bringToFront:
        other = scene->lastMediaLayer();
        break;
    case sendBackward:
        other = scene->backMediaLayer(media);
        break;
    case bringForward:
        other = scene->nextMediaLayer(media);
        break;
    default:
        break;
    }
    if (!other)
        return;
    const int oldLayer = media->getLayer().toInt();
    const int newLayer = other->getLayer().toInt();
    const document::HistoryGroup step(view_->document_);
    media->setLayer(QString::number(newLayer));
    scene->updateMediasLayer(media->getId(), oldLayer, newLayer);
    view_->document_->createSync(scene, media->getId(), true, SyncType::set,
                                 scene->getCurrentTime(), media->getProperties(), -1);
}

// ---------------------------------------------------------------- dialogs

// Each reads the model as it stands when it opens.
void CanvasCommands::openDialog(Command command) {
    document::Document* document = view_->document_;
    Scene* scene = view_->scene_;
    QWidget* parent = view_->parentWidget_;
    if (!scene)
        return;
    std::unique_ptr<QDialog> dialog;
    const SpatialView::TimeTarget target = view_->timeTarget();
    switch (command) {
    case startTime:
    case stopTime:
        if (target.id == -1)
            return;
        dialog.reset(new TimeDialog(
            document, scene, target.id, target.isMedia,
            command == startTime ? TimeDialog::End::start : TimeDialog::End::stop, parent));
        break;
    case linkAutomatic:
        dialog.reset(new AutomaticLinkDialog(document, scene, parent));
        break;
    case linkInteractive:
    case linkWeb:
        dialog.reset(new InteractiveLinkDialog(document, scene,
                                               command == linkWeb
                                                   ? InteractiveLinkDialog::Target::web
                                                   : InteractiveLinkDialog::Target::scene,
                                               parent));
        break;
    case rename:
        dialog.reset(new RenameDialog(scene, parent));
        break;
    default:
        return;
    }
    dialog->exec();
}

// ---------------------------------------------------------------- removal

void CanvasCommands::removeMedia(SpatialResizingMedia* item) {
    Scene* scene = view_->scene_;
    if (!item)
        item = focusItem();
    if (!scene || !item)
        return;
    if (item->getKind() == ResizingType::spatialResizingRegion) {
        // A region goes with its whole template, without a question.
        const document::Template* templ = view_->document_->getTemplate(item->getTemplateId());
        scene->removeTemplate(item->getTemplateId(), templ ? templ->getAllRegions().size() : 0);
        return;
    }
    Media* media = mediaOf(item);
    if (scene->countMedia() == 0 || !scene->getMedia(-1) || !media)
        return;
    const int id = media->getId();
    if (!YesNoBox::askRemoveMedia(media->getLabel()))
        return;
    // The media may have gone while the question was open. The region that held a media is
    // offered again once region items exist.
    if (view_->scene_ && view_->scene_->hasMedia(id))
        view_->scene_->removeMedia(id);
}

} // namespace spatialview
} // namespace selvora
