#include "app/MainWindow.h"

#include "app/Menu.h"
#include "app/UpdateCheck.h"
#include "buffer/Buffer.h"
#include "document/Document.h"
#include "feature/Feature.h"
#include "libraryView/LibraryView.h"
#include "project/Project.h"
#include "project/Recovery.h"
#include "slideView/SlideView.h"
#include "spatialview/SpatialGroupView.h"
#include "temporalView/TemporalView.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QDockWidget>
#include <QIcon>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPixmap>
#include <QSplashScreen>
#include <QToolBar>
#include <QVBoxLayout>
#include <QWindow>

namespace selvora {

MainWindow::MainWindow(const QString& fileName) : QMainWindow(nullptr) {
    splash_ = new QSplashScreen(QPixmap(":/imagens/splash_screen"));
    splash_->setEnabled(false); // a click must not close it
    splash_->show();
    init();
    if (!fileName.isNull())
        document_->loadProject(fileName);
}

MainWindow::~MainWindow() {
    delete splash_;
}

void MainWindow::init() {
    // Skipped where the deployment names no update address.
    updateCheck_ = new menu::UpdateCheck(menu::UpdateCheck::Mode::startUp, this, this);
    updateCheck_->settingVerifyUpdate();
    document_ = document::Document::instance();
    document_->newProject();
    setDocumentConnections();
    loadSettings();

    // Panels are created here in a fixed order, each with (document, this); each connects
    // itself to the document in its constructor.
    new project::Project(document_, this);
    menu_ = new menu::Menu(document_, this);
    slideView_ = new slideView::SlideView(document_, this);
    temporalView_ = new temporalView::TemporalView(document_, this);
    feature_ = new feature::Feature(document_, this);
    spatialGroupView_ = new spatialview::SpatialGroupView(document_, this);
    libraryView_ = new libraryView::LibraryView(document_, this);
    new buffer::Buffer(document_, this);
    // Copies the project while it has unsaved changes and offers back a copy left by a crash.
    new project::Recovery(document_, this);

    // The menu bar does not own what it shows: the menus become its children.
    for (QMenu* menu : {menu_->createFileMenu(), menu_->createEditMenu(), menu_->createOptionMenu(),
                        menu_->createHelpMenu()}) {
        menu->setParent(menuBar(), menu->windowFlags());
        menuBar()->addMenu(menu);
    }
    toolBar_ = menu_->createToolBar();
    createDockWidget();

    auto* layout = new QVBoxLayout();
    layout->setSpacing(1);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetMinimumSize);
    for (QWidget* panel : {static_cast<QWidget*>(spatialGroupView_), temporalView_}) {
        if (panel)
            layout->addWidget(panel, 0, Qt::AlignTop | Qt::AlignHCenter);
    }
    layout->addStretch(1);
    auto* central = new QWidget(this);
    central->setLayout(layout);
    setCentralWidget(central);

    setObjectName(QString::fromUtf8("Selvorá"));
    setWindowIcon(QIcon(":/imagens/icone"));
    setWindowIconText(tr("Selvorá"));
    if (!document_->getProjectName().isEmpty())
        setWindowTitle(document_->getProjectDirectory() + QDir::separator() +
                       document_->getProjectName());
    else
        setWindowTitle(tr("Sem Título.svproj"));
    showMaximized();
    // The splash stays until the window is on the screen. QSplashScreen::finish would wait for
    // that in a loop of its own, for up to a second; the window's first exposure tells it at no
    // cost.
    windowHandle()->installEventFilter(this);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == windowHandle() && event->type() == QEvent::Expose &&
        windowHandle()->isExposed()) {
        watched->removeEventFilter(this);
        splash_->close();
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::setDocumentConnections() {
    connect(document_, &document::Document::project, this, &QWidget::setWindowTitle,
            Qt::UniqueConnection);
}

void MainWindow::loadSettings() {
    // Only remembered; the settings that matter go through the default QSettings.
    settingsFilePath_ = QApplication::applicationDirPath() + "/settings.conf";
}

void MainWindow::addDock(QWidget* content, Qt::DockWidgetAreas allowed, Qt::DockWidgetArea area,
                         bool fixedSize) {
    auto* dock = new QDockWidget(this);
    dock->setWidget(content);
    dock->setAllowedAreas(allowed);
    dock->setContentsMargins(0, 0, 0, 0);
    dock->setFeatures(QDockWidget::DockWidgetMovable);
    dock->setStyleSheet("QDockWidget::title{text-align:center;}");
    if (fixedSize)
        dock->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    addDockWidget(area, dock);
}

void MainWindow::createDockWidget() {
    const Qt::DockWidgetAreas sides = Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea;
    const struct {
        QWidget* content;
        Qt::DockWidgetAreas allowed;
        Qt::DockWidgetArea area;
        bool fixedSize;
    } docks[] = {
        {toolBar_, Qt::TopDockWidgetArea, Qt::TopDockWidgetArea, false},
        {slideView_, sides, Qt::LeftDockWidgetArea, false},
        {feature_, sides, Qt::RightDockWidgetArea, true},
        {libraryView_, sides, Qt::RightDockWidgetArea, false},
    };
    for (const auto& dock : docks) {
        if (dock.content)
            addDock(dock.content, dock.allowed, dock.area, dock.fixedSize);
    }
    // The side panels run the full height; the tool bar spans only the centre.
    setCorner(Qt::TopLeftCorner, Qt::LeftDockWidgetArea);
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    setCorner(Qt::TopRightCorner, Qt::RightDockWidgetArea);
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    setDockOptions(dockOptions() & ~QMainWindow::AllowTabbedDocks);
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
    // Copy, paste and cut belong to the canvas and the lists.
    if (!(event->modifiers() & Qt::ControlModifier))
        return;
    if (event->key() == Qt::Key_Z)
        document_->undoAction();
    else if (event->key() == Qt::Key_Y)
        document_->redoAction();
}

void MainWindow::contextMenuEvent(QContextMenuEvent* event) {
    event->ignore(); // no list of docks
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!document_->isModified()) {
        QWidget::closeEvent(event);
        return;
    }
    QMessageBox box(QMessageBox::Warning, tr("Sair do Selvorá"),
                    tr("Gostaria de salvar seu projeto antes de sair?\n"),
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    box.button(QMessageBox::Yes)->setText(tr("Salvar"));
    box.button(QMessageBox::No)->setText(tr("Não salvar"));
    box.button(QMessageBox::Cancel)->setText(tr("Cancelar"));
    switch (box.exec()) {
    case QMessageBox::Yes:
        document_->saveProject(); // not waited for
        event->accept();
        QWidget::closeEvent(event);
        break;
    case QMessageBox::No:
        event->accept();
        QWidget::closeEvent(event);
        break;
    default:
        event->ignore();
        break;
    }
}

void MainWindow::openFileMacx(const QString& path) {
    QMessageBox box;
    box.setText("Path: " + path);
    box.show();
    document_->loadProject(path);
}

} // namespace selvora
