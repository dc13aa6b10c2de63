#include "app/Menu.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "project/Project.h"
#include "support/MediaFixtures.h"
#include "support/MenuPicker.h"
#include "support/ModalAnswerer.h"
#include "support/TestMain.h"

#include <QAction>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolBar>
#include <QToolButton>
#include <QToolTip>

using selvora::Definitions;
using selvora::document::Document;
using selvora::document::Media;
using selvora::document::Scene;
using selvora::menu::Menu;
using selvora::test::MediaFixtures;
using selvora::test::MenuPicker;
using selvora::test::ModalAnswerer;
using MediaType = Definitions::kMediaType;
using Status = Definitions::kPlayerStatus;

namespace {
bool sameIcon(const QIcon& icon, const QString& word) {
    const auto image = [](const QIcon& i) {
        return i.pixmap(24).toImage().convertToFormat(QImage::Format_ARGB32);
    };
    return image(icon) == image(QIcon(":/imagens/" + word));
}

// "text|shortcut|icon word", "-" for a separator, "[30]" or "[stretch]" for a spacer.
QString describe(QAction* action, QToolBar* bar, const QString& wantedIcon) {
    if (action->isSeparator())
        return "-";
    QWidget* widget = bar ? bar->widgetForAction(action) : nullptr;
    if (widget && !qobject_cast<QToolButton*>(widget))
        return widget->maximumWidth() == 30 ? "[30]" : "[stretch]";
    QString icon;
    if (!action->icon().isNull())
        icon = sameIcon(action->icon(), wantedIcon) ? wantedIcon : "another icon";
    return action->text() + "|" + action->shortcut().toString() + "|" + icon;
}

// Answers a file dialog with the path ("" cancels), noting its filter and starting folder.
void answerFile(ModalAnswerer& answerer, const QString& path, QString* seen) {
    answerer.answerWith([=](QWidget* widget) {
        auto* dialog = qobject_cast<QFileDialog*>(widget);
        *seen = dialog->nameFilters().join(';') + "@" + dialog->directory().absolutePath();
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText(path);
        QMetaObject::invokeMethod(dialog, path.isEmpty() ? "reject" : "accept",
                                  Qt::QueuedConnection);
    });
}
} // namespace

// The menus and tool bar of the main window: their entries, what they enable while a scene
// plays, and the commands behind them.
class TestMenu : public QObject {
    Q_OBJECT
private:
    Document* doc = nullptr;
    QMainWindow* window = nullptr;
    Menu* menu = nullptr;
    QList<QMenu*> menus; // file, edit, option, help
    QToolBar* toolBar = nullptr;
    QTemporaryDir temp;

