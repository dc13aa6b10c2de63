#ifndef SELVORA_SPATIALVIEW_TEMPLATECOMMANDS_H
#define SELVORA_SPATIALVIEW_TEMPLATECOMMANDS_H

#include <QHash>
#include <QObject>
#include <QPointer>

class QAction;
class QDialog;
class QGraphicsItem;
class QGraphicsScene;
class QMenu;

namespace selvora {
namespace document {
class Media;
class Region;
} // namespace document

namespace spatialview {

class RegionItem;
class SpatialView;

// The templates of one canvas: the placeholders of their regions, which hide while a media
// fills them and come back when it goes; the regions blanked where a related template takes
// over; and the relation of a region to a region of another template, chosen on thumbnails.
class TemplateCommands : public QObject {
    Q_OBJECT
public:
    explicit TemplateCommands(SpatialView* view);
    ~TemplateCommands() override;

    RegionItem* regionItem(int regionId, int templateId) const;
    QList<RegionItem*> regionItems() const;

    void addRegion(document::Region* region);
    // A media announced on the canvas or about to leave it: its region follows.
    void mediaAdded(document::Media* media);
    void mediaRemoved(int mediaId);
    void templateAdded(int templateId);
    void templateRemoved(int templateId);
    void showRegion(document::Region* region, bool visible);
    // After play: the empty regions show again.
    void showEnabledRegions();
    // Placeholders stay where their template puts them, except while a template is designed.
    void keepRegionsInPlace();
    // The regions of a template that a related template takes over, slot by slot, stay blank.
    void blankRelated(int templateId);

    // The context menu of the canvas: "Relacionar região" shows while a region has the focus,
    // offering the other templates of the scene.
    QMenu* relationMenu() const { return relationMenu_; }
    QAction* relationMenuAction() const;
    void prepareContextMenu(QGraphicsItem* focus);
    // "Deletar" on a region takes its whole template off the scene, without a question; false
    // when the focus is not a region.
    bool removeTemplateOf(QGraphicsItem* focus);
    RegionItem* relatingRegion() const;
    QDialog* regionSelectionDialog() const { return regionSelectionDialog_; }
    QGraphicsScene* regionSelectionScene() const { return regionSelectionScene_; }

public slots:
    void openRegionSelectionWindow();
    void setRegionRelated(QGraphicsItem* newFocus, QGraphicsItem* oldFocus, Qt::FocusReason reason);

private:
    void createRegionSelectionWindow();
    bool isPlaying() const;

    SpatialView* view_;
    QHash<int, QAction*> templateActions_;
    QMenu* relationMenu_ = nullptr;
    QPointer<RegionItem> relatingRegion_;
    QDialog* regionSelectionDialog_ = nullptr;
    QGraphicsScene* regionSelectionScene_ = nullptr;
};

} // namespace spatialview
} // namespace selvora

#endif
