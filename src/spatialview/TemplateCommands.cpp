#include "spatialview/TemplateCommands.h"

#include "document/Document.h"
#include "document/Media.h"
#include "document/Region.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "document/Template.h"
#include "spatialview/RegionItem.h"
#include "spatialview/SpatialView.h"

#include <QAction>
#include <QDialog>
#include <QGraphicsRectItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QMenu>
#include <QVBoxLayout>

namespace selvora {
namespace spatialview {

using document::Region;
using document::Scene;
using document::Template;
using ResizingType = Definitions::kSpatialResizingType;
using SyncType = Definitions::kSyncType;

TemplateCommands::TemplateCommands(SpatialView* view) : QObject(view), view_(view) {
    relationMenu_ = new QMenu(tr("Relacionar região"), view_);
    relationMenu_->menuAction()->setVisible(false);
    createRegionSelectionWindow();
}

TemplateCommands::~TemplateCommands() = default;

bool TemplateCommands::isPlaying() const {
    return view_->scene_ && view_->scene_->getStatusPlayer() == Definitions::kPlayerStatus::play;
}

RegionItem* TemplateCommands::regionItem(int regionId, int templateId) const {
    return dynamic_cast<RegionItem*>(
        view_->resizingItems_.value(SpatialView::regionKey(regionId, templateId), nullptr));
}

QList<RegionItem*> TemplateCommands::regionItems() const {
    QList<RegionItem*> items;
    for (auto it = view_->resizingItems_.constBegin(); it != view_->resizingItems_.constEnd();
         ++it) {
        if (it.key().second.second == ResizingType::spatialResizingRegion) {
            if (auto* item = dynamic_cast<RegionItem*>(it.value()))
                items.append(item);
        }
    }
    return items;
}

// ---------------------------------------------------------------- placeholders

void TemplateCommands::addRegion(Region* region) {
    if (!region)
        return;
    // A region announced twice keeps one placeholder.
    view_->removeItem(SpatialView::regionKey(region->getId(), region->getTemplateId()));
    const double width = Definitions::getViewWidth();
    const double height = Definitions::getViewHeight();
    const int layer = region->getLayer().toInt();
    auto* item = new RegionItem(region->getId(), region->getTemplateId(), region->getOrder(), layer,
                                view_->document_, view_->parentWidget_);
    item->setPos(region->getLeftPx(width), region->getTopPx(height));
    view_->place(item, QRectF(0, 0, region->getWidthPx(width), region->getHeightPx(height)), layer);
    // Regions are dragged only while a template is being designed.
    item->setFlag(QGraphicsItem::ItemIsMovable, view_->document_->getTemplateMode());
    view_->resizingItems_.insert(SpatialView::regionKey(region->getId(), region->getTemplateId()),
                                 item);
    // A region that already holds a media of this scene stays hidden behind it.
    const int mediaId = region->getMediaId();
    if (mediaId != -1 && view_->scene_ && view_->scene_->hasMedia(mediaId))
        item->holdMedia(mediaId);
    else
        item->setVisible(!isPlaying());
}

void TemplateCommands::mediaAdded(document::Media* media) {
    if (!media)
        return;
    RegionItem* item = nullptr;
    if (!media->getTemplateId().isEmpty() && !media->getRegionId().isEmpty()) {
        item = regionItem(media->getRegionId().toInt(), media->getTemplateId().toInt());
    } else {
        // A media put back by the history comes without its region: the region remembers it.
        for (RegionItem* candidate : regionItems()) {
            if (candidate->getLastMediaId() == media->getId())
                item = candidate;
        }
    }
    if (item && item->getMediaId() == -1)
        item->holdMedia(media->getId());
}

void TemplateCommands::mediaRemoved(int mediaId) {
    Scene* scene = view_->scene_;
    if (!scene || !scene->hasMedia(mediaId))
        return;
    for (RegionItem* item : regionItems()) {
        if (item->getMediaId() != mediaId)
            continue;
        item->releaseMedia();
        // An ended template, or a playing scene, shows no placeholder.
        if (isPlaying() ||
            !scene->mediaActivate(item->getTemplateId(), scene->getCurrentTime(), false))
            item->setVisible(false);
    }
}

void TemplateCommands::showRegion(Region* region, bool visible) {
    if (!region)
        return;
    // A filled region stays hidden under its media.
    if (RegionItem* item = regionItem(region->getId(), region->getTemplateId()))
        item->setVisible(visible && item->getEnable());
}

void TemplateCommands::showEnabledRegions() {
    for (RegionItem* item : regionItems()) {
        if (item->getEnable())
            item->show();
    }
}

void TemplateCommands::keepRegionsInPlace() {
    const bool designing = view_->document_->getTemplateMode();
    for (RegionItem* item : regionItems())
        item->setFlag(QGraphicsItem::ItemIsMovable, designing);
}

// Part two of a template's sync: where a related template stands in for this one, the regions
// of the same slot are blank.
void TemplateCommands::blankRelated(int templateId) {
    Scene* scene = view_->scene_;
    Template* templ = view_->document_->getTemplate(templateId);
    if (!scene || !templ)
        return;
    auto timeOf = [scene](SyncType type, int id) {
        const document::Sync* sync = scene->getSync(type, id, false);
        return sync ? sync->getTime() : -1;
    };
    const QList<int> related = templ->getRelationsTemplations();
    const QList<Definitions::kTemplateType> types = templ->getRelationsTypes();
    const int now = scene->getCurrentTime();
    const int startT = timeOf(SyncType::start, templateId);
    const int stopT = timeOf(SyncType::stop, templateId);
    for (int i = 0; i < related.size() && i < types.size(); ++i) {
        const Template* other = view_->document_->getTemplate(related.at(i));
        if (!other)
            continue;
        const int rt = static_cast<int>(types.at(i));
        const int startR = timeOf(SyncType::start, other->getId());
        const int stopR = timeOf(SyncType::stop, other->getId());
        // Without both ends of both templates there is nothing to compare.
        if (startT < 0 || stopT < 0 || startR < 0 || stopR < 0)
            continue;
        const bool within = startR <= now && now <= stopR;
        const bool cases[] = {
            startT == startR && stopT == stopR && rt == 1,
            startT == startR && rt == 0 && now <= stopR,
            stopT == stopR && rt == 0 && now >= startR,
            startT > startR && startT < stopR && stopT > stopR && rt == 1 && within,
            startT < startR && stopT > stopR && rt == 1 && within,
        };
        for (bool blank : cases) {
            if (!blank)
                continue;
            for (const Region* region : templ->getAllRegions()) {
                if (!other->hasRegionOrder(region->getOrder()))
                    continue;
                if (RegionItem* item = regionItem(region->getId(), templateId)) {
                    item->setEnable(true);
                    item->setVisible(false);
                }
            }
        }
    }
}

// ---------------------------------------------------------------- template actions

void TemplateCommands::templateAdded(int templateId) {
    const Template* templ = view_->document_->getTemplate(templateId);
    if (!templ || templateActions_.contains(templateId))
        return;
    auto* action = new QAction(templ->getLabel(), this);
    action->setData(templateId);
    connect(action, &QAction::triggered, this, &TemplateCommands::openRegionSelectionWindow);
    templateActions_.insert(templateId, action);
    relationMenu_->addAction(action);
}

void TemplateCommands::templateRemoved(int templateId) {
    delete templateActions_.take(templateId);
    if (relatingRegion_ && relatingRegion_->getTemplateId() == templateId)
        relatingRegion_ = nullptr;
}

RegionItem* TemplateCommands::relatingRegion() const {
    return relatingRegion_.data();
}

QAction* TemplateCommands::relationMenuAction() const {
    return relationMenu_->menuAction();
}

// With a region in focus, every other template of the scene is offered.
void TemplateCommands::prepareContextMenu(QGraphicsItem* focus) {
    auto* region = focus && focus->type() == SpatialResizingMedia::Type
                       ? dynamic_cast<RegionItem*>(static_cast<SpatialResizingMedia*>(focus))
                       : nullptr;
    relatingRegion_ = region;
    bool offered = false;
    for (auto it = templateActions_.constBegin(); it != templateActions_.constEnd(); ++it) {
        const bool other = region && it.key() != region->getTemplateId();
        it.value()->setEnabled(other);
        it.value()->setVisible(other);
        offered = offered || other;
    }
    relationMenuAction()->setVisible(offered);
}

bool TemplateCommands::removeTemplateOf(QGraphicsItem* focus) {
    if (!focus || focus->type() != SpatialResizingMedia::Type)
        return false;
    auto* item = static_cast<SpatialResizingMedia*>(focus);
    if (item->getKind() != ResizingType::spatialResizingRegion)
        return false;
    Scene* scene = view_->scene_;
    const Template* templ = view_->document_->getTemplate(item->getTemplateId());
    if (scene && templ)
        scene->removeTemplate(templ->getId(), templ->countRegion());
    return true;
}

// ---------------------------------------------------------------- relating regions

void TemplateCommands::createRegionSelectionWindow() {
    regionSelectionDialog_ = new QDialog(view_, Qt::Dialog | Qt::WindowStaysOnTopHint);
    regionSelectionDialog_->setWindowTitle(tr("Relacionar região"));
    const int width = Definitions::getViewWidth() / 3;
    const int height = Definitions::getViewHeight() / 3;
    regionSelectionScene_ = new QGraphicsScene(0, 0, width, height, regionSelectionDialog_);
    auto* view = new QGraphicsView(regionSelectionScene_, regionSelectionDialog_);
    view->setFixedSize(width + 2, height + 2);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* layout = new QVBoxLayout(regionSelectionDialog_);
    layout->addWidget(view, 0, Qt::AlignCenter);
    connect(regionSelectionScene_, &QGraphicsScene::focusItemChanged, this,
            &TemplateCommands::setRegionRelated);
}

void TemplateCommands::openRegionSelectionWindow() {
    regionSelectionScene_->clear();
    auto* action = qobject_cast<QAction*>(sender());
    const Template* templ = view_->document_->getTemplate(action ? action->data().toInt() : 0);
    if (!templ || !relatingRegion_)
        return;
    const double width = Definitions::getViewWidth() / 3;
    const double height = Definitions::getViewHeight() / 3;
    for (const Region* region : templ->getAllRegions()) {
        auto* rect = regionSelectionScene_->addRect(
            QRectF(region->getLeftPx(width), region->getTopPx(height), region->getWidthPx(width),
                   region->getHeightPx(height)),
            QPen(Qt::black), QBrush(Qt::lightGray));
        rect->setZValue(region->getLayer().toInt());
        rect->setData(0, QString::number(region->getId()));
        rect->setData(1, QString::number(templ->getId()));
        rect->setFlags(QGraphicsItem::ItemIsSelectable | QGraphicsItem::ItemIsFocusable);
    }
    regionSelectionDialog_->exec();
}

// A click on a thumbnail ties the region in focus and the one chosen, both ways.
void TemplateCommands::setRegionRelated(QGraphicsItem* newFocus, QGraphicsItem* oldFocus,
                                        Qt::FocusReason reason) {
    Q_UNUSED(oldFocus)
    if (reason != Qt::MouseFocusReason || !newFocus || !relatingRegion_)
        return;
    Template* fromTemplate = view_->document_->getTemplate(relatingRegion_->getTemplateId());
    Template* toTemplate = view_->document_->getTemplate(newFocus->data(1).toString().toInt());
    const int toId = newFocus->data(0).toString().toInt();
    if (!fromTemplate || !toTemplate || !fromTemplate->hasRegion(relatingRegion_->getId()) ||
        !toTemplate->hasRegion(toId))
        return;
    Region* from = fromTemplate->getRegion(relatingRegion_->getId());
    Region* to = toTemplate->getRegion(toId);
    from->setRelatedRegion(QString::number(to->getId()));
    from->setRelatedTemplate(QString::number(toTemplate->getId()));
    to->setRelatedToRegion(QString::number(from->getId()));
    to->setRelatedToTemplate(QString::number(fromTemplate->getId()));
    regionSelectionDialog_->close();
}

} // namespace spatialview
} // namespace selvora