    QAction* action(const QString& text) const {
        for (QWidget* owner : QList<QWidget*>{toolBar, menus[2], menus[0]})
            for (QAction* candidate : owner->actions())
                if (MenuPicker::plain(candidate->text()) == MenuPicker::plain(text))
                    return candidate;
        return nullptr;
    }
    QStringList recentTexts() const {
        QStringList texts;
        for (QAction* candidate : menus[0]->actions())
            if (candidate->isVisible() && candidate->data().isValid())
                texts << candidate->text();
        return texts;
    }
    bool pick(QMenu* from, const QString& text) {
        MenuPicker picker;
        picker.choose({text});
        from->popup(QPoint(100, 100));
        return picker.waitDone() && picker.chosen();
    }
    QString touch(const QString& name) {
        QFile file(temp.filePath(name));
        return file.open(QIODevice::WriteOnly) ? file.fileName() : QString();
    }

private slots:
    void initTestCase() {
        doc = Document::instance();
        doc->newProject();
        window = new QMainWindow();
        menu = new Menu(doc, window);
        menus = {menu->createFileMenu(), menu->createEditMenu(), menu->createOptionMenu(),
                 menu->createHelpMenu()};
        for (QMenu* each : menus) {
            each->setParent(window->menuBar(), each->windowFlags());
            window->menuBar()->addMenu(each);
        }
        toolBar = menu->createToolBar();
        window->addToolBar(toolBar);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window));
    }
    void cleanupTestCase() {
        doc->setModified(false);
        delete window;
        doc->newProject();
    }
    void init() {
        doc->newProject();
        QSettings().remove("recentFileList");
        doc->updateRecentFiles();
    }

    void entriesInOrder_data() {
        QTest::addColumn<int>("owner"); // 0 to 3 the menus, 4 the tool bar
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("entries"); // joined by ";"
        const QString insert = "Inserir Vídeo||icones-Selvora_04;Inserir Imagem||icones-Selvora_05;"
                               "Inserir Texto||icones-Selvora_09;Inserir Formas||icones-Selvora_10";
        const QString publish = "Publicar||icones-Selvora_12";
        const QString undo = "&Desfazer|Ctrl+Z|undo;&Refazer|Ctrl+Y|redo";
        QTest::newRow("Arquivo") << 0 << "&Arquivo"
                                 << "&Novo|Ctrl+N|new;&Abrir|Ctrl+O|open;&Salvar|Ctrl+S|save;-;"
                                    "Exportar||;-;-;S&air|Alt+F4|exit";
        QTest::newRow("Editar") << 1 << "&Editar" << undo;
        const QString scenes = "Adicionar Cena||icones-Selvora_01;Remover Cena||icones-Selvora_02";
        QTest::newRow("Opções") << 2 << "&Opções"
                                << scenes + ";-;" + insert +
                                       ";Inserir Template||icones-Selvora_03;-;-;" + publish;
        QTest::newRow("Ajuda") << 3 << "A&juda"
                               << "Reportar||report;Verificar Atualização||update;-;"
                                  "Sobre &Selvorá||icone";
        QTest::newRow("toolbar") << 4 << "Menu"
                                 << "[30];" + insert + ";-;" + publish + ";[stretch];" + undo +
                                        ";[30]";
    }
    void entriesInOrder() {
        QFETCH(int, owner);
        QFETCH(QString, title);
        QFETCH(QString, entries);
        QWidget* widget = owner < 4 ? static_cast<QWidget*>(menus[owner]) : toolBar;
        QCOMPARE(owner < 4 ? menus[owner]->title() : toolBar->windowTitle(), title);
        const QStringList wanted = entries.split(';');
        QStringList actual;
        for (QAction* each : widget->actions()) {
            const QString icon = wanted.value(actual.size()).section('|', 2);
            if (each->isVisible())
                actual << describe(each, qobject_cast<QToolBar*>(widget), icon);
        }
        QCOMPARE(actual.join(';'), entries);
        QCOMPARE(action("Exportar")->menu()->actions().size(), 3);
        QCOMPARE(action("Exportar")->menu()->actions()[1]->text(), QString("NCL"));
        QCOMPARE(action("Exportar")->menu()->actions()[2]->text(), QString("SCORM"));
    }

    // Thirteen rows of four; each button inserts its shape, numbered as kShapeType.
    void paletteInsertsEveryShape() {
        const QStringList rows = {
            "rectangle rounded_rect cube_left cube_right",
            "triangle inverted_triangle diamond parallelogram_left",
            "circle pentagon hexagon octogon",
            "star_four_points star_five_points star_six_points star_eight_points",
            "trapeze_top trapeze_bottom trapeze_right trapeze_left",
            "right_triangle1 right_triangle2 right_triangle3 right_triangle4",
            "plus minus multiplication division",
            "equality inequality bracket_open bracket_close",
            "arrow_right arrow_left arrow_top arrow_bottom",
            "arrow_rect_bottom arrow_rect_top arrow_rect_left arrow_rect_right",
            "balloon_rect1 balloon_rect2 balloon_rect3 balloon_rect4",
            "balloon1 balloon2 balloon3 balloon4",
            "balloonThought1 balloonThought2 balloonThought3 balloonThought4"};
        QMenu* palette = menu->getShapeMenu();
        QCursor::setPos(window->mapToGlobal(QPoint(300, 200)));
        QTest::mouseClick(toolBar->widgetForAction(action("Inserir Formas")), Qt::LeftButton);
        QTRY_VERIFY(palette->isVisible());
        QCOMPARE(palette->pos(), QCursor::pos());
        const QList<QToolBar*> bars = palette->findChildren<QToolBar*>();
        QCOMPARE(bars.size(), rows.size());
        QSignalSpy added(doc, &Document::mediaAdded);
        for (int r = 0; r < rows.size(); ++r) {
            const QStringList words = rows[r].split(' ');
            QCOMPARE(bars[r]->actions().size(), words.size());
            for (int c = 0; c < words.size(); ++c) {
                QAction* shape = bars[r]->actions()[c];
                QVERIFY2(sameIcon(shape->icon(), words[c]), qPrintable(words[c]));
                qobject_cast<QToolButton*>(bars[r]->widgetForAction(shape))->click();
                QVERIFY(!palette->isVisible());
                auto* made = qvariant_cast<Media*>(added.last().first());
                QCOMPARE(made->getType(), MediaType::shape);
                QCOMPARE(made->getGeometry(),
                         QString::number(int(Definitions::getkShapeType(words[c]))));
            }
        }
        QCOMPARE(doc->getScene(-1)->countMedia(), 52);
        QCOMPARE(menu->getShapeAction(Definitions::kShapeType::octogon)->text(), "Octógono");
    }

    void insertMedia_data() {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("file"); // "" for no dialog
        QTest::addColumn<QString>("lastFolder");
        QTest::addColumn<QString>("dialog"); // filter@starting folder
        const QString picture = MediaFixtures::makeImage(temp.path(), "pic.png", QSize(8, 6));
        QTest::newRow("video, home") << "Inserir Vídeo" << 0 << MediaFixtures::videoPath() << ""
                                     << "Video ( *.mp4)@" + QDir::homePath();
        QTest::newRow("image, last folder") << "Inserir Imagem" << 1 << picture << temp.path()
                                            << "Imagem ( *.jpg *.jpeg *.png)@" + temp.path();
        QTest::newRow("text") << "Inserir Texto" << 2 << QString() << QString() << QString();
    }
    void insertMedia() {
        QFETCH(QString, entry);
        QFETCH(int, type);
        QFETCH(QString, file);
        QFETCH(QString, lastFolder);
        QFETCH(QString, dialog);
        doc->setLastDirectory(lastFolder);
        ModalAnswerer answerer;
        QString seen;
        if (!file.isEmpty())
            answerFile(answerer, file, &seen);
        QVERIFY(pick(menus[2], entry));
        QVERIFY(answerer.waitAllAnswered());
        QCOMPARE(answerer.seen().size(), file.isEmpty() ? 0 : 1);
        QCOMPARE(seen, dialog);
        QCOMPARE(answerer.last().title, file.isEmpty() ? "" : "Escolha um arquivo");
        QCOMPARE(doc->getScene(-1)->countMedia(), 1);
        Media* made = doc->getScene(-1)->getAllMedias().first();
        QCOMPARE(int(made->getType()), type);
        QCOMPARE(made->getPathStart(), file);
        if (!file.isEmpty())
            QCOMPARE(doc->getLastDirectory(), QFileInfo(file).absolutePath());
    }

    void buttonsFollowPlayerStatus_data() {
        QTest::addColumn<Status>("status");
        QTest::addColumn<bool>("mainVideo");
        for (bool video : {false, true}) {
            const char* suffix = video ? ", main video" : "";
            QTest::addRow("play%s", suffix) << Status::play << video;
            QTest::addRow("pause%s", suffix) << Status::pause << video;
            QTest::addRow("stop%s", suffix) << Status::stop << video;
        }
    }
    void buttonsFollowPlayerStatus() {
        QFETCH(Status, status);
        QFETCH(bool, mainVideo);
        Scene* scene = doc->getScene(-1);
        Media* video = mainVideo ? doc->createMedia(scene, MediaFixtures::videoPath(),
                                                    MediaType::video, "", "")
                                 : nullptr;
        scene->setStatusPlayer(status);
        const bool editable = status != Status::play;
        for (const char* text :
             {"Adicionar Cena", "Remover Cena", "Inserir Imagem", "Inserir Texto", "Publicar",
              "Inserir Formas", "&Desfazer", "&Refazer"})
            QVERIFY2(action(text)->isEnabled() == editable, text);
        QCOMPARE(menu->getShapeMenu()->isEnabled(), editable);
        QCOMPARE(action("Inserir Vídeo")->isEnabled(), editable && !video);
        for (const char* text : {"&Novo", "&Abrir", "&Salvar", "Exportar", "S&air"})
            QVERIFY2(action(text)->isEnabled(), text);
        scene->setStatusPlayer(Status::pause);
        if (video) {
            scene->removeMedia(video->getId());
            QVERIFY(action("Inserir Vídeo")->isEnabled());
        }
        // Only the current scene counts.
        Scene* other = doc->createScene(-1);
        other->setStatusPlayer(Status::play);
        QCOMPARE(action("Publicar")->isEnabled(), true);
        doc->setCurrentScene(other->getId(), true);
        QCOMPARE(action("Publicar")->isEnabled(), false);
    }

    // New, open and open recent ask to save a modified project first.
    void savePromptBeforeLeaving_data() {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("answer"); // "" when unmodified: no question
        QTest::addColumn<bool>("chooser");   // the project chooser opens and picks a.svproj
        QTest::addColumn<QString>("loaded");
        QTest::addColumn<bool>("renewed");
        auto row = [](const char* name, const char* command, const char* answer, bool chooser,
                      const char* loaded, bool renewed) {
            QTest::newRow(name) << QString(command) << QString::fromUtf8(answer) << chooser
                                << QString(loaded) << renewed;
        };
        row("new, unmodified", "new", "", false, "", true);
        row("new, Sim", "new", "Sim", false, "", true);
        row("new, Cancelar", "new", "Cancelar", false, "", false);
        row("open, Não", "open", "Não", true, "a.svproj", false);
        row("open, Cancelar", "open", "Cancelar", false, "", false);
        row("recent, Não", "recent", "Não", false, "entry.svproj", false);
        row("recent, Sim: the chooser instead", "recent", "Sim", true, "a.svproj", false);
        row("recent, Cancelar", "recent", "Cancelar", false, "", false);
    }
    void savePromptBeforeLeaving() {
        QFETCH(QString, command);
        QFETCH(QString, answer);
        QFETCH(bool, chooser);
        QFETCH(QString, loaded);
        QFETCH(bool, renewed);
        QSettings().setValue("recentFileList", QStringList{touch("entry.svproj")});
        doc->updateRecentFiles();
        doc->setModified(!answer.isEmpty());
        QSignalSpy saved(doc, &Document::save);
        QSignalSpy created(doc, &Document::newp);
        QSignalSpy load(doc, &Document::load);
        ModalAnswerer answerer;
        if (!answer.isEmpty())
            answerer.answer(answer);
        QString seen;
        if (chooser)
            answerFile(answerer, touch("a.svproj"), &seen);
        if (command == "new")
            QCOMPARE(menu->newProject(), renewed);
        else if (command == "open")
            QCOMPARE(menu->openProject(), chooser);
        else
            QVERIFY(pick(menus[0], "1 entry.svproj"));
        QVERIFY(answerer.waitAllAnswered());

        QCOMPARE(answerer.seen().size(), int(!answer.isEmpty()) + int(chooser));
        if (!answer.isEmpty()) {
            QCOMPARE(answerer.seen().first().title, "Salvar projeto");
            QCOMPARE(answerer.seen().first().text,
                     "Deseja salvar o projeto \"Sem Título.svproj\"?\n");
        }
        if (chooser) {
            QCOMPARE(answerer.last().title, "Escolha o projeto");
            QCOMPARE(seen, "Selvora Project (*.svproj)@" + QDir::homePath());
        }
        QCOMPARE(saved.count(), int(answer == "Sim"));
        QCOMPARE(created.count(), int(renewed));
        QCOMPARE(load.count(), int(!loaded.isEmpty()));
        if (!loaded.isEmpty())
            QCOMPARE(load.first().first().toString(), temp.filePath(loaded));
        doc->setModified(false);
    }

    void removeSceneAsks_data() {
        QTest::addColumn<int>("scenes");
        QTest::addColumn<QString>("answer");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("left");
        const QString question = "Deseja mesmo remover a cena \"Cena 1\"?\n";
        QTest::newRow("the last scene") << 1 << "OK"
                                        << "A lista de cenas não pode ficar vazia." << 1;
        QTest::newRow("Sim") << 2 << "Sim" << question << 1;
        QTest::newRow("Não") << 2 << "Não" << question << 2;
    }
    void removeSceneAsks() {
        QFETCH(int, scenes);
        QFETCH(QString, answer);
        QFETCH(QString, text);
        QFETCH(int, left);
        if (scenes == 2)
            doc->createScene(-1);
        ModalAnswerer answerer;
        answerer.answer(answer);
        QVERIFY(pick(menus[2], "Remover Cena"));
        QVERIFY(answerer.waitAllAnswered());
        QCOMPARE(answerer.last().title, "Atenção");
        QCOMPARE(answerer.last().text, text);
        QCOMPARE(doc->getCountScenes(), left);
        QCOMPARE(doc->getSceneAll().contains(0), left == scenes); // "Cena 1" went
    }

    // Five entries of the list are offered; one that vanished gets a box and stays listed, and
    // a project opened from the list goes to its top.
    void recentProjects() {
        selvora::project::Project project(doc, window);
        const QString picture = MediaFixtures::makeImage(temp.path(), "r.png", QSize(9, 9));
        doc->createMedia(doc->getScene(-1), picture, MediaType::image, "", "");
        ModalAnswerer answerer;
        answerer.answerFileDialog(temp.filePath("aula"));
        doc->saveProject();
        QVERIFY(answerer.waitAllAnswered());
        QVERIFY(QTest::qWaitFor([&] { return !project.getProgressDialog()->isVisible(); }));
        const QString saved = temp.filePath("aula/aula.svproj");
        // "Sim" to saving: the new project waits for the save's worker, which reads the model.
        doc->setModified(true);
        bool savingAtNew = true;
        connect(doc, &Document::newp, this,
                [&] { savingAtNew = project.getProgressDialog()->isVisible(); });
        answerer.answer("Sim");
        QVERIFY(menu->newProject());
        disconnect(doc, &Document::newp, this, nullptr);
        QVERIFY(!savingAtNew);
        QCOMPARE(doc->getProjectName(), QString());
        const QStringList list = {temp.filePath("gone.svproj"),
                                  "/x/b.svproj",
                                  saved,
                                  "/x/d.svproj",
                                  "/x/e.svproj",
                                  "/x/f.svproj"};
        QSettings().setValue("recentFileList", list);
        doc->updateRecentFiles();
        QCOMPARE(recentTexts(), QStringList({"&1 gone.svproj", "&2 b.svproj", "&3 aula.svproj",
                                             "&4 d.svproj", "&5 e.svproj"}));

        answerer.answer("OK");
        QVERIFY(pick(menus[0], "1 gone.svproj"));
        QVERIFY(answerer.waitAllAnswered());
        QCOMPARE(answerer.last().title, "Abrir Projeto");
        QCOMPARE(answerer.last().text, "Não foi possível abrir o projeto.");
        QCOMPARE(doc->getProjectName(), QString());
        QCOMPARE(QSettings().value("recentFileList").toStringList(), list);

        QVERIFY(pick(menus[0], "3 aula.svproj"));
        QCOMPARE(doc->getProjectName(), "aula.svproj");
        QCOMPARE(doc->getScene(-1)->countMedia(), 1);
        QCOMPARE(recentTexts(), QStringList({"&1 aula.svproj", "&2 gone.svproj", "&3 b.svproj",
                                             "&4 d.svproj", "&5 e.svproj"}));
        doc->setModified(false);
    }

    // The short tip is the text; the long one comes after the delay, and again while the
    // pointer stays within 60 by 30 of where it came to rest.
    void delayedToolTip_data() {
        QTest::addColumn<QPoint>("moved");
        QTest::addColumn<bool>("shown");
        QTest::newRow("after the delay") << QPoint(0, 0) << true;
        QTest::newRow("at the edge") << QPoint(60, -30) << true;
        QTest::newRow("61 aside") << QPoint(-61, 0) << false;
        QTest::newRow("31 below") << QPoint(0, 31) << false;
    }
    void delayedToolTip() {
        QFETCH(QPoint, moved);
        QFETCH(bool, shown);
        // The long tip follows the active window: give it the X focus, which no late focus
        // change from an earlier dialog takes away.
        window->activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), window);
        QToolTip::hideText();
        QTRY_VERIFY(!QToolTip::isVisible());
        QCOMPARE(action("Publicar")->toolTip(), "Publicar");
        const QPoint rest = window->mapToGlobal(QPoint(400, 300));
        QCursor::setPos(rest);
        QTRY_COMPARE(QCursor::pos(), rest);
        action("Publicar")->hover();
        QVERIFY(!QToolTip::isVisible());
        QCursor::setPos(rest + moved);
        QTRY_COMPARE(QCursor::pos(), rest + moved);
        if (moved.isNull())
            QTRY_VERIFY_WITH_TIMEOUT(QToolTip::isVisible(), 5000);
        else
            menu->updateToolTipText();
        QCOMPARE(QToolTip::isVisible(), shown);
        if (shown)
            QCOMPARE(QToolTip::text(), "Publicar:<br/><br/><font size=\"2\">Publique seu objeto "
                                       "de\naprendizagem.</font>");
        QToolTip::hideText();
    }
};

SELVORA_TEST_MAIN(TestMenu)
#include "tst_menu.moc"
