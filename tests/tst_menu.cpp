#include "app/Menu.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
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

    void buttonsFollowPlayerStatus_data() {
        QTest::addColumn<Status>("status");
        QTest::addColumn<bool>("mainVideo");
        QTest::addRow("play") << Status::play << false;
        QTest::addRow("pause, main video") << Status::pause << true;
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
        QCOMPARE(action("Inserir Vídeo")->isEnabled(), editable && !video);
        for (const char* text : {"&Novo", "&Abrir", "&Salvar", "Exportar", "S&air"})
            QVERIFY2(action(text)->isEnabled(), text);
        scene->setStatusPlayer(Status::pause);
        if (video) {
            scene->removeMedia(video->getId());
            QVERIFY(action("Inserir Vídeo")->isEnabled());
        }
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
        row("new, Sim", "new", "Sim", false, "", true);
        row("new, Cancelar", "new", "Cancelar", false, "", false);
        row("open, Não", "open", "Não", true, "a.svproj", false);
        row("recent, Sim: the chooser instead", "recent", "Sim", true, "a.svproj", false);
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

    // Five entries of the list are offered; one that vanished gets a box and stays listed.
    void recentProjects() {
        QStringList list = {temp.filePath("gone.svproj")};
        for (const char* name : {"b", "c", "d", "e", "f"})
            list << QString("/x/%1.svproj").arg(name);
        QSettings().setValue("recentFileList", list);
        doc->updateRecentFiles();
        QCOMPARE(recentTexts(), QStringList({"&1 gone.svproj", "&2 b.svproj", "&3 c.svproj",
                                             "&4 d.svproj", "&5 e.svproj"}));
        ModalAnswerer answerer;
        answerer.answer("OK");
        QVERIFY(pick(menus[0], "1 gone.svproj"));
        QVERIFY(answerer.waitAllAnswered());
        QCOMPARE(answerer.last().title, "Abrir Projeto");
        QCOMPARE(answerer.last().text, "Não foi possível abrir o projeto.");
        QCOMPARE(QSettings().value("recentFileList").toStringList(), list);
    }

    // The short tip is the text; the long one comes after the delay, and again while the
    // pointer stays within 60 by 30 of where it came to rest.
    void delayedToolTip_data() {
        QTest::addColumn<QPoint>("moved");
        QTest::addColumn<bool>("shown");
        QTest::newRow("after the delay") << QPoint(0, 0) << true;
        QTest::newRow("61 aside") << QPoint(-61, 0) << false;
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
