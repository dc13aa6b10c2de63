#ifndef SELVORA_LIBRARYVIEW_LAYERLIST_H
#define SELVORA_LIBRARYVIEW_LAYERLIST_H

#include "libraryView/SceneMediaList.h"

namespace selvora {
namespace libraryView {

// The media of the current scene by layer, front at the top, showing only those active at the
// current second. A row dragged onto another takes a new layer from that second on.
class LayerList : public SceneMediaList {
    Q_OBJECT
public:
    LayerList(document::Document* document, QWidget* parent);

    int getVisibleCount() const { return visibleCount_; }
    QMimeData* dragData(SceneMediaItem* item) const override;
    // Only rows of this list move here: files and media rows belong on the canvas.
    static bool acceptsDrag(const QMimeData* data);
    // The work of a drop of a row at that point of the viewport; false when refused.
    bool dropLayerItem(const QMimeData* data, const QPoint& point);

public slots:
    void clearLayerList();
    void setPropertiesEnableState(selvora::Definitions::kPlayerStatus status) override;
    void addItem(selvora::document::Media* media, bool reorder) override;
    void removeItem(int id) override;
    void processSync(selvora::document::Media* media, selvora::Definitions::kSyncType type);
    void updateOrderItem() { updateOrderItem(-1, {}); }
    void updateOrderItem(int id, QList<selvora::document::Media*> medias);
    void setItemVisibility(int id, bool visible);
    void contextLayerUp();
    void contextLayerDown();
    void contextBringToFront();
    void contextSendToBack();

protected:
    void load() override;
    void setSceneConnections() override;
    Qt::DropActions dragActions() const override { return Qt::MoveAction; }
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    enum class Towards { up, down, front, back };
    void moveLayer(Towards towards);
    void writeLayer(document::Media* media, int oldLayer, int newLayer);
    bool isActive(int id) const;
    void countVisible();
    void paintRows(const QListWidgetItem* hovered);

    int visibleCount_ = 0;
};

} // namespace libraryView
} // namespace selvora

#endif
