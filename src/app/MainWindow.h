#ifndef SELVORA_APP_MAINWINDOW_H
#define SELVORA_APP_MAINWINDOW_H

#include <QMainWindow>
#include <QString>
#include <QStringList>

class QSplashScreen;

namespace selvora {
namespace document {
class Document;
}
namespace menu {
class Menu;
class UpdateCheck;
} // namespace menu
namespace spatialview {
class SpatialGroupView;
}

// The one window: it creates the document and every panel in a fixed order, lays the panels
// out, maps undo and redo to the document and asks about saving on close. It holds no editing
// logic; each panel wires itself to the document.
class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    // A null file name opens no project.
    explicit MainWindow(const QString& fileName);
    ~MainWindow() override;

    document::Document* getDocument() const { return document_; }

public slots:
    void openFileMacx(const QString& path);

signals:
    void doneLoading();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void init();
    void setDocumentConnections();
    void createDockWidget();
    void loadSettings();
    void addDock(QWidget* content, Qt::DockWidgetAreas allowed, Qt::DockWidgetArea area,
                 bool fixedSize);

    QString settingsFilePath_;
    QSplashScreen* splash_ = nullptr;
    // The check for a newer version at start-up: it speaks only when there is one.
    menu::UpdateCheck* updateCheck_ = nullptr;
    document::Document* document_ = nullptr;
    menu::Menu* menu_ = nullptr;
    QWidget* toolBar_ = nullptr;
    QWidget* slideView_ = nullptr;
    spatialview::SpatialGroupView* spatialGroupView_ = nullptr;
    QWidget* temporalView_ = nullptr;
    QWidget* feature_ = nullptr;
    QWidget* libraryView_ = nullptr;
};

} // namespace selvora

#endif
