#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "project/Project.h"
#include "support/MediaFixtures.h"
#include "support/ModalAnswerer.h"
#include "support/TestMain.h"

#include <QDialog>
#include <QFileDialog>
#include <QProgressBar>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>

using selvora::Definitions;
using selvora::document::Document;
using selvora::document::Media;
using selvora::document::Scene;
using selvora::project::Project;
using selvora::test::MediaFixtures;
using selvora::test::ModalAnswerer;
using MediaType = Definitions::kMediaType;

namespace {
const QString kTitleSaveAs = QString::fromUtf8("Salvar Projeto como");
const QString kExists = QString::fromUtf8("Já existe um projeto com este nome neste diretório.");
const QString kNoPermission =
    QString::fromUtf8("Você não tem permissão para salvar neste diretório.");
} // namespace

// The controller: asking for a name, the save on its worker thread behind the progress dialog,
// loading with its boxes and the list of recent projects.
class TestProjectController : public QObject {
    Q_OBJECT
private:
    Document* doc = nullptr;
    Project* project = nullptr;
    QTemporaryDir* temp = nullptr;

    bool waitSaved() {
        QDialog* dialog = project->getProgressDialog();
        return QTest::qWaitFor([dialog] { return !dialog->isVisible(); }, 10000);
    }

    // A project saved at temp/name with one picture, the document named after it.
    QString savedProject(const QString& name) {
        const QString picture = MediaFixtures::makeImage(temp->path(), name + ".png", QSize(9, 9));
        doc->createMedia(doc->getScene(-1), picture, MediaType::image, "", "");
        ModalAnswerer answerer;
        answerer.answerFileDialog(temp->path() + "/" + name);
        doc->saveProject();
        if (!waitSaved())
            return QString();
        return temp->path() + "/" + name + "/" + name + ".svproj";
    }

private slots:
    void init() {
        doc = Document::instance();
        doc->newProject();
        project = new Project(doc);
        temp = new QTemporaryDir();
        QSettings().remove("recentFileList");
    }
    void cleanup() {
        delete project;
        project = nullptr;
        doc->newProject();
        delete temp;
    }

