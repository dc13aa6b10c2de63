#include "app/Menu.h"

#include "app/AboutBox.h"
#include "app/ContactForm.h"
#include "app/RepositoryDialog.h"
#include "app/ShapePalette.h"
#include "app/TwoStageToolTip.h"
#include "app/UpdateCheck.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "project/Project.h"
#include "project/ScormPackage.h"

#include <QAbstractButton>
#include <QAction>
#include <QCoreApplication>
#include <QDialog>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QSettings>
#include <QToolBar>

#include <initializer_list>
#include <utility>

namespace selvora {
namespace menu {

using document::Scene;
using MediaType = Definitions::kMediaType;
using Shape = Definitions::kShapeType;
using Status = Definitions::kPlayerStatus;

namespace {

const char* const kRecentFiles = "recentFileList";
constexpr int kToolBarMargin = 30;

struct ShapeRow {
    Shape shape;
    void (Menu::*slot)();
    const char* text;
};

constexpr ShapeRow kShapes[] = {
#define SELVORA_MENU_SHAPE_ROW(slot, shape, text) {Shape::shape, &Menu::slot, text},
    SELVORA_MENU_SHAPES(SELVORA_MENU_SHAPE_ROW)
#undef SELVORA_MENU_SHAPE_ROW
};

constexpr bool shapesInOrder() {
    int index = 0;
    for (const ShapeRow& row : kShapes) {
        if (static_cast<int>(row.shape) != index++)
            return false;
    }
    return index == Definitions::kShapeCount;
}
static_assert(shapesInOrder(), "the shape table follows kShapeType, one row per shape");

// Connects each action's trigger to a slot of the receiver, once.
template <typename Receiver, typename Result = void>
void connectTriggers(Receiver* receiver,
                     std::initializer_list<std::pair<QAction*, Result (Receiver::*)()>> rows) {
    for (const auto& row : rows)
        QObject::connect(row.first, &QAction::triggered, receiver, row.second,
                         Qt::UniqueConnection);
}

using Answer = std::pair<QMessageBox::StandardButton, QString>;

// The program's boxes have no parent and buttons labelled by hand.
int ask(QMessageBox::Icon icon, const QString& title, const QString& text,
        std::initializer_list<Answer> answers) {
    QMessageBox::StandardButtons buttons;
    for (const Answer& answer : answers)
        buttons |= answer.first;
    QMessageBox box(icon, title, text, buttons);
    for (const Answer& answer : answers)
        box.button(answer.first)->setText(answer.second);
    return box.exec();
}

void tell(QMessageBox::Icon icon, const QString& title, const QString& text) {
    QMessageBox box(icon, title, text, QMessageBox::Ok);
    box.exec();
}

QWidget* spacer(int fixedWidth) {
    auto* widget = new QWidget();
    if (fixedWidth > 0)
        widget->setFixedWidth(fixedWidth);
    else
        widget->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    return widget;
}

} // namespace

Menu::Menu(document::Document* document, QWidget* parent)
    : QObject(parent), document_(document), parent_(parent) {
    scene_ = document_->getScene(-1);
    setDocumentConnections();
    setSceneConnections();
    updateCheck_ = new UpdateCheck(UpdateCheck::Mode::onDemand, parent_, this);
    contactForm_ = new ContactForm(parent_, this);
    // Qt shows an action's short tip itself: the menus give their long ones only.
    toolTip_ = new TwoStageToolTip(this, {2000, QSize(), QSize(60, 30)});
    createActions();
    createSubMenus();
    setButtonsStatus(Status::pause);
    setConnections();
}

Menu::~Menu() {
    // Both hang on the main window, which may outlive us or go first.
    delete shapeMenu_;
    delete exportMenu_;
}

// ---------------------------------------------------------------- connections

void Menu::setConnections() {
    const auto unique = Qt::UniqueConnection;
    connectTriggers<Menu, bool>(this, {{newAct_, &Menu::newProject},
                                       {openAct_, &Menu::openProject},
                                       {removeSceneAct_, &Menu::removeScene}});
    connectTriggers<document::Document>(document_,
                                        {{saveAct_, &document::Document::saveProject},
                                         {saveAsAct_, &document::Document::saveProjectAs},
                                         {undoAct_, &document::Document::undoAction},
                                         {redoAct_, &document::Document::redoAction}});
    connectTriggers<Menu>(this, {{exportHtmlAct_, &Menu::exportHTML},
                                 {exportNclAct_, &Menu::exportNCL},
                                 {exportScormAct_, &Menu::exportSCORM},
                                 {shapeAct_, &Menu::showShapeMenu},
                                 {exitAct_, &Menu::closeWindow},
                                 {aboutAct_, &Menu::about},
                                 {reportAct_, &Menu::openContactForm},
                                 {repositoryAct_, &Menu::configRepository},
                                 {complementAct_, &Menu::createComplementBox},
                                 {imageAct_, &Menu::openImageFile},
                                 {addSceneAct_, &Menu::createScene},
                                 {viewAct_, &Menu::viewProject},
                                 {publishAct_, &Menu::publish},
                                 {templateAct_, &Menu::createTemplate},
                                 {textAct_, &Menu::openText},
                                 {updateAct_, &Menu::settingVerifyUpdate},
                                 {videoAct_, &Menu::openVideoFile}});
    for (const ShapeRow& row : kShapes)
        connect(shapeActions_.at(static_cast<int>(row.shape)), &QAction::triggered, this, row.slot,
                unique);
    for (QAction* action : {imageAct_, publishAct_, shapeAct_, textAct_, videoAct_})
        connect(action, &QAction::hovered, this, &Menu::showToolTip, unique);
}

void Menu::setDocumentConnections() {
    const auto unique = Qt::UniqueConnection;
    connect(document_, &document::Document::sceneRemoved, this, &Menu::clear, unique);
    connect(document_, &document::Document::sceneCurrent, this, &Menu::changeScene, unique);
    connect(document_, &document::Document::recentFilesUpdate, this,
            &Menu::updateRecentProjectActions, unique);
}

void Menu::setDocumentDisconnections() {
    disconnect(document_, &document::Document::sceneRemoved, this, &Menu::clear);
    disconnect(document_, &document::Document::sceneCurrent, this, &Menu::changeScene);
    disconnect(document_, &document::Document::recentFilesUpdate, this,
               &Menu::updateRecentProjectActions);
}

void Menu::setSceneConnections() {
    if (!scene_)
        return;
    const auto unique = Qt::UniqueConnection;
    connect(scene_, &Scene::playerStatus, this, &Menu::setButtonsStatus, unique);
    connect(scene_, &Scene::mediaAdded, this, &Menu::refreshButtons, unique);
    connect(scene_, &Scene::mediaRemoved, this, &Menu::refreshButtons, unique);
}

void Menu::setSceneDisconnections() {
    if (!scene_)
        return;
    disconnect(scene_, &Scene::playerStatus, this, &Menu::setButtonsStatus);
    disconnect(scene_, &Scene::mediaAdded, this, &Menu::refreshButtons);
    disconnect(scene_, &Scene::mediaRemoved, this, &Menu::refreshButtons);
}

void Menu::clear() {
    setSceneDisconnections();
    scene_ = nullptr;
}

void Menu::changeScene(Scene* scene) {
    if (scene == scene_)
        return;
    clear();
    scene_ = scene;
    setSceneConnections();
    if (scene_)
        setButtonsStatus(scene_->getStatusPlayer());
}

// ---------------------------------------------------------------- actions

QAction* Menu::makeAction(const QString& text, const QString& icon) {
    auto* action = new QAction(text, this);
    if (!icon.isEmpty())
        action->setIcon(QIcon(icon));
    return action;
}

void Menu::createActions() {
    newAct_ = makeAction(tr("&Novo"), ":/imagens/new");
    newAct_->setShortcut(QKeySequence::New);
    openAct_ = makeAction(tr("&Abrir"), ":/imagens/open");
    openAct_->setShortcut(QKeySequence::Open);
    saveAct_ = makeAction(tr("&Salvar"), ":/imagens/save");
    saveAct_->setShortcut(QKeySequence::Save);
    saveAsAct_ = makeAction(tr("Salvar &Como"), ":/imagens/saveas");
    saveAsAct_->setShortcut(QKeySequence::SaveAs);
    exportAct_ = makeAction(tr("Exportar"), QString());
    exportHtmlAct_ = makeAction(tr("HTML"), QString());
    exportNclAct_ = makeAction(tr("NCL"), QString());
    exportScormAct_ = makeAction(tr("SCORM"), QString());
    shapeAct_ = makeAction(tr("Inserir Formas"), ":/imagens/icones-Selvora_10");
    exitAct_ = makeAction(tr("S&air"), ":/imagens/exit");
    exitAct_->setShortcut(QKeySequence(QStringLiteral("Alt+F4")));
    aboutAct_ = makeAction(tr("Sobre &Selvorá"), ":/imagens/icone");
    reportAct_ = makeAction(tr("Reportar"), ":/imagens/report");
    repositoryAct_ = makeAction(tr("Repositório"), QString());
    undoAct_ = makeAction(tr("&Desfazer"), ":/imagens/undo");
    undoAct_->setShortcut(QKeySequence(QStringLiteral("Ctrl+Z")));
    redoAct_ = makeAction(tr("&Refazer"), ":/imagens/redo");
    redoAct_->setShortcut(QKeySequence(QStringLiteral("Ctrl+Y")));
    complementAct_ = makeAction(tr("Inserir Complementos"), ":/imagens/icones-Selvora_08");
    imageAct_ = makeAction(tr("Inserir Imagem"), ":/imagens/icones-Selvora_05");
    addSceneAct_ = makeAction(tr("Adicionar Cena"), ":/imagens/icones-Selvora_01");
    viewAct_ = makeAction(tr("Visualizar"), ":/imagens/icones-Selvora_11");
    publishAct_ = makeAction(tr("Publicar"), ":/imagens/icones-Selvora_12");
    removeSceneAct_ = makeAction(tr("Remover Cena"), ":/imagens/icones-Selvora_02");
    templateAct_ = makeAction(tr("Inserir Template"), ":/imagens/icones-Selvora_03");
    textAct_ = makeAction(tr("Inserir Texto"), ":/imagens/icones-Selvora_09");
    updateAct_ = makeAction(tr("Verificar Atualização"), ":/imagens/update");
    videoAct_ = makeAction(tr("Inserir Vídeo"), ":/imagens/icones-Selvora_04");
    createShapeActions();
    setToolTipTexts();
}

void Menu::createShapeActions() {
    for (const ShapeRow& row : kShapes) {
        const QString word = Definitions::getkShapeTypeLegend(static_cast<int>(row.shape));
        shapeActions_.append(makeAction(tr(row.text), ":/imagens/" + word));
    }
}

QMenu* Menu::getShapeMenu() const {
    return shapeMenu_;
}

QAction* Menu::getShapeAction(Shape type) const {
    return shapeActions_.value(static_cast<int>(type), nullptr);
}

void Menu::createSubMenus() {
    shapeMenu_ = new ShapePalette(shapeActions_, parent_);
    exportMenu_ = new QMenu(parent_);
    exportMenu_->addAction(exportHtmlAct_);
    exportMenu_->addAction(exportNclAct_);
    exportMenu_->addAction(exportScormAct_);
    exportAct_->setMenu(exportMenu_);
}

// ---------------------------------------------------------------- menus and tool bar

QMenu* Menu::createFileMenu() {
    auto* menu = new QMenu(tr("&Arquivo"));
    menu->addAction(newAct_);
    menu->addAction(openAct_);
    menu->addAction(saveAct_);
    menu->addSeparator();
    menu->addAction(exportAct_);
    menu->addSeparator();
    createRecentFilesActions();
    for (QAction* action : recentFileActs_)
        menu->addAction(action);
    updateRecentProjectActions();
    menu->addSeparator();
    menu->addAction(exitAct_);
    return menu;
}

QMenu* Menu::createEditMenu() {
    auto* menu = new QMenu(tr("&Editar"));
    menu->addAction(undoAct_);
    menu->addAction(redoAct_);
    return menu;
}

QMenu* Menu::createOptionMenu() {
    auto* menu = new QMenu(tr("&Opções"));
    menu->addAction(addSceneAct_);
    menu->addAction(removeSceneAct_);
    menu->addSeparator();
    menu->addAction(videoAct_);
    menu->addAction(imageAct_);
    menu->addAction(textAct_);
    menu->addMenu(shapeMenu_);
    // Opens the quiz wizard (through the canvas stack).
    menu->addAction(templateAct_);
    menu->addSeparator();
    menu->addSeparator();
    menu->addAction(publishAct_);
    return menu;
}

QMenu* Menu::createToolMenu() {
    return new QMenu(tr("&Ferramentas"));
}

QMenu* Menu::createHelpMenu() {
    auto* menu = new QMenu(tr("A&juda"));
    menu->addAction(reportAct_);
    menu->addAction(updateAct_);
    menu->addSeparator();
    menu->addAction(aboutAct_);
    return menu;
}

QToolBar* Menu::createToolBar() {
    auto* bar = new QToolBar();
    bar->addWidget(spacer(kToolBarMargin));
    bar->addAction(videoAct_);
    bar->addAction(imageAct_);
    bar->addAction(textAct_);
    bar->addAction(shapeAct_);
    bar->addSeparator();
    bar->addAction(publishAct_);
    bar->addWidget(spacer(0));
    bar->addAction(undoAct_);
    bar->addAction(redoAct_);
    bar->addWidget(spacer(kToolBarMargin));
    bar->setAllowedAreas(Qt::TopToolBarArea);
    bar->setMovable(false);
    bar->setIconSize(QSize(static_cast<int>(Definitions::getButtonWidth()),
                           static_cast<int>(Definitions::getButtonHeight())));
    bar->setWindowTitle(tr("Menu"));
    return bar;
}

// ---------------------------------------------------------------- enable rules

void Menu::refreshButtons() {
    setButtonsStatus();
}

void Menu::setButtonsStatus(Status status) {
    if (document_->getCountScenes() == 0)
        return;
    const Scene* scene = document_->getScene(-1);
    videoAct_->setEnabled(scene && !scene->getMainVideo());
    if (status != Status::play && status != Status::pause && status != Status::stop)
        return;
    const bool editable = status != Status::play;
    for (QAction* action : {addSceneAct_, removeSceneAct_, imageAct_, complementAct_, textAct_,
                            templateAct_, publishAct_, viewAct_, shapeAct_, undoAct_, redoAct_})
        action->setEnabled(editable);
    if (!editable)
        videoAct_->setEnabled(false);
    if (shapeMenu_)
        shapeMenu_->setEnabled(editable);
}

// ---------------------------------------------------------------- projects

QString Menu::shownProjectName() const {
    const QString name = document_->getProjectName();
    return name.isEmpty() ? tr("Sem Título.svproj") : name;
}

int Menu::askToSave() {
    if (!document_->isModified())
        return QMessageBox::No;
    return ask(QMessageBox::Question, tr("Salvar projeto"),
               tr("Deseja salvar o projeto \"%1\"?\n").arg(shownProjectName()),
               {{QMessageBox::Yes, tr("Sim")},
                {QMessageBox::No, tr("Não")},
                {QMessageBox::Cancel, tr("Cancelar")}});
}

void Menu::saveAndWait() {
    document_->saveProject();
    // The save runs on a worker that reads the model unguarded: nothing may change the model
    // (a new or opened project, the end of the program) until its progress dialog goes.
    auto* project = parent_ ? parent_->findChild<project::Project*>() : nullptr;
    QDialog* progress = project ? project->getProgressDialog() : nullptr;
    if (!progress || !progress->isVisible())
        return; // nobody saves, or the user gave up the name
    QEventLoop loop;
    savingLoop_ = &loop;
    progress->installEventFilter(this);
    loop.exec();
    progress->removeEventFilter(this);
    savingLoop_ = nullptr;
}

bool Menu::eventFilter(QObject* watched, QEvent* event) {
    if (savingLoop_ && event->type() == QEvent::Hide)
        savingLoop_->quit();
    return QObject::eventFilter(watched, event);
}

bool Menu::saveUnlessCancelled() {
    const int answer = askToSave();
    if (answer == QMessageBox::Yes)
        saveAndWait();
    return answer != QMessageBox::Cancel;
}

QString Menu::chooseProjectFile() {
    // Always the home folder, wherever the media came from.
    return QFileDialog::getOpenFileName(parent_, tr("Escolha o projeto"), QDir::homePath(),
                                        tr("Selvora Project (*.svproj)"), nullptr,
                                        QFileDialog::DontUseNativeDialog);
}

bool Menu::newProject() {
    if (!saveUnlessCancelled())
        return false;
    document_->newProject();
    return true;
}

bool Menu::openProject() {
    if (!saveUnlessCancelled())
        return false;
    const QString path = chooseProjectFile();
    if (path.isEmpty())
        return false;
    document_->loadProject(path);
    return true;
}

bool Menu::openRecentProject() {
    auto* action = qobject_cast<QAction*>(sender());
    if (!action)
        return false;
    switch (askToSave()) {
    case QMessageBox::Cancel:
        return false;
    case QMessageBox::Yes: {
        // After saving, the user picks the project anew: the entry itself is dropped.
        saveAndWait();
        const QString path = chooseProjectFile();
        if (!path.isEmpty())
            document_->loadProject(path);
        return true;
    }
    default:
        break;
    }
    const QString path = action->data().toString();
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        tell(QMessageBox::Warning, tr("Abrir Projeto"), tr("Não foi possível abrir o projeto."));
        return true;
    }
    file.close();
    document_->loadProject(path);
    return true;
}

void Menu::createRecentFilesActions() {
    if (!recentFileActs_.isEmpty())
        return; // one set, whatever the number of file menus
    for (int i = 0; i < Definitions::getMaxRecentFiles(); ++i) {
        auto* action = new QAction(this);
        action->setVisible(false);
        connect(action, &QAction::triggered, this, &Menu::openRecentProject, Qt::UniqueConnection);
        recentFileActs_.append(action);
    }
}

int Menu::getNumRecentFiles() const {
    const int count = QSettings().value(kRecentFiles).toStringList().size();
    return qMin(count, Definitions::getMaxRecentFiles());
}

QString Menu::strippedName(const QString& fullFileName) {
    return QFileInfo(fullFileName).fileName();
}

void Menu::updateRecentProjectActions() {
    const QStringList files = QSettings().value(kRecentFiles).toStringList();
    const int count = getNumRecentFiles();
    for (int i = 0; i < recentFileActs_.size(); ++i) {
        QAction* action = recentFileActs_.at(i);
        if (i < count) {
            action->setText(tr("&%1 %2").arg(i + 1).arg(strippedName(files.at(i))));
            action->setData(files.at(i));
        }
        action->setVisible(i < count);
    }
}

void Menu::closeWindow() {
    if (document_->isModified()) {
        const int answer = ask(QMessageBox::Warning, tr("Sair do Selvorá"),
                               tr("Gostaria de salvar seu projeto antes de sair?\n"),
                               {{QMessageBox::Yes, tr("Salvar")},
                                {QMessageBox::No, tr("Não salvar")},
                                {QMessageBox::Cancel, tr("Cancelar")}});
        if (answer == QMessageBox::Cancel)
            return;
        if (answer == QMessageBox::Yes)
            saveAndWait();
    }
    // Leaves the event loop with status 0 and so ends the program, past the window's own
    // question on closing.
    QCoreApplication::exit(0);
}

// ---------------------------------------------------------------- scenes

void Menu::createScene() {
    document_->createScene(-1);
}

bool Menu::removeScene() {
    if (document_->getCountScenes() == 1) {
        tell(QMessageBox::Information, tr("Atenção"), tr("A lista de cenas não pode ficar vazia."));
        return false;
    }
    Scene* scene = document_->getScene(-1);
    if (!scene)
        return false;
    const int id = scene->getId();
    const int answer = ask(QMessageBox::Question, tr("Atenção"),
                           tr("Deseja mesmo remover a cena \"%1\"?\n").arg(scene->getLabel()),
                           {{QMessageBox::Yes, tr("Sim")},
                            {QMessageBox::No, tr("Não")},
                            {QMessageBox::Cancel, tr("Cancelar")}});
    if (answer != QMessageBox::Yes)
        return false;
    document_->removeScene(id);
    return true;
}

void Menu::viewProject() {
    document_->showProject();
}

void Menu::createComplementBox() {
    document_->insertComplement();
}

void Menu::createTemplate() {
    document_->insertTemplate();
}

// ---------------------------------------------------------------- media

void Menu::openMediaFile(MediaType type) {
    const bool video = type == MediaType::video;
    const QStringList extensions =
        video ? Definitions::getVideoExtensions() : Definitions::getImageExtensions();
    QString filter = video ? tr("Video (") : tr("Imagem (");
    for (const QString& extension : extensions)
        filter += " *." + extension;
    filter += ")";
    QString folder = document_->getLastDirectory();
    if (folder.isEmpty())
        folder = QDir::homePath();
    const QString path =
        QFileDialog::getOpenFileName(parent_, tr("Escolha um arquivo"), folder, filter, nullptr,
                                     QFileDialog::DontUseNativeDialog);
    if (path.isEmpty())
        return;
    document_->createMedia(document_->getScene(-1), path, type, QString(""), QString(""), -1);
    document_->setLastDirectory(QFileInfo(path).absolutePath());
}

void Menu::openVideoFile() {
    openMediaFile(MediaType::video);
}

void Menu::openImageFile() {
    openMediaFile(MediaType::image);
}

void Menu::openText() {
    document_->createMedia(document_->getScene(-1), QString(""), MediaType::text, QString(""),
                           QString(""), -1);
}

void Menu::openShape(Shape type) {
    if (shapeMenu_)
        shapeMenu_->close();
    document_->createMedia(document_->getScene(-1), QString(""), MediaType::shape,
                           QString::number(static_cast<int>(type)), QString(""), -1);
}

void Menu::showShapeMenu() {
    if (shapeMenu_)
        shapeMenu_->showAtPointer();
}

// ---------------------------------------------------------------- publish and export

bool Menu::saveBeforePublishing() {
    if (document_->getProjectName().isNull()) {
        const int answer = ask(QMessageBox::Information, tr("Salvar projeto"),
                               tr("Antes de publicar, você precisa salvar o projeto. Deseja "
                                  "salvar o projeto \"%1\" agora?\n")
                                   .arg(shownProjectName()),
                               {{QMessageBox::Yes, tr("Sim")}, {QMessageBox::No, tr("Não")}});
        if (answer != QMessageBox::Yes)
            return false;
        saveAndWait();
    }
    // A save the user gave up leaves the project without a name: nothing more, without a word.
    return !document_->getProjectName().isNull();
}

void Menu::publish() {
    if (document_->getUrlRepository().isEmpty()) {
        configRepository();
        return;
    }
    if (saveBeforePublishing())
        document_->publishProject();
}

// The conversion service's address belongs to the export itself, which keeps its own.
void Menu::exportHTML() {
    if (saveBeforePublishing())
        document_->exportProject(Definitions::kTypeExport::HTML);
}

void Menu::exportNCL() {
    if (saveBeforePublishing())
        document_->exportProject(Definitions::kTypeExport::NCL);
}

// A package for a learning platform, made here from the saved project: no service is involved.
void Menu::exportSCORM() {
    if (!saveBeforePublishing())
        return;
    if (document_->isModified())
        saveAndWait();
    const project::ExportResult result =
        project::ScormPackage::run(document_, document_->getProjectDirectory());
    tell(result.ok ? QMessageBox::Information : QMessageBox::Warning, tr("Exportação"),
         result.message);
}

// ---------------------------------------------------------------- delayed tool-tips

void Menu::showToolTip() {
    toolTip_->rest(sender());
}

void Menu::updateToolTipText() {
    toolTip_->showLongTip();
}

void Menu::setToolTipTexts() {
    toolTip_->addTip(
        imageAct_, QString(),
        tr("Inserir Imagem:<br/><br/><font size=\"2\">Indique o local da imagem que deseja "
           "inserir na área de trabalho da ferramenta. Há propriedades como tamanho e "
           "posicionamento que podem ser manipuladas numericamente ou simplesmente "
           "arrastando e redimensionando a imagem de acordo com suas preferências. A "
           "imagem também possui a propriedade de transição de cena, entre uma cena e "
           "outra ou na mesma.</font>"));
    toolTip_->addTip(publishAct_, QString(),
                     tr("Publicar:<br/><br/><font size=\"2\">Publique seu objeto de\naprendizagem."
                        "</font>"));
    toolTip_->addTip(
        shapeAct_, QString(),
        tr("Inserir Forma:<br/><br/><font size=\"2\"> Selecione a forma desejada para "
           "inserir na área de trabalho. As formas têm as propriedades tamanho e "
           "posicionamento que podem ser manipuladas numericamente ou simplesmente "
           "arrastando e redimensionando de acordo com suas preferências. A forma também "
           "possui a propriedade de cor de contorno e preenchimento da figura.</font>"));
    toolTip_->addTip(
        textAct_, QString(),
        tr("Inserir Texto:<br/><br/><font size=\"2\">O texto possui propriedades como "
           "tamanho e posicionamento que podem ser manipuladas numericamente ou "
           "simplesmente arrastando e redimensionando a caixa de texto de acordo com suas "
           "preferências. O texto também possui a propriedade de cor de preenchimento, "
           "escolha e tamanho de fontes, formatação do parágrafo e tipo de texto (negrito, "
           "itálico e sublinhado).</font>"));
    toolTip_->addTip(
        videoAct_, QString(),
        tr("Inserir Vídeo:<br/><br/><font size=\"2\">Indique o local do vídeo que deseja "
           "inserir na área de trabalho da ferramenta. Há propriedades como tamanho e "
           "posicionamento que podem ser manipuladas numericamente ou simplesmente "
           "arrastando e redimensionado o vídeo de acordo com suas preferências.</font>"));
}

// ---------------------------------------------------------------- online services

void Menu::settingVerifyUpdate() {
    updateCheck_->settingVerifyUpdate();
}

void Menu::openContactForm() {
    contactForm_->openContactForm();
}

void Menu::configRepository() {
    RepositoryDialog dialog(document_, parent_);
    connect(&dialog, &RepositoryDialog::publishRequested, this, &Menu::publish);
    dialog.exec();
}

void Menu::about() {
    AboutBox::show(parent_);
}

} // namespace menu
} // namespace selvora
