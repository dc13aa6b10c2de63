#include "app/MainWindow.h"
#include "app/OrganisationInfo.h"
#include "app/StyleSheet.h"
#include "document/Document.h"
#include "support/ModalAnswerer.h"
#include "support/TestMain.h"

#include <QSignalSpy>
#include <QSplashScreen>
#include <QTemporaryDir>

using selvora::MainWindow;
using selvora::document::Document;
using selvora::test::ModalAnswerer;

// The window as the user meets it: its title, the two global shortcuts and the question on
// closing a modified project.
class TestMainWindow : public QObject {
    Q_OBJECT
private:
    MainWindow* window = nullptr;

private slots:
    void init() { window = new MainWindow(QString()); }
    void cleanup() {
        window->getDocument()->setModified(false);
        delete window;
        window = nullptr;
    }

    void startsWithOneUntitledScene() {
        QCOMPARE(window->windowTitle(), QString::fromUtf8("Sem Título.svproj"));
        Document* doc = window->getDocument();
        QCOMPARE(doc->getCountScenes(), 1);
        doc->setProjectDirectory("/home/prof");
        doc->setProjectName("aula.svproj");
        QCOMPARE(window->windowTitle(), QString("/home/prof/aula.svproj"));
    }

    // The splash shows from the start until the window is on the screen, and not a moment more.
    void splashUntilTheWindowShows() {
        QSplashScreen* splash = nullptr;
        for (QWidget* top : QApplication::topLevelWidgets())
            splash = splash ? splash : qobject_cast<QSplashScreen*>(top);
        QVERIFY(splash && splash->isVisible());
        QVERIFY(QTest::qWaitForWindowExposed(window));
        QTRY_VERIFY(!splash->isVisible());
    }

    void shortcutsReachTheDocument_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<int>("undos");
        QTest::addColumn<int>("redos");
        QTest::newRow("ctrl+z") << int(Qt::Key_Z) << int(Qt::ControlModifier) << 1 << 0;
        QTest::newRow("ctrl+y") << int(Qt::Key_Y) << int(Qt::ControlModifier) << 0 << 1;
        QTest::newRow("ctrl+c") << int(Qt::Key_C) << int(Qt::ControlModifier) << 0 << 0;
    }
    void shortcutsReachTheDocument() {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(int, undos);
        QFETCH(int, redos);
        QSignalSpy undo(window->getDocument(), &Document::undo);
        QSignalSpy redo(window->getDocument(), &Document::redo);
        QTest::keyClick(window, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        QCOMPARE(undo.count(), undos);
        QCOMPARE(redo.count(), redos);
    }

    void closingUnmodifiedAsksNothing() {
        ModalAnswerer answerer;
        // A box would be run inside close(): once it returns, there was none.
        QVERIFY(window->close());
        QVERIFY(answerer.seen().isEmpty());
    }

    void closingModifiedAsks_data() {
        QTest::addColumn<QString>("button");
        QTest::addColumn<bool>("closed");
        QTest::addColumn<int>("saves");
        QTest::newRow("save") << "Salvar" << true << 1;
        QTest::newRow("cancel") << "Cancelar" << false << 0;
    }
    void closingModifiedAsks() {
        QFETCH(QString, button);
        QFETCH(bool, closed);
        QFETCH(int, saves);
        window->show();
        Document* doc = window->getDocument();
        doc->setModified(true);
        QSignalSpy save(doc, &Document::save);
        ModalAnswerer answerer;
        answerer.answer(button);
        if (saves)
            answerer.reject(); // a project never saved asks where to save it
        QCOMPARE(window->close(), closed);
        QCOMPARE(answerer.seen().size(), 1 + saves);
        const ModalAnswerer::Seen question = answerer.seen().first();
        QCOMPARE(question.title, QString::fromUtf8("Sair do Selvorá"));
        QCOMPARE(question.text,
                 QString::fromUtf8("Gostaria de salvar seu projeto antes de sair?\n"));
        QCOMPARE(save.count(), saves);
        QCOMPARE(doc->isModified(), true);
    }

    void styleSheetFallsBack() {
        QTemporaryDir dir;
        QVERIFY(!selvora::applyStyleSheetFile(qApp, dir.filePath("missing.css")));
        QCOMPARE(qApp->styleSheet(), selvora::fallbackStyleSheet());
        QVERIFY(selvora::applyStyleSheetFile(qApp, ":/css/main"));
        QVERIFY(qApp->styleSheet().contains("#timeSlider::groove:horizontal"));
        qApp->setStyleSheet(QString());
    }

    void onlyOneArgumentOpensAProject_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("project");
        QTest::newRow("one") << QStringList{"selvora", "a.svproj"} << "a.svproj";
        QTest::newRow("two") << QStringList{"selvora", "a.svproj", "b.svproj"} << QString();
    }
    void onlyOneArgumentOpensAProject() {
        QFETCH(QStringList, arguments);
        QFETCH(QString, project);
        QCOMPARE(selvora::OrganisationInfo::projectArgument(arguments), project);
    }

    void projectOnTheCommandLineIsLoaded() {
        QSignalSpy load(Document::instance(), &Document::load);
        MainWindow other(QString("/tmp/x.svproj"));
        QCOMPARE(load.count(), 1);
        QCOMPARE(load.at(0).at(0).toString(), QString("/tmp/x.svproj"));
    }
};

SELVORA_TEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
