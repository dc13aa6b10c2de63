#ifndef SELVORA_SPATIALVIEW_CANVASCOMMANDS_H
#define SELVORA_SPATIALVIEW_CANVASCOMMANDS_H

#include "app/Definitions.h"

#include <QList>
#include <QObject>
#include <QPoint>

class QAction;
class QMenu;

namespace selvora {
namespace document {
class Media;
}
namespace menu {
class ShapePalette;
}

namespace spatialview {

class SpatialResizingMedia;
class SpatialView;

// The commands of a canvas: its context menu with the rules that enable each entry by what has
// focus, the menu that changes a shape, change of a media's file, copy and paste, the four
// layer commands and the removal of a media. Each command that changes the model in several
// places is one step of the history.
class CanvasCommands : public QObject {
    Q_OBJECT
public:
    // The entries of the context menu, in their order.
    enum Command {
        startTime,
        stopTime,
        linkAutomatic,
        linkInteractive,
        linkWeb,
        bringForward,
        sendBackward,
        bringToFront,
        sendToBack,
        copy,
        paste,
        editText,
        change,
        rename,
        remove,
        commandCount
    };

    explicit CanvasCommands(SpatialView* view);

    QMenu* contextMenu() const { return contextMenu_; }
    menu::ShapePalette* shapeMenu() const { return shapeMenu_; }
    QAction* action(Command command) const { return actions_.value(command, nullptr); }

    void showContextMenu(const QPoint& pos);
    void copyMedia();
    void pasteMedia();
    void changeMedia();
    void editTextMedia();
    // The media of the focus item, or the item given (a text asking for its own removal).
    void removeMedia(SpatialResizingMedia* item = nullptr);
    void changeLayer(Command command);
    // The dialog behind a time, link or rename entry, built anew on each call.
    void openDialog(Command command);
    void openShape(Definitions::kShapeType type);

private:
    void createActions();
    void createContextMenu();
    void createShapeMenu();
    void enableActions();
    // The media or region item that has focus on the canvas, or null.
    SpatialResizingMedia* focusItem() const;
    document::Media* mediaOf(const SpatialResizingMedia* item) const;

    SpatialView* view_;
    QList<QAction*> actions_;
    QMenu* contextMenu_ = nullptr;
    QList<QAction*> shapeActions_;
    menu::ShapePalette* shapeMenu_ = nullptr;
    QPoint contextGlobalPos_;
    QPoint contextParentPos_;
    // The media whose shape the shape menu replaces, by id: its item may go meanwhile.
    int shapeChangeMedia_ = -1;
};

} // namespace spatialview
} // namespace selvora

#endif