    // The typed name loses ".svproj" in any case, every time it stands there.
    void saveAsNames_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("folder");
        QTest::addRow("plain") << "aula"
                               << "aula";
        QTest::addRow("upper case") << "x.SVPROJ"
                                    << "x";
        QTest::addRow("twice") << "x.svproj.svproj"
                               << "x";
    }
    void saveAsNames() {
        QFETCH(QString, typed);
        QFETCH(QString, folder);
        ModalAnswerer answerer;
        answerer.answerFileDialog(temp->path() + "/" + typed);
        doc->saveProject();
        QCOMPARE(answerer.seen().size(), 1);
        QCOMPARE(answerer.last().title, kTitleSaveAs);
        QVERIFY(waitSaved());
        QCOMPARE(doc->getProjectDirectory(), temp->path() + "/" + folder);
        QCOMPARE(doc->getProjectName(), folder + ".svproj");
        QVERIFY(QFile::exists(temp->path() + "/" + folder + "/" + folder + ".svproj"));
    }

    // The loop goes on after each refusal until a cancel; a cancel leaves the project unnamed.
    void saveAsRefusals_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("text");
        QTest::addRow("existing folder") << "existe" << kExists;
        QTest::addRow("cannot be made") << "arquivo/dentro" << kNoPermission;
    }
    void saveAsRefusals() {
        QFETCH(QString, typed);
        QFETCH(QString, text);
        QVERIFY(QDir().mkpath(temp->path() + "/existe"));
        QFile file(temp->path() + "/arquivo");
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();

        {
            ModalAnswerer answerer;
            const QString path = temp->path() + "/" + typed;
            if (QDir(path).exists()) {
                // The dialog itself walks into a folder that is typed: accept it as it stands.
                answerer.answerWith([path](QWidget* widget) {
                    auto* dialog = qobject_cast<QFileDialog*>(widget);
                    QVERIFY(dialog);
                    dialog->selectFile(path);
                    static_cast<QDialog*>(dialog)->done(QDialog::Accepted);
                });
            } else {
                answerer.answerFileDialog(path);
            }
            answerer.answer("OK");
            answerer.reject();
            doc->saveProject();
            QCOMPARE(answerer.seen().size(), 3);
            QCOMPARE(answerer.seen().at(1).title, QString("Erro"));
            QCOMPARE(answerer.seen().at(1).text, text);
            QCOMPARE(answerer.seen().at(2).title, kTitleSaveAs);
            QVERIFY(doc->getProjectName().isNull());
            QVERIFY(!project->getProgressDialog()->isVisible());
        }
    }

    // The save runs behind a dialog that stays on top, cannot be closed, and goes with the
    // thread.
    void saveOnWorkerThread() {
        QDialog* dialog = project->getProgressDialog();
        QVERIFY(dialog->windowFlags() & Qt::WindowStaysOnTopHint);
        QVERIFY(!(dialog->windowFlags() & Qt::WindowCloseButtonHint));
        const QString file = savedProject("trabalho");
        QVERIFY(!file.isEmpty());
        QCOMPARE(dialog->findChild<QProgressBar*>()->value(), 100);

        // A named project saves without asking; the dialog shows meanwhile and refuses to close.
        doc->setModified(true);
        doc->createScene();
        ModalAnswerer answerer;
        doc->saveProject();
        QVERIFY(dialog->isVisible());
        QVERIFY(waitSaved());
        QVERIFY(answerer.seen().isEmpty());
        QTRY_VERIFY(!doc->isModified());
    }

    // A failing copy ends the save with its box; the file stays as it was.
    void saveFailureShowsBox() {
        const QString file = savedProject("falha");
        QVERIFY(!file.isEmpty());
        const QString gone = MediaFixtures::makeImage(temp->path(), "sumiu.png", QSize(4, 4));
        doc->createMedia(doc->getScene(-1), gone, MediaType::image, "", "");
        QVERIFY(QFile::remove(gone));
        const QByteArray before = [&] {
            QFile f(file);
            f.open(QIODevice::ReadOnly);
            return f.readAll();
        }();
        ModalAnswerer answerer;
        answerer.answer("OK");
        doc->saveProject();
        QVERIFY(waitSaved());
        QVERIFY(answerer.waitAllAnswered());
        QCOMPARE(answerer.last().title, QString("Erro"));
        QCOMPARE(answerer.last().text,
                 QString::fromUtf8("Você não tem permissão para ler o arquivo <b>\"%1\"</b>.")
                     .arg(gone));
        QFile after(file);
        QVERIFY(after.open(QIODevice::ReadOnly));
        QCOMPARE(after.readAll(), before);
        QVERIFY(doc->isModified());
    }

    // Paths that load refuses leave the open project as it was, without a word.
    void loadRefusals_data() {
        QTest::addColumn<QString>("path");
        QTest::addRow("empty") << "";
        QTest::addRow("upper case extension") << "%1/aula/aula.SVPROJ";
        QTest::addRow("missing") << "%1/nada.svproj";
    }
    void loadRefusals() {
        QFETCH(QString, path);
        QVERIFY(QDir().mkpath(temp->path() + "/aula"));
        QVERIFY(QFile::copy(MediaFixtures::dataPath("project_words.svproj"),
                            temp->path() + "/aula/aula.SVPROJ"));
        doc->getScene(-1)->setLabel("Minha cena");
        ModalAnswerer answerer;
        doc->loadProject(path.contains("%1") ? path.arg(temp->path()) : path);
        QVERIFY(answerer.seen().isEmpty());
        QCOMPARE(doc->getScene(-1)->getLabel(), QString("Minha cena"));
        QVERIFY(QSettings().value("recentFileList").toStringList().isEmpty());
    }

    void loadReportBoxes_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");
        QTest::addRow("not well formed")
            << "project_malformed.svproj"
            << "Erro" << QString::fromUtf8("Não foi possível abrir o projeto.");
        QTest::addRow("no scenes") << "project_noscenes.svproj" << QString::fromUtf8("Atenção")
                                   << QString::fromUtf8("Esse projeto não possui cenas.");
        QTest::addRow("well formed") << "project_words.svproj" << QString() << QString();
    }
    void loadReportBoxes() {
        QFETCH(QString, file);
        QFETCH(QString, title);
        QFETCH(QString, text);
        const QString path = MediaFixtures::dataPath(file);
        QSignalSpy recent(doc, &Document::recentFilesUpdate);
        ModalAnswerer answerer;
        if (!text.isEmpty())
            answerer.answer("OK");
        doc->loadProject(path);
        QCOMPARE(answerer.seen().size(), text.isEmpty() ? 0 : 1);
        if (!text.isEmpty()) {
            QCOMPARE(answerer.last().title, title);
            QCOMPARE(answerer.last().text, text);
            // A new, empty project took the place of the old one.
            QCOMPARE(doc->getCountScenes(), 1);
            QVERIFY(doc->getProjectName().isNull());
        } else {
            QCOMPARE(doc->getScene(-1)->getLabel(), QString("Palavras"));
            QCOMPARE(doc->getProjectName(), file);
            QVERIFY(!doc->isModified());
        }
        // Whatever the outcome, the file enters the list.
        QCOMPARE(QSettings().value("recentFileList").toStringList().value(0),
                 QFileInfo(path).absoluteFilePath());
        QCOMPARE(recent.size(), 1);
    }

    // Removing a saved medium removes its stored file at once, in whichever scene is current.
    void removedMediaFileDeleted() {
        QVERIFY(!savedProject("remover").isEmpty());
        Media* first = doc->getScene(-1)->getAllMedias().value(0);
        QVERIFY(first && QFile::exists(first->getPathProject()));
        const QString firstPath = first->getPathProject();
        QVERIFY(doc->getScene(-1)->removeMedia(first->getId()));
        QVERIFY(!QFile::exists(firstPath));

        Scene* other = doc->createScene();
        doc->setCurrentScene(other->getId(), true);
        Media* second = doc->createMedia(
            other, MediaFixtures::makeImage(temp->path(), "outra.png", QSize(5, 5)),
            MediaType::image, "", "");
        doc->saveProject();
        QVERIFY(waitSaved());
        const QString secondPath = second->getPathProject();
        QVERIFY(QFile::exists(secondPath));
        QVERIFY(other->removeMedia(second->getId()));
        QVERIFY(!QFile::exists(secondPath));
    }

    // Clearing takes the commands down until the next new or opened project.
    void clearDisconnectsUntilNewProject() {
        doc->clearDocument();
        {
            ModalAnswerer quiet;
            doc->saveProject();
            QVERIFY(quiet.seen().isEmpty());
        }
        doc->newProject();
        ModalAnswerer asked;
        asked.reject();
        doc->saveProject();
        QCOMPARE(asked.seen().size(), 1);
        QCOMPARE(asked.last().title, kTitleSaveAs);
    }
};

SELVORA_TEST_MAIN(TestProjectController)
#include "tst_projectcontroller.moc"
